#include "cli/dumpcommand.h"

#include "card/datamanager.h"
#include "card/datarecord.h"
#include "cli/argumentparser.h"
#include "cli/cardopener.h"
#include "cli/jsonwriter.h"
#include "cli/valuecodec.h"

#include <QTextStream>

namespace {
QString key(const char *name)
{
    return QString::fromLatin1(name);
}

// Text members of the card print as strings even when they were never set.
QString text(const QString &s)
{
    return s.isNull() ? QStringLiteral("") : s;
}
} // namespace

int DumpCommand::run(const ArgumentParser &arguments)
{
    QString error;
    const auto card = CardOpener::open(arguments.positional().at(0), &error);
    if (!card)
        return fail(error);

    JsonWriter out;
    out.beginObject();
    writeHeader(out, *card);
    out.key(key("description"));
    out.value(text(card->description()));
    out.key(key("icon"));
    out.value(text(card->icon()));
    out.key(key("password"));
    out.value(text(card->password()));
    writeFields(out, *card);
    writeFilters(out, *card);
    out.key(key("currentFilter"));
    out.value(card->currentFilter());
    writeViews(out, *card);
    out.key(key("currentView"));
    out.value(card->currentView());
    out.key(key("records"));
    out.beginArray();
    for (const PIMRecord *record : card->records())
        writeRecord(out, *card, *static_cast<const DataRecord *>(record));
    out.endArray();
    out.key(key("view"));
    out.beginArray();
    for (const PIMRecord *record : card->view())
        out.value(record->uidString());
    out.endArray();
    out.endObject();
    CliCommand::out() << QString::fromUtf8(out.result());
    return Success;
}

void DumpCommand::writeHeader(JsonWriter &out, const DataManager &card)
{
    out.key(key("header"));
    out.beginObject();
    out.key(key("formatVersion"));
    out.value(card.readFormatVersion());
    out.key(key("syncDateTime"));
    ValueCodec::writeStamp(out, card.syncDateTime());
    out.key(key("sortColumn"));
    out.value(card.sortColumn());
    out.key(key("sortAscending"));
    out.value(card.sortOrder());
    out.key(key("perPage"));
    out.value(card.perPage());
    out.key(key("lastCurrent"));
    out.value(text(card.lastCurrent()));
    out.key(key("total"));
    out.value(card.total());
    out.key(key("properties"));
    writeProperties(out, card.properties());
    out.endObject();
}

void DumpCommand::writeFields(JsonWriter &out, const DataManager &card)
{
    out.key(key("fields"));
    out.beginArray();
    for (const FieldDef &field : card.fieldList()) {
        out.beginObject();
        out.key(key("title"));
        out.value(text(field.title));
        out.key(key("label"));
        out.value(text(field.label));
        out.key(key("type"));
        out.value(field.type);
        out.key(key("formula"));
        out.value(text(field.formula));
        out.key(key("defaultValue"));
        out.value(text(field.defaultValue));
        out.key(key("format"));
        out.value(text(field.format));
        out.key(key("items"));
        writeStrings(out, field.items);
        out.key(key("width"));
        out.value(field.width);
        out.endObject();
    }
    out.endArray();
}

void DumpCommand::writeFilters(JsonWriter &out, const DataManager &card)
{
    out.key(key("filters"));
    out.beginArray();
    for (const FilterDef &filter : card.filters()) {
        out.beginObject();
        out.key(key("title"));
        out.value(text(filter.title));
        out.key(key("uuid"));
        out.value(filter.uuidString());
        out.key(key("conditions"));
        out.beginArray();
        for (const FilterCondition &c : filter.conditions) {
            out.beginObject();
            out.key(key("field"));
            out.value(c.field);
            out.key(key("op"));
            out.value(c.op);
            out.key(key("text"));
            out.value(text(c.text));
            out.key(key("number"));
            out.value(c.number);
            out.key(key("real"));
            out.value(c.real);
            out.key(key("date"));
            out.stringOrNull(c.date.isValid() ? ValueCodec::dateText(c.date) : QString());
            out.key(key("time"));
            out.stringOrNull(c.time.isValid() ? ValueCodec::timeText(c.time) : QString());
            out.endObject();
        }
        out.endArray();
        out.endObject();
    }
    out.endArray();
}

void DumpCommand::writeViews(JsonWriter &out, const DataManager &card)
{
    out.key(key("views"));
    out.beginArray();
    for (const ViewDef &view : card.views()) {
        out.beginObject();
        out.key(key("title"));
        out.value(text(view.title));
        out.key(key("columns"));
        out.beginArray();
        for (int column : view.columns)
            out.value(column);
        out.endArray();
        out.key(key("sort"));
        out.value(view.sort);
        out.key(key("ascending"));
        out.value(view.ascending);
        out.key(key("filter"));
        out.stringOrNull(view.filter);
        out.endObject();
    }
    out.endArray();
}

void DumpCommand::writeRecord(JsonWriter &out, const DataManager &card, const DataRecord &record)
{
    out.beginObject();
    out.key(key("uid"));
    out.value(record.uidString());
    out.key(key("created"));
    ValueCodec::writeStamp(out, record.created());
    out.key(key("updated"));
    ValueCodec::writeStamp(out, record.updated());
    out.key(key("properties"));
    writeProperties(out, record.properties());
    out.key(key("categories"));
    writeStrings(out, record.categories());
    out.key(key("values"));
    out.beginArray();
    const QList<FieldDef> &fields = card.fieldList();
    for (int i = 0; i < fields.size(); ++i)
        ValueCodec::writeSlot(out, record, i, fields.at(i).type);
    out.endArray();
    out.key(key("memo"));
    out.value(text(record.memo()));
    out.key(key("image"));
    out.value(text(record.image()));
    out.key(key("reminder"));
    ValueCodec::writeReminder(out, record.reminder());
    out.endObject();
}

void DumpCommand::writeProperties(JsonWriter &out, const QMap<QString, QString> &properties)
{
    out.beginObject();
    for (auto it = properties.cbegin(); it != properties.cend(); ++it) {
        out.key(it.key());
        out.value(text(it.value()));
    }
    out.endObject();
}

void DumpCommand::writeStrings(JsonWriter &out, const QStringList &list)
{
    out.beginArray();
    for (const QString &s : list)
        out.value(text(s));
    out.endArray();
}
