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
// the list of codes, which buttons may act when, and the list kept however it closes.
class TestDateTimeFormatEditor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void steps_data();
    void steps();
    void listWrittenBackOnClose_data();
    void listWrittenBackOnClose();
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
    } else if (verb == QLatin1String("add")) {
        child<QPushButton>(dialog, "btnAdd")->click();
    } else if (verb == QLatin1String("update")) {
        child<QPushButton>(dialog, "btnUpdate")->click();
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

    const QStringList two { "DD/MM/YYYY", "YYYY-MM-DD" };
    QTest::newRow("opened on a listed code")
        << two << "YYYY-MM-DD" << QStringList() << two << "YYYY-MM-DD"
        << "YYYY-MM-DD"
        << "--R";
    QTest::newRow("opened on a new code appends it")
        << two << "hh:mm" << QStringList() << (two + QStringList { "hh:mm" }) << "hh:mm"
        << "hh:mm"
        << "--R";
    QTest::newRow("opened without a code") << two << "" << QStringList() << two << ""
                                           << ""
                                           << "--R";
    QTest::newRow("empty list, no code")
        << QStringList() << "" << QStringList() << QStringList() << ""
        << ""
        << "---";
    QTest::newRow("new code, none current")
        << two << "" << QStringList { "type D.M." } << two << "D.M."
        << ""
        << "A-R";
    QTest::newRow("new code, one current")
        << two << "YYYY-MM-DD" << QStringList { "type D.M." } << two << "D.M."
        << "YYYY-MM-DD"
        << "AUR";
    QTest::newRow("typing a listed code makes it current")
        << two << "" << QStringList { "type DD/MM/YYYY" } << two << "DD/MM/YYYY"
        << "DD/MM/YYYY"
        << "--R";
    QTest::newRow("emptied edit") << two << "YYYY-MM-DD" << QStringList { "type " } << two << ""
                                  << "YYYY-MM-DD"
                                  << "--R";
    QTest::newRow("choosing an item takes its text")
        << two << "" << QStringList { "type D.M.", "select 0" } << two << "DD/MM/YYYY"
        << "DD/MM/YYYY"
        << "--R";
    QTest::newRow("add appends and makes current")
        << two << "" << QStringList { "type D.M.", "add" } << (two + QStringList { "D.M." })
        << "D.M."
        << "D.M."
        << "--R";
    QTest::newRow("update replaces the current item")
        << two << "YYYY-MM-DD" << QStringList { "type YY-MM", "update" }
        << QStringList { "DD/MM/YYYY", "YY-MM" } << "YY-MM"
        << "YY-MM"
        << "--R";
    QTest::newRow("remove refused")
        << two << "DD/MM/YYYY" << QStringList { "remove no" } << two << "DD/MM/YYYY"
        << "DD/MM/YYYY"
        << "--R";
    QTest::newRow("remove selects the item in its place")
        << two << "DD/MM/YYYY" << QStringList { "remove yes" } << QStringList { "YYYY-MM-DD" }
        << "YYYY-MM-DD"
        << "YYYY-MM-DD"
        << "--R";
    QTest::newRow("remove the last row selects the one before")
        << two << "YYYY-MM-DD" << QStringList { "remove yes" } << QStringList { "DD/MM/YYYY" }
        << "DD/MM/YYYY"
        << "DD/MM/YYYY"
        << "--R";
    QTest::newRow("emptied list offers the code again")
        << QStringList { "hh" } << "hh" << QStringList { "remove yes" } << QStringList() << "hh"
        << ""
        << "A--";
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

void TestDateTimeFormatEditor::listWrittenBackOnClose_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("result");

    QTest::newRow("accepted") << "btnOk" << int(QDialog::Accepted);
    QTest::newRow("cancelled") << "btnCancel" << int(QDialog::Rejected);
}

void TestDateTimeFormatEditor::listWrittenBackOnClose()
{
    QFETCH(QString, button);
    QFETCH(int, result);

    TestHome home;
    MRLPIM::saveDataList(QStringLiteral("timeFormat"), { QStringLiteral("hh:mm") });
    DateTimeFormatEditor editor(QStringLiteral("timeFormat"), QStringLiteral("h AM/PM"));
    whenShown<DateTimeFormatEditor>([&button](DateTimeFormatEditor *shown) {
        perform(*shown, QStringLiteral("type mm:ss"));
        perform(*shown, QStringLiteral("add"));
        shown->findChild<QPushButton *>(button)->click();
    });
    QCOMPARE(editor.exec(), result);
    QCOMPARE(editor.format(), QStringLiteral("mm:ss"));
    QCOMPARE(MRLPIM::loadDataList(QStringLiteral("timeFormat")),
        (QStringList { "hh:mm", "h AM/PM", "mm:ss" }));
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
    QCOMPARE(editor.windowTitle(), QStringLiteral("DateTime Format Editor"));
    QVERIFY(editor.windowState() & Qt::WindowMaximized);
}

QTEST_MAIN(TestDateTimeFormatEditor)
#include "testdatetimeformateditor.moc"
