#ifndef JFILEREADER_H
#define JFILEREADER_H

#include "exchange/palmdatabase.h"

#include <QByteArrayList>
#include <QList>

// A JFile 5.x database (type "JfD5", creator "JFi5"). The schema stands in the 1702-byte
// application info block and the extension list behind it; every record is one row.
class JFileReader : public PalmDatabase
{
    Q_DECLARE_TR_FUNCTIONS(JFileReader)

public:
    static constexpr int infoBlockSize = 1702;
    static constexpr int maxFields = 50;

    struct Field {
        QByteArray name;
        QByteArray defaultValue;
        int type = 0;
        QByteArray extra; // popup choices or the constant of a calculated field
        qint32 fieldOption = 0;
        qint32 fieldValue = 0;
        int width = 0;
    };

    bool read(QIODevice *device);

    int fieldCount() const { return int(m_fields.size()); }
    int rowCount() const override { return int(records().size()); }
    const QList<Field> &fields() const { return m_fields; }
    // The values of a row in field order; empty for an index out of range or a record too
    // short to hold any value.
    QByteArrayList row(int index) const override;

private:
    bool readInfoBlock();
    void readExtensionList();
    int keyedField(const QByteArray &entry) const;
    void applyKey(int key, int field, const QByteArrayList &values);

    QList<Field> m_fields;
};

#endif
