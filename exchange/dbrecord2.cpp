#include "exchange/dbrecord2.h"

#include "store/mrlpim.h"

QList<FieldDef> DBRecord2::fields() const
{
    QList<FieldDef> list;
    for (int i = 0; !property(QStringLiteral("v%1").arg(i)).isEmpty(); ++i) {
        FieldDef field;
        field.title = property(QStringLiteral("t%1").arg(i));
        field.label = property(QStringLiteral("c%1").arg(i));
        field.formula = property(QStringLiteral("f%1").arg(i));
        field.defaultValue = property(QStringLiteral("d%1").arg(i));
        bool ok = false;
        const int type = property(QStringLiteral("v%1").arg(i)).toInt(&ok);
        field.type = ok && type >= 0 && type < FieldDef::TypeCount ? type : FieldDef::String;
        list.append(field);
    }
    return list;
}

void DBRecord2::readField(const QString &key, const QStringList &tokens, QTextStream &)
{
    QStringList rest = tokens;
    const QString value = MRLPIM::unescape(rest);
    if (key == QLatin1String("TITLE"))
        m_title = value;
    else if (key == QLatin1String("ICON"))
        m_icon = value;
    else if (key == QLatin1String("DESC"))
        m_description = value;
    else if (key == QLatin1String("PWD"))
        m_password = value.startsWith(QLatin1String("$1$")) ? QString() : value;
    else if (key == QLatin1String("PATH"))
        m_path = value;
}
