#include "platform/resource.h"
#include "support/testhome.h"

#include <QDir>
#include <QFile>
#include <QTest>

class TestResource : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findSound_data();
    void findSound();
};

void TestResource::findSound_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("found");
    QTest::newRow("present") << QStringLiteral("alarm") << true;
    QTest::newRow("missing") << QStringLiteral("alarma300") << false;
    QTest::newRow("a folder of that name") << QStringLiteral("folder") << false;
}

void TestResource::findSound()
{
    QFETCH(QString, name);
    QFETCH(bool, found);
    TestHome home;
    const QString share = home.file(QStringLiteral("share"));
    QVERIFY(QDir().mkpath(share + QStringLiteral("/sounds/folder.wav")));
    QFile wav(share + QStringLiteral("/sounds/alarm.wav"));
    QVERIFY(wav.open(QIODevice::WriteOnly));
    wav.close();
    qputenv("NORVIKA_SHARE", share.toLocal8Bit());
    const QString path = Resource::findSound(name);
    qunsetenv("NORVIKA_SHARE");
    QCOMPARE(path,
        found ? share + QStringLiteral("/sounds/") + name + QStringLiteral(".wav") : QString());
}

QTEST_GUILESS_MAIN(TestResource)
#include "testresource.moc"
