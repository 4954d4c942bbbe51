#include "platform/config.h"
#include "platform/global.h"
#include "platform/platformpaths.h"
#include "support/testhome.h"

#include <QFile>
#include <QTest>

class TestConfig : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void roundTrip_data();
    void roundTrip();
    void defaultsAndWritingOnlyWhenChanged();
    void removeEntryAndClearGroup();
};

void TestConfig::roundTrip_data()
{
    QTest::addColumn<QString>("value");
    QTest::newRow("empty") << QString();
    QTest::newRow("leading and trailing blanks") << QStringLiteral("  two  ");
    QTest::newRow("line feeds") << QStringLiteral("a\nb\n");
    QTest::newRow("backslashes") << QStringLiteral("C:\\n\\\\x");
    QTest::newRow("unicode") << QStringLiteral("Ærø – ключ – 鍵");
}

void TestConfig::roundTrip()
{
    QFETCH(QString, value);
    TestHome home;
    {
        Config cfg(QStringLiteral("norvika"));
        cfg.setGroup(QStringLiteral("Options"));
        cfg.writeEntry(QStringLiteral("text"), value);
        cfg.writeEntry(QStringLiteral("zoom"), 11);
        cfg.writeEntry(QStringLiteral("memo"), true);
    }
    Config cfg(QStringLiteral("norvika"));
    cfg.setGroup(QStringLiteral("Options"));
    QCOMPARE(cfg.readEntry(QStringLiteral("text")), value);
    QCOMPARE(cfg.readNumEntry(QStringLiteral("zoom")), 11);
    QCOMPARE(cfg.readBoolEntry(QStringLiteral("memo")), true);
}

void TestConfig::defaultsAndWritingOnlyWhenChanged()
{
    TestHome home;
    const QString path = PlatformPaths::settingsDir() + QStringLiteral("/qpe.conf");
    {
        Config cfg(QStringLiteral("qpe"));
        QVERIFY(cfg.isValid());
        cfg.setGroup(QStringLiteral("Date"));
        QCOMPARE(
            cfg.readEntry(QStringLiteral("Separator"), QStringLiteral("/")), QStringLiteral("/"));
        QCOMPARE(cfg.readNumEntry(QStringLiteral("ShortOrder"), 273), 273);
        QCOMPARE(cfg.readBoolEntry(QStringLiteral("AMPM"), true), true);
        QCOMPARE(cfg.readListEntry(QStringLiteral("none"), QLatin1Char(',')), QStringList());
        QVERIFY(!cfg.hasKey(QStringLiteral("Separator")));
    }
    QVERIFY(!QFile::exists(path));
    Config cfg(QStringLiteral("qpe"));
    cfg.setGroup(QStringLiteral("Date"));
    cfg.writeEntry(QStringLiteral("Separator"), QStringLiteral("-"));
    QVERIFY(cfg.write());
    QVERIFY(QFile::exists(path));
}

void TestConfig::removeEntryAndClearGroup()
{
    TestHome home;
    {
        Config cfg(QStringLiteral("norvika"));
        cfg.setGroup(QStringLiteral("Options"));
        cfg.writeEntry(QStringLiteral("card"), QStringLiteral("a"));
        cfg.writeEntry(QStringLiteral("memo"), false);
        cfg.writeEntry(QStringLiteral("widths"),
            QStringList { QStringLiteral("10"), QStringLiteral("20") }, QLatin1Char(','));
        cfg.setGroup(QStringLiteral("main"));
        cfg.writeEntry(QStringLiteral("colour"), QStringLiteral("red"));
    }
    {
        Config cfg(QStringLiteral("norvika"));
        cfg.setGroup(QStringLiteral("Options"));
        cfg.removeEntry(QStringLiteral("card"));
        cfg.setGroup(QStringLiteral("main"));
        cfg.clearGroup();
    }
    Config cfg(QStringLiteral("norvika"));
    cfg.setGroup(QStringLiteral("Options"));
    QVERIFY(!cfg.hasKey(QStringLiteral("card")));
    QVERIFY(cfg.hasKey(QStringLiteral("memo")));
    QCOMPARE(cfg.readListEntry(QStringLiteral("widths"), QLatin1Char(',')),
        (QStringList { QStringLiteral("10"), QStringLiteral("20") }));
    cfg.setGroup(QStringLiteral("main"));
    QVERIFY(!cfg.hasKey(QStringLiteral("colour")));
}

QTEST_GUILESS_MAIN(TestConfig)
#include "testconfig.moc"
