#include "platform/localtimezone.h"

#include <QDateTime>
#include <QTest>

// Pinning the zone must never change which zone local times are in.
class TestLocalTimeZone : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pinKeepsTheZone_data();
    void pinKeepsTheZone();
};

void TestLocalTimeZone::pinKeepsTheZone_data()
{
    QTest::addColumn<QByteArray>("before");   // TZ before the pin; empty for unset
    QTest::addColumn<bool>("pinned");
    QTest::addColumn<QByteArray>("after");
    QTest::newRow("unset: the system's zone named") << QByteArray() << true << QByteArray(LocalTimeZone::systemZone);
    QTest::newRow("set by the user: left alone") << QByteArray("Asia/Tokyo") << false << QByteArray("Asia/Tokyo");
}

void TestLocalTimeZone::pinKeepsTheZone()
{
    QFETCH(QByteArray, before);
    QFETCH(bool, pinned);
    QFETCH(QByteArray, after);
    if (before.isEmpty())
        qunsetenv("TZ");
    else
        qputenv("TZ", before);
    const QDateTime winter(QDate(2026, 1, 15), QTime(12, 0));
    const QDateTime summer(QDate(2026, 7, 15), QTime(12, 0));
    const int winterOffset = winter.offsetFromUtc(), summerOffset = summer.offsetFromUtc();

    QCOMPARE(LocalTimeZone::pin(), pinned);
    QCOMPARE(qgetenv("TZ"), after);
    LocalTimeZone::reload();
    QCOMPARE(qgetenv("TZ"), after);
    QCOMPARE(QDateTime(winter.date(), winter.time()).offsetFromUtc(), winterOffset);
    QCOMPARE(QDateTime(summer.date(), summer.time()).offsetFromUtc(), summerOffset);
}

QTEST_GUILESS_MAIN(TestLocalTimeZone)
#include "testlocaltimezone.moc"
