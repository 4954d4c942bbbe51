#include "lib/qt/mrlaction.h"

MRLAction::MRLAction(const QString &name, const QString &iconName, const QIcon &icon,
    const QString &text, bool toggle, QObject *parent)
    : QAction(icon, text, parent)
    , m_iconName(iconName)
{
    setObjectName(name);
    setCheckable(toggle);
}
