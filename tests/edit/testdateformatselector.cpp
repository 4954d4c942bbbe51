#include "edit/dateformatselector.h"

#include "calc/datetimeformateditor.h"
#include "store/mrlpim.h"
#include "support/testhome.h"
#include "support/whenshown.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QToolButton>
#include <QtTest>

// The date format selector: filled from the user's list, chosen by code, and reporting a
// choice the user makes.
class TestDateFormatSelector : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void filledFromTheList();
    void setFormat_data();
    void setFormat();
    void userChoiceReportsChanged();
    void emptyList();
    void edit_data();
    void edit();

private:
    QTemporaryDir m_share;
    static QStringList entries(const DateFormatSelector &selector);
    static const QStringList codes;
};

const QStringList TestDateFormatSelector::codes { QStringLiteral("DD/MM/YYYY"),
    QStringLiteral("YYYY-MM-DD"), QStringLiteral("D.M.YY") };

QStringList TestDateFormatSelector::entries(const DateFormatSelector &selector)
{
    const auto *combo = selector.findChild<QComboBox *>(QStringLiteral("formats"));
    QStringList texts;
    for (int i = 0; i < combo->count(); ++i)
        texts << combo->itemText(i);
    return texts;
}

void TestDateFormatSelector::initTestCase()
{
    // An empty share folder, so that no shipped list stands in for the test's own.
    qputenv("NORVIKA_SHARE", QFile::encodeName(m_share.path()));
}

void TestDateFormatSelector::filledFromTheList()
{
    TestHome home;
    MRLPIM::saveDataList(QStringLiteral("dateFormat"), codes);
    DateFormatSelector selector;
    QCOMPARE(entries(selector), codes);
    QCOMPARE(selector.format(), codes.first());
    // Each entry tells what its code makes of a sample day.
    const auto *combo = selector.findChild<QComboBox *>(QStringLiteral("formats"));
    QCOMPARE(combo->itemData(1, Qt::ToolTipRole).toString(), QStringLiteral("2033-11-22"));
}

void TestDateFormatSelector::setFormat_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("format");
    QTest::addColumn<int>("count");

    const auto row = [](const char *name, const char *code, const char *format, int count) {
        QTest::newRow(name) << QString(code) << QString(format) << count;
    };
    row("in the list", "YYYY-MM-DD", "YYYY-MM-DD", 3);
    row("not in the list", "MM/DD", "MM/DD", 4);
    row("empty takes the first", "", "DD/MM/YYYY", 3);
}

void TestDateFormatSelector::setFormat()
{
    QFETCH(QString, code);
    QFETCH(QString, format);

    TestHome home;
    MRLPIM::saveDataList(QStringLiteral("dateFormat"), codes);
    DateFormatSelector selector;
    QSignalSpy changed(&selector, &DateFormatSelector::changed);
    selector.setFormat(QStringLiteral("D.M.YY"));
    selector.setFormat(code);
    QCOMPARE(selector.format(), format);
    const auto *combo = selector.findChild<QComboBox *>(QStringLiteral("formats"));
    QTEST(combo->count(), "count");
    QCOMPARE(combo->currentText(), format);
    QCOMPARE(changed.count(), 0);
}

void TestDateFormatSelector::userChoiceReportsChanged()
{
    TestHome home;
    MRLPIM::saveDataList(QStringLiteral("dateFormat"), codes);
    DateFormatSelector selector;
    QSignalSpy changed(&selector, &DateFormatSelector::changed);
    auto *combo = selector.findChild<QComboBox *>(QStringLiteral("formats"));
    selector.show();
    combo->setFocus();
    QTest::keyClick(combo, Qt::Key_Down);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(selector.format(), QStringLiteral("YYYY-MM-DD"));
    // Choosing what is chosen already is no change.
    Q_EMIT combo->activated(1);
    QCOMPARE(changed.count(), 1);
}

void TestDateFormatSelector::emptyList()
{
    TestHome home;
    DateFormatSelector selector;
    QVERIFY(selector.format().isEmpty());
    QVERIFY(entries(selector).isEmpty());
}

void TestDateFormatSelector::edit_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("format");
    QTest::addColumn<int>("changes");
    QTest::addColumn<int>("count");

    const auto row = [](const char *name, const char *typed, int listRow, const char *button,
                         const char *format, int changes, int count) {
        QTest::newRow(name) << QString(typed) << listRow << QString(button) << QString(format)
                            << changes << count;
    };
    row("new code accepted", "MM/YYYY", -1, "btnOk", "MM/YYYY", 1, 4);
    row("listed code chosen", "", 2, "btnOk", "D.M.YY", 1, 3);
    row("same code accepted", "", -1, "btnOk", "DD/MM/YYYY", 0, 3);
    // The editor kept its list, so the box shows the added code though none was chosen.
    row("cancelled", "MM/YYYY", -1, "btnCancel", "DD/MM/YYYY", 0, 4);
}

void TestDateFormatSelector::edit()
{
    QFETCH(QString, typed);
    QFETCH(int, row);
    QFETCH(QString, button);

    TestHome home;
    MRLPIM::saveDataList(QStringLiteral("dateFormat"), codes);
    DateFormatSelector selector;
    QSignalSpy changed(&selector, &DateFormatSelector::changed);
    whenShown<DateTimeFormatEditor>([&](DateTimeFormatEditor *editor) {
        if (!typed.isEmpty()) {
            editor->findChild<QLineEdit *>(QStringLiteral("edit"))->setText(typed);
            editor->findChild<QPushButton *>(QStringLiteral("btnAdd"))->click();
        }
        if (row >= 0)
            editor->findChild<QListWidget *>(QStringLiteral("list"))->setCurrentRow(row);
        editor->findChild<QPushButton *>(button)->click();
    });
    selector.findChild<QToolButton *>(QStringLiteral("btnEdit"))->click();
    QTEST(selector.format(), "format");
    QTEST(int(changed.count()), "changes");
    QTEST(int(entries(selector).count()), "count");
    const auto *combo = selector.findChild<QComboBox *>(QStringLiteral("formats"));
    QCOMPARE(combo->currentText(), selector.format());
}

QTEST_MAIN(TestDateFormatSelector)
#include "testdateformatselector.moc"
