#include "reminders/remindereditor.h"

#include "reminders/reminder.h"
#include "support/testhome.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QtTest>

#include <memory>

// The reminder editor: switching the alarm on and off, the reminder it hands back, and the
// sequence of signals its test plays.
class TestReminderEditor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void setAndTakeBack();
    void nullSwitchesOff();
    void testButtonFollowsTheSignals_data();
    void testButtonFollowsTheSignals();
    void testPlaysInOrder_data();
    void testPlaysInOrder();
};

namespace
{
template <class T> T *child(const ReminderEditor &editor, const char *name)
{
    return editor.findChild<T *>(QString::fromLatin1(name));
}
} // namespace

void TestReminderEditor::setAndTakeBack()
{
    TestHome home;
    ReminderEditor editor;
    Reminder given;
    given.dateTime = QDateTime(QDate(2031, 5, 6), QTime(7, 8, 9, 10));
    given.sound = false;
    given.led = true;
    given.type = 6;
    editor.setReminder(&given);
    std::unique_ptr<Reminder> taken(editor.reminder());
    QVERIFY(taken);
    // Seconds and milliseconds are cut off.
    QCOMPARE(taken->dateTime, QDateTime(QDate(2031, 5, 6), QTime(7, 8)));
    QCOMPARE(taken->sound, false);
    QCOMPARE(taken->led, true);
    QCOMPARE(taken->type, 6);
}

void TestReminderEditor::nullSwitchesOff()
{
    TestHome home;
    ReminderEditor editor;
    Reminder given;
    given.dateTime = QDateTime::currentDateTime();
    editor.setReminder(&given);
    QVERIFY(child<QCheckBox>(editor, "alarm")->isChecked());
    editor.setReminder(nullptr);
    QVERIFY(!child<QCheckBox>(editor, "alarm")->isChecked());
    QVERIFY(!editor.reminder());
}

void TestReminderEditor::testButtonFollowsTheSignals_data()
{
    QTest::addColumn<bool>("sound");
    QTest::addColumn<bool>("led");
    QTest::addColumn<bool>("enabled");
    QTest::newRow("led") << false << true << true;
    QTest::newRow("neither") << false << false << false;
}

void TestReminderEditor::testButtonFollowsTheSignals()
{
    QFETCH(bool, sound);
    QFETCH(bool, led);
    QFETCH(bool, enabled);
    TestHome home;
    ReminderEditor editor;
    child<QCheckBox>(editor, "alarm")->click();
    child<QCheckBox>(editor, "sound")->setChecked(sound);
    child<QCheckBox>(editor, "ledbox")->setChecked(led);
    QCOMPARE(child<QPushButton>(editor, "btnTest")->isEnabled(), enabled);
}

void TestReminderEditor::testPlaysInOrder_data()
{
    QTest::addColumn<bool>("led");
    QTest::addColumn<int>("pattern");
    QTest::addColumn<QStringList>("calls");
    QTest::newRow("sound and LED") << true << 2 << QStringList { "led on 2", "play", "led off -1" };
    QTest::newRow("sound alone") << false << 4 << QStringList { "play" };
}

void TestReminderEditor::testPlaysInOrder()
{
    QFETCH(bool, led);
    QFETCH(int, pattern);
    QFETCH(QStringList, calls);
    TestHome home;
    ReminderEditor editor;
    auto *button = child<QPushButton>(editor, "btnTest");
    QStringList made;
    bool enabledWhilePlaying = true;
    editor.setAlarmOutput(
        [&] {
            made << "play";
            enabledWhilePlaying = button->isEnabled();
        },
        [&](bool on, int type) {
            made << QStringLiteral("led %1 %2").arg(on ? "on" : "off").arg(type);
        });
    child<QCheckBox>(editor, "alarm")->click();
    child<QCheckBox>(editor, "ledbox")->setChecked(led);
    child<QComboBox>(editor, "led")->setCurrentIndex(pattern);
    QElapsedTimer clock;
    clock.start();
    button->click();
    QVERIFY(clock.elapsed() < ReminderEditor::testMilliseconds / 2);
    QTRY_VERIFY(button->isEnabled());
    QCOMPARE(made, calls);
    QVERIFY(!enabledWhilePlaying);
}

QTEST_MAIN(TestReminderEditor)
#include "testremindereditor.moc"
