#include "lib/qt/mlcolorpanel.h"

#include <QColorDialog>
#include <QGridLayout>
#include <QPainter>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace
{
constexpr int columns = 8;
constexpr int swatchSize = 16;

const char *const textColors[]
    = { "#000000", "#303030", "#606060", "#909090", "#ffffff", "#800000", "#ff0000", "#804000",
          "#808000", "#008000", "#00ff00", "#008080", "#00ffff", "#000080", "#0000ff", "#800080",
          "#ff00ff", "#336699", "#cc6600", "#996633", "#d0d0d0", "#c0c0c0", "#ffff00", "#ff8000" };
const char *const backgroundColors[]
    = { "#ffffff", "#f5f5f5", "#e5e5e5", "#d0d0d0", "#ffffcc", "#ffffe0", "#fff0e0", "#ffe4e1",
          "#ffe0f0", "#f0e0ff", "#e0e8ff", "#e0f4ff", "#e0fff8", "#e8ffe0", "#f4ffe0", "#fffacd",
          "#faebd7", "#f0fff0", "#f0f8ff", "#fdf5e6", "#336699", "#000080", "#303030", "#000000" };
} // namespace

MLColorPanel::MLColorPanel(int kind, const QColor &current, QWidget *parent)
    : QFrame(parent, Qt::Popup)
    , m_kind(kind)
    , m_current(current)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setFrameStyle(QFrame::Panel | QFrame::Raised);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(3, 3, 3, 3);
    auto *grid = new QGridLayout;
    grid->setSpacing(1);
    const QList<QColor> list = colors(kind);
    for (int i = 0; i < list.size(); ++i)
        addSwatch(grid, list.at(i), i);
    layout->addLayout(grid);
    if (kind == OptionalColors) {
        auto *none = new QPushButton(swatch(QColor(), swatchSize), tr("No Color"), this);
        none->setObjectName(QStringLiteral("noColor"));
        connect(none, &QPushButton::clicked, this, [this] { choose(QColor()); });
        layout->addWidget(none);
    }
    auto *other = new QPushButton(tr("Other") + QStringLiteral(" ..."), this);
    other->setObjectName(QStringLiteral("otherColor"));
    connect(other, &QPushButton::clicked, this, &MLColorPanel::chooseOther);
    layout->addWidget(other);
}

QList<QColor> MLColorPanel::colors(int kind)
{
    QList<QColor> list;
    if (kind == BackgroundColors) {
        for (const char *name : backgroundColors)
            list.append(QColor(QLatin1String(name)));
    } else {
        for (const char *name : textColors)
            list.append(QColor(QLatin1String(name)));
    }
    return list;
}

QPixmap MLColorPanel::swatch(const QColor &color, int size)
{
    QPixmap pixmap(size, size);
    pixmap.fill(color.isValid() ? color : QColor(Qt::white));
    QPainter painter(&pixmap);
    painter.setPen(Qt::black);
    painter.drawRect(0, 0, size - 1, size - 1);
    if (!color.isValid()) {
        painter.setPen(Qt::red);
        painter.drawLine(0, size - 1, size - 1, 0);
    }
    return pixmap;
}

QToolButton *MLColorPanel::addSwatch(QGridLayout *grid, const QColor &color, int index)
{
    auto *button = new QToolButton(this);
    button->setObjectName(QStringLiteral("color%1").arg(index));
    button->setIcon(swatch(color, swatchSize));
    button->setToolTip(color.name());
    button->setAutoRaise(true);
    button->setCheckable(true);
    button->setChecked(color == m_current);
    connect(button, &QToolButton::clicked, this, [this, color] { choose(color); });
    grid->addWidget(button, index / columns, index % columns);
    return button;
}

void MLColorPanel::choose(const QColor &color)
{
    m_current = color;
    close();
    emit activated(color);
}

// The colour dialog runs after the pop-up has gone, so that it gets the keyboard.
void MLColorPanel::chooseOther()
{
    hide();
    const QColor start = m_current.isValid() ? m_current : QColor(Qt::black);
    const QColor color = QColorDialog::getColor(start, parentWidget(), tr("Select Color"));
    if (color.isValid())
        choose(color);
    else
        close();
}
