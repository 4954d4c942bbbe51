#include "views/colorswidget.h"

#include "lib/qt/mlcolorpanel.h"
#include "lib/qt/mlselectcoloraction.h"
#include "lib/qt/mrllistview.h"
#include "lib/qt/mrllistviewitem.h"

#include <QGridLayout>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

ColorsWidget::ColorsWidget(QWidget *parent)
    : QWidget(parent)
    , m_preview(new MRLListView(this, QStringLiteral("main")))
{
    fillPreview();
    auto *grid = new QGridLayout;
    addColorRow(grid, 0, tr("Odd Line:"), 0);
    addColorRow(grid, 1, tr("Even Line:"), 2);
    grid->setColumnStretch(3, 1);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_preview, 1);
    layout->addLayout(grid);
}

void ColorsWidget::fillPreview()
{
    m_preview->setColorMode(MRLListView::AlternateColors);
    m_preview->addColumn(tr("No"), 50);
    m_preview->addColumn(tr("Title"), 113);
    m_preview->addColumn(tr("Length"), 113);
    const int price = m_preview->addColumn(tr("Price"), 50);
    m_preview->setColumnAlignment(price, Qt::AlignRight);
    const char *const rows[][4] = { { "1", "Field of Names", "4min, 52sec", "1.24$" },
        { "2", "Premortal Dance", "5min, 13sec", "1.24$" },
        { "3", "Wasteland", "5min, 26sec", "1.24$" },
        { "4", "Just Another Tragic Song", "6min, 17sec", "1.24$" } };
    MRLListViewItem *after = nullptr;
    for (const auto &row : rows) {
        after = new MRLListViewItem(m_preview, after);
        for (int column = 0; column < 4; ++column)
            after->setText(column, QString::fromUtf8(row[column]));
    }
}

// A label, then the text colour and the line colour of that line.
void ColorsWidget::addColorRow(QGridLayout *grid, int row, const QString &label, int first)
{
    grid->addWidget(new QLabel(label, this), row, 0);
    for (int i = first; i < first + 2; ++i) {
        const bool text = i % 2 == 0;
        const int kind = text ? MLColorPanel::OptionalColors : MLColorPanel::BackgroundColors;
        m_actions[i] = new MLSelectColorAction(kind, m_preview->rowColor(i), this);
        auto *button = new QToolButton(this);
        button->setObjectName(QStringLiteral("b%1").arg(i + 1));
        button->setDefaultAction(m_actions[i]);
        connect(m_actions[i], &MLSelectColorAction::activated, this, &ColorsWidget::colorChanged);
        grid->addWidget(button, row, 1 + i - first);
    }
}

void ColorsWidget::colorChanged()
{
    m_preview->setRowColors(
        m_actions[0]->color(), m_actions[1]->color(), m_actions[2]->color(), m_actions[3]->color());
}
