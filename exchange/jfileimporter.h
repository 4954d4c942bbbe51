#ifndef JFILEIMPORTER_H
#define JFILEIMPORTER_H

#include "card/fielddef.h"
#include "exchange/jfilereader.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QDate>
#include <QList>
#include <QString>
#include <QTime>

class CardImportTarget;
class DataRecord;

// Makes a card of a JFile 5.x file: choices, defaults and calculated fields come along,
// the last as formulas or, if asked, as plain numbers. Fields of the types that carry no
// value of their own are left out, and formulas follow the positions that remain.
class JFileImporter
{
    Q_DECLARE_TR_FUNCTIONS(JFileImporter)

public:
    enum Calculated { ImportFormula = 0, ImportValue = 1 };

    // dateFormat is one of "M/D/Y" ... "Y-M-D": its second character is the separator.
    JFileImporter(CardImportTarget *target, const QString &dateFormat, Calculated calculated);

    bool import(const QString &path);
    int count() const { return m_count; }
    QString errorString() const { return m_errorString; }

    static QString wrongFormatMessage();
    static const QStringList &dateFormats();

    // A value of a Date field with its fieldOption, and of a Time field.
    QDate date(const QByteArray &text, qint32 fieldOption) const;
    static QTime time(const QByteArray &text);

private:
    // The map from JFile field numbers to card positions; -1 for a field left out.
    static QList<int> fieldMap(const QList<JFileReader::Field> &fields);
    FieldDef field(const JFileReader::Field &source, const QList<int> &map, int rowCount) const;
    static QString formula(const JFileReader::Field &source, const QList<int> &map);
    QString multiListValue(const QByteArray &text, qint32 fieldOption) const;
    void makeFields(const JFileReader &reader);
    void setValue(
        DataRecord *record, int position, const JFileReader::Field &source, const QByteArray &text);
    QList<FieldDef> settledFields() const;

    CardImportTarget *m_target;
    QString m_dateFormat;
    Calculated m_calculated;
    QList<int> m_map;
    QList<FieldDef> m_fields;
    QList<bool> m_stringCandidates;
    int m_count = 0;
    QString m_errorString;
};

#endif
