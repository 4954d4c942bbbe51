#ifndef FIELDDEF_H
#define FIELDDEF_H

#include <QCoreApplication>
#include <QDate>
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QTime>

class QDataStream;

// One field of a card's schema. A card addresses its fields everywhere by their index in
// the field list, so a FieldDef carries no identity of its own besides the transient origin.
class FieldDef
{
    Q_DECLARE_TR_FUNCTIONS(FieldDef)

public:
    // The codes are stored in card files; their order is also the order of the type choosers.
    enum Type {
        String = 0,
        Integer = 1,
        Double = 2,
        Date = 3,
        Time = 4,
        DateTime = 5,
        Text = 6,
        Memo = 7,
        Reminder = 8,
        List = 9,
        Bool = 10,
        Count = 11,
        Image = 12,
        MultiList = 13,
        Increment = 14
    };
    static constexpr int TypeCount = 15;

    // What a value slot holds. Retyping keeps a record's value only within one family.
    enum Family { TextFamily, NumberFamily, DateFamily, TimeFamily, DateTimeFamily, NoSlot };

    QString title;
    QString label;
    int type = String;
    QString formula;
    QString defaultValue;
    QString format;
    QStringList items;
    int width = -1;
    // Position of this entry when the list was last handed out; -1 for an entry made since.
    // Never stored.
    int origin = -1;

    bool isCalculated() const { return !formula.isEmpty(); }
    bool operator==(const FieldDef &other) const;
    bool operator!=(const FieldDef &other) const { return !(*this == other); }

    // The stored form of a card header (origin is not part of it).
    void write(QDataStream &stream) const;
    // False, with the stream marked corrupt, when the items count cannot be in the stream.
    bool read(QDataStream &stream);

    // The names of the type choosers, translated, in code order.
    static QStringList typeNames();
    static QString typeName(int type);
    static Family family(int type);
    // True when a slot survives a change from one type to the other.
    static bool keepsValue(int fromType, int toType);
    // Memo, Reminder and Image: a card has at most one field of each.
    static bool isSingleInstance(int type);
    // Types that a filter condition on "All Text Fields" looks at.
    static bool isSearchedAsText(int type);

    // Sort keys, compared as plain text.
    static QString integerSortKey(qint64 value);
    static QString doubleSortKey(double value);
    static QString dateSortKey(const QDate &date);
    static QString timeSortKey(const QTime &time);
    static QString dateTimeSortKey(const QDateTime &dateTime);
    static QString flagSortKey(bool set);

    // A double cut towards zero and kept within 32 bits, as the card file stores numbers.
    static qint32 truncated(double value);
};

#endif
