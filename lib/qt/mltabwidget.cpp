#include "lib/qt/mltabwidget.h"

#include "app/resourceicons.h"

#include <QFontMetrics>
#include <QStyle>
#include <QStyleOptionTab>
#include <QTabBar>

MLTabWidget::MLTabWidget(QWidget *parent)
    : QTabWidget(parent)
{
    connect(this, &QTabWidget::currentChanged, this, &MLTabWidget::updateLabels);
}

int MLTabWidget::addTab(QWidget *page, const QString &iconName, const QString &label)
{
    const int index = QTabWidget::addTab(page, loadIconSet(iconName), label);
    tabBar()->setTabData(index, label);
    tabBar()->setTabToolTip(index, label);
    updateLabels();
    return index;
}

void MLTabWidget::removePage(QWidget *page)
{
    const int index = indexOf(page);
    if (index >= 0)
        removeTab(index);
    updateLabels();
}

void MLTabWidget::showPage(QWidget *page)
{
    if (indexOf(page) >= 0)
        setCurrentWidget(page);
}

QString MLTabWidget::tabLabel(int index) const
{
    const QVariant label = tabBar()->tabData(index);
    return label.isValid() ? label.toString() : tabText(index);
}

void MLTabWidget::resizeEvent(QResizeEvent *event)
{
    QTabWidget::resizeEvent(event);
    updateLabels();
}

void MLTabWidget::tabInserted(int index)
{
    QTabWidget::tabInserted(index);
    // Tabs added through the base class keep their label as it was given.
    if (!tabBar()->tabData(index).isValid())
        tabBar()->setTabData(index, tabText(index));
}

int MLTabWidget::fullWidth() const
{
    const QFontMetrics metrics = tabBar()->fontMetrics();
    const int iconWidth = iconSize().width();
    const int padding = 2 * style()->pixelMetric(QStyle::PM_TabBarTabHSpace, nullptr, tabBar());
    int width = 0;
    for (int i = 0; i < count(); ++i)
        width += metrics.horizontalAdvance(tabLabel(i)) + iconWidth + padding;
    return width;
}

void MLTabWidget::updateLabels()
{
    m_compact = fullWidth() > width();
    for (int i = 0; i < count(); ++i) {
        const bool labelled = !m_compact || i == currentIndex() || tabIcon(i).isNull();
        const QString text = labelled ? tabLabel(i) : QString();
        if (tabText(i) != text)
            setTabText(i, text);
    }
}
