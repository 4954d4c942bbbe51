#include "views/dbselectlistview.h"

#include "app/resourceicons.h"
#include "store/dbmanager.h"
#include "store/dbrecord.h"
#include "views/recorditem.h"

namespace
{
const QString transferKey = QStringLiteral("transfer");
} // namespace

DBSelectListView::DBSelectListView(QWidget *parent, const QString &name)
    : DBListView(parent, name)
{
    addIcon(QStringLiteral("on"));
    addIcon(QStringLiteral("off"));
}

bool DBSelectListView::isTicked(const DBRecord *record)
{
    return record->hasProperty(transferKey);
}

void DBSelectListView::addField(int field, Config *config)
{
    if (field != TransferField) {
        DBListView::addField(field, config);
        return;
    }
    setColumnFitted(addColumn(loadIconSet(QStringLiteral("onoff")), QString()));
}

DBListView::Cell DBSelectListView::cell(const DBRecord *record, int field) const
{
    if (field != TransferField)
        return DBListView::cell(record, field);
    return { QString(), icon(isTicked(record) ? OnIcon : OffIcon) };
}

void DBSelectListView::sectionClicked(int section)
{
    if (section < 0 || section >= fieldColumns().size()
        || fieldColumns().at(section) != TransferField) {
        DBListView::sectionClicked(section);
        return;
    }
    bool allTicked = true;
    for (MRLListViewItem *item : items()) {
        const auto *card = static_cast<const DBRecord *>(static_cast<RecordItem *>(item)->record());
        allTicked = allTicked && isTicked(card);
    }
    tickAll(!allTicked);
}

// Only a card whose file could be read can be ticked.
void DBSelectListView::tickAll(bool tick)
{
    const DBManager *cards = dbManager();
    for (MRLListViewItem *item : items()) {
        auto *row = static_cast<RecordItem *>(item);
        auto *card = static_cast<DBRecord *>(row->record());
        if (!tick)
            card->removeProperty(transferKey);
        else if (cards && cards->isAvailable(card))
            card->setProperty(transferKey, QStringLiteral("1"));
        row->update();
    }
}
