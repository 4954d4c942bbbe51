#ifndef JSONWRITER_H
#define JSONWRITER_H

#include <QByteArray>
#include <QList>
#include <QString>

// Writes one JSON document with keys in the order they are given (Qt's JSON classes
// sort keys, and the CLI's output order is part of its contract). Indented by two blanks.
class JsonWriter
{
public:
    void beginObject();
    void endObject();
    void beginArray();
    void endArray();
    // The key of the next value inside an object.
    void key(const QString &name);

    void nullValue();
    void value(bool b);
    void value(int n);
    // Finite numbers in the shortest form that reads back to the same double;
    // the others as the strings "nan", "inf", "-inf".
    void value(double d);
    void value(const QString &text);
    // A string value, or null for the null string.
    void stringOrNull(const QString &text);

    QByteArray result() const { return m_out + '\n'; }

    static QString numberText(double d);

private:
    void beforeValue();
    void newline();
    void raw(const QByteArray &text) { m_out += text; }
    static QByteArray quoted(const QString &text);

    struct Level
    {
        bool isObject;
        int count;
    };
    QByteArray m_out;
    QList<Level> m_levels;
    bool m_afterKey = false;
};

#endif
