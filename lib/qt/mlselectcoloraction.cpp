#include "lib/qt/mlselectcoloraction.h"

#include "lib/qt/mlcolorpanel.h"

#include <QWidget>

namespace
{
constexpr int iconSize = 16;
} // namespace

MLSelectColorAction::MLSelectColorAction(int kind, const QColor &color, QObject *parent)
    : QAction(parent)
    , m_kind(kind)
{
    setColor(color);
    connect(this, &QAction::triggered, this, &MLSelectColorAction::showPanel);
}

void MLSelectColorAction::setColor(const QColor &color)
{
    // Only the kind with an off state can lose its colour.
    if (!color.isValid() && m_kind != MLColorPanel::OptionalColors)
        return;
    m_color = color;
    setIcon(MLColorPanel::swatch(color, iconSize));
    setToolTip(color.isValid() ? color.name() : tr("No Color"));
}

MLColorPanel *MLSelectColorAction::popup(QWidget *widget)
{
    auto *panel = new MLColorPanel(m_kind, m_color, widget);
    connect(panel, &MLColorPanel::activated, this, &MLSelectColorAction::choose);
    panel->adjustSize();
    panel->move(widget ? widget->mapToGlobal(QPoint(0, widget->height())) : QPoint());
    panel->show();
    return panel;
}

void MLSelectColorAction::showPanel()
{
    for (QObject *object : associatedObjects()) {
        auto *widget = qobject_cast<QWidget *>(object);
        if (widget && widget->isVisible()) {
            popup(widget);
            return;
        }
    }
}

void MLSelectColorAction::choose(const QColor &color)
{
    setColor(color);
    emit activated(m_color);
}
