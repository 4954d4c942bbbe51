#include "platform/config.h"
#include "platform/global.h"
#include "platform/platformpaths.h"
#include "support/filesizelimit.h"
#include "support/testhome.h"

#include <QDir>
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
    void failedWriteKeepsOldFile_data();
    void failedWriteKeepsOldFile();
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

void TestConfig::failedWriteKeepsOldFile_data()
{
    QTest::addColumn<bool>("fullDisk");
    QTest::newRow("full disk") << true;
    // Folder permissions do not bind every user; a file where the folder should be does.
    QTest::newRow("folder is a file") << false;
}

void TestConfig::failedWriteKeepsOldFile()
{
    QFETCH(bool, fullDisk);
    TestHome home;
    const QString folder = home.file(QStringLiteral("settings"));
    QString path = folder + QStringLiteral("/a.conf");
    if (fullDisk) {
        Config old(path, Config::File);
        old.writeEntry(QStringLiteral("old"), QStringLiteral("value"));
    } else {
        QFile(folder).open(QIODevice::WriteOnly);
    }
    const QByteArray before = [&] {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }();
    QCOMPARE(before.isEmpty(), !fullDisk);

    Config config(path, Config::File);
    config.writeEntry(QStringLiteral("new"), QString(8192, QLatin1Char('x')));
    bool written = true;
    {
        FileSizeLimit limit(fullDisk ? rlim_t(before.size()) : RLIM_INFINITY);
        written = config.write();
    }
    QVERIFY(!written);
    QVERIFY2(config.errorString().contains(path), qPrintable(config.errorString()));
    QFile file(path);
    QCOMPARE(file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray(), before);
    QCOMPARE(QDir(folder).entryList(QDir::Files).size(), fullDisk ? 1 : 0);
    if (fullDisk)
        QVERIFY(config.write());
}

QTEST_GUILESS_MAIN(TestConfig)
#include "testconfig.moc"
