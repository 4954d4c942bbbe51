#include "app/resourceicons.h"
#include "card/datamanager.h"
#include "card/datarecord.h"
#include "clirunner.h"
#include "support/testcard.h"
#include "support/testhome.h"
#include "views/filtereditordialog.h"

#include <QLineEdit>
#include <QtTest>

// The find of the command line and the find of the dialog, typed as a user types it, let
// the same records through, in the same order.
class TestFindAgreement : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void sameRecords_data();
    void sameRecords();
};

void TestFindAgreement::initTestCase()
{
    qApp->setObjectName(QStringLiteral("norvika"));
    ResourceIcons::reset();
}

void TestFindAgreement::sameRecords_data()
{
    QTest::addColumn<QList<int>>("types");
    QTest::addColumn<QStringList>("values"); // one record each, "|" between its fields
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("matches");
    using F = FieldDef;
    const QList<int> textAndList { F::String, F::Text, F::MultiList };
    const QStringList mixed { "Apple|pie|red\ngreen", "pear|APPLE tart|", "fig||blue",
        "\u00c4pfel|\u00e9t\u00e9|", "||" };
    QTest::newRow("case folds") << textAndList << mixed << "apple" << 2;
    QTest::newRow("upper text") << textAndList << mixed << "PEAR" << 1;
    QTest::newRow("empty text passes all") << textAndList << mixed << "" << 5;
    QTest::newRow("unicode folds") << textAndList << mixed << "\u00e4PF" << 1;
    QTest::newRow("accent is not folded away") << textAndList << mixed << "ete" << 0;
    QTest::newRow("multi-list line") << textAndList << mixed << "GREEN" << 1;
    QTest::newRow("no text fields")
        << QList<int> { F::Integer, F::Date } << QStringList { "1|", "2|" } << "" << 0;
    QTest::newRow("numbers are not text")
        << QList<int> { F::String, F::Integer } << QStringList { "a|12", "b|3" } << "12" << 0;
}

void TestFindAgreement::sameRecords()
{
    QFETCH(QList<int>, types);
    QFETCH(QStringList, values);
    QFETCH(QString, text);
    TestHome home;
    const QString path = home.file(QStringLiteral("find.card"));
    QList<FieldDef> fields;
    for (int type : types)
        fields << testField(type, FieldDef::typeName(type));
    auto card = testCard(path, fields);
    for (const QString &value : values) {
        DataRecord *record = card->newRecord();
        const QStringList parts = value.split(QLatin1Char('|'));
        for (int i = 0; i < types.size(); ++i) {
            if (FieldDef::family(types.at(i)) == FieldDef::TextFamily)
                record->setStringValue(i, parts.value(i));
            else if (types.at(i) == FieldDef::Integer)
                record->setIntValue(i, parts.value(i).toInt());
        }
        card->add(record);
    }
    card->forceSave();

    FilterEditorDialog dialog(card.get(), FilterEditorDialog::Find);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    auto *value = dialog.findChild<QLineEdit *>("val");
    // Character by character, as a keyboard types them; keyClicks knows ASCII only.
    for (const QChar ch : text)
        QTest::sendKeyEvent(QTest::Click, value, Qt::Key_unknown, QString(ch), Qt::NoModifier);
    QCOMPARE(value->text(), text);
    QTest::keyClick(value, Qt::Key_Return);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    dialog.apply();
    QStringList shown;
    for (const PIMRecord *record : card->view())
        shown << record->uidString();
    QTEST(int(shown.size()), "matches");

    const CliResult cli = runCli(home.path(), { "cells", path, "--find", text });
    QCOMPARE(cli.status, 0);
    QStringList listed;
    for (const QString &line : QString::fromUtf8(cli.out).split('\n', Qt::SkipEmptyParts))
        listed << line.section('\t', 0, 0);
    QCOMPARE(listed, shown);
}

QTEST_MAIN(TestFindAgreement)
#include "testfindagreement.moc"
