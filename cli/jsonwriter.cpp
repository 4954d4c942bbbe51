#include "cli/jsonwriter.h"

#include <QLocale>

#include <cmath>

void JsonWriter::newline()
{
    m_out += '\n';
    m_out += QByteArray(2 * m_levels.size(), ' ');
}

void JsonWriter::beforeValue()
{
    if (m_afterKey) {
        m_afterKey = false;
        return;
    }
    if (m_levels.isEmpty())
        return;
    if (m_levels.last().count++ > 0)
        m_out += ',';
    newline();
}

void JsonWriter::beginObject()
{
    beforeValue();
    m_out += '{';
    m_levels.append({true, 0});
}

void JsonWriter::endObject()
{
    const bool empty = m_levels.takeLast().count == 0;
    if (!empty)
        newline();
    m_out += '}';
}

void JsonWriter::beginArray()
{
    beforeValue();
    m_out += '[';
    m_levels.append({false, 0});
}

void JsonWriter::endArray()
{
    const bool empty = m_levels.takeLast().count == 0;
    if (!empty)
        newline();
    m_out += ']';
}

void JsonWriter::key(const QString &name)
{
    if (m_levels.last().count++ > 0)
        m_out += ',';
    newline();
    m_out += quoted(name) + ": ";
    m_afterKey = true;
}

void JsonWriter::nullValue()
{
    beforeValue();
    m_out += "null";
}

void JsonWriter::value(bool b)
{
    beforeValue();
    m_out += b ? "true" : "false";
}

void JsonWriter::value(int n)
{
    beforeValue();
    m_out += QByteArray::number(n);
}

QString JsonWriter::numberText(double d)
{
    if (std::isnan(d))
        return QStringLiteral("nan");
    if (std::isinf(d))
        return d > 0 ? QStringLiteral("inf") : QStringLiteral("-inf");
    if (d == 0 && std::signbit(d))
        return QStringLiteral("-0");   // QString::number drops the sign of zero
    return QString::number(d, 'g', QLocale::FloatingPointShortest);
}

void JsonWriter::value(double d)
{
    if (!std::isfinite(d)) {
        value(numberText(d));
        return;
    }
    beforeValue();
    m_out += numberText(d).toLatin1();
}

void JsonWriter::value(const QString &text)
{
    beforeValue();
    m_out += quoted(text);
}

void JsonWriter::stringOrNull(const QString &text)
{
    if (text.isNull())
        nullValue();
    else
        value(text);
}

QByteArray JsonWriter::quoted(const QString &text)
{
    // Escaped as text first and encoded once, so surrogate pairs stay whole.
    QString escaped;
    escaped.reserve(text.size() + 2);
    for (const QChar c : text) {
        switch (c.unicode()) {
        case '"': escaped += QLatin1String("\\\""); break;
        case '\\': escaped += QLatin1String("\\\\"); break;
        case '\n': escaped += QLatin1String("\\n"); break;
        case '\r': escaped += QLatin1String("\\r"); break;
        case '\t': escaped += QLatin1String("\\t"); break;
        case '\b': escaped += QLatin1String("\\b"); break;
        case '\f': escaped += QLatin1String("\\f"); break;
        default:
            if (c.unicode() < 0x20)
                escaped += QStringLiteral("\\u%1").arg(int(c.unicode()), 4, 16, QLatin1Char('0'));
            else
                escaped += c;
        }
    }
    return '"' + escaped.toUtf8() + '"';
}
