#include "lib/qt/mltoolbutton.h"

#include "app/resourceicons.h"

#include <QPushButton>

QPushButton *MLToolButton::create(QWidget *parent, const char *name, const QString &icon)
{
    auto *button = new QPushButton(loadIconSet(icon), QString(), parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false);
    return button;
}
