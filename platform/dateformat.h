#ifndef DATEFORMAT_H
#define DATEFORMAT_H

#include <QChar>
#include <QMetaType>

// How the user writes dates: the separator and the orders of the parts of a short and
// of a long date, as codes of the "qpe" settings (group Date, ShortOrder and LongOrder).
class DateFormat
{
public:
    DateFormat() = default;
    DateFormat(QChar separator, int shortOrder, int longOrder)
        : m_separator(separator)
        , m_shortOrder(shortOrder)
        , m_longOrder(longOrder)
    {
    }

    // The user's format as the settings hold it now.
    static DateFormat current();

    QChar separator() const { return m_separator; }
    int shortOrder() const { return m_shortOrder; }
    int longOrder() const { return m_longOrder; }

    bool operator==(const DateFormat &other) const = default;

private:
    QChar m_separator = QLatin1Char('/');
    int m_shortOrder = 273;
    int m_longOrder = 273;
};

Q_DECLARE_METATYPE(DateFormat)

#endif
