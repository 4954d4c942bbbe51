#include "views/reportview.h"

#include "card/datamanager.h"
#include "card/datarecord.h"
#include "views/reportscrollview.h"

#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace
{
void setBackground(QWidget *widget, const QColor &color)
{
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Window, color);
    widget->setPalette(palette);
    widget->setAutoFillBackground(true);
}
} // namespace

ReportView::ReportView(ReportScrollView *view)
    : QWidget(view)
    , m_view(view)
    , m_pixmap(1, 1)
{
    setObjectName(QStringLiteral("reportView"));
    readSettings();
}

void ReportView::setRecord(DataRecord *record)
{
    m_record = record;
    const auto *manager = record ? static_cast<const DataManager *>(record->manager()) : nullptr;
    m_fields = manager ? manager->fieldList() : QList<FieldDef>();
    layout();
    update();
}

void ReportView::readSettings()
{
    m_page.setSettings(ReportSettings::read());
    setBackground(this, m_page.settings().background);
    setBackground(m_view->viewport(), m_page.settings().background);
}

QString ReportView::valueText(int index) const
{
    if (!m_record || index < 0 || index >= m_fields.size())
        return QString();
    return ReportPage::valueText(*m_record, index, m_fields.at(index));
}

int ReportView::pageHeight() const
{
    const qint64 fits = maxPagePixels / std::max(1, width());
    return int(std::min<qint64>({ m_page.height(), fits, maxPageHeight }));
}

void ReportView::layout()
{
    const int w = std::max(1, width());
    m_page.layout(m_record, m_fields, w, font(), this);
    m_pixmap = QPixmap(m_record ? w : 1, m_record ? std::max(1, pageHeight()) : 1);
    m_pixmap.fill(m_page.settings().background);
    if (m_record) {
        QPainter painter(&m_pixmap);
        m_page.paint(painter);
    }
    setFixedSize(w, m_pixmap.height());
    update();
}

void ReportView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_pixmap);
}
