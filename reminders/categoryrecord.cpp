#include "reminders/categoryrecord.h"

#include "store/mrlpim.h"

#include <QPalette>
#include <QTextStream>

namespace
{
// A colour line that names no colour is damage: the colour stays as it was.
void readColor(const QStringList &tokens, QColor &color)
{
    QStringList rest = tokens;
    const QColor read(MRLPIM::unescape(rest));
    if (read.isValid())
        color = read;
}

void writeColor(QTextStream &stream, const char *key, const QColor &color)
{
    if (color.isValid())
        stream << key << MRLPIM::escape(color.name()) << '\n';
}
} // namespace

CategoryRecord::CategoryRecord(PIMManager *manager)
    : PIMRecord(manager)
    , m_textColor(defaultTextColor())
    , m_lineColor(defaultLineColor())
{
}

CategoryRecord::CategoryRecord(const CategoryRecord &other) = default;

CategoryRecord::~CategoryRecord() = default;

QColor CategoryRecord::defaultTextColor()
{
    return QPalette().color(QPalette::Text);
}

QColor CategoryRecord::defaultLineColor()
{
    return QPalette().color(QPalette::Base);
}

void CategoryRecord::readField(const QString &key, const QStringList &tokens, QTextStream &)
{
    if (key == QLatin1String("T")) {
        QStringList rest = tokens;
        m_title = MRLPIM::unescape(rest);
    } else if (key == QLatin1String("CT")) {
        readColor(tokens, m_textColor);
    } else if (key == QLatin1String("CB")) {
        readColor(tokens, m_lineColor);
    }
}

void CategoryRecord::write(QTextStream &stream) const
{
    stream << "T=" << MRLPIM::escape(m_title) << '\n';
    writeColor(stream, "CT=", m_textColor);
    writeColor(stream, "CB=", m_lineColor);
    PIMRecord::write(stream);
}
