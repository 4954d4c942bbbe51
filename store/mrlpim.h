#ifndef MRLPIM_H
#define MRLPIM_H

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QTime>

// Value helpers shared by every text store: the escaping of values, the string forms of
// dates and times, and the small list files of the application's data folder.
class MRLPIM
{
public:
    // Line feeds become "|"; nothing else is touched, so a "|" in a value reads back as a
    // line feed. Existing files depend on this.
    static QString escape(const QString &text);
    // Drops the first token (the key), joins the rest with "=" (restoring an "=" that the
    // line split cut) and turns "|" back into line feeds.
    static QString unescape(QStringList &tokens);

    // "day month year", "hour minute second" and both together; invalid values give the
    // null string, and milliseconds are not kept.
    static QString dateToString(const QDate &date);
    static QString timeToString(const QTime &time);
    static QString dateTimeToString(const QDateTime &dateTime);
    static QDate stringToDate(const QString &text);
    static QTime stringToTime(const QString &text);
    static QDateTime stringToDateTime(const QString &text);

    // A list kept in the "<app>Data" folder, one entry a line. Loading falls back to the
    // copy shipped under the program's share folder.
    static void saveDataList(const QString &name, const QStringList &list);
    static QStringList loadDataList(const QString &name);

    // The application's object name, which names its data folders.
    static QString applicationName();

private:
    static QString dataListFile(const QString &name);
};

#endif
