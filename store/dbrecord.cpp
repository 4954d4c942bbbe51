#include "store/dbrecord.h"

#include "store/mrlpim.h"

#include <QFileInfo>
#include <QTextStream>

DBRecord::DBRecord(PIMManager *manager)
    : PIMRecord(manager)
    , m_icon(defaultIcon())
{
}

DBRecord::DBRecord(const DBRecord &other) = default;

DBRecord::~DBRecord() = default;

QString DBRecord::folder() const
{
    return m_path.isEmpty() ? QString() : QFileInfo(m_path).absolutePath();
}

void DBRecord::readField(const QString &key, const QStringList &tokens, QTextStream &)
{
    QStringList rest = tokens;
    if (key == QLatin1String("T"))
        m_title = MRLPIM::unescape(rest);
    else if (key == QLatin1String("I"))
        m_icon = MRLPIM::unescape(rest);
    else if (key == QLatin1String("D"))
        m_description = MRLPIM::unescape(rest);
    else if (key == QLatin1String("X"))
        m_password = MRLPIM::unescape(rest);
    else if (key == QLatin1String("P"))
        m_path = MRLPIM::unescape(rest);
}

void DBRecord::write(QTextStream &stream) const
{
    stream << "T=" << MRLPIM::escape(m_title) << '\n';
    stream << "I=" << MRLPIM::escape(m_icon) << '\n';
    if (!m_description.isEmpty())
        stream << "D=" << MRLPIM::escape(m_description) << '\n';
    if (!m_password.isEmpty())
        stream << "X=" << MRLPIM::escape(m_password) << '\n';
    stream << "P=" << MRLPIM::escape(m_path) << '\n';
    PIMRecord::write(stream);
}
