#include "exchange/mobiledbimporter.h"

#include "card/datarecord.h"
#include "exchange/cardimporttarget.h"
#include "exchange/mobiledbreader.h"

#include <QFile>
#include <QFileInfo>

namespace
{
constexpr int secondsPerDay = 24 * 60 * 60;

// Seconds into the day, cut down to a whole number of minutes.
qint64 minutes(qint64 seconds)
{
    seconds %= secondsPerDay;
    return seconds - seconds % 60;
}

bool isTrueWord(const QByteArray &text)
{
    // Tested in this order and case-sensitively: "Yes" is false.
    for (const char *word : { "1", "true", "yes", "ja" }) {
        if (text == word)
            return true;
    }
    return false;
}
} // namespace

MobileDBImporter::MobileDBImporter(CardImportTarget *target)
    : m_target(target)
{
}

QString MobileDBImporter::wrongFormatMessage()
{
    return tr("Import failed.\nWrong MobileDB file format.");
}

bool MobileDBImporter::import(const QString &path)
{
    m_count = 0;
    QFile file(path);
    MobileDBReader reader;
    if (!file.open(QIODevice::ReadOnly) || !reader.read(&file)) {
        m_errorString = wrongFormatMessage();
        return false;
    }
    makeFields(reader);
    const bool done = m_target->importRows(
        path, reader, tr("MobileDB imported Card [%1]").arg(QFileInfo(path).fileName()), m_fields,
        [this](DataRecord *record, const QByteArrayList &values) {
            // A row that ends early leaves the rest unset: a date or a time it never had
            // is no date or time, rather than the moment of the import. A damaged row is
            // empty and keeps every default.
            const int given = int(values.size());
            for (int i = 0; i < (given > 0 ? m_fields.size() : 0); ++i) {
                const int type = m_fields.at(i).type;
                if (i < given || type == FieldDef::Date || type == FieldDef::Time)
                    setValue(record, i, values.value(i));
            }
        },
        [this] { return settledFields(); });
    m_count = m_target->rowsAdded();
    if (!done)
        m_errorString = m_target->errorString();
    return done;
}

FieldDef MobileDBImporter::field(const QByteArray &type, const QByteArray &label, int width) const
{
    FieldDef field;
    field.title = m_target->decode(label);
    field.label = field.title;
    field.width = width;
    switch (type.isEmpty() ? '\0' : type.at(0)) {
    case 'I':
        field.type = FieldDef::Double;
        break;
    case 'B':
        field.type = FieldDef::Bool;
        field.label.clear();
        break;
    case 'D':
        field.type = FieldDef::Date;
        break;
    case 'd':
        field.type = FieldDef::Time;
        break;
    case 'L':
        field.type = FieldDef::List;
        for (const QByteArray &item : type.mid(1).split(';'))
            field.items.append(m_target->decode(item));
        break;
    default:
        field.type = FieldDef::Text;
        break;
    }
    return field;
}

void MobileDBImporter::makeFields(const MobileDBReader &reader)
{
    m_fields.clear();
    m_candidates.clear();
    for (int i = 0; i < reader.fieldCount(); ++i) {
        const QByteArray type = reader.types().value(i);
        m_fields.append(field(type, reader.titles().at(i), reader.widths().value(i)));
        const int mapped = m_fields.last().type;
        m_candidates.append(mapped == FieldDef::Double ? IntegerCandidate
                : mapped == FieldDef::Text             ? StringCandidate
                                                       : NoCandidate);
    }
}

void MobileDBImporter::setValue(DataRecord *record, int i, const QByteArray &text)
{
    switch (m_fields.at(i).type) {
    case FieldDef::Double:
        if (text.contains('.'))
            m_candidates[i] = NoCandidate;
        record->setDoubleValue(i, text.toDouble());
        break;
    case FieldDef::Date:
    case FieldDef::Time:
        // An empty text is no value at all, rather than the first day of the epoch or
        // midnight.
        if (text.isEmpty())
            record->clearValue(i);
        else if (m_fields.at(i).type == FieldDef::Date)
            record->setDateValue(i, QDate(1904, 1, 1).addDays(text.toLongLong()));
        else
            record->setTimeValue(i, QTime(0, 0).addSecs(int(minutes(text.toLongLong()))));
        break;
    case FieldDef::Bool:
        record->setIntValue(i, isTrueWord(text) ? 1 : 0);
        break;
    default: {
        const QString value = m_target->decode(text);
        if (value.contains(u'\n'))
            m_candidates[i] = NoCandidate;
        record->setStringValue(i, value);
        break;
    }
    }
}

QList<FieldDef> MobileDBImporter::settledFields() const
{
    QList<FieldDef> fields = m_fields;
    for (int i = 0; i < fields.size(); ++i) {
        if (m_candidates.at(i) == IntegerCandidate)
            fields[i].type = FieldDef::Integer;
        else if (m_candidates.at(i) == StringCandidate)
            fields[i].type = FieldDef::String;
    }
    return fields;
}
