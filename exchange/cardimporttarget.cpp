#include "exchange/cardimporttarget.h"

#include "card/datamanager.h"
#include "card/datarecord.h"
#include "exchange/palmdatabase.h"
#include "platform/platformpaths.h"
#include "store/dbmanager.h"
#include "store/dbrecord.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTextCodec>

namespace
{
constexpr int maxCopies = 10000;
const QString cardSuffix = QStringLiteral(".card");
} // namespace

CardImportTarget::CardImportTarget(DBManager *list, QTextCodec *codec)
    : m_list(list)
    , m_codec(codec)
{
}

CardImportTarget::~CardImportTarget()
{
    discard();
}

QString CardImportTarget::decode(const QByteArray &bytes) const
{
    return m_codec ? m_codec->toUnicode(bytes) : QString::fromLocal8Bit(bytes);
}

bool CardImportTarget::begin(
    const QString &sourcePath, const QByteArray &databaseName, const QString &description)
{
    discard();
    QString name = decode(databaseName).trimmed();
    // A name must stay one file in the folder.
    name.replace(u'/', u'_');
    if (name.isEmpty() || name == QLatin1String(".") || name == QLatin1String(".."))
        name = QFileInfo(sourcePath).completeBaseName();
    const QString folder = m_folder.isEmpty() ? PlatformPaths::documentsDir() : m_folder;
    if (!QDir().mkpath(folder))
        return fail(tr("Cannot create the folder \"%1\".").arg(folder));
    m_path = freePath(folder, name);
    if (m_path.isEmpty())
        return fail(tr("No free name for the card \"%1\".").arg(name));
    // The card is built beside its final name and only renamed there once it is whole.
    m_temporaryPath
        = folder + QStringLiteral("/.") + QFileInfo(m_path).fileName() + QStringLiteral(".import");
    QFile::remove(m_temporaryPath);
    m_card = std::make_unique<DataManager>(m_temporaryPath);
    m_card->setDescription(description);
    m_card->setIcon(QStringLiteral("12"));
    return true;
}

bool CardImportTarget::importRows(const QString &sourcePath, const PalmDatabase &database,
    const QString &description, const QList<FieldDef> &fields, const RowFill &fill,
    const std::function<QList<FieldDef>()> &settled)
{
    m_rowsAdded = 0;
    if (!begin(sourcePath, database.databaseName(), description))
        return false;
    installFields(fields);
    for (int r = 0; r < database.rowCount(); ++r) {
        DataRecord *record = m_card->newRecord();
        fill(record, database.row(r));
        m_card->add(record);
        ++m_rowsAdded;
    }
    return finish(settled());
}

void CardImportTarget::installFields(const QList<FieldDef> &fields)
{
    m_card->setFields(fields, true);
    // Passing the list through an unchanged edit works out the order of calculation.
    m_card->setFields(m_card->fields());
}

bool CardImportTarget::finish(const QList<FieldDef> &fields)
{
    if (!m_card)
        return fail(tr("No import is under way."));
    // The importer's list as it was first installed, so that Increment counters moved by
    // the new records start again from the stored default; only the types have changed.
    QList<FieldDef> settled = fields;
    for (int i = 0; i < settled.size(); ++i)
        settled[i].origin = i < m_card->fieldCount() ? i : -1;
    m_card->fields(); // numbers the installed entries, which the origins above pair with
    m_card->setFields(settled);
    if (!m_card->forceSave())
        return fail(m_card->errorString());
    m_card.reset();
    if (QFileInfo::exists(m_path) || !QFile::rename(m_temporaryPath, m_path))
        return fail(tr("Cannot write the card \"%1\".").arg(m_path));
    m_temporaryPath.clear();
    // A stale entry of a card deleted behind the list's back takes the new card.
    if (DBRecord *entry = m_list->findByPath(m_path))
        m_list->refresh(entry);
    else
        m_list->addCard(m_path);
    if (!m_list->save()) {
        QFile::remove(m_path);
        return fail(tr("Cannot add \"%1\" to the card list.").arg(m_path));
    }
    return true;
}

QString CardImportTarget::freePath(const QString &folder, const QString &name)
{
    const QString plain = folder + u'/' + name + cardSuffix;
    if (!QFileInfo::exists(plain))
        return plain;
    const QString stem = folder + u'/' + name + u'_' + tr("Copy") + u'_';
    for (int n = 1; n <= maxCopies; ++n) {
        const QString path = stem + QString::number(n) + cardSuffix;
        if (!QFileInfo::exists(path))
            return path;
    }
    return QString();
}

void CardImportTarget::discard()
{
    if (m_card) {
        m_card->setReadOnly(true);
        m_card.reset();
    }
    if (!m_temporaryPath.isEmpty()) {
        QFile::remove(m_temporaryPath);
        QFile::remove(m_temporaryPath + QStringLiteral(".new"));
        m_temporaryPath.clear();
    }
}

bool CardImportTarget::fail(const QString &message)
{
    m_errorString = message;
    discard();
    return false;
}
