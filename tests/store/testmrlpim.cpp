#include "store/mrlpim.h"

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
    void parsers_data();
    void parsers();
};

void TestMRLPIM::escape_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("escaped");
    QTest::addColumn<QString>("readBack");
    const struct {
        const char *name, *value, *escaped, *readBack;
    } rows[] = {
        { "plain", "abc", "abc", "abc" },
        { "empty", "", "", "" },
        { "two lines", "a\nb", "a|b", "a\nb" },
        { "trailing line feed", "a\n", "a|", "a\n" },
        { "only line feeds", "\n\n", "||", "\n\n" },
        { "bar becomes line feed", "a|b", "a|b", "a\nb" },
        { "equals untouched", "x=y==z=", "x=y==z=", "x=y==z=" },
        { "unicode", "Ærø\nключ", "Ærø|ключ", "Ærø\nключ" },
    };
    for (const auto &row : rows)
        QTest::newRow(row.name) << QString::fromUtf8(row.value) << QString::fromUtf8(row.escaped)
                                << QString::fromUtf8(row.readBack);
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
    // Invalid values are written as null strings.
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

QTEST_GUILESS_MAIN(TestMRLPIM)
#include "testmrlpim.moc"
