#include "reminders/remindereditor.h"

#include "app/resourceicons.h"
#include "lib/qt/mldateedit.h"
#include "lib/qt/mldatetimeedit.h"
#include "lib/qt/mltimeedit.h"
#include "reminders/alarmoutput.h"
#include "reminders/reminder.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace
{
// The pattern an alarm switched on starts with.
const int normalPattern = 4;
} // namespace

ReminderEditor::ReminderEditor(bool withTime, QWidget *parent)
    : QWidget(parent)
    , m_playAlarm(playAlarm)
    , m_setLed(setLed)
{
    setWindowIcon(loadIconSet(QStringLiteral("clock")));
    auto *alert = new QGroupBox(tr("Alert"), this);
    alert->setObjectName(QStringLiteral("alert"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(alert);
    layout->addStretch(1);

    m_alarm = new QCheckBox(tr("Remind me about this at:"), alert);
    m_alarm->setObjectName(QStringLiteral("alarm"));
    m_dt = new MLDateTimeEdit(alert);
    m_dt->setObjectName(QStringLiteral("dt"));
    m_dt->timeEdit()->setVisible(withTime);

    auto *alertLayout = new QVBoxLayout(alert);
    alertLayout->addWidget(m_alarm);
    alertLayout->addWidget(m_dt);
    buildNotification(alert);

    connect(m_alarm, &QCheckBox::toggled, this, &ReminderEditor::alarmOnOff);
    connect(m_sound, &QCheckBox::toggled, this, &ReminderEditor::typeChanged);
    connect(m_ledBox, &QCheckBox::toggled, this, &ReminderEditor::typeChanged);
    connect(m_test, &QPushButton::clicked, this, &ReminderEditor::test);
    m_testEnd.setSingleShot(true);
    m_testEnd.setInterval(testMilliseconds);
    connect(&m_testEnd, &QTimer::timeout, this, &ReminderEditor::endTest);
    setReminder(nullptr);
}

void ReminderEditor::buildNotification(QGroupBox *alert)
{
    m_panel = new QGroupBox(tr("Notification"), alert);
    m_panel->setObjectName(QStringLiteral("panel"));
    m_sound = new QCheckBox(tr("Sound"), m_panel);
    m_sound->setObjectName(QStringLiteral("sound"));
    m_ledBox = new QCheckBox(tr("Led:"), m_panel);
    m_ledBox->setObjectName(QStringLiteral("ledbox"));
    m_led = new QComboBox(m_panel);
    m_led->setObjectName(QStringLiteral("led"));
    m_led->addItems(patternNames());
    m_test = new QPushButton(loadIconSet(QStringLiteral("clock")), tr("Test"), m_panel);
    m_test->setObjectName(QStringLiteral("btnTest"));

    auto *ledRow = new QHBoxLayout;
    ledRow->addWidget(m_ledBox);
    ledRow->addWidget(m_led, 1);
    auto *panelLayout = new QVBoxLayout(m_panel);
    panelLayout->addWidget(m_sound);
    panelLayout->addLayout(ledRow);
    panelLayout->addWidget(m_test, 0, Qt::AlignLeft);
    alert->layout()->addWidget(m_panel);
}

QStringList ReminderEditor::patternNames()
{
    return { tr("Flash On"), tr("Flash off"), tr("Very Fast"), tr("Fast"), tr("Normal"), tr("Slow"),
        tr("Soft"), tr("Soft Flash") };
}

void ReminderEditor::setReminder(const Reminder *reminder)
{
    const bool on = reminder != nullptr;
    {
        const QSignalBlocker blocker(m_alarm);
        m_alarm->setChecked(on);
    }
    alarmOnOff(on);
    if (!reminder)
        return;
    m_dt->setDateTime(reminder->dateTime);
    m_sound->setChecked(reminder->sound);
    m_ledBox->setChecked(reminder->led);
    m_led->setCurrentIndex(reminder->type);
}

Reminder *ReminderEditor::reminder() const
{
    if (!m_alarm->isChecked())
        return nullptr;
    auto *result = new Reminder;
    QDateTime moment = m_dt->dateTime();
    if (moment.isValid())
        moment.setTime(QTime(moment.time().hour(), moment.time().minute()));
    result->dateTime = moment;
    result->sound = m_sound->isChecked();
    result->led = m_ledBox->isChecked();
    result->type = m_led->currentIndex();
    return result;
}

void ReminderEditor::setAlarmOutput(std::function<void()> play, std::function<void(bool, int)> led)
{
    m_playAlarm = std::move(play);
    m_setLed = std::move(led);
}

void ReminderEditor::alarmOnOff(bool on)
{
    m_dt->setEnabled(on);
    m_panel->setEnabled(on);
    if (on) {
        m_dt->setDateTime(QDateTime::currentDateTime());
        m_sound->setChecked(true);
        m_ledBox->setChecked(true);
        m_led->setCurrentIndex(normalPattern);
    }
    typeChanged();
}

void ReminderEditor::typeChanged()
{
    m_test->setEnabled(m_sound->isChecked() || m_ledBox->isChecked());
}

// The LED stays on for the length of an alarm while the window goes on.
void ReminderEditor::test()
{
    m_test->setEnabled(false);
    m_testLedOn = m_ledBox->isChecked();
    if (m_testLedOn)
        m_setLed(true, m_led->currentIndex());
    if (m_sound->isChecked())
        m_playAlarm();
    m_testEnd.start();
}

void ReminderEditor::endTest()
{
    if (m_testLedOn)
        m_setLed(false, -1);
    m_testLedOn = false;
    m_test->setEnabled(true);
}

ReminderEditor::~ReminderEditor()
{
    if (m_testLedOn)
        m_setLed(false, -1);
}
