#include "views/reportscrollview.h"

#include "views/reportview.h"

#include <QScrollBar>

ReportScrollView::ReportScrollView(QWidget *parent)
    : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(false);
    m_view = new ReportView(this);
    setWidget(m_view);
}

void ReportScrollView::resizeEvent(QResizeEvent *event)
{
    QScrollArea::resizeEvent(event);
    m_view->setFixedWidth(width() - verticalScrollBar()->sizeHint().width());
    m_view->layout();
}
