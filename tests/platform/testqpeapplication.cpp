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
    void settingChanges();
    void startDocumentReachesTheMainWindow();
    void secondStartHandsOverItsDocument();
    void aloneItIsTheRunningInstance();
    void missedAlarmArrivesAsAppMessage();
};

namespace
{
// The application as the program makes it, named "norvika"; it keeps references to its
// arguments for its whole life, so they live here too.
class App
{
public:
    explicit App(const QStringList &documents = {})
    {
        for (const QString &a : QStringList { QStringLiteral("norvika") } + documents)
            m_storage << a.toLocal8Bit();
        for (QByteArray &s : m_storage)
            m_pointers << s.data();
        m_pointers << nullptr;
        m_count = int(m_storage.size());
        app = std::make_unique<QPEApplication>(m_count, m_pointers.data());
        app->setObjectName(QStringLiteral("norvika"));
    }

private:
    QList<QByteArray> m_storage;
    QList<char *> m_pointers;
    int m_count = 0;

public:
    std::unique_ptr<QPEApplication> app;
};

const QByteArray appChannel = QByteArrayLiteral("QPE/Application/norvika");

} // namespace

void TestQPEApplication::appMessageOnItsChannel()
{
    TestHome home;
    App launched;
    QPEApplication &app = *launched.app;
    QCOMPARE(app.channel(), appChannel);
    QSignalSpy spy(&app, &QPEApplication::appMessage);
    QVERIFY(QCopChannel::send(appChannel, "hello()", "data"));
    QVERIFY(QCopChannel::send("QPE/Application/other", "hello()", "data") == false);
    QVERIFY(spy.wait(2000));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toByteArray(), QByteArrayLiteral("hello()"));
    QCOMPARE(spy.at(0).at(1).toByteArray(), QByteArrayLiteral("data"));
}

// Each change of the "qpe" settings reaches the program once, as the signal of what changed.
void TestQPEApplication::settingChanges()
{
    TestHome home;
    App app;
    QSignalSpy dateSpy(app.app.get(), &QPEApplication::dateFormatChanged);
    QSignalSpy clockSpy(app.app.get(), &QPEApplication::clockChanged);
    QSignalSpy weekSpy(app.app.get(), &QPEApplication::weekChanged);
    {
        Config qpe(QStringLiteral("qpe"));
        qpe.setGroup(QStringLiteral("Date"));
        qpe.writeEntry(QStringLiteral("Separator"), QStringLiteral("-"));
    }
    QTRY_COMPARE(dateSpy.count(), 1);
    QCOMPARE(dateSpy.at(0).at(0).value<DateFormat>().separator(), QLatin1Char('-'));
    {
        Config qpe(QStringLiteral("qpe"));
        qpe.setGroup(QStringLiteral("Time"));
        qpe.writeEntry(QStringLiteral("AMPM"), false);
        qpe.writeEntry(QStringLiteral("MONDAY"), true);
        // Writing a date setting's value again changes nothing the program sees.
        qpe.setGroup(QStringLiteral("Date"));
        qpe.writeEntry(QStringLiteral("ShortOrder"), QStringLiteral("273"));
    }
    QTRY_COMPARE(clockSpy.count(), 1);
    QTRY_COMPARE(weekSpy.count(), 1);
    QCOMPARE(clockSpy.at(0).at(0).toBool(), false);
    QCOMPARE(weekSpy.at(0).at(0).toBool(), true);
    QCOMPARE(dateSpy.count(), 1);
}

void TestQPEApplication::startDocumentReachesTheMainWindow()
{
    TestHome home;
    App launched({ QStringLiteral("cards/a.card") });
    QPEApplication &app = *launched.app;
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
    App launched;
    QPEApplication &app = *launched.app;
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
    App launched({ QStringLiteral("c.card") });
    QPEApplication &app = *launched.app;
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
    App launched;
    QPEApplication &app = *launched.app;
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
