#include "exchange/datamanager2.h"

#include "exchange/datarecord2.h"
#include "exchange/dbrecord2.h"
#include "store/mrlpim.h"

namespace
{
// Reads the items of a "FILTERS" value: each item is followed by one blank.
class FilterText
{
public:
    explicit FilterText(const QString &text)
        : m_text(text)
    {
    }

    bool number(int *value)
    {
        const qsizetype blank = m_text.indexOf(QLatin1Char(' '), m_pos);
        if (blank < 0)
            return false;
        bool ok = false;
        *value = m_text.mid(m_pos, blank - m_pos).toInt(&ok);
        m_pos = blank + 1;
        return ok;
    }

    // A length first, then that many characters and the blank.
    bool counted(QString *value)
    {
        int length = 0;
        if (!number(&length) || length < 0 || length >= m_text.size() - m_pos + 1)
            return false;
        *value = m_text.mid(m_pos, length);
        m_pos += length + 1;
        return m_pos <= m_text.size();
    }

    qsizetype left() const { return m_text.size() - m_pos; }

private:
    const QString &m_text;
    qsizetype m_pos = 0;
};

void setConditionValue(FilterCondition &condition, int type, const QString &value)
{
    switch (type) {
    case FieldDef::Integer:
    case FieldDef::Reminder:
    case FieldDef::Bool:
    case FieldDef::Count:
    case FieldDef::Image:
    case FieldDef::Increment:
        condition.number = value.toInt();
        break;
    case FieldDef::Double:
        condition.real = value.toDouble();
        break;
    case FieldDef::Date:
        condition.date = MRLPIM::stringToDate(value);
        break;
    case FieldDef::Time:
        condition.time = MRLPIM::stringToTime(value);
        break;
    case FieldDef::DateTime: {
        const QDateTime moment = MRLPIM::stringToDateTime(value);
        condition.date = moment.date();
        condition.time = moment.time();
        break;
    }
    default:
        condition.text = value;
        break;
    }
}

bool readCondition(FilterText &text, const QList<FieldDef> &fields, FilterCondition *condition)
{
    QString value;
    if (!text.number(&condition->field) || !text.number(&condition->op) || !text.counted(&value))
        return false;
    const int type = condition->field >= 0 && condition->field < fields.size()
        ? fields.at(condition->field).type
        : FieldDef::String;
    setConditionValue(*condition, type, value);
    return true;
}
} // namespace

DataManager2::DataManager2(const DBRecord2 &entry)
    : PIMManager(MRLPIM::applicationName(), entry.path())
    , m_fields(entry.fields())
{
    setSortingEnabled(false);
    setReadOnly(true);
}

PIMRecord *DataManager2::createRecord()
{
    return new DataRecord2(this);
}

void DataManager2::resetHeader()
{
    PIMManager::resetHeader();
    m_filters.clear();
    m_currentFilter = 0;
}

void DataManager2::readHeader(const QStringList &tokens)
{
    QStringList rest = tokens;
    if (tokens.first() == QLatin1String("FILTERS"))
        m_filters = parseFilters(MRLPIM::unescape(rest), m_fields);
    else if (tokens.first() == QLatin1String("CFILTER"))
        m_currentFilter = tokens.value(1).toInt();
    else
        PIMManager::readHeader(tokens);
}

QList<FilterDef> DataManager2::parseFilters(const QString &value, const QList<FieldDef> &fields)
{
    FilterText text(value);
    QList<FilterDef> filters;
    int count = 0;
    if (!text.number(&count))
        return filters;
    // Every filter takes at least four characters, which bounds a count from the text.
    for (int i = 0; i < count && text.left() >= 4; ++i) {
        FilterDef filter;
        int conditions = 0;
        if (!text.counted(&filter.title) || !text.number(&conditions))
            return filters;
        for (int c = 0; c < conditions; ++c) {
            if (text.left() < 6)
                return filters;
            FilterCondition condition;
            if (!readCondition(text, fields, &condition))
                return filters;
            filter.conditions.append(condition);
        }
        filters.append(filter);
    }
    return filters;
}
