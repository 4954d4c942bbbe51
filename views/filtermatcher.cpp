#include "views/filtermatcher.h"

#include "card/datarecord.h"
#include "card/fielddef.h"

#include <QDebug>

#include <algorithm>

FilterMatcher::FilterMatcher(
    const QList<FilterCondition> &conditions, const QList<FieldDef> &fields)
{
    m_tests.reserve(conditions.size());
    for (const FilterCondition &condition : conditions)
        m_tests.append(prepare(condition, fields));
    // Every condition must hold and none has side effects, so the cheap ones go first and
    // spare most records the text searches.
    std::stable_sort(m_tests.begin(), m_tests.end(),
        [](const Test &a, const Test &b) { return cost(a) < cost(b); });
}

int FilterMatcher::cost(const Test &test)
{
    if (test.source == Source::Constant)
        return 0;
    if (test.source == Source::AllTextFields)
        return 3;
    if (FieldDef::isSearchedAsText(test.type))
        return test.type == FieldDef::MultiList ? 2 : 1;
    return 0;
}

FilterMatcher::Test FilterMatcher::prepare(
    const FilterCondition &condition, const QList<FieldDef> &fields)
{
    Test test;
    test.condition = condition;
    test.search = QStringMatcher(condition.text, Qt::CaseInsensitive);
    if (condition.field == FilterCondition::AllTextFields) {
        test.source = Source::AllTextFields;
        for (int i = 0; i < fields.size(); ++i) {
            const int type = fields.at(i).type;
            if (type == FieldDef::Memo)
                test.withMemo = true;
            else if (FieldDef::isSearchedAsText(type))
                test.textSlots.append(i);
        }
    } else if (condition.field < 0 || condition.field >= fields.size()) {
        // A damaged card can name a field it does not have; it is then tested as an
        // empty text field rather than refused.
        qWarning("FilterCondition: field %d is not one of the card's %lld fields", condition.field,
            static_cast<long long>(fields.size()));
        test.source = Source::Constant;
        test.constant = text(test, QStringView());
    } else {
        test.type = fields.at(condition.field).type;
    }
    return test;
}

bool FilterMatcher::accept(const DataRecord &record) const
{
    for (const Test &test : m_tests) {
        const bool passed = test.source == Source::Field ? acceptField(test, record)
            : test.source == Source::AllTextFields       ? acceptAllTextFields(test, record)
                                                         : test.constant;
        if (!passed)
            return false;
    }
    return true;
}

bool FilterMatcher::acceptField(const Test &test, const DataRecord &record)
{
    const FilterCondition &c = test.condition;
    switch (test.type) {
    case FieldDef::String:
    case FieldDef::Text:
    case FieldDef::List:
        return text(test, record.stringValue(c.field));
    case FieldDef::Memo:
        return text(test, record.memo());
    case FieldDef::MultiList:
        return acceptMultiList(test, record.stringValue(c.field));
    case FieldDef::Integer:
    case FieldDef::Count:
    case FieldDef::Increment:
        return compareNumber(c.op, record.intValue(c.field), c.number);
    case FieldDef::Double:
        return compareNumber(c.op, record.doubleValue(c.field), c.real);
    case FieldDef::Date:
        return compareMoment(c.op, record.dateValue(c.field), c.date);
    case FieldDef::Time:
        return compareMoment(c.op, record.timeValue(c.field), c.time);
    case FieldDef::DateTime:
        return compareDateTime(c, record.dateTimeValue(c.field));
    case FieldDef::Reminder:
        return (c.number == FilterCondition::Yes) == record.hasReminder();
    case FieldDef::Image:
        return (c.number == FilterCondition::Yes) == record.hasImage();
    case FieldDef::Bool: {
        // Only a stored 1 counts as set.
        const bool same = (c.number == FilterCondition::Yes) == (record.intValue(c.field) == 1);
        return c.op == FilterCondition::Equals ? same : !same;
    }
    default:
        return false;
    }
}

// Holds if the test holds for at least one text field, so that "doesn't contain" asks
// whether some field lacks the text, not whether all do.
bool FilterMatcher::acceptAllTextFields(const Test &test, const DataRecord &record)
{
    for (int i : test.textSlots) {
        if (text(test, record.stringValue(i)))
            return true;
    }
    return test.withMemo && text(test, record.memo());
}

// Each chosen item is tested on its own; an empty value has no items, so even
// "is empty" fails on it.
bool FilterMatcher::acceptMultiList(const Test &test, QStringView value)
{
    for (QStringView part : value.tokenize(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        if (text(test, part))
            return true;
    }
    return false;
}

bool FilterMatcher::text(const Test &test, QStringView value)
{
    return textMatches(test.condition.op, value, test.condition.text, test.search);
}

bool FilterMatcher::textMatches(
    int op, QStringView value, const QString &text, const QStringMatcher &search)
{
    switch (op) {
    case FilterCondition::Contains:
        return search.indexIn(value) != -1;
    case FilterCondition::IsExactly:
        return value == text;
    case FilterCondition::DoesNotContain:
        return search.indexIn(value) == -1;
    case FilterCondition::IsEmpty:
        return value.isEmpty();
    case FilterCondition::IsNotEmpty:
        return !value.isEmpty();
    case FilterCondition::StartsWith:
        // Compared on the leading part: a null value would otherwise start with nothing at all.
        return value.size() >= text.size()
            && value.first(text.size()).compare(text, Qt::CaseInsensitive) == 0;
    case FilterCondition::EndsWith: {
        // Only the first occurrence counts: "abab" does not end with "ab" here.
        const qsizetype at = search.indexIn(value);
        return at != -1 && at == value.size() - text.size();
    }
    default:
        return false;
    }
}

template <typename T> bool FilterMatcher::compareNumber(int op, T value, T operand)
{
    switch (op) {
    case FilterCondition::Equals:
        return value == operand;
    case FilterCondition::NotEqualTo:
        return value != operand;
    case FilterCondition::AtMost:
        return value <= operand;
    case FilterCondition::AtLeast:
        return value >= operand;
    case FilterCondition::MoreThan:
        return value > operand;
    case FilterCondition::LessThan:
        return value < operand;
    default:
        return false;
    }
}

// An unset date or time is earlier than any set one, and equal to another unset one.
template <typename T> bool FilterMatcher::compareMoment(int op, const T &value, const T &operand)
{
    switch (op) {
    case FilterCondition::On:
        return value == operand;
    case FilterCondition::OnOrAfter:
        return value >= operand;
    case FilterCondition::OnOrBefore:
        return value <= operand;
    default:
        return false;
    }
}

// Compared on the calendar and the clock, date first, so that no time zone or daylight
// saving stands between the record's value and the condition's.
bool FilterMatcher::compareDateTime(const FilterCondition &condition, const QDateTime &value)
{
    if (value.date() != condition.date)
        return compareMoment(condition.op, value.date(), condition.date);
    return compareMoment(condition.op, value.time(), condition.time);
}
