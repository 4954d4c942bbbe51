#include "exchange/datarecord2.h"

#include "store/mrlpim.h"

void DataRecord2::readField(const QString &key, const QStringList &tokens, QTextStream &stream)
{
    QStringList rest = tokens;
    if (key == QLatin1String("M")) {
        m_memo = MRLPIM::unescape(rest);
    } else if (key == QLatin1String("IMG")) {
        m_image = MRLPIM::unescape(rest);
    } else if (key == QLatin1String("R")) {
        m_reminder = std::make_unique<Reminder>();
        m_reminder->read(stream);
    }
}
