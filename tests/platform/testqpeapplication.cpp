#include "helperprocess.h"
#include "platform/alarmserver.h"
#include "platform/config.h"
#include "platform/qcopchannel.h"
#include "platform/qpeapplication.h"
#include "support/testhome.h"

#include <QDataStream>
#include <QSignalSpy>
#include <QTest>
#include <QWidget>

// A main window as the program has one: it takes documents through its slot.
class DocumentWindow : public QWidget
{
    Q_OBJECT

public:
    QStringList documents;

public Q_SLOTS:
    void setDocument(const QString &file) { documents << file; }
};

// Each case makes its own application object, after its home is set, as the program does.
class TestQPEApplication : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void appMessageOnItsChannel();
    void dateSettingChangeEmitsOnce();
    void clockAndWeekChanges();
    void startDocumentReachesTheMainWindow();
    void secondStartHandsOverItsDocument();
    void aloneItIsTheRunningInstance();
    void missedAlarmArrivesAsAppMessage();
};

namespace
{
// The application keeps references to these for its whole life.
struct Arguments {
    explicit Arguments(const QStringList &list)
    {
        for (const QString &a : list)
            storage << a.toLocal8Bit();
        for (QByteArray &s : storage)
            pointers << s.data();
        pointers << nullptr;
        count = int(list.size());
    }
    QList<QByteArray> storage;
    QList<char *> pointers;
    int count = 0;
};

const QByteArray appChannel = QByteArrayLiteral("QPE/Application/norvika");

void writeQpe(const QString &group, const QString &key, const QString &value)
{
    Config qpe(QStringLiteral("qpe"));
    qpe.setGroup(group);
    qpe.writeEntry(key, value);
}
} // namespace

void TestQPEApplication::appMessageOnItsChannel()
{
    TestHome home;
    Arguments args({ QStringLiteral("norvika") });
    QPEApplication app(args.count, args.pointers.data());
    app.setObjectName(QStringLiteral("norvika"));
    QCOMPARE(app.channel(), appChannel);
    QSignalSpy spy(&app, &QPEApplication::appMessage);
    QVERIFY(QCopChannel::send(appChannel, "hello()", "data"));
    QVERIFY(QCopChannel::send("QPE/Application/other", "hello()", "data") == false);
    QVERIFY(spy.wait(2000));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toByteArray(), QByteArrayLiteral("hello()"));
    QCOMPARE(spy.at(0).at(1).toByteArray(), QByteArrayLiteral("data"));
}

void TestQPEApplication::dateSettingChangeEmitsOnce()
{
    TestHome home;
    Arguments args({ QStringLiteral("norvika") });
    QPEApplication app(args.count, args.pointers.data());
    app.setObjectName(QStringLiteral("norvika"));
    QSignalSpy dateSpy(&app, &QPEApplication::dateFormatChanged);
    QSignalSpy clockSpy(&app, &QPEApplication::clockChanged);
    QSignalSpy weekSpy(&app, &QPEApplication::weekChanged);

    writeQpe(QStringLiteral("Date"), QStringLiteral("Separator"), QStringLiteral("-"));
    QVERIFY(dateSpy.wait(3000));
    QTest::qWait(500);
    QCOMPARE(dateSpy.count(), 1);
    QCOMPARE(dateSpy.at(0).at(0).value<DateFormat>().separator(), QLatin1Char('-'));
    QCOMPARE(clockSpy.count(), 0);
    QCOMPARE(weekSpy.count(), 0);

    // Writing the same value again changes nothing the program sees.
    writeQpe(QStringLiteral("Date"), QStringLiteral("ShortOrder"), QStringLiteral("273"));
    QTest::qWait(500);
    QCOMPARE(dateSpy.count(), 1);
}

void TestQPEApplication::clockAndWeekChanges()
{
    TestHome home;
    Arguments args({ QStringLiteral("norvika") });
    QPEApplication app(args.count, args.pointers.data());
    app.setObjectName(QStringLiteral("norvika"));
    QSignalSpy clockSpy(&app, &QPEApplication::clockChanged);
    QSignalSpy weekSpy(&app, &QPEApplication::weekChanged);
    QSignalSpy dateSpy(&app, &QPEApplication::dateFormatChanged);
    {
        Config qpe(QStringLiteral("qpe"));
        qpe.setGroup(QStringLiteral("Time"));
        qpe.writeEntry(QStringLiteral("AMPM"), false);
        qpe.writeEntry(QStringLiteral("MONDAY"), true);
    }
    QTRY_COMPARE(clockSpy.count(), 1);
    QTRY_COMPARE(weekSpy.count(), 1);
    QCOMPARE(clockSpy.at(0).at(0).toBool(), false);
    QCOMPARE(weekSpy.at(0).at(0).toBool(), true);
    QCOMPARE(dateSpy.count(), 0);
}

void TestQPEApplication::startDocumentReachesTheMainWindow()
{
    TestHome home;
    Arguments args({ QStringLiteral("norvika"), QStringLiteral("cards/a.card") });
    QPEApplication app(args.count, args.pointers.data());
    app.setObjectName(QStringLiteral("norvika"));
    const QString expected = QDir::current().absoluteFilePath(QStringLiteral("cards/a.card"));
    QCOMPARE(app.startDocument(), expected);
    DocumentWindow window;
    app.showMainDocumentWidget(&window, true);
    QVERIFY(window.isVisible());
    QTRY_COMPARE(window.documents, QStringList { expected });
}

void TestQPEApplication::secondStartHandsOverItsDocument()
{
    TestHome home;
    Arguments args({ QStringLiteral("norvika") });
    QPEApplication app(args.count, args.pointers.data());
    app.setObjectName(QStringLiteral("norvika"));
    QVERIFY(app.isRunningInstance());
    DocumentWindow window;
    app.showMainDocumentWidget(&window, true);
    QSignalSpy spy(&app, &QPEApplication::appMessage);

    QCOMPARE(HelperProcess::run(home.path(), { QStringLiteral("launch"), QStringLiteral("b.card") },
                 home.documents()),
        0);
    const QString expected = home.documents() + QStringLiteral("/b.card");
    QTRY_COMPARE(window.documents, QStringList { expected });
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toByteArray(), QByteArrayLiteral("setDocument(QString)"));

    // Started again with no document, it brings the running one forward and leaves.
    QCOMPARE(HelperProcess::run(home.path(), { QStringLiteral("launch") }), 0);
    QTRY_COMPARE(spy.count(), 2);
    QCOMPARE(spy.at(1).at(0).toByteArray(), QByteArrayLiteral("raise()"));
}

void TestQPEApplication::aloneItIsTheRunningInstance()
{
    TestHome home;
    Arguments args({ QStringLiteral("norvika"), QStringLiteral("c.card") });
    QPEApplication app(args.count, args.pointers.data());
    app.setObjectName(QStringLiteral("norvika"));
    QVERIFY(!app.forwardToRunningInstance());
    QVERIFY(app.isRunningInstance());
    QVERIFY(!QPEApplication::keepRunning());
    QPEApplication::setKeepRunning();
    QVERIFY(QPEApplication::keepRunning());
}

void TestQPEApplication::missedAlarmArrivesAsAppMessage()
{
    TestHome home;
    const QDateTime when = QDateTime::currentDateTime().addSecs(-120);
    QVERIFY(AlarmServer::addAlarm(when, appChannel, "alarm(QDateTime,int)uid", 0));
    Arguments args({ QStringLiteral("norvika") });
    QPEApplication app(args.count, args.pointers.data());
    app.setObjectName(QStringLiteral("norvika"));
    QSignalSpy spy(&app, &QPEApplication::appMessage);
    QVERIFY(spy.wait(3000));
    QCOMPARE(spy.at(0).at(0).toByteArray(), QByteArrayLiteral("alarm(QDateTime,int)uid"));
    QDataStream in(spy.at(0).at(1).toByteArray());
    QDateTime delivered;
    int data = -1;
    in >> delivered >> data;
    QCOMPARE(delivered, when);
    QCOMPARE(data, 0);
}

QTEST_APPLESS_MAIN(TestQPEApplication)
#include "testqpeapplication.moc"
