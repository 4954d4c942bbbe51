#include "app/mrldb.h"

#include "app/resourceicons.h"
#include "card/datamanager.h"
#include "lib/qt/mrlaction.h"
#include "lib/qt/mrllistview.h"
#include "support/testcard.h"
#include "support/testhome.h"
#include "support/whenshown.h"
#include "views/colorswidget.h"
#include "views/listview.h"
#include "views/optionsdialog.h"
#include "views/reportviewdialog.h"

#include <QApplication>
#include <QTest>

// Which of the main window's commands can be used: with no card, with a card open and with
// a record selected in it; and the report and options commands that this table completes.
class TestMRLDBActions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void actionStates_data();
    void actionStates();
    void reportOpensOnTheCurrentRecord();
    void optionsAppliesTheRowColors();
};

namespace
{
enum State { NoCard, Card, Selection };

DataManager *openCard(MRLDB &window, const TestHome &home, const QStringList &names = { "a", "b" })
{
    DataManager *card = testCard(home.file(QStringLiteral("test.card")),
        { testField(FieldDef::String, QStringLiteral("Name")) }, names)
                            .release();
    window.showCard(card, QStringLiteral("Test card"));
    return card;
}
} // namespace

void TestMRLDBActions::initTestCase()
{
    qApp->setObjectName(QStringLiteral("norvika"));
    qunsetenv("NORVIKA_SHARE");
    ResourceIcons::reset();
}

void TestMRLDBActions::actionStates_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QList<bool>>("enabled"); // no card, a card, a selection
    const auto row = [](const char *name, bool none, bool card, bool selection) {
        QTest::newRow(name) << QString::fromLatin1(name) << QList<bool> { none, card, selection };
    };
    row("db", true, true, true);
    row("newdb", true, true, true);
    row("options", true, true, true);
    row("new", false, true, true);
    row("clear", false, true, true);
    row("modify", false, true, true);
    row("remove", false, true, true);
    row("edit", false, false, true);
    row("clone", false, false, true);
    row("delete", false, false, true);
    row("report", false, false, true);
    // The pane can be shown before any card; a card without a memo field has none.
    row("memo", true, false, false);
    row("fields", false, true, true);
    row("export", false, true, true);
    // Importing and the link make or fetch cards, so they need none open.
    row("import", true, true, true);
    row("pclink", true, true, true);
    row("sdata", true, true, true);
    row("gdata", true, true, true);
}

void TestMRLDBActions::actionStates()
{
    QFETCH(QString, action);
    QFETCH(QList<bool>, enabled);
    TestHome home;
    MRLDB window;
    QVERIFY2(window.action(action), qPrintable(action));
    QCOMPARE(window.action(action)->isEnabled(), enabled.at(NoCard));
    DataManager *card = openCard(window, home, {});
    QCOMPARE(window.action(action)->isEnabled(), enabled.at(Card));
    // A record added becomes the list's current one.
    addNamed(*card, { "a" });
    QCOMPARE(window.records()->currentTask(), card->records().at(0));
    QCOMPARE(window.action(action)->isEnabled(), enabled.at(Selection));
}

void TestMRLDBActions::reportOpensOnTheCurrentRecord()
{
    TestHome home;
    MRLDB window;
    DataManager *card = openCard(window, home);
    window.records()->showRecord(card->records().at(1));
    PIMRecord *shown = nullptr;
    whenShown<ReportViewDialog>([&](ReportViewDialog *dialog) {
        shown = dialog->record();
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    window.action("report")->trigger();
    QCOMPARE(shown, card->records().at(1));
}

void TestMRLDBActions::optionsAppliesTheRowColors()
{
    TestHome home;
    MRLDB window;
    openCard(window, home);
    whenShown<OptionsDialog>([](OptionsDialog *dialog) {
        dialog->colorsPage()->preview()->setRowColors(Qt::red, Qt::white, Qt::blue, Qt::yellow);
        QTest::keyClick(dialog, Qt::Key_Return);
    });
    window.action("options")->trigger();
    QCOMPARE(window.records()->rowColor(0), QColor(Qt::red));
    QCOMPARE(window.records()->rowColor(3), QColor(Qt::yellow));
}

QTEST_MAIN(TestMRLDBActions)
#include "testmrldbactions.moc"
