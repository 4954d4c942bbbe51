#include "cli/addcommand.h"

#include "card/datamanager.h"
#include "card/datarecord.h"
#include "cli/argumentparser.h"
#include "cli/cardopener.h"
#include "cli/valuecodec.h"
#include "reminders/reminder.h"

#include <QFile>
#include <QJsonDocument>
#include <QTextStream>

#include <memory>

namespace {
const QString memoKey = QStringLiteral("memo");
const QString imageKey = QStringLiteral("image");
const QString reminderKey = QStringLiteral("reminder");

// The member that a field of a single-instance type stands for.
QString memberOfType(int type)
{
    switch (type) {
    case FieldDef::Memo: return memoKey;
    case FieldDef::Image: return imageKey;
    case FieldDef::Reminder: return reminderKey;
    default: return QString();
    }
}
} // namespace

bool AddCommand::readInput(QList<QJsonObject> *objects, QString *error)
{
    QFile in;
    if (!in.open(stdin, QIODevice::ReadOnly)) {
        *error = QStringLiteral("cannot read standard input");
        return false;
    }
    int lineNumber = 0;
    while (!in.atEnd()) {
        const QByteArray line = in.readLine().trimmed();
        ++lineNumber;
        if (line.isEmpty())
            continue;
        QJsonParseError parseError;
        const QJsonDocument document = QJsonDocument::fromJson(line, &parseError);
        if (!document.isObject()) {
            *error = QStringLiteral("line %1: not a JSON object (%2)")
                         .arg(lineNumber)
                         .arg(parseError.errorString());
            return false;
        }
        objects->append(document.object());
    }
    return true;
}

bool AddCommand::resolveKey(const DataManager &card, const QString &key, int *field,
                            QString *error)
{
    bool isIndex = false;
    const int index = key.toInt(&isIndex);
    if (isIndex) {
        *field = index;
        if (index >= 0 && index < card.fieldCount())
            return true;
        *error = QStringLiteral("no field %1").arg(key);
        return false;
    }
    if (key == memoKey || key == imageKey || key == reminderKey) {
        *field = -1;
        return true;
    }
    const QList<FieldDef> &fields = card.fieldList();
    for (int i = 0; i < fields.size(); ++i) {
        if (fields.at(i).title == key) {
            *field = i;
            return true;
        }
    }
    *error = QStringLiteral("no field \"%1\"").arg(key);
    return false;
}

bool AddCommand::applyMember(const QString &member, const QJsonValue &value, DataRecord &record,
                             QString *error)
{
    if (member == reminderKey) {
        QString reminderError;
        Reminder *reminder = ValueCodec::readReminder(value, &reminderError);
        if (!reminderError.isEmpty()) {
            *error = reminderError;
            return false;
        }
        record.setReminder(reminder);
        return true;
    }
    if (!value.isString() && !value.isNull()) {
        *error = QStringLiteral("\"%1\" takes a string").arg(member);
        return false;
    }
    if (member == memoKey)
        record.setMemo(value.toString());
    else
        record.setImage(value.toString());
    return true;
}

bool AddCommand::apply(const DataManager &card, const QJsonObject &object, DataRecord &record,
                       QString *error)
{
    for (auto it = object.begin(); it != object.end(); ++it) {
        int field = -1;
        if (!resolveKey(card, it.key(), &field, error))
            return false;
        const QString member =
            field < 0 ? it.key() : memberOfType(card.fieldList().at(field).type);
        const bool ok = member.isEmpty()
                            ? ValueCodec::readSlot(*it, record, field,
                                                   card.fieldList().at(field).type, error)
                            : applyMember(member, *it, record, error);
        if (!ok)
            return false;
    }
    return true;
}

int AddCommand::run(const ArgumentParser &arguments)
{
    QString error;
    QList<QJsonObject> objects;
    if (!readInput(&objects, &error))
        return fail(error);
    auto card = CardOpener::open(arguments.positional().at(0), &error);
    if (!card)
        return fail(error);

    // Checked on scratch records first: nothing reaches the card unless every line is good.
    for (int i = 0; i < objects.size(); ++i) {
        DataRecord scratch(card.get());
        scratch.setManager(nullptr);   // sized for the card, but marks nothing changed
        if (!apply(*card, objects.at(i), scratch, &error))
            return fail(QStringLiteral("record %1: %2").arg(i + 1).arg(error));
    }
    QStringList uids;
    for (const QJsonObject &object : objects) {
        DataRecord *record = card->newRecord();
        apply(*card, object, *record, &error);
        card->add(record);
        uids << record->uidString();
    }
    if (!card->save())
        return fail(card->errorString());
    for (const QString &uid : uids)
        out() << uid << '\n';
    return Success;
}
