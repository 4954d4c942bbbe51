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

namespace
{
// Text is encoded and written in pieces of about this many characters.
constexpr qsizetype pieceSize = 64 * 1024;
// The progress hook runs once this many records.
constexpr int hookInterval = 64;
} // namespace

CsvExporter::CsvExporter(const Options &options)
    : m_options(options)
    , m_dates(options.dateFormat, DateTimeWriter::DatePart)
    , m_times(options.timeFormat, DateTimeWriter::TimePart)
    , m_stamps(options.dateTimeFormat, DateTimeWriter::BothParts)
    , m_today(QDate::currentDate())
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

QString CsvExporter::quoted(const QString &value) const
{
    QString out;
    appendQuoted(out, value);
    return out;
}

// The qualifier is a regular expression, so a qualifier such as "." doubles every
// character; one that is not a valid expression doubles nothing. A qualifier without any
// character special to expressions is doubled by a plain replace, which is far cheaper,
// and a value without it is copied as it stands.
void CsvExporter::appendQuoted(QString &out, const QString &value) const
{
    const QString &delimiter = m_options.format.delimiter;
    const QString &qualifier = m_options.format.qualifier;
    if (qualifier.isEmpty()) {
        if (!value.contains(QLatin1Char('\n')) && !value.contains(delimiter)) {
            out += value;
            out += delimiter;
            return;
        }
        out += QLatin1Char('"') + QString(value).replace(QLatin1Char('"'), QStringLiteral("\"\""))
            + QLatin1Char('"') + delimiter;
        return;
    }
    out += qualifier;
    const bool holdsQualifier
        = qualifier.size() == 1 ? value.contains(qualifier.front()) : value.contains(qualifier);
    if (m_literalQualifier && !holdsQualifier)
        out += value;
    else if (m_literalQualifier)
        out += QString(value).replace(qualifier, qualifier + qualifier);
    else if (m_pattern.isValid())
        out += QString(value).replace(m_pattern, m_doubledPattern);
    else
        out += value;
    out += qualifier;
    out += delimiter;
}

void CsvExporter::endLine(QString &out) const
{
    out.chop(m_options.format.delimiter.size());
    out += QLatin1Char('\n');
}

void CsvExporter::appendStamp(QString &out, const QDateTime &moment) const
{
    m_stamps.append(out, moment.date(), moment.time());
}

void CsvExporter::appendHeader(QString &out, const DataManager &card) const
{
    for (const FieldDef &field : card.fieldList())
        appendQuoted(out, field.title);
    appendQuoted(out, QCoreApplication::translate("CsvExporter", "Created Date"));
    appendQuoted(out, QCoreApplication::translate("CsvExporter", "Updated Date"));
    endLine(out);
}

// The text of one value into m_scratch, which keeps its room from value to value; a text
// that goes out as stored is quoted straight from the record.
void CsvExporter::appendValue(QString &out, const DataRecord &record, int field, int type) const
{
    static const QString lineFeed = QStringLiteral("\n");
    QString &text = m_scratch;
    text.resize(0);
    switch (type) {
    case FieldDef::Integer:
    case FieldDef::Bool:
    case FieldDef::Count:
    case FieldDef::Increment:
        text.setNum(record.intValue(field));
        break;
    case FieldDef::Double:
        text.setNum(record.doubleValue(field), 'g', 6);
        break;
    case FieldDef::Date:
        m_dates.append(text, record.dateValue(field), QTime(0, 0));
        break;
    case FieldDef::Time:
        m_times.append(text, m_today, record.timeValue(field));
        break;
    case FieldDef::DateTime:
        appendStamp(text, record.dateTimeValue(field));
        break;
    case FieldDef::Reminder:
        if (record.hasReminder())
            appendStamp(text, record.reminder()->dateTime);
        break;
    case FieldDef::Image:
        appendQuoted(out, record.image());
        return;
    case FieldDef::MultiList:
        text = record.stringValue(field);
        text.replace(lineFeed, QStringLiteral(";"));
        break;
    default: {
        const QString stored = type == FieldDef::Memo ? record.memo() : record.stringValue(field);
        if (m_options.multilineSeparator == lineFeed || !stored.contains(lineFeed)) {
            appendQuoted(out, stored);
            return;
        }
        text = stored;
        text.replace(lineFeed, m_options.multilineSeparator);
        break;
    }
    }
    appendQuoted(out, text);
}

void CsvExporter::appendRecord(
    QString &out, const DataManager &card, const DataRecord &record) const
{
    const QList<FieldDef> &fields = card.fieldList();
    for (int i = 0; i < fields.size(); ++i)
        appendValue(out, record, i, fields.at(i).type);
    for (const QDateTime &stamp : { record.created(), record.updated() }) {
        m_scratch.resize(0);
        appendStamp(m_scratch, stamp);
        appendQuoted(out, m_scratch);
    }
    endLine(out);
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
    QString piece;
    piece.reserve(pieceSize + pieceSize / 4);
    appendHeader(piece, card);
    int written = 0;
    for (const PIMRecord *record : card.records()) {
        if (m_hook && written % hookInterval == 0 && !m_hook(written)) {
            m_stopped = true;
            file.cancelWriting();
            return false;
        }
        appendRecord(piece, card, *static_cast<const DataRecord *>(record));
        ++written;
        if (piece.size() >= pieceSize) {
            file.write(encoder->fromUnicode(piece));
            piece.resize(0);
        }
    }
    file.write(encoder->fromUnicode(piece));
    return file.commit();
}
