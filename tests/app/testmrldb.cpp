#include "app/mrldb.h"
#include "app/resourceicons.h"
#include "lib/qt/mrlaction.h"
#include "platform/config.h"
#include "support/testhome.h"

#include <QApplication>
#include <QMenu>
#include <QPlainTextEdit>
#include <QToolBar>
#include <QToolButton>
#include <QWidgetAction>
#include <QtTest>

// The main window as far as it stands without a card: its commands, tool bar, main menu,
// memo pane, zoom and the options it keeps.
class TestMRLDB : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void actions_data();
    void actions();
    void toolBar();
    void mainMenu();
    void memoPane();
    void optionsAreReadOnShow_data();
    void optionsAreReadOnShow();
    void optionsAreWrittenOnHideAndDestruction();
    void zoomStepsTheListFont();
    void selectionClearedDisablesRecordCommands();
    void editDialogIsFreeWithoutEditor();

private:
    static QStringList itemsOf(const QList<QAction *> &actions);
};

void TestMRLDB::initTestCase()
{
    qApp->setObjectName(QStringLiteral("norvika"));
    qunsetenv("NORVIKA_SHARE");
    ResourceIcons::reset();
}

QStringList TestMRLDB::itemsOf(const QList<QAction *> &actions)
{
    QStringList items;
    for (QAction *action : actions)
        items << (action->isSeparator() ? QStringLiteral("-") : action->objectName());
    return items;
}

void TestMRLDB::actions_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("icon");
    QTest::addColumn<bool>("enabled");

    const QList<QStringList> table = {
        { "db", "Manager ...", "cards", "1" },
        { "newdb", "New Card ...", "std/c07", "1" },
        { "new", "New Record", "filenew", "0" },
        { "edit", "Edit Record", "edit", "0" },
        { "clone", "Duplicate Record", "editcopy", "0" },
        { "delete", "Remove Record", "remove", "0" },
        { "memo", "", "info", "1" },
        { "export", "Export ...", "export", "0" },
        { "import", "Import ...", "import", "0" },
        { "clear", "Clear Card", "remove", "0" },
        { "modify", "Card's Details ...", "document", "0" },
        { "remove", "Delete Card", "delete", "0" },
        { "fields", "Fields Editor ...", "view_detailed", "0" },
        { "report", "", "background", "0" },
        { "pclink", "PC Link ...", "pclink", "0" },
        { "sdata", "Send Data ...", "pclink", "0" },
        { "gdata", "Get Data ...", "pclink", "0" },
        { "options", "Options ...", "package_utilities", "0" },
        { "Brightloom", "About ...", "Brightloom", "1" },
        { "zoomin", "Zoom In", "viewmag+", "1" },
        { "zoomout", "Zoom Out", "viewmag-", "1" },
        { "exit", "Exit", "exit", "1" },
    };
    for (const QStringList &row : table)
        QTest::newRow(qPrintable(row.at(0)))
            << row.at(0) << row.at(1) << row.at(2) << (row.at(3) == QLatin1String("1"));
}

void TestMRLDB::actions()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    QFETCH(QString, icon);
    QFETCH(bool, enabled);

    TestHome home;
    MRLDB window;
    MRLAction *action = window.action(name);
    QVERIFY(action);
    QCOMPARE(action->text(), text);
    QCOMPARE(action->iconName(), icon);
    QVERIFY(!action->icon().isNull());
    if (name != QLatin1String("zoomin") && name != QLatin1String("zoomout"))
        QCOMPARE(action->isEnabled(), enabled);
    QCOMPARE(action->isCheckable(), name == QLatin1String("memo"));
}

void TestMRLDB::toolBar()
{
    TestHome home;
    MRLDB window;
    const QList<QToolBar *> bars = window.findChildren<QToolBar *>();
    QCOMPARE(bars.size(), 1);
    QToolBar *bar = bars.first();
    QVERIFY(!bar->isMovable());
    QCOMPARE(window.toolBarArea(bar), Qt::TopToolBarArea);

    const QList<QAction *> items = bar->actions();
    QCOMPARE(items.size(), 11);
    QCOMPARE(itemsOf(items.mid(0, 5)), (QStringList { "db", "new", "edit", "clone", "delete" }));
    QCOMPARE(items.at(8)->objectName(), QStringLiteral("report"));

    const int buttonAt[] = { 5, 6, 7, 10 };
    for (int at : buttonAt) {
        auto *button = qobject_cast<QToolButton *>(bar->widgetForAction(items.at(at)));
        QVERIFY2(button, qPrintable(QString::number(at)));
        QVERIFY(button->menu());
        QCOMPARE(button->popupMode(), QToolButton::InstantPopup);
        QVERIFY(!button->icon().isNull());
    }
    QWidget *spacer = bar->widgetForAction(items.at(9));
    QVERIFY(spacer);
    QCOMPARE(spacer->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(bar->widgetForAction(items.at(10))->objectName(), QStringLiteral("mainMenuButton"));
}

void TestMRLDB::mainMenu()
{
    TestHome home;
    MRLDB window;
    auto *menu = window.findChild<QMenu *>(QStringLiteral("mainMenu"));
    QVERIFY(menu);
    QCOMPARE(itemsOf(menu->actions()),
        (QStringList { "modify", "fields", "-", "export", "clear", "remove", "-", "zoomin",
            "zoomout", "-", "memo", "options", "-", "pclink", "-", "Brightloom" }));
}

void TestMRLDB::memoPane()
{
    TestHome home;
    MRLDB window;
    auto *memo = window.findChild<QPlainTextEdit *>(QStringLiteral("memo"));
    QVERIFY(memo);
    QVERIFY(memo->isHidden());
    QCOMPARE(memo->lineWrapMode(), QPlainTextEdit::WidgetWidth);
    QCOMPARE(memo->wordWrapMode(), QTextOption::WordWrap);
    const int line = memo->fontMetrics().lineSpacing();
    QVERIFY(memo->height() >= 4 * line);
    QVERIFY(memo->height() < 5 * line + 2 * memo->frameWidth());

    window.toggleMemo();
    QVERIFY(!memo->isHidden());
    QVERIFY(window.action(QStringLiteral("memo"))->isChecked());
    window.action(QStringLiteral("memo"))->trigger();
    QVERIFY(memo->isHidden());
    QVERIFY(!window.action(QStringLiteral("memo"))->isChecked());
}

void TestMRLDB::optionsAreReadOnShow_data()
{
    QTest::addColumn<bool>("memo");
    QTest::addColumn<int>("zoom");
    QTest::addColumn<int>("expectedZoom");

    QTest::newRow("memo shown, zoom 11 snaps down") << true << 11 << 10;
    QTest::newRow("memo hidden, zoom 24 stays") << false << 24 << 24;
    QTest::newRow("zoom below the steps") << false << 3 << 8;
    QTest::newRow("zoom above the steps") << false << 90 << 36;
}

void TestMRLDB::optionsAreReadOnShow()
{
    QFETCH(bool, memo);
    QFETCH(int, zoom);
    QFETCH(int, expectedZoom);

    TestHome home;
    {
        Config config(QStringLiteral("norvika"));
        config.setGroup(QStringLiteral("Options"));
        config.writeEntry(QStringLiteral("memo"), memo);
        config.writeEntry(QStringLiteral("zoom"), zoom);
    }
    MRLDB window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCOMPARE(!window.findChild<QPlainTextEdit *>(QStringLiteral("memo"))->isHidden(), memo);
    QCOMPARE(window.action(QStringLiteral("memo"))->isChecked(), memo);
    QCOMPARE(window.recordListPlace()->font().pointSize(), expectedZoom);
}

void TestMRLDB::optionsAreWrittenOnHideAndDestruction()
{
    TestHome home;
    {
        MRLDB window;
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        window.toggleMemo();
        window.zoomin();
        window.hide();
        Config config(QStringLiteral("norvika"));
        config.setGroup(QStringLiteral("Options"));
        QCOMPARE(config.readBoolEntry(QStringLiteral("memo"), false), true);
        QCOMPARE(config.readNumEntry(QStringLiteral("zoom"), 0),
            window.recordListPlace()->font().pointSize());

        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        window.toggleMemo();
    }
    Config config(QStringLiteral("norvika"));
    config.setGroup(QStringLiteral("Options"));
    QCOMPARE(config.readBoolEntry(QStringLiteral("memo"), true), false);
}

void TestMRLDB::zoomStepsTheListFont()
{
    TestHome home;
    {
        Config config(QStringLiteral("norvika"));
        config.setGroup(QStringLiteral("Options"));
        config.writeEntry(QStringLiteral("zoom"), 24);
    }
    MRLDB window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QWidget *list = window.recordListPlace();
    QCOMPARE(list->font().pointSize(), 24);

    window.zoomin();
    QCOMPARE(list->font().pointSize(), 36);
    QVERIFY(!window.action(QStringLiteral("zoomin"))->isEnabled());
    QVERIFY(window.action(QStringLiteral("zoomout"))->isEnabled());

    window.zoomout();
    QCOMPARE(list->font().pointSize(), 24);
    QVERIFY(window.action(QStringLiteral("zoomin"))->isEnabled());

    for (int i = 0; i < 12; ++i)
        window.action(QStringLiteral("zoomout"))->trigger();
    QCOMPARE(list->font().pointSize(), 8);
    QVERIFY(!window.action(QStringLiteral("zoomout"))->isEnabled());
}

void TestMRLDB::selectionClearedDisablesRecordCommands()
{
    TestHome home;
    MRLDB window;
    auto *memo = window.findChild<QPlainTextEdit *>(QStringLiteral("memo"));
    for (const char *name : { "edit", "clone", "delete", "report" })
        window.action(QString::fromLatin1(name))->setEnabled(true);
    memo->setEnabled(true);
    memo->setPlainText(QStringLiteral("left over"));

    window.selectionCleared();
    for (const char *name : { "edit", "clone", "delete", "report" })
        QVERIFY2(!window.action(QString::fromLatin1(name))->isEnabled(), name);
    QVERIFY(memo->toPlainText().isEmpty());
    QVERIFY(!memo->isEnabled());
}

void TestMRLDB::editDialogIsFreeWithoutEditor()
{
    TestHome home;
    MRLDB window;
    bool free = false;
    window.editDialogIsFree(&free);
    QVERIFY(free);
    window.editDialogIsFree(nullptr);
}

QTEST_MAIN(TestMRLDB)
#include "testmrldb.moc"
