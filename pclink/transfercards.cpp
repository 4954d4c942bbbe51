#include "pclink/transfercards.h"

#include "card/datamanager.h"
#include "platform/global.h"
#include "platform/platformpaths.h"
#include "store/dbmanager.h"
#include "store/dbrecord.h"
#include "store/mrlpim.h"

#include <QFile>
#include <QFileInfo>

namespace
{
DBRecord *entry(PIMRecord *record)
{
    return static_cast<DBRecord *>(record);
}
} // namespace

QString TransferCards::catalogueRequest()
{
    return QStringLiteral("[A]") + DBManager::listFileName(true);
}

QString TransferCards::cataloguePath()
{
    return Global::applicationFileName(MRLPIM::applicationName(), DBManager::listFileName(true));
}

QString TransferCards::publishCatalogue(DBManager &cards)
{
    cards.save();
    cards.refreshAll();
    DBManager catalogue(true);
    catalogue.setSort(cards.sortColumn(), cards.sortOrder());
    for (PIMRecord *record : cards.records()) {
        auto *copy = new DBRecord(*entry(record));
        copy->setManager(&catalogue);
        catalogue.add(copy);
    }
    catalogue.save();
    return catalogue.fullPath();
}

void TransferCards::withdrawCatalogue()
{
    QFile::remove(cataloguePath());
}

QStringList TransferCards::sendList(const DBManager &cards)
{
    QStringList files;
    for (PIMRecord *record : cards.view()) {
        if (!record->hasProperty(transferKey()))
            continue;
        const QString path = entry(record)->path();
        files << path << sendTarget(path);
    }
    return files;
}

QString TransferCards::sendTarget(const QString &cardPath)
{
    DataManager card(cardPath);
    card.load();
    const QString folder = card.hasProperty(devicePathKey())
        ? card.property(devicePathKey()) + QLatin1Char('/')
        : QStringLiteral("[A]");
    return folder + QFileInfo(cardPath).fileName();
}

QString TransferCards::getDestination(const DBManager &local, const QString &remotePath)
{
    const QString name = QFileInfo(remotePath).fileName();
    for (PIMRecord *record : local.records()) {
        if (QFileInfo(entry(record)->path()).fileName() == name)
            return entry(record)->path();
    }
    return PlatformPaths::documentsDir() + QLatin1Char('/') + name;
}

void TransferCards::registerCard(DBManager &cards, const QString &path)
{
    if (!isCard(path))
        return;
    if (DBRecord *record = cards.findByPath(path)) {
        cards.refresh(record);
    } else {
        auto *created = static_cast<DBRecord *>(cards.createRecord());
        created->setPath(path);
        cards.refresh(created);
        cards.add(created);
    }
    cards.save();
}

QString TransferCards::registerFetched(DBManager &local, const QString &remotePath)
{
    // Listed under the documents folder even when the file went over a card elsewhere.
    const QString path
        = PlatformPaths::documentsDir() + QLatin1Char('/') + QFileInfo(remotePath).fileName();
    registerCard(local, path);
    DataManager card(path);
    if (card.load()) {
        card.setProperty(devicePathKey(), QFileInfo(remotePath).path());
        card.save();
    }
    return path;
}

void TransferCards::untick(DBManager &cards, const QString &path)
{
    for (PIMRecord *record : cards.records()) {
        if (record->hasProperty(transferKey()) && entry(record)->path() == path)
            record->removeProperty(transferKey());
    }
}

bool TransferCards::isCard(const QString &path)
{
    return QFileInfo(path).suffix() == QLatin1String("card");
}
