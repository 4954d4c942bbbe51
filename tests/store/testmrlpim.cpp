#include "platform/global.h"
#include "platform/platformpaths.h"
#include "store/mrlpim.h"
#include "support/testhome.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTest>

class TestMRLPIM : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void escape_data();
    void escape();
    void unescapeJoinsTokensWithEquals_data();
    void unescapeJoinsTokensWithEquals();
    void dateForms_data();
    void dateForms();
    void invalidValuesWriteNull();
    void parsers_data();
    void parsers();
    void dataListRoundTrip();
    void dataListFallsBackToShareFolder();
    void dataListMissingEverywhere();
};

void TestMRLPIM::escape_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("escaped");
    QTest::addColumn<QString>("readBack");
    QTest::newRow("plain") << "abc"
                           << "abc"
                           << "abc";
    QTest::newRow("empty") << ""
                           << ""
                           << "";
    QTest::newRow("two lines") << "a\nb"
                               << "a|b"
                               << "a\nb";
    QTest::newRow("trailing line feed") << "a\n"
                                        << "a|"
                                        << "a\n";
    QTest::newRow("only line feeds") << "\n\n"
                                     << "||"
                                     << "\n\n";
    QTest::newRow("bar becomes line feed") << "a|b"
                                           << "a|b"
                                           << "a\nb";
    QTest::newRow("equals untouched") << "x=y==z="
                                      << "x=y==z="
                                      << "x=y==z=";
    QTest::newRow("unicode") << QStringLiteral("Ærø\nключ") << QStringLiteral("Ærø|ключ")
                             << QStringLiteral("Ærø\nключ");
}

// What a stored value reads back as, after the record reader's "=" split.
void TestMRLPIM::escape()
{
    QFETCH(QString, value);
    QFETCH(QString, escaped);
    QFETCH(QString, readBack);
    QCOMPARE(MRLPIM::escape(value), escaped);
    QStringList tokens = (QStringLiteral("KEY=") + escaped).split(QLatin1Char('='));
    QCOMPARE(MRLPIM::unescape(tokens), readBack);
}

void TestMRLPIM::unescapeJoinsTokensWithEquals_data()
{
    QTest::addColumn<QStringList>("tokens");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QStringList>("left");
    QTest::newRow("empty list") << QStringList() << "" << QStringList();
    QTest::newRow("key only") << QStringList { "K" } << "" << QStringList();
    QTest::newRow("several") << QStringList { "K", "a", "", "b|c" } << "a==b\nc"
                             << QStringList { "a", "", "b|c" };
}

void TestMRLPIM::unescapeJoinsTokensWithEquals()
{
    QFETCH(QStringList, tokens);
    QFETCH(QString, value);
    QFETCH(QStringList, left);
    QCOMPARE(MRLPIM::unescape(tokens), value);
    QCOMPARE(tokens, left);
}

void TestMRLPIM::dateForms_data()
{
    QTest::addColumn<QDateTime>("when");
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("time");
    QTest::addColumn<QString>("dateTime");
    QTest::newRow("no leading zeros") << QDateTime(QDate(2004, 3, 7), QTime(18, 5, 9)) << "7 3 2004"
                                      << "18 5 9"
                                      << "7 3 2004 18 5 9";
    QTest::newRow("midnight") << QDateTime(QDate(1999, 12, 31), QTime(0, 0, 0)) << "31 12 1999"
                              << "0 0 0"
                              << "31 12 1999 0 0 0";
    QTest::newRow("milliseconds dropped")
        << QDateTime(QDate(2024, 2, 29), QTime(23, 59, 59, 999)) << "29 2 2024"
        << "23 59 59"
        << "29 2 2024 23 59 59";
}

void TestMRLPIM::dateForms()
{
    QFETCH(QDateTime, when);
    QFETCH(QString, date);
    QFETCH(QString, time);
    QFETCH(QString, dateTime);
    QCOMPARE(MRLPIM::dateToString(when.date()), date);
    QCOMPARE(MRLPIM::timeToString(when.time()), time);
    QCOMPARE(MRLPIM::dateTimeToString(when), dateTime);
    QCOMPARE(MRLPIM::stringToDate(date), when.date());
    QCOMPARE(MRLPIM::stringToTime(time),
        QTime(when.time().hour(), when.time().minute(), when.time().second()));
    QCOMPARE(MRLPIM::stringToDateTime(dateTime).toString(Qt::ISODate), when.toString(Qt::ISODate));
}

void TestMRLPIM::invalidValuesWriteNull()
{
    QVERIFY(MRLPIM::dateToString(QDate()).isNull());
    QVERIFY(MRLPIM::dateToString(QDate(2004, 2, 30)).isNull());
    QVERIFY(MRLPIM::timeToString(QTime()).isNull());
    QVERIFY(MRLPIM::dateTimeToString(QDateTime()).isNull());
}

void TestMRLPIM::parsers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QTime>("time");
    QTest::addColumn<QDateTime>("dateTime");
    QTest::newRow("empty gives null") << "" << QDate() << QTime() << QDateTime();
    QTest::newRow("extra blanks") << "  7  3   2004 " << QDate(2004, 3, 7) << QTime()
                                  << QDateTime(QDate(2004, 3, 7), QTime(0, 0));
    QTest::newRow("six numbers") << " 7 3 2004  18 5 9 " << QDate(2004, 3, 7) << QTime()
                                 << QDateTime(QDate(2004, 3, 7), QTime(18, 5, 9));
    QTest::newRow("too few tokens") << "7 3" << QDate() << QTime(7, 3, 0) << QDateTime();
    QTest::newRow("garbage") << "x y z" << QDate() << QTime(0, 0, 0) << QDateTime();
}

// A malformed text is absorbed: no crash, an invalid or defaulted value.
void TestMRLPIM::parsers()
{
    QFETCH(QString, text);
    QFETCH(QDate, date);
    QFETCH(QTime, time);
    QFETCH(QDateTime, dateTime);
    QCOMPARE(MRLPIM::stringToDate(text), date);
    QCOMPARE(MRLPIM::stringToTime(text), time);
    const QDateTime parsed = MRLPIM::stringToDateTime(text);
    QCOMPARE(parsed.isValid(), dateTime.isValid());
    if (dateTime.isValid())
        QCOMPARE(parsed, dateTime);
}

void TestMRLPIM::dataListRoundTrip()
{
    TestHome home;
    const QStringList list { "#,##0.00", QStringLiteral("dd.MM.yyyy – ä"), "x" };
    MRLPIM::saveDataList(QStringLiteral("numberformat"), list);
    const QString path = Global::applicationFileName(
        QStringLiteral("norvikaData"), QStringLiteral("numberformat"));
    QCOMPARE(QFile::exists(path), true);
    // Joined with line feeds, no final one.
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(QString::fromUtf8(file.readAll()), list.join(QLatin1Char('\n')));
    QCOMPARE(MRLPIM::loadDataList(QStringLiteral("numberformat")), list);
}

void TestMRLPIM::dataListFallsBackToShareFolder()
{
    TestHome home;
    const QString share = home.file(QStringLiteral("share"));
    QVERIFY(QDir().mkpath(share + QStringLiteral("/etc/norvika")));
    qputenv("NORVIKA_SHARE", QFile::encodeName(share));
    QFile shipped(share + QStringLiteral("/etc/norvika/dateFormat"));
    QVERIFY(shipped.open(QIODevice::WriteOnly));
    shipped.write("d.M.yyyy\n\nyyyy-MM-dd\n");
    shipped.close();
    const QStringList loaded = MRLPIM::loadDataList(QStringLiteral("dateFormat"));
    qunsetenv("NORVIKA_SHARE");
    QCOMPARE(loaded, (QStringList { "d.M.yyyy", "yyyy-MM-dd" }));
}

void TestMRLPIM::dataListMissingEverywhere()
{
    TestHome home;
    qputenv("NORVIKA_SHARE", QFile::encodeName(home.file(QStringLiteral("noshare"))));
    const QStringList loaded = MRLPIM::loadDataList(QStringLiteral("timeFormat"));
    qunsetenv("NORVIKA_SHARE");
    QVERIFY(loaded.isEmpty());
}

QTEST_GUILESS_MAIN(TestMRLPIM)
#include "testmrlpim.moc"
