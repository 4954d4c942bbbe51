#ifndef MOBILEDBIMPORTER_H
#define MOBILEDBIMPORTER_H

#include "card/fielddef.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QList>
#include <QString>

class CardImportTarget;
class DataRecord;
class MobileDBReader;

// Makes a card of a MobileDB file: the field table becomes the schema, every data row a
// record. Integer and String are settled only after all rows: a decimal point keeps an
// "I" field Double, a line feed keeps a default field Text.
class MobileDBImporter
{
    Q_DECLARE_TR_FUNCTIONS(MobileDBImporter)

public:
    explicit MobileDBImporter(CardImportTarget *target);

    bool import(const QString &path);
    int count() const { return m_count; }
    QString errorString() const { return m_errorString; }

    static QString wrongFormatMessage();

private:
    enum Candidate { NoCandidate, IntegerCandidate, StringCandidate };

    // The field a type string and label make, before settling.
    FieldDef field(const QByteArray &type, const QByteArray &label, int width) const;

    void makeFields(const MobileDBReader &reader);
    void setValue(DataRecord *record, int i, const QByteArray &text);
    QList<FieldDef> settledFields() const;

    CardImportTarget *m_target;
    QList<FieldDef> m_fields;
    QList<Candidate> m_candidates;
    int m_count = 0;
    QString m_errorString;
};

#endif
