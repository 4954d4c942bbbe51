#include "app/cardpixmap.h"

#include "app/resourceicons.h"
#include "store/dbmanager.h"
#include "store/dbrecord.h"

#include <QIcon>
#include <QPainter>

QPixmap cardPixmap(const DBManager *manager, const DBRecord *record)
{
    QPixmap pixmap = loadPixmap(DBManager::iconPrefix() + record->icon());
    if (pixmap.isNull())
        return pixmap;
    if (!record->password().isEmpty()) {
        QPainter painter(&pixmap);
        painter.drawPixmap(0, 0, loadPixmap(QStringLiteral("lockoverlay")));
    }
    if (!manager->isAvailable(record))
        return QIcon(pixmap).pixmap(pixmap.size(), QIcon::Disabled);
    return pixmap;
}
