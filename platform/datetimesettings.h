#ifndef DATETIMESETTINGS_H
#define DATETIMESETTINGS_H

#include <QChar>
#include <QObject>

// The user's clock and date settings, kept in the "qpe" settings file (groups Time and
// Date). Read on first use; update() reads them again and says whether anything changed.
// The application object relays a change as dateTimeSettingChanged().
class DateTimeSettings : public QObject
{
    Q_OBJECT

public:
    static DateTimeSettings *instance();

    bool ampm();
    bool mondayFirst();
    QChar dateSeparator();
    int shortOrder();
    int longOrder();

    // Reads the settings; emits changed() and returns true when a value differs.
    bool update();
    // Writes the settings to the "qpe" file and takes them at once.
    void store(bool ampm, bool mondayFirst, QChar separator, int shortOrder, int longOrder);
    // Forgets what was read, so the next getter reads again (tests switch homes with it).
    void invalidate() { m_read = false; }

Q_SIGNALS:
    void changed();

private:
    DateTimeSettings() = default;
    void ensureRead();

    bool m_ampm = false;
    bool m_mondayFirst = false;
    int m_shortOrder = 266;
    int m_longOrder = 266;
    QChar m_separator = QLatin1Char('/');
    bool m_read = false;
};

#endif
