#include "support/testhome.h"

#include "card/datamanager.h"
#include "lib/qt/mlcolorpanel.h"
#include "lib/qt/mlcombobox.h"
#include "lib/qt/mlselectcoloraction.h"
#include "lib/qt/mltabwidget.h"
#include "lib/qt/mrllistview.h"
#include "lib/qt/mrllistviewitem.h"
#include "platform/config.h"
#include "platform/global.h"
#include "views/colorswidget.h"
#include "views/optionsdialog.h"
#include "views/reportscrollview.h"
#include "views/reportview.h"
#include "views/reportviewoptions.h"

#include <QApplication>
#include <QFile>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <QToolButton>

namespace
{
QString entry(const QString &group, const QString &key)
{
    Config config(qApp->objectName());
    config.setGroup(group);
    return config.readEntry(key, QStringLiteral("<none>"));
}

// Opens the colour panel of a button as a user does and clicks one of its entries.
void pick(QWidget *page, const char *button, const char *entry)
{
    auto *tool = page->findChild<QToolButton *>(QLatin1String(button));
    QVERIFY(tool);
    QTest::mouseClick(tool, Qt::LeftButton);
    MLColorPanel *panel = nullptr;
    QTRY_VERIFY((panel = qobject_cast<MLColorPanel *>(QApplication::activePopupWidget())));
    QWidget *choice = panel->findChild<QWidget *>(QLatin1String(entry));
    QVERIFY(choice);
    QTest::mouseClick(choice, Qt::LeftButton);
}

QString samplePath()
{
    return Global::applicationFileName(qApp->objectName(), ReportViewOptions::sampleName);
}
} // namespace

class TestOptionsDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void alignIndex_data();
    void alignIndex();
    void alignValue_data();
    void alignValue();
    void firstPage_data();
    void firstPage();
    void pageChangeIsStored();
    void reportChangesAreStoredAtOnce_data();
    void reportChangesAreStoredAtOnce();
    void rowColorsAreStoredAtOnce();
    void previewRows();
    void cancelPutsBackOkKeeps_data();
    void cancelPutsBackOkKeeps();
    void sampleFileGoesWithTheDialog();
};

void TestOptionsDialog::initTestCase()
{
    qApp->setObjectName(QStringLiteral("norvika"));
}

void TestOptionsDialog::alignIndex_data()
{
    QTest::addColumn<int>("stored");
    QTest::addColumn<int>("index");
    QTest::newRow("right") << 2 << 0;
    QTest::newRow("left") << 1 << 1;
    QTest::newRow("centre shows as New Item") << 36 << 2;
    QTest::newRow("anything else") << 4 << 2;
}

void TestOptionsDialog::alignIndex()
{
    QFETCH(int, stored);
    QFETCH(int, index);
    QCOMPARE(ReportViewOptions::alignIndex(stored), index);
}

void TestOptionsDialog::alignValue_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("stored");
    QTest::newRow("Right") << 0 << 2;
    QTest::newRow("Left") << 1 << 1;
    QTest::newRow("New Item acts as centre") << 2 << 36;
    QTest::newRow("Center") << 3 << 36;
}

void TestOptionsDialog::alignValue()
{
    QFETCH(int, index);
    QFETCH(int, stored);
    QCOMPARE(ReportViewOptions::alignValue(index), stored);
}

void TestOptionsDialog::firstPage_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<int>("index");
    QTest::newRow("none: View") << "" << 0;
    QTest::newRow("1: View") << "1" << 0;
    QTest::newRow("2: Report View") << "2" << 1;
    QTest::newRow("garbage: View") << "x" << 0;
}

void TestOptionsDialog::firstPage()
{
    QFETCH(QString, stored);
    QFETCH(int, index);
    TestHome home;
    if (!stored.isEmpty()) {
        Config config(qApp->objectName());
        config.setGroup(QStringLiteral("Options"));
        config.writeEntry(QStringLiteral("optionsPage"), stored);
    }
    OptionsDialog dialog;
    QCOMPARE(dialog.tabs()->currentIndex(), index);
    QCOMPARE(dialog.tabs()->tabLabel(0), QStringLiteral("View"));
    QCOMPARE(dialog.tabs()->tabLabel(1), QStringLiteral("Report View"));
}

void TestOptionsDialog::pageChangeIsStored()
{
    TestHome home;
    OptionsDialog dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QTabBar *bar = dialog.tabs()->tabBar();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(1).center());
    QCOMPARE(entry("Options", "optionsPage"), QStringLiteral("2"));
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(0).center());
    QCOMPARE(entry("Options", "optionsPage"), QStringLiteral("1"));
}

void TestOptionsDialog::reportChangesAreStoredAtOnce_data()
{
    QTest::addColumn<QString>("widget");
    QTest::addColumn<QString>("choice");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("stored");
    QTest::newRow("labels red") << "b1"
                                << "color6"
                                << "c1"
                                << "#ff0000";
    QTest::newRow("values navy") << "b2"
                                 << "color13"
                                 << "c2"
                                 << "#000080";
    QTest::newRow("lines off") << "b3"
                               << "noColor"
                               << "c3"
                               << "";
    QTest::newRow("separator off") << "b4"
                                   << "noColor"
                                   << "c4"
                                   << "";
    QTest::newRow("background cream") << "b5"
                                      << "color4"
                                      << "c5"
                                      << "#ffffcc";
    QTest::newRow("values centred") << "av"
                                    << "end"
                                    << "a2"
                                    << "36";
    QTest::newRow("labels left") << "al"
                                 << "down"
                                 << "a1"
                                 << "1";
}

// Each change writes every key and the sample follows at once.
void TestOptionsDialog::reportChangesAreStoredAtOnce()
{
    QFETCH(QString, widget);
    QFETCH(QString, choice);
    QFETCH(QString, key);
    QFETCH(QString, stored);
    TestHome home;
    OptionsDialog dialog;
    dialog.tabs()->setCurrentIndex(1);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    ReportViewOptions *page = dialog.reportPage();
    if (widget.startsWith(QLatin1Char('a'))) {
        auto *box = page->findChild<MLComboBox *>(widget);
        box->setFocus();
        QTest::keyClick(box, choice == QLatin1String("end") ? Qt::Key_End : Qt::Key_Down);
    } else {
        pick(page, widget.toLatin1().constData(), choice.toLatin1().constData());
    }
    QCOMPARE(entry("reportcolors", key), stored);
    for (const char *other : { "c1", "c2", "c5", "a1", "a2" })
        QVERIFY2(entry("reportcolors", other) != QLatin1String("<none>"), other);
    QCOMPARE(page->preview()->reportView()->page().settings(), ReportSettings::read());
}

void TestOptionsDialog::rowColorsAreStoredAtOnce()
{
    TestHome home;
    OptionsDialog dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    pick(dialog.colorsPage(), "b2", "color4");
    QCOMPARE(entry("main", "c2"), QStringLiteral("#ffffcc"));
    QCOMPARE(dialog.colorsPage()->preview()->rowColor(1), QColor("#ffffcc"));
    for (const char *other : { "c1", "c3", "c4" })
        QVERIFY2(entry("main", other) != QLatin1String("<none>"), other);
}

void TestOptionsDialog::previewRows()
{
    TestHome home;
    ColorsWidget page;
    MRLListView *list = page.preview();
    QCOMPARE(list->objectName(), QStringLiteral("main"));
    QCOMPARE(list->colorMode(), int(MRLListView::AlternateColors));
    QCOMPARE(list->columnCount(), 4);
    QCOMPARE(list->columnWidth(0), 50);
    QCOMPARE(list->columnWidth(1), 113);
    QCOMPARE(list->columnAlignment(3), Qt::AlignRight);
    QCOMPARE(list->itemCount(), 4);
    QCOMPARE(list->lastItem()->text(1), QStringLiteral("Just Another Tragic Song"));
}

void TestOptionsDialog::cancelPutsBackOkKeeps_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("kept");
    QTest::newRow("ok") << "btnOk" << true;
    QTest::newRow("cancel") << "btnCancel" << false;
    QTest::newRow("escape") << "escape" << false;
}

void TestOptionsDialog::cancelPutsBackOkKeeps()
{
    QFETCH(QString, button);
    QFETCH(bool, kept);
    TestHome home;
    OptionsDialog dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    const QColor before = dialog.colorsPage()->preview()->rowColor(0);
    pick(dialog.colorsPage(), "b1", "color6");
    dialog.tabs()->setCurrentIndex(1);
    pick(dialog.reportPage(), "b3", "noColor");
    if (button == QLatin1String("escape"))
        QTest::keyClick(&dialog, Qt::Key_Escape);
    else
        QTest::mouseClick(dialog.findChild<QPushButton *>(button), Qt::LeftButton);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(entry("main", "c1"), kept ? QStringLiteral("#ff0000") : before.name());
    QCOMPARE(ReportSettings::read().lineColor.isValid(), !kept);
}

void TestOptionsDialog::sampleFileGoesWithTheDialog()
{
    TestHome home;
    {
        QFile stale(samplePath());
        QVERIFY(stale.open(QIODevice::WriteOnly));
        stale.write("not a card");
    }
    auto *page = new ReportViewOptions;
    QVERIFY(QFile::exists(samplePath()));
    DataManager reread(samplePath());
    QVERIFY(reread.load());
    QCOMPARE(reread.count(), 1);
    QCOMPARE(page->preview()->reportView()->valueText(1), QStringLiteral("Premortal Dance"));
    delete page;
    QVERIFY(!QFile::exists(samplePath()));
}

QTEST_MAIN(TestOptionsDialog)
#include "testoptionsdialog.moc"
