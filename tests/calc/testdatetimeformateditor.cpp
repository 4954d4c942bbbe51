#include "calc/datetimeformateditor.h"

#include "app/mrldialog.h"
#include "calc/datetimeformat.h"
#include "store/mrlpim.h"
#include "support/testhome.h"
#include "support/whenshown.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

// The date-time format editor and the behaviour it shares with the other format editors:
// the list of codes and which buttons may act when. The list written back however the
// editor closes is the number format editor test's.
class TestDateTimeFormatEditor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void steps_data();
    void steps();
    void previewOfTheOpeningMoment();

private:
    QTemporaryDir m_share;
};

namespace
{
const QString listName = QStringLiteral("dateFormat");

template <class T> T *child(const QDialog &dialog, const char *name)
{
    return dialog.findChild<T *>(QLatin1String(name));
}

QStringList items(const QDialog &dialog)
{
    const auto *list = child<QListWidget>(dialog, "list");
    QStringList texts;
    for (int i = 0; i < list->count(); ++i)
        texts << list->item(i)->text();
    return texts;
}

// "A", "U" and "R" for Add, Update and Remove when enabled, "-" when not.
QString buttons(const QDialog &dialog)
{
    return QString(child<QPushButton>(dialog, "btnAdd")->isEnabled() ? 'A' : '-')
        + QString(child<QPushButton>(dialog, "btnUpdate")->isEnabled() ? 'U' : '-')
        + QString(child<QPushButton>(dialog, "btnRemove")->isEnabled() ? 'R' : '-');
}

// "type <code>", "select <row>", "add", "update", "remove yes" or "remove no".
void perform(QDialog &dialog, const QString &step)
{
    const QString verb = step.section(QLatin1Char(' '), 0, 0);
    const QString argument = step.section(QLatin1Char(' '), 1);
    if (verb == QLatin1String("type")) {
        child<QLineEdit>(dialog, "edit")->setText(argument);
    } else if (verb == QLatin1String("select")) {
        child<QListWidget>(dialog, "list")->setCurrentRow(argument.toInt());
    } else if (verb == QLatin1String("add") || verb == QLatin1String("update")) {
        child<QPushButton>(dialog, verb == QLatin1String("add") ? "btnAdd" : "btnUpdate")->click();
    } else if (verb == QLatin1String("remove")) {
        const bool yes = argument == QLatin1String("yes");
        whenShown<MRLDialog>([yes](MRLDialog *box) {
            box->findChild<QPushButton *>(
                   yes ? QStringLiteral("button1") : QStringLiteral("button2"))
                ->click();
        });
        child<QPushButton>(dialog, "btnRemove")->click();
    } else {
        QFAIL(qPrintable(QStringLiteral("unknown step ") + step));
    }
}
} // namespace

void TestDateTimeFormatEditor::initTestCase()
{
    // An empty share folder: every list starts from what the test writes.
    qputenv("NORVIKA_SHARE", QFile::encodeName(m_share.path()));
}

void TestDateTimeFormatEditor::steps_data()
{
    QTest::addColumn<QStringList>("list");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QStringList>("items");
    QTest::addColumn<QString>("edit");
    QTest::addColumn<QString>("current");
    QTest::addColumn<QString>("enabled");

    const auto row = [](const char *name, const QStringList &list, const char *format,
                         const QStringList &steps, const QStringList &items, const char *edit,
                         const char *current, const char *enabled) {
        QTest::newRow(name) << list << QString(format) << steps << items << QString(edit)
                            << QString(current) << QString(enabled);
    };
    const QStringList two { "DD/MM/YYYY", "YYYY-MM-DD" };
    const QStringList none;
    row("opened on a listed code", two, "YYYY-MM-DD", none, two, "YYYY-MM-DD", "YYYY-MM-DD", "--R");
    row("opened on a new code appends it", two, "hh:mm", none, two + QStringList { "hh:mm" },
        "hh:mm", "hh:mm", "--R");
    row("opened without a code", two, "", none, two, "", "", "--R");
    row("empty list, no code", none, "", none, none, "", "", "---");
    row("new code, none current", two, "", { "type D.M." }, two, "D.M.", "", "A-R");
    row("new code, one current", two, "YYYY-MM-DD", { "type D.M." }, two, "D.M.", "YYYY-MM-DD",
        "AUR");
    row("typing a listed code makes it current", two, "", { "type DD/MM/YYYY" }, two, "DD/MM/YYYY",
        "DD/MM/YYYY", "--R");
    row("emptied edit", two, "YYYY-MM-DD", { "type " }, two, "", "YYYY-MM-DD", "--R");
    row("choosing an item takes its text", two, "", { "type D.M.", "select 0" }, two, "DD/MM/YYYY",
        "DD/MM/YYYY", "--R");
    row("add appends and makes current", two, "", { "type D.M.", "add" },
        two + QStringList { "D.M." }, "D.M.", "D.M.", "--R");
    row("update replaces the current item", two, "YYYY-MM-DD", { "type YY-MM", "update" },
        { "DD/MM/YYYY", "YY-MM" }, "YY-MM", "YY-MM", "--R");
    row("remove refused", two, "DD/MM/YYYY", { "remove no" }, two, "DD/MM/YYYY", "DD/MM/YYYY",
        "--R");
    row("remove selects the item in its place", two, "DD/MM/YYYY", { "remove yes" },
        { "YYYY-MM-DD" }, "YYYY-MM-DD", "YYYY-MM-DD", "--R");
    row("remove the last row selects the one before", two, "YYYY-MM-DD", { "remove yes" },
        { "DD/MM/YYYY" }, "DD/MM/YYYY", "DD/MM/YYYY", "--R");
    row("emptied list offers the code again", { "hh" }, "hh", { "remove yes" }, none, "hh", "",
        "A--");
}

void TestDateTimeFormatEditor::steps()
{
    QFETCH(QStringList, list);
    QFETCH(QString, format);
    QFETCH(QStringList, steps);

    TestHome home;
    MRLPIM::saveDataList(listName, list);
    DateTimeFormatEditor editor(listName, format);
    for (const QString &step : steps)
        perform(editor, step);

    QTEST(items(editor), "items");
    QTEST(editor.format(), "edit");
    const QListWidgetItem *current = child<QListWidget>(editor, "list")->currentItem();
    QTEST(current ? current->text() : QString(), "current");
    QTEST(buttons(editor), "enabled");
}

void TestDateTimeFormatEditor::previewOfTheOpeningMoment()
{
    TestHome home;
    const QString code = QStringLiteral("YYYY-MM-DD hh:mm:ss");
    const QDateTime before = QDateTime::currentDateTime();
    DateTimeFormatEditor editor(listName, code);
    const QDateTime after = QDateTime::currentDateTime();
    const QString shown = child<QLabel>(editor, "example")->text();
    QVERIFY2(shown == formatDateTime(before, code) || shown == formatDateTime(after, code),
        qPrintable(shown));
    perform(editor, QStringLiteral("type week"));
    QCOMPARE(child<QLabel>(editor, "example")->text(), QStringLiteral("week"));
    QVERIFY(editor.windowState() & Qt::WindowMaximized);
}

QTEST_MAIN(TestDateTimeFormatEditor)
#include "testdatetimeformateditor.moc"
