#include "helperprocess.h"
#include "platform/qcopchannel.h"
#include "platform/qpeapplication.h"
#include "support/testhome.h"

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
    void startDocumentReachesTheMainWindow();
    void secondStartHandsOverItsDocument();
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

QTEST_APPLESS_MAIN(TestQPEApplication)
#include "testqpeapplication.moc"
