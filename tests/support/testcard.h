#ifndef TESTCARD_H
#define TESTCARD_H

#include "card/datamanager.h"
#include "card/datarecord.h"

#include <QStringList>

#include <memory>

// Cards for widget tests: a field of a type, and a card whose records hold the given names
// in their first field. Nothing is written until the caller saves.
inline FieldDef testField(
    int type, const QString &title = QStringLiteral("F"), const QString &formula = QString())
{
    FieldDef field;
    field.type = type;
    field.title = title;
    field.label = title;
    field.formula = formula;
    return field;
}

inline void addNamed(DataManager &card, const QStringList &names)
{
    for (const QString &name : names) {
        DataRecord *record = card.newRecord();
        record->setStringValue(0, name);
        card.add(record);
    }
}

inline std::unique_ptr<DataManager> testCard(
    const QString &path, const QList<FieldDef> &fields, const QStringList &names = {})
{
    auto card = std::make_unique<DataManager>(path);
    card->setFields(fields, true);
    addNamed(*card, names);
    return card;
}

#endif
