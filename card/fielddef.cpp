#include "card/fielddef.h"

#include "store/binaryformat.h"

#include <QDataStream>

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{

const char *const typeNameTexts[FieldDef::TypeCount] = {
    QT_TRANSLATE_NOOP("FieldDef", "String"),
    QT_TRANSLATE_NOOP("FieldDef", "Integer"),
    QT_TRANSLATE_NOOP("FieldDef", "Double"),
    QT_TRANSLATE_NOOP("FieldDef", "Date"),
    QT_TRANSLATE_NOOP("FieldDef", "Time"),
    QT_TRANSLATE_NOOP("FieldDef", "DateTime"),
    QT_TRANSLATE_NOOP("FieldDef", "Text"),
    QT_TRANSLATE_NOOP("FieldDef", "Memo"),
    QT_TRANSLATE_NOOP("FieldDef", "Reminder"),
    QT_TRANSLATE_NOOP("FieldDef", "List"),
    QT_TRANSLATE_NOOP("FieldDef", "Bool"),
    QT_TRANSLATE_NOOP("FieldDef", "Count"),
    QT_TRANSLATE_NOOP("FieldDef", "Image"),
    QT_TRANSLATE_NOOP("FieldDef", "MultiList"),
    QT_TRANSLATE_NOOP("FieldDef", "Increment"),
};

const QDate sortEpoch(1980, 1, 1);

// Digits widened to width with zeros between the sign and the digits, as printf's "0" flag does.
QString zeroPadded(const QString &digits, qsizetype width)
{
    if (digits.size() >= width)
        return digits;
    QString text(width, QLatin1Char('0'));
    const qsizetype sign = digits.startsWith(QLatin1Char('-')) ? 1 : 0;
    if (sign)
        text[0] = QLatin1Char('-');
    std::copy(digits.cbegin() + sign, digits.cend(), text.begin() + width - digits.size() + sign);
    return text;
}
} // namespace

bool FieldDef::operator==(const FieldDef &other) const
{
    return title == other.title && label == other.label && type == other.type
        && formula == other.formula && defaultValue == other.defaultValue && format == other.format
        && items == other.items && width == other.width;
}

void FieldDef::write(QDataStream &stream) const
{
    stream << title << label << qint32(type) << formula << defaultValue << format << items
           << qint32(width);
}

bool FieldDef::read(QDataStream &stream)
{
    qint32 typeCode = 0;
    qint32 columnWidth = -1;
    stream >> title >> label >> typeCode >> formula >> defaultValue >> format;
    if (!BinaryFormat::ok(stream) || !BinaryFormat::readStringList(stream, items))
        return false;
    stream >> columnWidth;
    type = typeCode;
    width = columnWidth;
    origin = -1;
    return BinaryFormat::ok(stream);
}

QStringList FieldDef::typeNames()
{
    QStringList names;
    for (const char *text : typeNameTexts)
        names.append(tr(text));
    return names;
}

QString FieldDef::typeName(int type)
{
    if (type < 0 || type >= TypeCount)
        return QString();
    return tr(typeNameTexts[type]);
}

FieldDef::Family FieldDef::family(int type)
{
    switch (type) {
    case String:
    case Text:
    case List:
    case MultiList:
        return TextFamily;
    case Integer:
    case Double:
    case Bool:
    case Count:
    case Increment:
        return NumberFamily;
    case Date:
        return DateFamily;
    case Time:
        return TimeFamily;
    case DateTime:
        return DateTimeFamily;
    default:
        return NoSlot;
    }
}

bool FieldDef::keepsValue(int fromType, int toType)
{
    if (fromType == toType)
        return true;
    const Family from = family(fromType);
    return from == family(toType) && (from == TextFamily || from == NumberFamily);
}

bool FieldDef::isSingleInstance(int type)
{
    return type == Memo || type == Reminder || type == Image;
}

bool FieldDef::isSearchedAsText(int type)
{
    return family(type) == TextFamily || type == Memo;
}

// The printf forms "%08lld" and "%012.05f" make the same texts, but take three times as long
// to parse their format for every record of a sort.
QString FieldDef::integerSortKey(qint64 value)
{
    return zeroPadded(QString::number(value), 8);
}

QString FieldDef::doubleSortKey(double value)
{
    if (!qIsFinite(value))
        return QString::asprintf("%012.05f", value);
    return zeroPadded(QString::number(value, 'f', 5), 12);
}

QString FieldDef::dateSortKey(const QDate &date)
{
    if (!date.isValid())
        return QString();
    return integerSortKey(sortEpoch.daysTo(date));
}

QString FieldDef::timeSortKey(const QTime &time)
{
    if (!time.isValid())
        return QString();
    return integerSortKey(time.msecsSinceStartOfDay() / 1000);
}

// Counted on the calendar, with no time zone in between, so that the key of a moment does
// not depend on daylight saving.
QString FieldDef::dateTimeSortKey(const QDateTime &dateTime)
{
    if (!dateTime.date().isValid() || !dateTime.time().isValid())
        return QString();
    const qint64 days = sortEpoch.daysTo(dateTime.date());
    return integerSortKey(days * 86400 + dateTime.time().msecsSinceStartOfDay() / 1000);
}

QString FieldDef::flagSortKey(bool set)
{
    return set ? QStringLiteral("1") : QStringLiteral("0");
}

qint32 FieldDef::truncated(double value)
{
    if (std::isnan(value))
        return 0;
    constexpr double low = std::numeric_limits<qint32>::min();
    constexpr double high = std::numeric_limits<qint32>::max();
    return qint32(std::trunc(qBound(low, value, high)));
}
