#ifndef PDBWRITER_H
#define PDBWRITER_H

#include <QByteArray>
#include <QByteArrayList>
#include <QList>
#include <QPair>

// Writes Palm database files for the tests: the header, the record list (with the usual
// two bytes of padding), the application info block and the records, in that order.
class PdbWriter
{
public:
    PdbWriter(const QByteArray &name, const QByteArray &type, const QByteArray &creator);

    void setAppInfo(const QByteArray &block) { m_appInfo = block; }
    void addRecord(const QByteArray &data, quint8 attributes = 0);
    QByteArray bytes() const;

    // A MobileDB record: the fixed bytes, each entry as its number byte and a NUL-ended
    // string, and the closing FF.
    static QByteArray mobileRecord(const QList<QPair<int, QByteArray>> &entries);
    // A MobileDB record of consecutive field numbers.
    static QByteArray mobileRecord(const QByteArrayList &values);

    struct JField {
        QByteArray name;
        int type = 1;
        qint32 option = 0;
        qint32 value = 0;
        int width = 80;
    };
    // The 1702-byte JFile info block with numFields as given (the field table may be
    // shorter), followed by the extension list entries and its ending empty string.
    static QByteArray jfileInfo(
        const QList<JField> &fields, const QByteArrayList &extensions, int numFields);
    static QByteArray jfileInfo(const QList<JField> &fields, const QByteArrayList &extensions = {});
    // A JFile record: two bytes a field, then the NUL-ended values.
    static QByteArray jfileRecord(const QByteArrayList &values);

private:
    QByteArray m_name;
    QByteArray m_type;
    QByteArray m_creator;
    QByteArray m_appInfo;
    QList<QPair<QByteArray, quint8>> m_records;
};

#endif
