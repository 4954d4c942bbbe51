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
    void setTakeBackSwitchOff();
    void testButton_data();
    void testButton();
};

namespace
{
template <class T> T *child(const ReminderEditor &editor, const char *name)
{
    return editor.findChild<T *>(QString::fromLatin1(name));
}
} // namespace

void TestReminderEditor::setTakeBackSwitchOff()
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
    editor.setReminder(nullptr);
    QVERIFY(!child<QCheckBox>(editor, "alarm")->isChecked());
    QVERIFY(!editor.reminder());
}

void TestReminderEditor::testButton_data()
{
    QTest::addColumn<bool>("sound");
    QTest::addColumn<bool>("led");
    QTest::addColumn<int>("pattern");
    QTest::addColumn<bool>("closeEarly");
    QTest::addColumn<QStringList>("calls");
    QTest::newRow("sound and LED")
        << true << true << 2 << false << QStringList { "led on 2", "play", "led off -1" };
    QTest::newRow("sound alone") << true << false << 4 << false << QStringList { "play" };
    QTest::newRow("LED alone")
        << false << true << 7 << false << QStringList { "led on 7", "led off -1" };
    QTest::newRow("neither: no test") << false << false << 4 << false << QStringList();
    QTest::newRow("closed during the test")
        << true << true << 3 << true << QStringList { "led on 3", "play", "led off -1" };
    QTest::newRow("closed during a test without LED")
        << true << false << 3 << true << QStringList { "play" };
}

// The test plays without holding up the window and gives the button back afterwards; an
// editor closed before the end leaves no LED on.
void TestReminderEditor::testButton()
{
    QFETCH(bool, sound);
    QFETCH(bool, led);
    QFETCH(int, pattern);
    QFETCH(bool, closeEarly);
    QFETCH(QStringList, calls);
    TestHome home;
    auto editor = std::make_unique<ReminderEditor>();
    auto *button = child<QPushButton>(*editor, "btnTest");
    QStringList made;
    bool enabledWhilePlaying = true;
    editor->setAlarmOutput(
        [&] {
            made << "play";
            enabledWhilePlaying = button->isEnabled();
        },
        [&](bool on, int type) {
            made << QStringLiteral("led %1 %2").arg(on ? "on" : "off").arg(type);
        });
    child<QCheckBox>(*editor, "alarm")->click();
    child<QCheckBox>(*editor, "sound")->setChecked(sound);
    child<QCheckBox>(*editor, "ledbox")->setChecked(led);
    child<QComboBox>(*editor, "led")->setCurrentIndex(pattern);
    QCOMPARE(button->isEnabled(), !calls.isEmpty());
    QElapsedTimer clock;
    clock.start();
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(clock.elapsed() < ReminderEditor::testMilliseconds / 2);
    QVERIFY(!sound || !enabledWhilePlaying);
    if (closeEarly)
        editor.reset();
    else
        QTRY_COMPARE(button->isEnabled(), !calls.isEmpty());
    QCOMPARE(made, calls);
}

QTEST_MAIN(TestReminderEditor)
#include "testremindereditor.moc"
