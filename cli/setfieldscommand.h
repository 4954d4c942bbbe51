#ifndef SETFIELDSCOMMAND_H
#define SETFIELDSCOMMAND_H

#include "cli/clicommand.h"

#include <QList>

class FieldDef;
class QJsonArray;

// set-fields CARD FIELDS.json: changes a card's schema as the field editor does.
class SetFieldsCommand : public CliCommand
{
public:
    QString name() const override { return QStringLiteral("set-fields"); }
    QString synopsis() const override { return QStringLiteral("CARD FIELDS.json"); }
    QString summary() const override
    {
        return QStringLiteral("change the fields of a card; records, views and filters follow");
    }

    // Fields from the JSON array of dump's field objects, each with its "origin".
    static bool parseFields(const QJsonArray &array, int oldCount, QList<FieldDef> *fields,
                            QString *error);

protected:
    int minArguments() const override { return 2; }
    int maxArguments() const override { return 2; }
    int run(const ArgumentParser &arguments) override;
};

#endif
