#include "cli/setfieldscommand.h"

#include "card/datamanager.h"
#include "card/fielddef.h"
#include "card/schemachange.h"
#include "cli/argumentparser.h"
#include "cli/cardopener.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {
QString stringMember(const QJsonObject &object, const char *key)
{
    return object.value(QLatin1String(key)).toString();
}

bool parseField(const QJsonObject &object, int oldCount, FieldDef *field, QString *error)
{
    field->title = stringMember(object, "title");
    field->label = object.contains(QLatin1String("label")) ? stringMember(object, "label")
                                                          : field->title;
    field->type = object.value(QLatin1String("type")).toInt(-1);
    field->formula = stringMember(object, "formula");
    field->defaultValue = stringMember(object, "defaultValue");
    field->format = stringMember(object, "format");
    field->width = object.value(QLatin1String("width")).toInt(-1);
    field->origin = object.value(QLatin1String("origin")).toInt(-1);
    for (const QJsonValue &item : object.value(QLatin1String("items")).toArray())
        field->items << item.toString();
    if (field->type < 0 || field->type >= FieldDef::TypeCount) {
        *error = QStringLiteral("field \"%1\": type must be 0 to 14").arg(field->title);
        return false;
    }
    if (field->origin < -1 || field->origin >= oldCount) {
        *error = QStringLiteral("field \"%1\": origin %2 is no field of the card")
                     .arg(field->title)
                     .arg(field->origin);
        return false;
    }
    return true;
}
} // namespace

bool SetFieldsCommand::parseFields(const QJsonArray &array, int oldCount, QList<FieldDef> *fields,
                                   QString *error)
{
    QList<bool> originTaken(oldCount, false);
    for (const QJsonValue &value : array) {
        if (!value.isObject()) {
            *error = QStringLiteral("each field must be a JSON object");
            return false;
        }
        FieldDef field;
        if (!parseField(value.toObject(), oldCount, &field, error))
            return false;
        if (field.origin >= 0) {
            if (originTaken[field.origin]) {
                *error = QStringLiteral("origin %1 is given twice").arg(field.origin);
                return false;
            }
            originTaken[field.origin] = true;
        }
        fields->append(field);
    }
    return true;
}

int SetFieldsCommand::run(const ArgumentParser &arguments)
{
    const QString jsonPath = arguments.positional().at(1);
    QFile file(jsonPath);
    if (!file.open(QIODevice::ReadOnly))
        return fail(QStringLiteral("%1: %2").arg(jsonPath, file.errorString()));
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &parseError);
    if (parseError.error != QJsonParseError::NoError || !document.isArray())
        return fail(QStringLiteral("%1: not a JSON array of fields (%2)")
                        .arg(jsonPath, parseError.errorString()));

    QString error;
    auto card = CardOpener::open(arguments.positional().at(0), &error);
    if (!card)
        return fail(error);
    // Handing the fields out numbers them, which is what the origins refer to.
    card->fields();
    QList<FieldDef> fields;
    if (!parseFields(document.array(), card->fieldCount(), &fields, &error))
        return fail(error);
    if (!SchemaChange::apply(*card, fields))
        return fail(card->errorString());
    return Success;
}
