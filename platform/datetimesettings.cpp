#include "platform/datetimesettings.h"

#include "platform/config.h"

DateTimeSettings *DateTimeSettings::instance()
{
    static DateTimeSettings settings;
    return &settings;
}

void DateTimeSettings::ensureRead()
{
    if (!m_read)
        update();
}

bool DateTimeSettings::update()
{
    m_read = true;
    Config cfg(QStringLiteral("qpe"));
    cfg.setGroup(QStringLiteral("Time"));
    const bool ampm = cfg.readBoolEntry(QStringLiteral("AMPM"), true);
    const bool mondayFirst = cfg.readBoolEntry(QStringLiteral("MONDAY"), false);
    cfg.setGroup(QStringLiteral("Date"));
    const QString separatorText = cfg.readEntry(QStringLiteral("Separator"), QStringLiteral("/"));
    const QChar separator = separatorText.isEmpty() ? QLatin1Char('/') : separatorText.at(0);
    const int shortOrder = cfg.readNumEntry(QStringLiteral("ShortOrder"), 273);
    const int longOrder = cfg.readNumEntry(QStringLiteral("LongOrder"), 273);

    if (ampm == m_ampm && mondayFirst == m_mondayFirst && separator == m_separator
        && shortOrder == m_shortOrder && longOrder == m_longOrder)
        return false;
    m_ampm = ampm;
    m_mondayFirst = mondayFirst;
    m_separator = separator;
    m_shortOrder = shortOrder;
    m_longOrder = longOrder;
    Q_EMIT changed();
    return true;
}

void DateTimeSettings::store(
    bool ampm, bool mondayFirst, QChar separator, int shortOrder, int longOrder)
{
    {
        Config cfg(QStringLiteral("qpe"));
        cfg.setGroup(QStringLiteral("Time"));
        cfg.writeEntry(QStringLiteral("AMPM"), ampm);
        cfg.writeEntry(QStringLiteral("MONDAY"), mondayFirst);
        cfg.setGroup(QStringLiteral("Date"));
        cfg.writeEntry(QStringLiteral("Separator"), QString(separator));
        cfg.writeEntry(QStringLiteral("ShortOrder"), shortOrder);
        cfg.writeEntry(QStringLiteral("LongOrder"), longOrder);
    }
    update();
}

bool DateTimeSettings::ampm()
{
    ensureRead();
    return m_ampm;
}

bool DateTimeSettings::mondayFirst()
{
    ensureRead();
    return m_mondayFirst;
}

QChar DateTimeSettings::dateSeparator()
{
    ensureRead();
    return m_separator;
}

int DateTimeSettings::shortOrder()
{
    ensureRead();
    return m_shortOrder;
}

int DateTimeSettings::longOrder()
{
    ensureRead();
    return m_longOrder;
}
