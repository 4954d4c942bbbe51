#ifndef ADDCOMMAND_H
#define ADDCOMMAND_H

#include "cli/clicommand.h"

#include <QJsonObject>
#include <QList>

class DataManager;
class DataRecord;

// add CARD: new records from JSON lines on standard input, made as the record editor makes
// them. Every line is checked before the card changes, so a bad line leaves it as it was.
class AddCommand : public CliCommand
{
public:
    QString name() const override { return QStringLiteral("add"); }
    QString synopsis() const override { return QStringLiteral("CARD  < records.jsonl"); }
    QString summary() const override
    {
        return QStringLiteral("add records given as JSON objects, one per line, on standard input");
    }

protected:
    int minArguments() const override { return 1; }
    int maxArguments() const override { return 1; }
    int run(const ArgumentParser &arguments) override;

private:
    static bool readInput(QList<QJsonObject> *objects, QString *error);
    // The field a key names: a decimal index or a title; -1 for memo/image/reminder.
    static bool resolveKey(const DataManager &card, const QString &key, int *field, QString *error);
    static bool apply(const DataManager &card, const QJsonObject &object, DataRecord &record,
                      QString *error);
    static bool applyMember(const QString &member, const QJsonValue &value, DataRecord &record,
                            QString *error);
};

#endif
