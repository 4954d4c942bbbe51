#include "support/testhome.h"

#include "card/datamanager.h"
#include "lib/qt/mlcolorpanel.h"
#include "lib/qt/mlcombobox.h"
#include "lib/qt/mlselectcoloraction.h"
#include "lib/qt/mltabwidget.h"
#include "lib/qt/mrllistview.h"
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
    void alignment_data();
    void alignment();
    void firstPage_data();
    void firstPage();
    void reportChangesAreStoredAtOnce_data();
    void reportChangesAreStoredAtOnce();
    void cancelPutsBackOkKeeps_data();
    void cancelPutsBackOkKeeps();
    void sampleFileGoesWithTheDialog();
};

void TestOptionsDialog::initTestCase()
{
    qApp->setObjectName(QStringLiteral("norvika"));
}

void TestOptionsDialog::alignment_data()
{
    QTest::addColumn<int>("stored");
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("storedBack");
    QTest::newRow("right") << 2 << 0 << 2;
    QTest::newRow("left") << 1 << 1 << 1;
    QTest::newRow("centre shows as New Item, which stores centre") << 36 << 2 << 36;
    QTest::newRow("anything else") << 4 << 2 << 36;
}

// Stored value to the chooser's entry and back; "Center" (index 3) stores the centre too.
void TestOptionsDialog::alignment()
{
    QFETCH(int, stored);
    QFETCH(int, index);
    QFETCH(int, storedBack);
    QCOMPARE(ReportViewOptions::alignIndex(stored), index);
    QCOMPARE(ReportViewOptions::alignValue(index), storedBack);
    QCOMPARE(ReportViewOptions::alignValue(3), 36);
}

void TestOptionsDialog::firstPage_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<int>("index");
    const auto row = [](const char *name, const char *stored, int index) {
        QTest::newRow(name) << QString::fromLatin1(stored) << index;
    };
    row("none: View", "", 0);
    row("1: View", "1", 0);
    row("2: Report View", "2", 1);
    row("garbage: View", "x", 0);
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
    // A click on the other page stores that page at once.
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QTabBar *bar = dialog.tabs()->tabBar();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(1 - index).center());
    QCOMPARE(entry("Options", "optionsPage"), QString::number(2 - index));
}

void TestOptionsDialog::reportChangesAreStoredAtOnce_data()
{
    QTest::addColumn<QString>("widget");
    QTest::addColumn<QString>("choice");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("stored");
    const auto row
        = [](const char *name, const char *widget, const char *choice, const char *key,
              const char *stored) { QTest::newRow(name) << widget << choice << key << stored; };
    row("labels red", "b1", "color6", "c1", "#ff0000");
    row("values navy", "b2", "color13", "c2", "#000080");
    row("lines off", "b3", "noColor", "c3", "");
    row("separator off", "b4", "noColor", "c4", "");
    row("background cream", "b5", "color4", "c5", "#ffffcc");
    row("values centred", "av", "end", "a2", "36");
    row("labels left", "al", "down", "a1", "1");
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

void TestOptionsDialog::cancelPutsBackOkKeeps_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("kept");
    QTest::newRow("ok") << QStringLiteral("btnOk") << true;
    QTest::newRow("cancel") << QStringLiteral("btnCancel") << false;
    QTest::newRow("escape") << QStringLiteral("escape") << false;
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
