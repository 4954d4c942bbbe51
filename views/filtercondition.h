#ifndef FILTERCONDITION_H
#define FILTERCONDITION_H

#include <QCoreApplication>
#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTime>

class DataRecord;
class FieldDef;
class QDataStream;

// One test of a filter on one field of a card, or on all its text fields at once. Only the
// value members that belong to the field's type are used; the others stay as they are and
// are stored all the same.
class FilterCondition
{
    Q_DECLARE_TR_FUNCTIONS(FilterCondition)

public:
    // The field index that stands for every field of the text types, Memo included.
    static constexpr int AllTextFields = -1;

    // Operator codes are positions in the condition chooser and are stored in card files.
    enum TextOperator {
        Contains = 0,
        IsExactly = 1,
        DoesNotContain = 2,
        IsEmpty = 3,
        IsNotEmpty = 4,
        StartsWith = 5,
        EndsWith = 6
    };
    enum NumberOperator {
        Equals = 0,
        NotEqualTo = 1,
        AtMost = 2,
        AtLeast = 3,
        MoreThan = 4,
        LessThan = 5
    };
    enum DateOperator { On = 0, OnOrAfter = 1, OnOrBefore = 2 };
    // Reminder, Image and Bool conditions keep their "Yes" or "No" in number.
    enum Answer { Yes = 0, No = 1 };

    int field = AllTextFields;
    int op = Contains;
    QString text;
    int number = 0;
    double real = 0.0;
    QDate date;
    QTime time;

    bool operator==(const FilterCondition &other) const = default;

    // True if the record passes. fields is the schema of the record's card. A pass over
    // many records makes one FilterMatcher instead.
    bool accept(const DataRecord &record, const QList<FieldDef> &fields) const;

    // The labels of the condition chooser, in code order, for a field type; the text
    // operators also serve "All Text Fields". An unknown type has none.
    static QStringList operatorLabels(int fieldType);
    // The label of one code, or the null string if the type has no such operator.
    static QString operatorLabel(int fieldType, int op);
    static QString allTextFieldsTitle();

    // All seven members, whatever the type.
    void write(QDataStream &stream) const;
    // False if the stream ended or was damaged.
    bool read(QDataStream &stream);
    // The least a stored condition takes: five 32-bit items, a string length and a double.
    static constexpr qint64 minStoredSize = 4 + 4 + 4 + 4 + 8 + 4 + 4;
};

#endif
