#ifndef FILTERMATCHER_H
#define FILTERMATCHER_H

#include "views/filtercondition.h"

#include <QList>
#include <QStringMatcher>
#include <QStringView>

class DataRecord;
class FieldDef;

// Conditions made ready for a pass over the records of one card. What a condition needs
// besides the record (the field's type, the text fields, the case-folded search for its
// text, the answer for a field the card lacks) is worked out once here, so that testing a
// record costs no allocation and no look-up in the schema.
class FilterMatcher
{
public:
    FilterMatcher(const QList<FilterCondition> &conditions, const QList<FieldDef> &fields);

    // True if the record passes every condition; no conditions pass all.
    bool accept(const DataRecord &record) const;

    // The test of the text types: value is the record's text, text the condition's and
    // search its case-insensitive matcher. Only "is (exactly)" is case-sensitive; "ends with"
    // looks at the first occurrence only.
    static bool textMatches(
        int op, QStringView value, const QString &text, const QStringMatcher &search);

private:
    // Where a condition takes its value from.
    enum class Source { Field, AllTextFields, Constant };

    struct Test {
        FilterCondition condition;
        Source source = Source::Field;
        int type = 0;
        // For "All Text Fields": the slots of the text fields, and whether Memo is one.
        QList<int> textSlots;
        bool withMemo = false;
        // For a field the card lacks: the answer for every record.
        bool constant = false;
        QStringMatcher search;
    };

    static Test prepare(const FilterCondition &condition, const QList<FieldDef> &fields);
    // A rank for the order of testing: values before texts, one text before many.
    static int cost(const Test &test);
    static bool acceptField(const Test &test, const DataRecord &record);
    static bool acceptAllTextFields(const Test &test, const DataRecord &record);
    static bool acceptMultiList(const Test &test, QStringView value);
    static bool text(const Test &test, QStringView value);
    template <typename T> static bool compareNumber(int op, T value, T operand);
    template <typename T> static bool compareMoment(int op, const T &value, const T &operand);
    static bool compareDateTime(const FilterCondition &condition, const QDateTime &value);

    QList<Test> m_tests;
};

#endif
