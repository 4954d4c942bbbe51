#include "exchange/oldcardconverter.h"

#include "card/datamanager.h"
#include "card/datarecord.h"
#include "exchange/cardimporttarget.h"
#include "exchange/datamanager2.h"
#include "exchange/datarecord2.h"
#include "exchange/dbmanager2.h"
#include "exchange/dbrecord2.h"
#include "platform/platformpaths.h"
#include "store/dbmanager.h"
#include "store/mrlpim.h"

#include <QDebug>
#include <QDir>
#include <QFileInfo>

namespace
{
void copyValue(const DataRecord2 &from, DataRecord *to, int field, int type)
{
    const QString value = from.value(field);
    switch (type) {
    case FieldDef::Integer:
    case FieldDef::Bool:
    case FieldDef::Count:
    case FieldDef::Increment:
        to->setIntValue(field, value.toInt());
        break;
    case FieldDef::Double:
        to->setDoubleValue(field, value.toDouble());
        break;
    case FieldDef::Date:
        to->setDateValue(field, MRLPIM::stringToDate(value));
        break;
    case FieldDef::Time:
        to->setTimeValue(field, MRLPIM::stringToTime(value));
        break;
    case FieldDef::DateTime:
        to->setDateTimeValue(field, MRLPIM::stringToDateTime(value));
        break;
    case FieldDef::Memo:
        to->setMemo(from.memo());
        break;
    case FieldDef::Image:
        to->setImage(from.image());
        break;
    case FieldDef::Reminder:
        to->setReminder(from.reminder() ? new Reminder(*from.reminder()) : nullptr);
        break;
    default:
        to->setStringValue(field, value);
        break;
    }
}
} // namespace

int OldCardConverter::run()
{
    DBManager2 store;
    store.load();
    if (store.property(QStringLiteral("converted")) == QLatin1String("2"))
        return 0;
    store.setProperty(QStringLiteral("converted"), QStringLiteral("2"));
    store.forceSave();

    DBManager list(false);
    list.load();
    int made = 0;
    for (const PIMRecord *record : store.records()) {
        const auto &entry = *static_cast<const DBRecord2 *>(record);
        qDebug() << "Converting old card" << entry.path();
        made += convert(entry, list) ? 1 : 0;
    }
    list.save();
    return made;
}

bool OldCardConverter::convert(const DBRecord2 &entry, DBManager &list)
{
    const QString folder = PlatformPaths::documentsDir();
    QDir().mkpath(folder);
    const QString path
        = CardImportTarget::freePath(folder, QFileInfo(entry.path()).completeBaseName());
    if (path.isEmpty())
        return false;
    {
        DataManager card(path);
        card.load();
        card.setDescription(entry.description());
        card.setIcon(entry.icon());
        card.setPassword(entry.password());
        QList<FieldDef> fields = entry.fields();
        for (int i = 0; i < fields.size(); ++i)
            fields[i].items
                = MRLPIM::loadDataList(QStringLiteral("%1_%2").arg(entry.uidString()).arg(i));
        card.setFields(fields, true);
        copyRecords(entry, card);
        card.forceSave();
    }
    list.addCard(path);
    return true;
}

void OldCardConverter::copyRecords(const DBRecord2 &entry, DataManager &card)
{
    DataManager2 old(entry);
    old.load();
    card.setFilters(old.filters());
    card.setCurrentFilter(old.currentFilter());
    const QList<FieldDef> &fields = card.fieldList();
    for (const PIMRecord *record : old.records()) {
        auto *copy = new DataRecord(&card);
        for (int i = 0; i < fields.size(); ++i)
            copyValue(*static_cast<const DataRecord2 *>(record), copy, i, fields.at(i).type);
        // The old values go over as they are: nothing is calculated on the way.
        card.insertLoaded(copy);
    }
}
