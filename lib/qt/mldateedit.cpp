#include "lib/qt/mldateedit.h"

#include "calc/systemdatetimeformat.h"
#include "platform/datetimesettings.h"

#include <QCalendarWidget>
#include <QEvent>

MLDateEdit::MLDateEdit(QWidget *parent)
    : QDateEdit(parent)
{
    setCalendarPopup(true);
    setMinimumDate(emptyDate());
    // A blank, not an empty text: an empty special text would switch the empty state off.
    setSpecialValueText(QStringLiteral(" "));
    applySettings();
    QDateEdit::setDate(emptyDate());
    calendarWidget()->window()->installEventFilter(this);
    connect(
        DateTimeSettings::instance(), &DateTimeSettings::changed, this, &MLDateEdit::applySettings);
}

QDate MLDateEdit::emptyDate()
{
    return QDate(1752, 9, 14);
}

QDate MLDateEdit::date() const
{
    return isEmpty() ? QDate() : QDateEdit::date();
}

void MLDateEdit::setDate(const QDate &date)
{
    QDateEdit::setDate(date.isValid() && date > emptyDate() ? date : emptyDate());
}

bool MLDateEdit::isEmpty() const
{
    return QDateEdit::date() == emptyDate();
}

void MLDateEdit::stepBy(int steps)
{
    // Stepping from nothing starts at today rather than in the eighteenth century.
    if (isEmpty()) {
        setDate(QDate::currentDate());
        return;
    }
    QDateEdit::stepBy(steps);
}

QString MLDateEdit::systemDisplayFormat()
{
    // A sample whose parts can't be mistaken for each other, written the system's way.
    QString format = formatDate(QDate(2033, 11, 22));
    format.replace(QStringLiteral("2033"), QStringLiteral("yyyy"));
    format.replace(QStringLiteral("11"), QStringLiteral("MM"));
    format.replace(QStringLiteral("22"), QStringLiteral("dd"));
    return format;
}

void MLDateEdit::applySettings()
{
    setDisplayFormat(systemDisplayFormat());
    calendarWidget()->setFirstDayOfWeek(
        DateTimeSettings::instance()->mondayFirst() ? Qt::Monday : Qt::Sunday);
}

bool MLDateEdit::eventFilter(QObject *watched, QEvent *event)
{
    // The calendar of an empty editor opens on this month, not on the placeholder's.
    if (event->type() == QEvent::Show && isEmpty()) {
        const QDate today = QDate::currentDate();
        calendarWidget()->setCurrentPage(today.year(), today.month());
    }
    return QDateEdit::eventFilter(watched, event);
}
