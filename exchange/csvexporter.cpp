#include "exchange/csvexporter.h"

#include "calc/datetimeformat.h"
#include "calc/systemdatetimeformat.h"
#include "card/datamanager.h"
#include "card/datarecord.h"
#include "reminders/reminder.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QSaveFile>
#include <QTextCodec>

#include <algorithm>
#include <memory>

CsvExporter::CsvExporter(const Options &options)
    : m_options(options)
{
    if (!m_options.codec)
        m_options.codec = QTextCodec::codecForName("UTF-8");
    const QString &qualifier = m_options.format.qualifier;
    m_literalQualifier = std::none_of(qualifier.begin(), qualifier.end(),
        [](QChar c) { return QStringLiteral("\\^$.|?*+()[]{}").contains(c); });
    m_pattern = QRegularExpression(qualifier);
    m_pattern.optimize();
    // The replacement is literal: a backslash in it would name a capture group.
    m_doubledPattern
        = QString(qualifier + qualifier).replace(QLatin1Char('\\'), QStringLiteral("\\\\"));
}

// The qualifier is a regular expression, so a qualifier such as "." doubles every
// character; one that is not a valid expression doubles nothing. A qualifier without any
// character special to expressions is doubled by a plain replace, which is far cheaper.
QString CsvExporter::quoted(const QString &value) const
{
    const QString &delimiter = m_options.format.delimiter;
    QString qualifier = m_options.format.qualifier;
    QString text = value;
    if (qualifier.isEmpty()) {
        if (!value.contains(QLatin1Char('\n')) && !value.contains(delimiter))
            return value + delimiter;
        qualifier = QStringLiteral("\"");
        text.replace(qualifier, qualifier + qualifier);
    } else if (m_literalQualifier) {
        text.replace(qualifier, qualifier + qualifier);
    } else if (m_pattern.isValid()) {
        text.replace(m_pattern, m_doubledPattern);
    }
    return qualifier + text + qualifier + delimiter;
}

QString CsvExporter::endLine(QString line) const
{
    line.chop(m_options.format.delimiter.size());
    return line + QLatin1Char('\n');
}

QString CsvExporter::stamp(const QDateTime &moment) const
{
    const QString &code = m_options.dateTimeFormat;
    return code.isEmpty() ? formatDateTimeDefault(moment) : formatDateTime(moment, code);
}

QString CsvExporter::date(const QDate &day) const
{
    const QString &code = m_options.dateFormat;
    return code.isEmpty() ? formatDate(day) : formatDateTime(QDateTime(day, QTime(0, 0)), code);
}

QString CsvExporter::time(const QTime &moment) const
{
    const QString &code = m_options.timeFormat;
    return code.isEmpty() ? formatTime(moment)
                          : formatDateTime(QDateTime(QDate::currentDate(), moment), code);
}

QString CsvExporter::headerLine(const DataManager &card) const
{
    QString line;
    for (const FieldDef &field : card.fieldList())
        line += quoted(field.title);
    line += quoted(QCoreApplication::translate("CsvExporter", "Created Date"));
    line += quoted(QCoreApplication::translate("CsvExporter", "Updated Date"));
    return endLine(line);
}

QString CsvExporter::value(const DataManager &card, const DataRecord &record, int field) const
{
    static const QString lineFeed = QStringLiteral("\n");
    switch (card.fieldList().at(field).type) {
    case FieldDef::Integer:
    case FieldDef::Bool:
    case FieldDef::Count:
    case FieldDef::Increment:
        return QString::number(record.intValue(field));
    case FieldDef::Double:
        return QString::number(record.doubleValue(field), 'g', 6);
    case FieldDef::Date:
        return date(record.dateValue(field));
    case FieldDef::Time:
        return time(record.timeValue(field));
    case FieldDef::DateTime:
        return stamp(record.dateTimeValue(field));
    case FieldDef::Reminder:
        return record.hasReminder() ? stamp(record.reminder()->dateTime) : QString();
    case FieldDef::Image:
        return record.image();
    case FieldDef::MultiList:
        return record.stringValue(field).split(lineFeed).join(QLatin1Char(';'));
    case FieldDef::Memo:
        return record.memo().replace(lineFeed, m_options.multilineSeparator);
    default:
        return record.stringValue(field).replace(lineFeed, m_options.multilineSeparator);
    }
}

QString CsvExporter::recordLine(const DataManager &card, const DataRecord &record) const
{
    QString line;
    for (int i = 0; i < card.fieldCount(); ++i)
        line += quoted(value(card, record, i));
    line += quoted(stamp(record.created()));
    line += quoted(stamp(record.updated()));
    return endLine(line);
}

bool CsvExporter::write(const DataManager &card, const QString &path)
{
    m_stopped = false;
    QSaveFile file(path);
    m_error = QCoreApplication::translate("CsvExporter", "Cannot write to file:\n%1").arg(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    // One encoder for the whole file. UTF-8 goes without a byte order mark, which other
    // programs would read as part of the first title; other codecs write theirs once.
    const bool utf8 = m_options.codec->mibEnum() == 106;
    const std::unique_ptr<QTextEncoder> encoder(m_options.codec->makeEncoder(
        utf8 ? QTextCodec::IgnoreHeader : QTextCodec::DefaultConversion));
    file.write(encoder->fromUnicode(headerLine(card)));
    for (const PIMRecord *record : card.records()) {
        if (m_hook && !m_hook()) {
            m_stopped = true;
            file.cancelWriting();
            return false;
        }
        file.write(
            encoder->fromUnicode(recordLine(card, *static_cast<const DataRecord *>(record))));
    }
    return file.commit();
}
