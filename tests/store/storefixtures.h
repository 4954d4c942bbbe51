#ifndef STOREFIXTURES_H
#define STOREFIXTURES_H

#include "store/binaryformat.h"
#include "store/mrlpim.h"
#include "store/pimmanager.h"
#include "store/pimrecord.h"

#include <QDataStream>
#include <QFile>
#include <QTextStream>

// A record with keys of its own, written ahead of the base lines the way a card list entry
// does it: title, icon, description (escaped) and path.
class KeyedRecord : public PIMRecord
{
public:
    using PIMRecord::PIMRecord;
    using PIMRecord::read;
    using PIMRecord::write;

    QString titleText, icon, description, path;

    QString title() const override { return titleText; }

    void readField(const QString &key, const QStringList &tokens, QTextStream &) override
    {
        QStringList rest = tokens;
        const QString value = MRLPIM::unescape(rest);
        if (key == QLatin1String("T"))
            titleText = value;
        else if (key == QLatin1String("I"))
            icon = value;
        else if (key == QLatin1String("D"))
            description = value;
        else if (key == QLatin1String("P"))
            path = value;
        else
            unknownKeys.append(key);
    }

    void write(QTextStream &stream) const override
    {
        stream << "T=" << MRLPIM::escape(titleText) << '\n';
        stream << "I=" << MRLPIM::escape(icon) << '\n';
        stream << "D=" << MRLPIM::escape(description) << '\n';
        stream << "P=" << MRLPIM::escape(path) << '\n';
        PIMRecord::write(stream);
    }

    QStringList unknownKeys;
};

// A manager whose records sort by their properties "k0" (column 0) or "k0" and "k1", whose filter
// hides records with the property "hidden", and which adds one string of its own to the binary
// header. It counts its loads.
class KeyedManager : public PIMManager
{
public:
    KeyedManager(const QString &fileName, int format = TextFormat, bool headerOnly = false)
        : PIMManager(QStringLiteral("store"), fileName, false, headerOnly)
    {
        setFormat(format);
    }
    ~KeyedManager() override { save(); }

    QString extra = QStringLiteral("extra");
    int afterLoadCalls = 0;

    PIMRecord *createRecord() override { return new KeyedRecord(this); }

    KeyedRecord *addKeyed(const QString &k0, const QString &k1 = QString())
    {
        auto *record = new KeyedRecord(this);
        record->setProperty(QStringLiteral("k0"), k0);
        if (!k1.isNull())
            record->setProperty(QStringLiteral("k1"), k1);
        add(record);
        return record;
    }

    QStringList viewKeys() const
    {
        QStringList keys;
        for (const PIMRecord *record : view())
            keys.append(record->property(QStringLiteral("k0")));
        return keys;
    }

protected:
    bool accept(PIMRecord *record) override
    {
        return !record->hasProperty(QStringLiteral("hidden"));
    }
    void makeSortKeys(PIMRecord *record) override
    {
        QStringList keys;
        // A damaged file may name any column; two keys are all there are.
        for (int i = 0; i <= qMin(sortColumn(), 1); ++i)
            keys.append(record->property(QStringLiteral("k%1").arg(i)));
        record->setSortKeys(keys);
    }
    void prepareSort() override
    {
        for (PIMRecord *record : view())
            makeSortKeys(record);
    }
    void afterLoad() override { ++afterLoadCalls; }
    void writeHeader(QDataStream &stream) const override
    {
        PIMManager::writeHeader(stream);
        stream << extra;
    }
    void readHeader(QDataStream &stream) override
    {
        PIMManager::readHeader(stream);
        stream >> extra;
    }
    using PIMManager::readHeader;
    using PIMManager::writeHeader;
};

inline QByteArray fileBytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline void writeBytes(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(bytes);
}

#endif
