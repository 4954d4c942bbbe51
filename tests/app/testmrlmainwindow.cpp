#include "app/mrlmainwindow.h"
#include "lib/qt/mrlaction.h"

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>
#include <QTimer>
#include <QToolBar>
#include <QtTest>

namespace
{
// Counts what the base leaves to its windows.
class CountingWindow : public MRLMainWindow
{
public:
    int rotations = 0;
    int zoomIns = 0;
    int zoomOuts = 0;
    void rotate() override { ++rotations; }
    void zoomin() override { ++zoomIns; }
    void zoomout() override { ++zoomOuts; }
};
} // namespace

// The base of the main windows: named commands, tool bars, zoom steps, zoom keys and the
// turn between portrait and landscape.
class TestMRLMainWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void snapZoom_data();
    void snapZoom();
    void baseActions_data();
    void baseActions();
    void addActionFilesAndConnects();
    void toolBarAndStretch();
    void portraitFollowsTheDesktop();
    void resizeRotatesOncePerTurn();
    void zoomKeys_data();
    void zoomKeys();
    void aboutOpensOnItsPostedEvent();
};

void TestMRLMainWindow::initTestCase()
{
    qApp->setObjectName(QStringLiteral("norvika"));
}

void TestMRLMainWindow::snapZoom_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<bool>("down");
    QTest::addColumn<int>("expected");
    QTest::addColumn<bool>("zoomInEnabled");
    QTest::addColumn<bool>("zoomOutEnabled");

    QTest::newRow("step stays up") << 12 << false << 12 << true << true;
    QTest::newRow("step stays down") << 12 << true << 12 << true << true;
    QTest::newRow("11 down") << 11 << true << 10 << true << true;
    QTest::newRow("11 up") << 11 << false << 12 << true << true;
    QTest::newRow("25 up to the last step") << 25 << false << 36 << false << true;
    QTest::newRow("25 down") << 25 << true << 24 << true << true;
    QTest::newRow("36 up") << 36 << false << 36 << false << true;
    QTest::newRow("above the last up") << 40 << false << 36 << false << true;
    QTest::newRow("above the last down") << 40 << true << 36 << false << true;
    QTest::newRow("9 down to the first step") << 9 << true << 8 << true << false;
    QTest::newRow("below the first down") << 5 << true << 8 << true << false;
    QTest::newRow("below the first up") << 5 << false << 8 << true << false;
    QTest::newRow("zoom in from 24") << 25 << false << 36 << false << true;
    QTest::newRow("zoom out from 10") << 9 << true << 8 << true << false;
}

void TestMRLMainWindow::snapZoom()
{
    QFETCH(int, size);
    QFETCH(bool, down);
    QFETCH(int, expected);
    QFETCH(bool, zoomInEnabled);
    QFETCH(bool, zoomOutEnabled);

    MRLMainWindow window;
    QCOMPARE(window.snapZoom(size, down), expected);
    QCOMPARE(window.action(QStringLiteral("zoomin"))->isEnabled(), zoomInEnabled);
    QCOMPARE(window.action(QStringLiteral("zoomout"))->isEnabled(), zoomOutEnabled);
}

void TestMRLMainWindow::baseActions_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("icon");
    QTest::addColumn<QKeySequence>("shortcut");

    QTest::newRow("Brightloom") << "Brightloom"
                                << "About ..."
                                << "Brightloom" << QKeySequence();
    QTest::newRow("zoomin") << "zoomin"
                            << "Zoom In"
                            << "viewmag+" << QKeySequence(QKeySequence::ZoomIn);
    QTest::newRow("zoomout") << "zoomout"
                             << "Zoom Out"
                             << "viewmag-" << QKeySequence(QKeySequence::ZoomOut);
    QTest::newRow("exit") << "exit"
                          << "Exit"
                          << "exit" << QKeySequence(QKeySequence::Quit);
}

void TestMRLMainWindow::baseActions()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    QFETCH(QString, icon);
    QFETCH(QKeySequence, shortcut);

    MRLMainWindow window;
    QCOMPARE(window.windowTitle(), QStringLiteral("norvika"));
    MRLAction *action = window.action(name);
    QVERIFY(action);
    QCOMPARE(action->name(), name);
    QCOMPARE(action->text(), text);
    QCOMPARE(action->iconName(), icon);
    QVERIFY(!action->icon().isNull());
    QCOMPARE(action->shortcut(), shortcut);
    QVERIFY(window.actions().contains(action));
}

void TestMRLMainWindow::addActionFilesAndConnects()
{
    MRLMainWindow window;
    MRLAction *action = window.addAction(QStringLiteral("rename"), QStringLiteral("edit"), &window,
        SLOT(about()), false, QStringLiteral("Rename"));
    QCOMPARE(window.action(QStringLiteral("rename")), action);
    QVERIFY(!action->isCheckable());
    QVERIFY(!window.action(QStringLiteral("absent")));

    MRLAction *toggle = window.addAction(
        QStringLiteral("switch"), QStringLiteral("info"), nullptr, nullptr, true);
    QVERIFY(toggle->isCheckable());
    QVERIFY(toggle->text().isEmpty());

    // A connected command reaches its slot: about() posts the box's event.
    bool aboutRequested = false;
    struct Filter : QObject {
        bool *seen;
        explicit Filter(bool *s)
            : seen(s)
        {
        }
        bool eventFilter(QObject *, QEvent *e) override
        {
            if (e->type() == QEvent::Type(MRLMainWindow::AboutEvent)) {
                *seen = true;
                return true;
            }
            return false;
        }
    } filter(&aboutRequested);
    window.installEventFilter(&filter);
    action->trigger();
    QCoreApplication::sendPostedEvents(&window);
    QVERIFY(aboutRequested);
}

void TestMRLMainWindow::toolBarAndStretch()
{
    MRLMainWindow window;
    QToolBar *bar = window.addToolBar();
    QVERIFY(!bar->isMovable());
    QVERIFY(!bar->isFloatable());
    QCOMPARE(window.toolBarArea(bar), Qt::TopToolBarArea);

    QWidget *stretch = window.addStretch(bar, 0);
    QCOMPARE(stretch->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QWidget *fixed = window.addStretch(bar, 17);
    QCOMPARE(fixed->minimumWidth(), 17);
    QCOMPARE(fixed->maximumWidth(), 17);
}

void TestMRLMainWindow::portraitFollowsTheDesktop()
{
    const QRect desktop = QGuiApplication::primaryScreen()->geometry();
    MRLMainWindow window;
    QCOMPARE(window.isPortrait(), desktop.width() <= desktop.height());
}

void TestMRLMainWindow::resizeRotatesOncePerTurn()
{
    CountingWindow window;
    window.resize(500, 300);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const int atStart = window.rotations;
    QVERIFY(!window.isPortrait());

    QTest::ignoreMessage(QtDebugMsg, "Rotate, now Vertical");
    window.resize(300, 500);
    QCOMPARE(window.rotations, atStart + 1);
    QVERIFY(window.isPortrait());

    window.resize(320, 600);
    QCOMPARE(window.rotations, atStart + 1);
    window.resize(400, 400); // a square counts as portrait
    QCOMPARE(window.rotations, atStart + 1);

    QTest::ignoreMessage(QtDebugMsg, "Rotate, now Horizontal");
    window.resize(600, 320);
    QCOMPARE(window.rotations, atStart + 2);
    QVERIFY(!window.isPortrait());
}

void TestMRLMainWindow::zoomKeys_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<int>("zoomIns");
    QTest::addColumn<int>("zoomOuts");

    QTest::newRow("device zoom in") << 0x2010 << 0 << 1 << 0;
    QTest::newRow("device zoom out") << 0x200f << 0 << 0 << 1;
    QTest::newRow("keyboard zoom in") << int(Qt::Key_ZoomIn) << 0 << 1 << 0;
    QTest::newRow("keyboard zoom out") << int(Qt::Key_ZoomOut) << 0 << 0 << 1;
    QTest::newRow("ctrl plus") << int(Qt::Key_Plus) << int(Qt::ControlModifier) << 1 << 0;
    QTest::newRow("ctrl minus") << int(Qt::Key_Minus) << int(Qt::ControlModifier) << 0 << 1;
    QTest::newRow("other key") << int(Qt::Key_A) << 0 << 0 << 0;
}

void TestMRLMainWindow::zoomKeys()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(int, zoomIns);
    QFETCH(int, zoomOuts);

    CountingWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    if (modifiers) {
        // Through the shortcut map, as a keyboard delivers it.
        QTest::keyClick(&window, Qt::Key(key), Qt::KeyboardModifiers(modifiers));
    } else {
        // Device key codes have no keyboard equivalent to simulate, so the event goes direct.
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(&window, &press);
    }
    QCOMPARE(window.zoomIns, zoomIns);
    QCOMPARE(window.zoomOuts, zoomOuts);
}

void TestMRLMainWindow::aboutOpensOnItsPostedEvent()
{
    MRLMainWindow window;
    QString caption;
    QString text;
    QTimer poll;
    connect(&poll, &QTimer::timeout, &window, [&] {
        auto *box = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (!box)
            return;
        poll.stop();
        caption = box->windowTitle();
        if (auto *label = box->findChild<QLabel *>(QStringLiteral("text")))
            text = label->text();
        box->accept();
    });
    poll.start(10);
    window.about();
    QVERIFY(caption.isEmpty()); // nothing before the event loop turns
    QTRY_VERIFY(!caption.isEmpty());
    QVERIFY(caption.contains(QStringLiteral("Norvika")));
    QVERIFY(text.contains(QStringLiteral(NORVIKA_VERSION)));
}

QTEST_MAIN(TestMRLMainWindow)
#include "testmrlmainwindow.moc"
