#include "platform/qcopchannel.h"
#include "platform/qcopenvelope.h"
#include "support/testhome.h"

#include <QDateTime>
#include <QSignalSpy>
#include <QTest>

class TestQCopEnvelope : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dataRoundTrip();
};

void TestQCopEnvelope::dataRoundTrip()
{
    TestHome home;
    QCopChannel channel("test/envelope");
    QSignalSpy spy(&channel, &QCopChannel::received);
    const QString text = QStringLiteral("Ærø /tmp/a b.card");
    const QDateTime when(QDate(2024, 2, 29), QTime(23, 59, 1));
    {
        QCopEnvelope e("test/envelope", "alarm(QDateTime,int)");
        e << text << when << qint32(-7);
    }
    QVERIFY(spy.wait(2000));
    QCOMPARE(spy.at(0).at(0).toByteArray(), QByteArrayLiteral("alarm(QDateTime,int)"));
    QDataStream in(spy.at(0).at(1).toByteArray());
    QString readText;
    QDateTime readWhen;
    qint32 readNumber = 0;
    in >> readText >> readWhen >> readNumber;
    QCOMPARE(in.status(), QDataStream::Ok);
    QVERIFY(in.atEnd());
    QCOMPARE(readText, text);
    QCOMPARE(readWhen, when);
    QCOMPARE(readNumber, -7);
}

QTEST_GUILESS_MAIN(TestQCopEnvelope)
#include "testqcopenvelope.moc"
