#ifndef MOBILEDBREADER_H
#define MOBILEDBREADER_H

#include "exchange/palmdatabase.h"

#include <QByteArrayList>
#include <QList>

// A MobileDB database (type and creator "Mdb1"). Each record belongs to the category in
// the low bits of its attributes: 1 holds the field labels, 5 the type strings, 6 the
// widths, and 2 and 3 one data row each.
class MobileDBReader : public PalmDatabase
{
    Q_DECLARE_TR_FUNCTIONS(MobileDBReader)

public:
    enum Category {
        LabelsCategory = 1,
        DataCategory = 2,
        MoreDataCategory = 3,
        TypesCategory = 5,
        WidthsCategory = 6
    };

    bool read(QIODevice *device);

    int fieldCount() const { return int(m_titles.size()); }
    int rowCount() const override { return int(m_rows.size()); }
    const QByteArrayList &titles() const { return m_titles; }
    const QByteArrayList &types() const { return m_types; }
    const QList<int> &widths() const { return m_widths; }
    // The values of a row; empty for an index out of range or a damaged record. A row may
    // be shorter than the field list.
    QByteArrayList row(int index) const override;

private:
    // The entries of one record behind its fixed bytes, at most limit of them; numbers
    // gets each entry's field-number byte. False when the fixed bytes are wrong.
    static bool walk(
        const QByteArray &record, int limit, QByteArrayList *values, QList<int> *numbers = nullptr);
    int firstOfCategory(int category) const;
    bool readLabels();
    bool readTypes();
    bool readWidths();

    QByteArrayList m_titles;
    QByteArrayList m_types;
    QList<int> m_widths;
    QList<int> m_rows; // record index of each row
};

#endif
