#include "app/mrldb.h"

#include "app/mrldialog.h"
#include "app/resourceicons.h"
#include "card/datamanager.h"
#include "card/datarecord.h"
#include "edit/customlistdialog.h"
#include "edit/dataeditor.h"
#include "edit/datascrollview.h"
#include "edit/popupdialog.h"
#include "lib/qt/mlcalculatordialog.h"
#include "lib/qt/mldatetimeedit.h"
#include "lib/qt/mrlaction.h"
#include "reminders/reminder.h"
#include "support/testcard.h"
#include "support/testhome.h"
#include "support/whenshown.h"
#include "views/listview.h"

#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

// The main window's commands on the records of an open card: the record flow through the
// editor, removal, the memo pane and editing in place.
class TestMRLDBRecords : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void duplicateAndRemove_data();
    void duplicateAndRemove();
    void memoPaneSavesEveryKeystroke();
    void calculatedFieldInPlace_data();
    void calculatedFieldInPlace();
    void boolFlipsInPlace();
    void reminderInPlace_data();
    void reminderInPlace();
    void listInPlace_data();
    void listInPlace();
};

namespace
{
// A card of the given fields whose records are named "0", "1" ..., opened in window.
DataManager *openCard(MRLDB &window, const TestHome &home, const QList<FieldDef> &fields, int count)
{
    QStringList names;
    for (int i = 0; i < count; ++i)
        names << QString::number(i);
    DataManager *card = testCard(home.file(QStringLiteral("test.card")), fields, names).release();
    window.showCard(card, QStringLiteral("Test card"));
    return card;
}

DataRecord *at(const DataManager *manager, int i)
{
    return static_cast<DataRecord *>(manager->records().at(i));
}

void answer(bool yes)
{
    whenShown<MRLDialog>([yes](MRLDialog *box) {
        box->findChild<QPushButton *>(yes ? QStringLiteral("button1") : QStringLiteral("button2"))
            ->click();
    });
}
} // namespace

void TestMRLDBRecords::initTestCase()
{
    qApp->setObjectName(QStringLiteral("norvika"));
    qunsetenv("NORVIKA_SHARE");
    ResourceIcons::reset();
}

void TestMRLDBRecords::duplicateAndRemove_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<bool>("yes"); // the copy's editor accepted, or the removal confirmed
    QTest::addColumn<int>("count");
    QTest::newRow("duplicate accepted") << "clone" << true << 3;
    QTest::newRow("duplicate cancelled") << "clone" << false << 2;
    QTest::newRow("remove, yes") << "delete" << true << 1;
    QTest::newRow("remove, no") << "delete" << false << 2;
}

// Both act on the current record, the second; a copy is added only when its editor is accepted.
void TestMRLDBRecords::duplicateAndRemove()
{
    QFETCH(QString, action);
    QFETCH(bool, yes);
    TestHome home;
    MRLDB window;
    DataManager *card = openCard(window, home, { testField(FieldDef::String, "Name") }, 2);
    window.records()->showRecord(at(card, 1));
    const QString uid = at(card, 1)->uidString();
    QString copyUid;
    QString copyName;
    if (action == QLatin1String("clone")) {
        whenShown<DataEditor>([&](DataEditor *editor) {
            copyUid = editor->record()->uidString();
            copyName = editor->record()->stringValue(0);
            QTest::keyClick(editor, yes ? Qt::Key_Return : Qt::Key_Escape);
        });
    } else {
        answer(yes);
    }
    window.action(action)->trigger();
    QTEST(int(card->count()), "count");
    QCOMPARE(at(card, 0)->stringValue(0), QStringLiteral("0"));
    if (action == QLatin1String("clone")) {
        QCOMPARE(copyName, QStringLiteral("1"));
        QVERIFY(!copyUid.isEmpty() && copyUid != uid);
    }
}

void TestMRLDBRecords::memoPaneSavesEveryKeystroke()
{
    TestHome home;
    MRLDB window;
    DataManager *card = openCard(window, home,
        { testField(FieldDef::String, "Name"), testField(FieldDef::Memo, "Notes") }, 2);
    window.toggleMemo();
    window.records()->showRecord(at(card, 1));
    auto *memo = window.findChild<QPlainTextEdit *>(QStringLiteral("memo"));
    QVERIFY(memo->isEnabled());
    QSignalSpy updates(card, &PIMManager::taskUpdated);
    QTest::keyClicks(memo, QStringLiteral("abc"));
    QCOMPARE(updates.count(), 3);
    QCOMPARE(at(card, 1)->memo(), QStringLiteral("abc"));
    QCOMPARE(memo->toPlainText(), QStringLiteral("abc"));
    QVERIFY(at(card, 0)->memo().isEmpty());
}

void TestMRLDBRecords::calculatedFieldInPlace_data()
{
    QTest::addColumn<QString>("formula");
    QTest::addColumn<int>("record");
    QTest::addColumn<bool>("edited");
    QTest::newRow("running formula, first record") << "[1!]+1" << 0 << true;
    QTest::newRow("running formula, second record") << "[1!]+1" << 1 << false;
    QTest::newRow("plain formula, first record") << "2*3" << 0 << false;
    QTest::newRow("no formula, second record") << "" << 1 << true;
}

void TestMRLDBRecords::calculatedFieldInPlace()
{
    QFETCH(QString, formula);
    QFETCH(int, record);
    TestHome home;
    MRLDB window;
    DataManager *card = openCard(window, home,
        { testField(FieldDef::String, "Name"), testField(FieldDef::Double, "Sum", formula) }, 2);
    bool shown = false;
    auto watch = std::make_unique<QObject>();
    whenShown<MLCalculatorDialog>(
        [&](MLCalculatorDialog *calculator) {
            shown = true;
            calculator->reject();
        },
        watch.get());
    window.editRecord(QPoint(10, 10), at(card, record), 1);
    QCoreApplication::processEvents();
    QTEST(shown, "edited");
}

void TestMRLDBRecords::boolFlipsInPlace()
{
    TestHome home;
    MRLDB window;
    DataManager *card = openCard(window, home,
        { testField(FieldDef::String, "Name"), testField(FieldDef::Bool, "Done") }, 1);
    at(card, 0)->setIntValue(1, 7);
    window.editRecord(QPoint(), at(card, 0), 1);
    QCOMPARE(at(card, 0)->intValue(1), 0);
    window.editRecord(QPoint(), at(card, 0), 1);
    QCOMPARE(at(card, 0)->intValue(1), 1);
}

void TestMRLDBRecords::reminderInPlace_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QDateTime>("moment"); // invalid: no reminder left
    QTest::addColumn<int>("saves");

    // The reminder is set for 2040-01-02 03:04; 2041-05-06 07:08 is typed.
    QTest::newRow("remove reminder") << "button1" << QDateTime() << 1;
    QTest::newRow("set") << "button2" << QDateTime(QDate(2041, 5, 6), QTime(7, 8)) << 1;
    QTest::newRow("dismissed") << "" << QDateTime(QDate(2040, 1, 2), QTime(3, 4)) << 0;
}

void TestMRLDBRecords::reminderInPlace()
{
    QFETCH(QString, button);
    QFETCH(QDateTime, moment);
    TestHome home;
    MRLDB window;
    DataManager *card = openCard(window, home,
        { testField(FieldDef::String, "Name"), testField(FieldDef::Reminder, "Alarm") }, 1);
    auto *reminder = new Reminder;
    reminder->dateTime = QDateTime(QDate(2040, 1, 2), QTime(3, 4));
    reminder->led = true;
    reminder->type = 5;
    at(card, 0)->setReminder(reminder);
    QSignalSpy updates(card, &PIMManager::taskUpdated);
    whenShown<PopupDialog>([&](PopupDialog *popup) {
        popup->findChild<MLDateTimeEdit *>()->setDateTime(
            QDateTime(QDate(2041, 5, 6), QTime(7, 8)));
        if (button.isEmpty())
            QTest::keyClick(popup, Qt::Key_Escape);
        else
            popup->findChild<QPushButton *>(button)->click();
    });
    window.editRecord(QPoint(10, 10), at(card, 0), 1);
    QCOMPARE(at(card, 0)->hasReminder(), moment.isValid());
    if (moment.isValid()) {
        QCOMPARE(at(card, 0)->reminder()->dateTime, moment);
        QCOMPARE(at(card, 0)->reminder()->type, 5);
    }
    QTEST(int(updates.count()), "saves");
}

void TestMRLDBRecords::listInPlace_data()
{
    QTest::addColumn<bool>("accept");
    QTest::addColumn<QString>("value");
    QTest::newRow("accepted: the current item is taken") << true << "blue";
    QTest::newRow("cancelled: the value stays") << false << "red";
}

void TestMRLDBRecords::listInPlace()
{
    QFETCH(bool, accept);
    TestHome home;
    MRLDB window;
    FieldDef list = testField(FieldDef::List, "Colour");
    list.items = QStringList { "red", "green" };
    DataManager *card = openCard(window, home, { testField(FieldDef::String, "Name"), list }, 1);
    at(card, 0)->setStringValue(1, "red");
    QString caption;
    whenShown<CustomListDialog>([&](CustomListDialog *dialog) {
        caption = dialog->windowTitle();
        dialog->doNew();
        dialog->doUpdate(QStringLiteral("blue"));
        QTest::mouseClick(
            dialog->findChild<QPushButton *>(accept ? "btnOk" : "btnCancel"), Qt::LeftButton);
    });
    window.editRecord(QPoint(10, 10), at(card, 0), 1);
    QCOMPARE(caption, QStringLiteral("Edit Colour"));
    QTEST(at(card, 0)->stringValue(1), "value");
    // The list is the card's, kept however the dialog closed.
    QCOMPARE(card->fieldItems(1), (QStringList { "red", "green", "blue" }));
}

QTEST_MAIN(TestMRLDBRecords)
#include "testmrldbrecords.moc"
