#ifndef DUMPCOMMAND_H
#define DUMPCOMMAND_H

#include "cli/clicommand.h"

class DataManager;
class DataRecord;
class JsonWriter;

// dump CARD: the whole card as one JSON document.
class DumpCommand : public CliCommand
{
public:
    QString name() const override { return QStringLiteral("dump"); }
    QString synopsis() const override { return QStringLiteral("CARD"); }
    QString summary() const override { return QStringLiteral("print a card as JSON"); }

protected:
    int minArguments() const override { return 1; }
    int maxArguments() const override { return 1; }
    int run(const ArgumentParser &arguments) override;

private:
    static void writeHeader(JsonWriter &out, const DataManager &card);
    static void writeFields(JsonWriter &out, const DataManager &card);
    static void writeFilters(JsonWriter &out, const DataManager &card);
    static void writeViews(JsonWriter &out, const DataManager &card);
    static void writeRecord(JsonWriter &out, const DataManager &card, const DataRecord &record);
    static void writeProperties(JsonWriter &out, const QMap<QString, QString> &properties);
    static void writeStrings(JsonWriter &out, const QStringList &list);
};

#endif
