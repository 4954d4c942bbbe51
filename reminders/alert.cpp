#include "reminders/alert.h"

#include "app/resourceicons.h"
#include "reminders/alarmoutput.h"
#include "reminders/reminder.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

Alert::Alert(QWidget *parent, PlayFunction play, LedFunction led)
    : QDialog(parent)
    , m_label(new QLabel(this))
    , m_play(play ? std::move(play) : PlayFunction(&playAlarm))
    , m_led(led ? std::move(led) : LedFunction(&setLed))
{
    setModal(true);
    setWindowTitle(tr("Card Alarm"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->setSpacing(6);
    auto *clock = new QLabel(this);
    clock->setPixmap(loadPixmap(QStringLiteral("clock2")));
    clock->setAlignment(Qt::AlignCenter);
    layout->addWidget(clock);
    m_label->setAlignment(Qt::AlignCenter);
    layout->addWidget(m_label, 1);
    auto *buttons = new QDialogButtonBox(this);
    QPushButton *ok = buttons->addButton(tr("Ok"), QDialogButtonBox::AcceptRole);
    ok->setIcon(loadPixmap(QStringLiteral("button_ok")));
    ok->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    layout->addWidget(buttons);
    updateTime();

    auto *clockTimer = new QTimer(this);
    connect(clockTimer, &QTimer::timeout, this, &Alert::updateTime);
    clockTimer->start(clockMilliseconds);
    setWindowState(windowState() | Qt::WindowMaximized);
}

Alert::~Alert()
{
    if (m_reminder && m_reminder->led)
        m_led(false, -1);
}

// The closing "/<center>" is the form the alarm screen has always shown.
void Alert::updateTime()
{
    m_label->setText(QStringLiteral("<center><h1><font color=\"#000099\">") + tr("Card Alarm")
        + QStringLiteral("</font></h1></center><br><center>")
        + QDateTime::currentDateTime().toString() + QStringLiteral("/<center>"));
}

void Alert::start(const Reminder *reminder)
{
    m_reminder = reminder;
    if (!reminder)
        return;
    if (reminder->led)
        m_led(true, reminder->type);
    if (!reminder->sound || !mayStartSound())
        return;
    m_play();
    auto *repeat = new QTimer(this);
    connect(repeat, &QTimer::timeout, this, &Alert::repeatSound);
    repeat->start(repeatMilliseconds);
    ++m_repeatTimers;
}

bool Alert::mayStartSound()
{
    const QDateTime now = QDateTime::currentDateTimeUtc();
    m_soundStarts.removeIf([&now](const QDateTime &at) { return at.secsTo(now) >= 60; });
    if (m_soundStarts.size() >= soundingStartsPerMinute)
        return false;
    m_soundStarts.append(now);
    return true;
}

void Alert::repeatSound()
{
    m_play();
}
