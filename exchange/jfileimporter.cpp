#include "exchange/jfileimporter.h"

#include "card/datarecord.h"
#include "exchange/cardimporttarget.h"

#include <QFile>
#include <QFileInfo>

namespace
{
// JFile type codes.
enum JType {
    JString = 1,
    JBool = 2,
    JDate = 4,
    JInteger = 8,
    JFloat = 16,
    JTime = 32,
    JPopup = 64,
    JCheckbox = 65,
    JNote = 66,
    JIncrement = 67,
    JCalcFields = 70,
    JCalcConstField = 71,
    JCalcFieldConst = 72,
    JLink = 73,
    JDummy = 80,
    JMultiPopup = 81
};

const char *const monthNames[]
    = { "Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec" };

QString separatorOf(qint32 fieldOption)
{
    switch (fieldOption) {
    case 1:
        return QStringLiteral(";");
    case 2:
        return QStringLiteral("\n");
    default:
        return QStringLiteral(" ");
    }
}

QString operatorOf(quint32 option)
{
    switch (option & 0xFFFF) {
    case 1:
        return QStringLiteral("+");
    case 2:
        return QStringLiteral("-");
    case 3:
        return QStringLiteral("*");
    case 4:
        return QStringLiteral("/");
    default:
        return QString();
    }
}

// An operand: the field number through the map, and "!" for the previous record.
QString operand(quint32 number, bool previous, const QList<int> &map, QString *mark)
{
    *mark = previous ? QStringLiteral("!") : QString();
    return QString::number(map.value(int(number), -1));
}
} // namespace

JFileImporter::JFileImporter(
    CardImportTarget *target, const QString &dateFormat, Calculated calculated)
    : m_target(target)
    , m_dateFormat(dateFormat)
    , m_calculated(calculated)
{
}

QString JFileImporter::wrongFormatMessage()
{
    return tr("Import failed.\nWrong JFile 5.x file format.");
}

const QStringList &JFileImporter::dateFormats()
{
    static const QStringList formats { QStringLiteral("M/D/Y"), QStringLiteral("D/M/Y"),
        QStringLiteral("Y/M/D"), QStringLiteral("M.D.Y"), QStringLiteral("D.M.Y"),
        QStringLiteral("Y.M.D"), QStringLiteral("M-D-Y"), QStringLiteral("D-M-Y"),
        QStringLiteral("Y-M-D") };
    return formats;
}

bool JFileImporter::import(const QString &path)
{
    m_count = 0;
    QFile file(path);
    JFileReader reader;
    if (!file.open(QIODevice::ReadOnly) || !reader.read(&file)) {
        m_errorString = wrongFormatMessage();
        return false;
    }
    makeFields(reader);
    const bool done = m_target->importRows(
        path, reader, tr("JFile 5.x imported Card [%1]").arg(QFileInfo(path).fileName()), m_fields,
        [this, &reader](DataRecord *record, const QByteArrayList &values) {
            for (int i = 0; i < values.size(); ++i) {
                if (m_map.at(i) >= 0)
                    setValue(record, m_map.at(i), reader.fields().at(i), values.at(i));
            }
        },
        [this] { return settledFields(); });
    m_count = m_target->rowsAdded();
    if (!done)
        m_errorString = m_target->errorString();
    return done;
}

QList<int> JFileImporter::fieldMap(const QList<JFileReader::Field> &fields)
{
    QList<int> map;
    int next = 0;
    for (const JFileReader::Field &field : fields) {
        const int type = field.type;
        const bool dropped = type == JCheckbox || type == JNote || type == JLink || type == JDummy;
        map.append(dropped ? -1 : next++);
    }
    return map;
}

FieldDef JFileImporter::field(
    const JFileReader::Field &source, const QList<int> &map, int rowCount) const
{
    FieldDef field;
    field.title = m_target->decode(source.name);
    field.label = field.title;
    field.defaultValue = m_target->decode(source.defaultValue);
    field.width = source.width;
    const QStringList items = m_target->decode(source.extra).split(u'\n', Qt::SkipEmptyParts);
    switch (source.type) {
    case JString:
        field.type = FieldDef::Text;
        break;
    case JBool:
        field.type = FieldDef::Bool;
        break;
    case JDate:
        field.type = FieldDef::Date;
        break;
    case JInteger:
        field.type = FieldDef::Integer;
        break;
    case JFloat:
        field.type = FieldDef::Double;
        break;
    case JTime:
        field.type = FieldDef::Time;
        break;
    case JPopup:
        field.type = FieldDef::List;
        field.items = items;
        break;
    case JIncrement:
        field.type = FieldDef::Increment;
        field.defaultValue = QStringLiteral("%1;%2")
                                 .arg(qint64(rowCount) + source.fieldValue)
                                 .arg(source.fieldValue);
        break;
    case JCalcFields:
    case JCalcConstField:
    case JCalcFieldConst:
        field.type = FieldDef::Double;
        if (m_calculated == ImportFormula)
            field.formula = formula(source, map);
        break;
    case JMultiPopup:
        field.type = FieldDef::MultiList;
        field.items = items;
        field.defaultValue.replace(separatorOf(source.fieldOption), QStringLiteral(";"));
        break;
    default:
        field.type = FieldDef::String;
        break;
    }
    return field;
}

QString JFileImporter::formula(const JFileReader::Field &source, const QList<int> &map)
{
    const quint32 option = quint32(source.fieldOption);
    QString firstMark;
    QString secondMark;
    const QString first = operand((option >> 24) & 0x7F, option & 0x80000000u, map, &firstMark);
    const QString second = operand((option >> 16) & 0x7F, option & 0x800000u, map, &secondMark);
    const QString op = operatorOf(option);
    const QString constant = QString::fromLatin1(source.extra);
    switch (source.type) {
    case JCalcFields:
        return QStringLiteral("[F%1%2] %3 [F%4%5]").arg(first, firstMark, op, second, secondMark);
    case JCalcConstField:
        return QStringLiteral("%1 %2 [F%3%4]").arg(constant, op, second, secondMark);
    default:
        return QStringLiteral("[F%1%2] %3 %4").arg(first, firstMark, op, constant);
    }
}

// A day and a month name keep the year 1974: the file holds no year for them.
QDate JFileImporter::date(const QByteArray &text, qint32 fieldOption) const
{
    if (text.isEmpty())
        return QDate();
    int year = 1974;
    int month = 7;
    int day = 3;
    const QString value = QString::fromLatin1(text);
    if (fieldOption == 1) {
        const QStringList parts = value.split(u' ');
        day = parts.at(0).toInt();
        month = 0;
        for (int m = 0; m < 12 && parts.size() > 1; ++m) {
            if (parts.at(1) == QLatin1String(monthNames[m]))
                month = m + 1;
        }
        return QDate(year, month, day);
    }
    const QChar separator = m_dateFormat.size() > 1 ? m_dateFormat.at(1) : u'/';
    const QStringList formatParts = m_dateFormat.split(separator);
    const QStringList valueParts = value.split(separator);
    for (int i = 0; i < formatParts.size() && i < valueParts.size(); ++i) {
        const int number = valueParts.at(i).toInt();
        if (formatParts.at(i) == QLatin1String("Y"))
            year = number;
        else if (formatParts.at(i) == QLatin1String("M"))
            month = number;
        else if (formatParts.at(i) == QLatin1String("D"))
            day = number;
    }
    return QDate(year, month, day);
}

QTime JFileImporter::time(const QByteArray &text)
{
    if (text.isEmpty())
        return QTime();
    const QString value = QString::fromLatin1(text);
    QStringList parts = value.split(value.contains(u':') ? u':' : u'.');
    while (parts.size() < 3)
        parts.append(QStringLiteral("0"));
    return QTime(parts.at(0).toInt(), parts.at(1).toInt(), parts.at(2).toInt());
}

QString JFileImporter::multiListValue(const QByteArray &text, qint32 fieldOption) const
{
    return m_target->decode(text).split(separatorOf(fieldOption), Qt::SkipEmptyParts).join(u'\n');
}

void JFileImporter::makeFields(const JFileReader &reader)
{
    m_map = fieldMap(reader.fields());
    m_fields.clear();
    m_stringCandidates.clear();
    for (int i = 0; i < reader.fieldCount(); ++i) {
        if (m_map.at(i) < 0)
            continue;
        m_fields.append(field(reader.fields().at(i), m_map, reader.rowCount()));
        m_stringCandidates.append(reader.fields().at(i).type == JString);
    }
}

void JFileImporter::setValue(
    DataRecord *record, int position, const JFileReader::Field &source, const QByteArray &text)
{
    switch (m_fields.at(position).type) {
    case FieldDef::Integer:
    case FieldDef::Increment:
        record->setIntValue(position, text.toInt());
        break;
    case FieldDef::Double:
        record->setDoubleValue(position, text.toDouble());
        break;
    case FieldDef::Bool:
        record->setIntValue(position, text == "1" ? 1 : 0);
        break;
    case FieldDef::Date:
        record->setDateValue(position, date(text, source.fieldOption));
        break;
    case FieldDef::Time:
        record->setTimeValue(position, time(text));
        break;
    case FieldDef::MultiList:
        record->setStringValue(position, multiListValue(text, source.fieldOption));
        break;
    default: {
        const QString value = m_target->decode(text);
        if (value.contains(u'\n'))
            m_stringCandidates[position] = false;
        record->setStringValue(position, value);
        break;
    }
    }
}

QList<FieldDef> JFileImporter::settledFields() const
{
    QList<FieldDef> fields = m_fields;
    for (int i = 0; i < fields.size(); ++i) {
        if (m_stringCandidates.at(i))
            fields[i].type = FieldDef::String;
    }
    return fields;
}
