#include "card/datamanager.h"
#include "clirunner.h"
#include "support/testhome.h"

#include <QFile>
#include <QTest>

// The printed forms of a card with every field type must not change when the way records
// are held in memory does.
class TestGoldenOutput : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void output_data();
    void output();
    void saveKeepsBytes();
};

namespace
{
QByteArray dataBytes(const QString &name)
{
    QFile file(TestHome::dataFile(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The card's bytes, from the hex text with its comment lines.
QByteArray everyTypeCard()
{
    QByteArray hex;
    for (const QByteArray &line : dataBytes(QStringLiteral("card/everytype.hex")).split('\n')) {
        if (!line.startsWith('#'))
            hex += line.trimmed();
    }
    return QByteArray::fromHex(hex);
}

QString writeCard(const TestHome &home)
{
    const QString path = home.file(QStringLiteral("everytype.card"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(everyTypeCard()) < 0)
        return QString();
    return path;
}
} // namespace

void TestGoldenOutput::output_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("golden");
    QTest::newRow("dump") << QStringList { "dump" } << "card/everytype.dump.json";
    QTest::newRow("cells") << QStringList { "cells" } << "card/everytype.cells.txt";
    QTest::newRow("cells sorted down") << QStringList { "cells", "--sort", "0", "--descending" }
                                       << "card/everytype.cells-sorted.txt";
}

void TestGoldenOutput::output()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, golden);
    TestHome home;
    const QString card = writeCard(home);
    QVERIFY(!card.isEmpty());
    const CliResult result
        = runCli(home.path(), QStringList(arguments.first()) << card << arguments.mid(1));
    QCOMPARE(result.err, QByteArray());
    QCOMPARE(result.status, 0);
    QCOMPARE(result.out, dataBytes(golden));
}

void TestGoldenOutput::saveKeepsBytes()
{
    TestHome home;
    const QString path = writeCard(home);
    {
        DataManager card(path);
        QVERIFY(card.load());
        QCOMPARE(card.count(), 5);
        QVERIFY(card.forceSave());
    }
    QFile saved(path);
    QVERIFY(saved.open(QIODevice::ReadOnly));
    QCOMPARE(saved.readAll().toHex(' '), everyTypeCard().toHex(' '));
}

QTEST_GUILESS_MAIN(TestGoldenOutput)
#include "testgoldenoutput.moc"
