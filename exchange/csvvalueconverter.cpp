#include "exchange/csvvalueconverter.h"

#include "card/datarecord.h"

#include <QFileInfo>

CsvValueConverter::CsvValueConverter(const CsvColumn &column)
    : m_column(column)
    , m_dates(column.format)
{
    const QStringList pair = column.format.split(QLatin1Char('/'));
    m_hasYes = pair.size() == 2;
    m_yes = pair.value(0);
}

QString CsvValueConverter::replaceAll(QString text, const QString &from, const QString &to)
{
    if (from.isEmpty())
        return text;
    if (to.contains(from))
        return text.replace(from, to);
    while (text.contains(from))
        text.replace(from, to);
    return text;
}

void CsvValueConverter::store(DataRecord *record, int field, const QString &value) const
{
    switch (m_column.type) {
    case FieldDef::Integer:
    case FieldDef::Count:
    case FieldDef::Double:
        storeNumber(record, field, value);
        break;
    case FieldDef::Date:
    case FieldDef::Time:
    case FieldDef::DateTime:
        storeDateTime(record, field, value);
        break;
    case FieldDef::Text:
        record->setStringValue(field, replaceAll(value, m_column.format, QStringLiteral("\n")));
        break;
    case FieldDef::Memo:
        record->setMemo(replaceAll(value, m_column.format, QStringLiteral("\n")));
        break;
    case FieldDef::Bool:
        record->setIntValue(field, boolValue(value));
        break;
    case FieldDef::Image:
        record->setImage(imagePath(value));
        break;
    case FieldDef::MultiList:
        record->setStringValue(field,
            m_column.format.isEmpty()
                ? value
                : value.split(m_column.format, Qt::SkipEmptyParts).join(QLatin1Char('\n')));
        break;
    default:
        record->setStringValue(field, value);
        break;
    }
}

void CsvValueConverter::storeNumber(DataRecord *record, int field, const QString &value) const
{
    QString text = replaceAll(value, m_column.format, QString());
    if (m_column.type != FieldDef::Double) {
        record->setIntValue(field, text.toInt());
        return;
    }
    if (m_column.decimal != QLatin1String("."))
        text = replaceAll(text, m_column.decimal, QStringLiteral("."));
    record->setDoubleValue(field, text.toDouble());
}

void CsvValueConverter::storeDateTime(DataRecord *record, int field, const QString &value) const
{
    QDate date;
    QTime time;
    if (!m_dates.parse(value, &date, &time))
        return;
    if (m_column.type == FieldDef::Date)
        record->setDateValue(field, date);
    else if (m_column.type == FieldDef::Time)
        record->setTimeValue(field, time);
    else
        record->setDateTimeValue(field, QDateTime(date, time));
}

// Exact comparison with the first half of the pair: "y" is not "Y".
int CsvValueConverter::boolValue(const QString &value) const
{
    return m_hasYes && value == m_yes ? 1 : 0;
}

// The picture's folder on the other system is swapped for the base directory here.
QString CsvValueConverter::imagePath(const QString &value) const
{
    if (m_column.format.isEmpty())
        return value;
    QString base = m_column.format;
    if (!base.endsWith(QLatin1Char('/')))
        base += QLatin1Char('/');
    const QString folder = QFileInfo(value).path() + QLatin1Char('/');
    return replaceAll(value, folder, base);
}
