#include "views/filtercondition.h"

#include "card/datarecord.h"
#include "card/fielddef.h"
#include "store/binaryformat.h"
#include "views/filtermatcher.h"

#include <QDataStream>

bool FilterCondition::accept(const DataRecord &record, const QList<FieldDef> &fields) const
{
    return FilterMatcher({ *this }, fields).accept(record);
}

QStringList FilterCondition::operatorLabels(int fieldType)
{
    switch (fieldType) {
    case FieldDef::String:
    case FieldDef::Text:
    case FieldDef::Memo:
    case FieldDef::List:
    case FieldDef::MultiList:
        return { tr("contains"), tr("is (exactly)"), tr("doesn't contain"), tr("is empty"),
            tr("is not empty"), tr("starts with"), tr("ends with") };
    case FieldDef::Integer:
    case FieldDef::Double:
    case FieldDef::Count:
    case FieldDef::Increment:
        return { tr("equals"), tr("not equal to"), tr("is at most"), tr("is at least"),
            tr("is more than"), tr("is less than") };
    case FieldDef::Date:
    case FieldDef::Time:
    case FieldDef::DateTime:
        return { tr("on"), tr("on or after"), tr("on or before") };
    case FieldDef::Reminder:
        return { tr("have reminder") };
    case FieldDef::Bool:
        return { tr("equals"), tr("not equal to") };
    case FieldDef::Image:
        return { tr("have image") };
    default:
        return {};
    }
}

QString FilterCondition::operatorLabel(int fieldType, int op)
{
    return operatorLabels(fieldType).value(op);
}

QString FilterCondition::allTextFieldsTitle()
{
    return tr("All Text Fields");
}

void FilterCondition::write(QDataStream &stream) const
{
    stream << qint32(field) << qint32(op) << text << qint32(number) << real << date << time;
}

bool FilterCondition::read(QDataStream &stream)
{
    qint32 storedField = 0;
    qint32 storedOp = 0;
    qint32 storedNumber = 0;
    stream >> storedField >> storedOp >> text >> storedNumber >> real >> date >> time;
    field = storedField;
    op = storedOp;
    number = storedNumber;
    return BinaryFormat::ok(stream);
}
