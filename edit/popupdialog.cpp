#include "edit/popupdialog.h"

#include "app/resourceicons.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

PopupDialog::PopupDialog(QWidget *parent)
    : QDialog(parent, Qt::Popup)
    , m_content(new QVBoxLayout)
    , m_buttons(new QHBoxLayout)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addLayout(m_content, 1);
    layout->addLayout(m_buttons);
}

QPushButton *PopupDialog::addButton(const QString &text, const QString &icon)
{
    auto *button = new QPushButton(loadIconSet(icon), text, this);
    const int number = int(m_buttonList.size()) + 1;
    button->setObjectName(QStringLiteral("button%1").arg(number));
    // Return belongs to the content (a list takes its item with it), never to a button.
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, number] { done(number); });
    m_buttonList.append(button);
    m_buttons->addWidget(button);
    return button;
}

QPoint PopupDialog::keptInside(const QPoint &pos, const QSize &size, const QRect &area)
{
    const int x = qMax(area.left(), qMin(pos.x(), area.right() + 1 - size.width()));
    const int y = qMax(area.top(), qMin(pos.y(), area.bottom() + 1 - size.height()));
    return QPoint(x, y);
}

int PopupDialog::execAt(const QPoint &pos)
{
    adjustSize();
    const QScreen *screen = QGuiApplication::screenAt(pos);
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    move(screen ? keptInside(pos, size(), screen->availableGeometry()) : pos);
    return exec();
}

int PopupDialog::execOver(const QRect &area)
{
    setGeometry(area);
    return exec();
}
