#include "app/mrlmainwindow.h"
#include "lib/qt/mrlaction.h"
#include "modaldriver.h"
#include "support/testhome.h"

#include <QApplication>
#include <QKeyEvent>
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

// The base of the main windows: zoom steps, zoom keys and the turn between portrait and
// landscape.
class TestMRLMainWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void snapZoom_data();
    void snapZoom();
    void resizeRotatesOncePerTurn();
    void zoomKeys_data();
    void zoomKeys();
    void aboutOpensDateAndTime();
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
    QTest::newRow("11 down") << 11 << true << 10 << true << true;
    QTest::newRow("11 up") << 11 << false << 12 << true << true;
    QTest::newRow("25 up to the last step") << 25 << false << 36 << false << true;
    QTest::newRow("25 down") << 25 << true << 24 << true << true;
    QTest::newRow("above the last up") << 40 << false << 36 << false << true;
    QTest::newRow("9 down to the first step") << 9 << true << 8 << true << false;
    QTest::newRow("below the first down") << 5 << true << 8 << true << false;
}

void TestMRLMainWindow::snapZoom()
{
    QFETCH(int, size);
    QFETCH(bool, down);

    MRLMainWindow window;
    QTEST(window.snapZoom(size, down), "expected");
    QTEST(window.action(QStringLiteral("zoomin"))->isEnabled(), "zoomInEnabled");
    QTEST(window.action(QStringLiteral("zoomout"))->isEnabled(), "zoomOutEnabled");
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

void TestMRLMainWindow::aboutOpensDateAndTime()
{
    TestHome home;
    MRLMainWindow window;
    ModalDriver driver(
        QList<ModalDriver::Step> { [](QWidget *about) { ModalDriver::click(about, "dateTime"); },
            [](QWidget *dateTime) { ModalDriver::click(dateTime, "btnCancel"); },
            [](QWidget *about) { QTest::keyClick(about, Qt::Key_Return); } });
    window.action(QStringLiteral("Brightloom"))->trigger();
    QTRY_COMPARE(driver.remaining(), 0);
    QTRY_VERIFY(!QApplication::activeModalWidget());
    QStringList captions;
    for (const QString &seen : driver.seen())
        captions << seen.section(QStringLiteral(" | "), 0, 0);
    QCOMPARE(captions,
        QStringList({ QStringLiteral("About Norvika"), QStringLiteral("Date and Time"),
            QStringLiteral("About Norvika") }));
}

QTEST_MAIN(TestMRLMainWindow)
#include "testmrlmainwindow.moc"
