#include "platform/global.h"
#include "reminders/categorymanager.h"
#include "reminders/categoryrecord.h"
#include "support/testhome.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

// The category store: its text form, damaged lines, and the seeding from the default of
// the user's language.
class TestCategoryManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void load_data();
    void load();
};

namespace
{
void writeFile(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(bytes);
}

QString storePath()
{
    return Global::applicationFileName(QStringLiteral("norvika"), CategoryManager::storeName());
}

// Title, "*" when ticked, then the colours that are not the palette's.
QString describe(const CategoryManager &store)
{
    QStringList rows;
    for (PIMRecord *record : store.records()) {
        const auto *category = static_cast<CategoryRecord *>(record);
        QString row = category->title() + QLatin1String(category->isSelected() ? "*" : "");
        if (category->textColor() != CategoryRecord::defaultTextColor())
            row += QLatin1Char(' ') + category->textColor().name();
        if (category->lineColor() != CategoryRecord::defaultLineColor())
            row += QLatin1Char(' ') + category->lineColor().name();
        rows.append(row);
    }
    return rows.join(QLatin1Char(','));
}
} // namespace

void TestCategoryManager::load_data()
{
    QTest::addColumn<QByteArray>("store"); // null: no file yet
    QTest::addColumn<QByteArray>("seed"); // null: no default for the language
    QTest::addColumn<QString>("expected");

    const QByteArray none;
    const QByteArray two = "T=Business\nEND\nT=Personal\nEND\n";
    QTest::newRow("whole") << QByteArray("FOLDER\nEND\nT=Ho|me\nCT=#ff0000\nCB=#00ff00\nEND\n")
                           << two << "Ho\nme #ff0000 #00ff00";
    QTest::newRow("colours name nothing")
        << QByteArray("T=A\nCT=notacolour\nCB=\nEND\n") << none << "A";
    QTest::newRow("lines without =, unknown keys, bad uid")
        << QByteArray("T=A\ngarbage\nXX=1\nUID=zz\nCREATED=1\nEND\nT=B\nEND\n") << none << "A,B";
    QTest::newRow("truncated last block")
        << QByteArray("T=A\nEND\nT=B\nCT=#ff0000\n") << none << "A";
    QTest::newRow("total beyond blocks")
        << QByteArray("FOLDER\nTOTAL=99999999\nEND\nT=A\nEND\n") << none << "A";
    QTest::newRow("unclosed header") << QByteArray("FOLDER\nSORT=1\n") << none << "";
    QTest::newRow("seeded") << none << two << "Business,Personal";
    QTest::newRow("empty file, no default") << QByteArray("") << none << "";
    QTest::newRow("no file, no default") << none << none << "";
    QTest::newRow("short default") << none << QByteArray("T=Business\nEND\nT=Pers") << "Business";
    QTest::newRow("empty default") << none << QByteArray("") << "";
}

// What loads is written back in the same form, less the check marks, which are not kept.
void TestCategoryManager::load()
{
    QFETCH(QByteArray, store);
    QFETCH(QByteArray, seed);
    QFETCH(QString, expected);
    TestHome home;
    qputenv("NORVIKA_SHARE", home.file(QStringLiteral("share")).toUtf8());
    qputenv("LANG", "de_DE.UTF-8");
    if (!seed.isNull())
        writeFile(home.file(QStringLiteral("share/etc/norvika/de_de.utf-8_mrlCategory")), seed);
    if (!store.isNull())
        writeFile(storePath(), store);
    {
        CategoryManager categories;
        categories.load();
        QCOMPARE(describe(categories), expected);
        for (PIMRecord *record : categories.records())
            static_cast<CategoryRecord *>(record)->setSelected(true);
        QVERIFY(categories.forceSave());
    }
    CategoryManager again;
    QVERIFY(again.load());
    QCOMPARE(describe(again), expected);
    qunsetenv("NORVIKA_SHARE");
}

QTEST_GUILESS_MAIN(TestCategoryManager)
#include "testcategorymanager.moc"
