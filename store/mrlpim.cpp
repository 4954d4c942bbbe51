#include "store/mrlpim.h"

#include "platform/global.h"
#include "platform/platformpaths.h"

#include <QCoreApplication>
#include <QFile>

namespace
{
QList<int> numbers(const QString &text)
{
    QList<int> result;
    const QStringList tokens = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString &token : tokens)
        result.append(token.toInt(nullptr, 10));
    return result;
}
} // namespace

QString MRLPIM::escape(const QString &text)
{
    return text.split(QLatin1Char('\n'), Qt::KeepEmptyParts).join(QLatin1Char('|'));
}

QString MRLPIM::unescape(QStringList &tokens)
{
    if (!tokens.isEmpty())
        tokens.removeFirst();
    const QString value = tokens.join(QLatin1Char('='))
                              .split(QLatin1Char('|'), Qt::KeepEmptyParts)
                              .join(QLatin1Char('\n'));
    // A stored empty value is an empty string, not a null one: the binary form tells them apart.
    return value.isNull() ? QString(QLatin1String("")) : value;
}

QString MRLPIM::dateToString(const QDate &date)
{
    if (!date.isValid())
        return QString();
    return QStringLiteral("%1 %2 %3").arg(date.day()).arg(date.month()).arg(date.year());
}

QString MRLPIM::timeToString(const QTime &time)
{
    if (!time.isValid())
        return QString();
    return QStringLiteral("%1 %2 %3").arg(time.hour()).arg(time.minute()).arg(time.second());
}

QString MRLPIM::dateTimeToString(const QDateTime &dateTime)
{
    const QDate date = dateTime.date();
    const QTime time = dateTime.time();
    if (!date.isValid() || !time.isValid())
        return QString();
    return QStringLiteral("%1 %2 %3 %4 %5 %6")
        .arg(date.day())
        .arg(date.month())
        .arg(date.year())
        .arg(time.hour())
        .arg(time.minute())
        .arg(time.second());
}

QDate MRLPIM::stringToDate(const QString &text)
{
    if (text.isEmpty())
        return QDate();
    const QList<int> n = numbers(text);
    return QDate(n.value(2), n.value(1), n.value(0));
}

QTime MRLPIM::stringToTime(const QString &text)
{
    if (text.isEmpty())
        return QTime();
    const QList<int> n = numbers(text);
    return QTime(n.value(0), n.value(1), n.value(2), 0);
}

QDateTime MRLPIM::stringToDateTime(const QString &text)
{
    if (text.isEmpty())
        return QDateTime();
    const QList<int> n = numbers(text);
    return QDateTime(
        QDate(n.value(2), n.value(1), n.value(0)), QTime(n.value(3), n.value(4), n.value(5), 0));
}

QString MRLPIM::applicationName()
{
    const QCoreApplication *app = QCoreApplication::instance();
    const QString name = app ? app->objectName() : QString();
    return name.isEmpty() ? QStringLiteral("norvika") : name;
}

QString MRLPIM::dataListFile(const QString &name)
{
    return Global::applicationFileName(applicationName() + QStringLiteral("Data"), name);
}

void MRLPIM::saveDataList(const QString &name, const QStringList &list)
{
    QFile file(dataListFile(name));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        qDebug("%s: %s", qPrintable(file.fileName()), qPrintable(file.errorString()));
        return;
    }
    file.write(list.join(QLatin1Char('\n')).toUtf8());
}

QStringList MRLPIM::loadDataList(const QString &name)
{
    QString path = dataListFile(name);
    if (!QFile::exists(path))
        path = PlatformPaths::shareDir() + QStringLiteral("/etc/") + applicationName()
            + QStringLiteral("/%1").arg(name);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QStringList();
    return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}
