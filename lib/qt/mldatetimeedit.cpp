#include "lib/qt/mldatetimeedit.h"

#include "lib/qt/mldateedit.h"
#include "lib/qt/mltimeedit.h"

#include <QHBoxLayout>

MLDateTimeEdit::MLDateTimeEdit(QWidget *parent)
    : QWidget(parent)
    , m_date(new MLDateEdit(this))
    , m_time(new MLTimeEdit(this))
{
    m_date->setObjectName(QStringLiteral("date"));
    m_time->setObjectName(QStringLiteral("time"));
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_date, 1);
    layout->addWidget(m_time);
    setFocusProxy(m_date);
}

QDateTime MLDateTimeEdit::dateTime() const
{
    const QDate date = m_date->date();
    return date.isValid() ? QDateTime(date, m_time->time()) : QDateTime();
}

void MLDateTimeEdit::setDateTime(const QDateTime &dateTime)
{
    m_date->setDate(dateTime.date());
    m_time->setTime(dateTime.isValid() ? dateTime.time() : QTime(0, 0));
}
