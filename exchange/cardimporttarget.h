#ifndef CARDIMPORTTARGET_H
#define CARDIMPORTTARGET_H

#include "card/fielddef.h"

#include <QCoreApplication>
#include <QList>
#include <QString>

#include <functional>
#include <memory>

class DataManager;
class DataRecord;
class DBManager;
class PalmDatabase;
class QTextCodec;

// The steps every import shares: a free card name in the documents folder ("_Copy_N" on
// a clash), the description and icon, the card built under a temporary name, the schema
// stored again with the types settled while reading, the rename after a good save, and
// the card-list entry. An import that does not reach finish() leaves no file behind.
//
//   CardImportTarget target(list, codec);
//   if (!target.begin(sourcePath, reader.databaseName(), description)) ... errorString()
//   target.card()->setFields(fields, true); ... target.card()->add(record) ...
//   if (!target.finish(settledFields)) ... errorString(); else target.path()
class CardImportTarget
{
    Q_DECLARE_TR_FUNCTIONS(CardImportTarget)

public:
    // A null codec is the local 8-bit conversion.
    CardImportTarget(DBManager *list, QTextCodec *codec);
    ~CardImportTarget();
    CardImportTarget(const CardImportTarget &) = delete;
    CardImportTarget &operator=(const CardImportTarget &) = delete;

    QTextCodec *codec() const { return m_codec; }
    QString decode(const QByteArray &bytes) const;

    // The folder the card goes to; the documents folder unless set before begin().
    void setFolder(const QString &folder) { m_folder = folder; }
    // The name is the database name through the codec, or the source file's base name.
    bool begin(
        const QString &sourcePath, const QByteArray &databaseName, const QString &description);
    DataManager *card() const { return m_card.get(); }
    // Installs the first schema so that records can be added; calculated fields are ordered.
    void installFields(const QList<FieldDef> &fields);
    // Stores the schema again (the importer's list with its settled types), saves, renames
    // the card into place and lists it.
    bool finish(const QList<FieldDef> &fields);

    // Sets the values of one record from the values of its row.
    using RowFill = std::function<void(DataRecord *record, const QByteArrayList &values)>;
    // The whole pass of an import from a database already read: begin(), the fields, one
    // record a row filled by fill, and finish() with the types settled after all rows.
    bool importRows(const QString &sourcePath, const PalmDatabase &database,
        const QString &description, const QList<FieldDef> &fields, const RowFill &fill,
        const std::function<QList<FieldDef>()> &settled);
    // The records the last importRows() added.
    int rowsAdded() const { return m_rowsAdded; }

    QString path() const { return m_path; }
    QString errorString() const { return m_errorString; }

    // The free "<folder>/<name>.card", or "<name>_Copy_N.card" with N from 1.
    static QString freePath(const QString &folder, const QString &name);

private:
    void discard();
    bool fail(const QString &message);

    DBManager *m_list;
    QTextCodec *m_codec;
    std::unique_ptr<DataManager> m_card;
    QString m_folder;
    QString m_path;
    QString m_temporaryPath;
    QString m_errorString;
    int m_rowsAdded = 0;
};

#endif
