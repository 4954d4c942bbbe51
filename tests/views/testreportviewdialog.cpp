#include "support/testcard.h"
#include "support/testhome.h"
#include "support/whenshown.h"

#include "app/mrldialog.h"
#include "lib/qt/mlspinbox.h"
#include "lib/qt/mrlaction.h"
#include "views/reportscrollview.h"
#include "views/reportview.h"
#include "views/reportviewdialog.h"

#include <QApplication>
#include <QLabel>
#include <QPrintDialog>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

namespace
{
// A card of named records whose list shows only the names that hold "visible".
std::unique_ptr<DataManager> namedCard(const TestHome &home, const QStringList &names)
{
    auto card = testCard(home.file(QStringLiteral("names.card")),
        { testField(FieldDef::String, QStringLiteral("Name")) }, names);
    FilterCondition condition;
    condition.field = 0;
    condition.op = FilterCondition::Contains;
    condition.text = QStringLiteral("visible");
    FilterDef filter;
    filter.conditions.append(condition);
    card->setAdHocFilter(filter);
    card->setCurrentFilter(-2);
    return card;
}

DataRecord *named(DataManager &card, const QString &name)
{
    for (PIMRecord *record : card.records()) {
        if (static_cast<DataRecord *>(record)->stringValue(0) == name)
            return static_cast<DataRecord *>(record);
    }
    return nullptr;
}

QString shownName(const ReportViewDialog &dialog)
{
    return dialog.record()->stringValue(0);
}

void click(ReportViewDialog &dialog, const char *name)
{
    auto *button = dialog.findChild<QToolButton *>(QLatin1String(name));
    QVERIFY(button);
    QTest::mouseClick(button, Qt::LeftButton);
}
} // namespace

class TestReportViewDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void barState_data();
    void barState();
    void walking_data();
    void walking();
    void pageFillsTheScrollView();
    void waysOut_data();
    void waysOut();
    void exportPdf_data();
    void exportPdf();
};

void TestReportViewDialog::barState_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("open");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("backward");
    QTest::addColumn<bool>("onward");
    const QStringList three { "visible a", "visible b", "visible c" };
    QTest::newRow("first") << three << "visible a" << 3 << 1 << false << true;
    QTest::newRow("middle") << three << "visible b" << 3 << 2 << true << true;
    QTest::newRow("last") << three << "visible c" << 3 << 3 << true << false;
    QTest::newRow("single") << QStringList { "visible a" } << "visible a" << 1 << 1 << false
                            << false;
    QTest::newRow("outside the filter") << QStringList { "visible a", "x hidden", "visible b" }
                                        << "x hidden" << 3 << 3 << true << false;
}

// back and start need a record before, forward and end one after; a record outside the
// list stands one past its end.
void TestReportViewDialog::barState()
{
    QFETCH(QStringList, names);
    QFETCH(QString, open);
    QFETCH(int, maximum);
    QFETCH(int, value);
    QFETCH(bool, backward);
    QFETCH(bool, onward);
    TestHome home;
    auto card = namedCard(home, names);
    ReportViewDialog dialog(named(*card, open));
    QCOMPARE(dialog.spinBox()->minimum(), 1);
    QCOMPARE(dialog.spinBox()->maximum(), maximum);
    QCOMPARE(dialog.spinBox()->value(), value);
    QCOMPARE(dialog.action("start")->isEnabled(), backward);
    QCOMPARE(dialog.action("back")->isEnabled(), backward);
    QCOMPARE(dialog.action("forward")->isEnabled(), onward);
    QCOMPARE(dialog.action("end")->isEnabled(), onward);
}

void TestReportViewDialog::walking_data()
{
    QTest::addColumn<QString>("open");
    QTest::addColumn<QString>("press");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char *name, const char *open, const char *press, const char *shown) {
        QTest::newRow(name) << open << press << shown;
    };
    row("forward", "visible a", "forward", "visible b");
    row("back", "visible c", "back", "visible b");
    row("end", "visible a", "end", "visible c");
    row("start", "visible c", "start", "visible a");
    row("spin up", "visible a", "up", "visible b");
    row("spin down", "visible c", "down", "visible b");
    row("back from outside goes to the end", "x hidden", "back", "visible c");
}

// Each step shows the record and selects it, so the main list follows.
void TestReportViewDialog::walking()
{
    QFETCH(QString, open);
    QFETCH(QString, press);
    QFETCH(QString, shown);
    TestHome home;
    auto card = namedCard(home, { "visible a", "x hidden", "visible b", "visible c" });
    ReportViewDialog dialog(named(*card, open));
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QSignalSpy selected(card.get(), &PIMManager::taskSelected);
    if (press == QLatin1String("up") || press == QLatin1String("down"))
        QTest::keyClick(dialog.spinBox(), press == QLatin1String("up") ? Qt::Key_Up : Qt::Key_Down);
    else
        click(dialog, press.toLatin1().constData());
    QCOMPARE(shownName(dialog), shown);
    QCOMPARE(dialog.reportView()->record(), named(*card, shown));
    QCOMPARE(dialog.reportView()->valueText(0), shown);
    QCOMPARE(selected.count(), 1);
    QCOMPARE(dialog.spinBox()->value(), int(card->view().indexOf(dialog.record())) + 1);
}

void TestReportViewDialog::pageFillsTheScrollView()
{
    TestHome home;
    auto card = namedCard(home, { "visible a" });
    ReportViewDialog dialog(named(*card, "visible a"));
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    auto *scroll = dialog.findChild<ReportScrollView *>();
    ReportView *view = dialog.reportView();
    QCOMPARE(view->width(), scroll->width() - scroll->verticalScrollBar()->sizeHint().width());
    QCOMPARE(view->page().width(), view->width());
    QCOMPARE(view->height(), view->page().height());
    QCOMPARE(view->pagePixmap().size(), view->size());
    dialog.resize(dialog.width() + 100, dialog.height());
    QTRY_COMPARE(
        view->page().width(), scroll->width() - scroll->verticalScrollBar()->sizeHint().width());
}

void TestReportViewDialog::waysOut_data()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<bool>("closed");
    QTest::newRow("close button") << QStringLiteral("btnClose") << true;
    QTest::newRow("escape") << QStringLiteral("escape") << true;
    QTest::newRow("return") << QStringLiteral("return") << true;
    QTest::newRow("cancelled print does nothing") << QStringLiteral("btnPrint") << false;
}

void TestReportViewDialog::waysOut()
{
    QFETCH(QString, way);
    TestHome home;
    auto card = namedCard(home, { "visible a" });
    ReportViewDialog dialog(named(*card, "visible a"));
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    const bool print = way == QLatin1String("btnPrint");
    bool asked = false;
    if (print) {
        whenShown<QPrintDialog>([&asked](QPrintDialog *box) {
            asked = true;
            QTest::keyClick(box, Qt::Key_Escape);
        });
    }
    if (way == QLatin1String("escape"))
        QTest::keyClick(&dialog, Qt::Key_Escape);
    else if (way == QLatin1String("return"))
        QTest::keyClick(&dialog, Qt::Key_Return);
    else
        QTest::mouseClick(dialog.findChild<QPushButton *>(way), Qt::LeftButton);
    QCOMPARE(asked, print);
    QTEST(!dialog.isVisible(), "closed");
    QVERIFY(QApplication::activeModalWidget() == &dialog || !QApplication::activeModalWidget());
}

void TestReportViewDialog::exportPdf_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<bool>("written");
    QTest::newRow("written") << QStringLiteral("page.pdf") << true;
    QTest::newRow("unwritable: a message, no file") << QStringLiteral("missing/page.pdf") << false;
}

void TestReportViewDialog::exportPdf()
{
    QFETCH(QString, file);
    QFETCH(bool, written);
    TestHome home;
    auto card = namedCard(home, { "visible a" });
    ReportViewDialog dialog(named(*card, "visible a"));
    const QString path = home.file(file);
    auto *owner = new QObject;
    QString caption;
    whenShown<MRLDialog>(
        [&caption](MRLDialog *box) {
            caption = box->windowTitle();
            QTest::keyClick(box, Qt::Key_Return);
        },
        owner);
    QCOMPARE(dialog.exportPdf(path), written);
    delete owner;
    QCOMPARE(caption.startsWith(QLatin1String("Report View")), !written);
    QFile pdf(path);
    QCOMPARE(pdf.open(QIODevice::ReadOnly) && pdf.read(5) == "%PDF-", written);
}

QTEST_MAIN(TestReportViewDialog)
#include "testreportviewdialog.moc"
