#include "helperprocess.h"
#include "platform/qcopchannel.h"
#include "platform/qpeapplication.h"
#include "support/testhome.h"

#include <QSignalSpy>
#include <QTest>
#include <QUrl>
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
    void secondStartHandsOverItsDocument_data();
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

// How a second start names its card: as the file manager hands it over, or with none.
enum class Named { Relative, Absolute, Url, Nothing };

void TestQPEApplication::secondStartHandsOverItsDocument_data()
{
    QTest::addColumn<Named>("named");
    QTest::addColumn<QString>("file"); // under the documents folder

    QTest::newRow("relative name") << Named::Relative << QStringLiteral("b.card");
    QTest::newRow("absolute path, blanks and accents")
        << Named::Absolute << QStringLiteral("Mes fiches/été 2026.card");
    QTest::newRow("file URL") << Named::Url << QStringLiteral("Mes fiches/été 2026.card");
    QTest::newRow("no document: raise") << Named::Nothing << QString();
}

void TestQPEApplication::secondStartHandsOverItsDocument()
{
    QFETCH(Named, named);
    QFETCH(QString, file);
    TestHome home;
    App launched;
    QPEApplication &app = *launched.app;
    QVERIFY(app.isRunningInstance());
    DocumentWindow window;
    app.showMainDocumentWidget(&window, true);
    QSignalSpy spy(&app, &QPEApplication::appMessage);

    const QString path = home.documents() + QLatin1Char('/') + file;
    const QStringList arguments[]
        = { { file }, { path }, { QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded) }, {} };
    QCOMPARE(
        HelperProcess::run(home.path(),
            QStringList { QStringLiteral("launch") } + arguments[int(named)], home.documents()),
        0);

    QTRY_COMPARE(spy.count(), 1);
    const bool withDocument = named != Named::Nothing;
    QCOMPARE(spy.at(0).at(0).toByteArray(),
        withDocument ? QByteArrayLiteral("setDocument(QString)") : QByteArrayLiteral("raise()"));
    QCOMPARE(window.documents, withDocument ? QStringList { path } : QStringList());
}

QTEST_APPLESS_MAIN(TestQPEApplication)
#include "testqpeapplication.moc"
