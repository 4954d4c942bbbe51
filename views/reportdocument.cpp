#include "views/reportdocument.h"

#include "views/reportpage.h"

#include <QDir>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

#include <cmath>

namespace
{
constexpr int margin = 6;
// The paper's own margin around the page, in millimetres.
constexpr qreal pdfMargin = 12;

// Paints the rows of a page after page, starting a page when the next row would run past
// the bottom margin.
class PagePainter
{
public:
    PagePainter(const ReportPage &page, QPagedPaintDevice *device, QPainter &painter)
        : m_page(page)
        , m_device(device)
        , m_painter(painter)
        , m_bottom(device->height() - margin)
    {
    }

    void paint()
    {
        m_page.paintBackground(m_painter, m_device->height());
        for (int i = 0; i < m_page.rows().size(); ++i)
            paintRow(i);
    }

private:
    void paintRow(int i)
    {
        const int needed = m_page.paintedHeight(i);
        const qreal room = m_bottom - margin;
        const qreal scale = needed > room ? room / needed : 1.0;
        const int height = int(std::ceil(needed * scale));
        if (m_y + height > m_bottom && m_y > margin)
            nextPage();
        m_painter.save();
        m_painter.translate(0, m_y);
        m_painter.scale(scale, scale);
        // The separator goes row by row, so that it stays beside a row scaled down.
        m_page.paintSeparator(m_painter, 0, needed);
        m_page.paintRow(m_painter, i, 0);
        m_painter.restore();
        m_y += height;
    }

    void nextPage()
    {
        m_device->newPage();
        m_page.paintBackground(m_painter, m_device->height());
        m_y = margin;
    }

    const ReportPage &m_page;
    QPagedPaintDevice *m_device;
    QPainter &m_painter;
    const int m_bottom;
    int m_y = margin;
};
} // namespace

ReportDocument::ReportDocument(const DataRecord *record, const QList<FieldDef> &fields,
    const ReportSettings &settings, const QFont &font)
    : m_record(record)
    , m_fields(fields)
    , m_settings(settings)
    , m_font(font)
{
}

bool ReportDocument::print(QPagedPaintDevice *device) const
{
    ReportPage page;
    page.setSettings(m_settings);
    page.layout(m_record, m_fields, device->width(), m_font, device);
    QPainter painter;
    if (!painter.begin(device))
        return false;
    PagePainter(page, device, painter).paint();
    return painter.end();
}

bool ReportDocument::writePdf(const QString &path)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        m_error = tr("Cannot write %1: %2").arg(QDir::toNativeSeparators(path), file.errorString());
        return false;
    }
    QPdfWriter writer(&file);
    writer.setResolution(pdfResolution);
    writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
        QMarginsF(pdfMargin, pdfMargin, pdfMargin, pdfMargin), QPageLayout::Millimeter));
    writer.setCreator(QCoreApplication::applicationName());
    writer.setTitle(tr("Report View"));
    if (!print(&writer)) {
        file.cancelWriting();
        m_error = tr("Cannot write %1.").arg(QDir::toNativeSeparators(path));
        return false;
    }
    if (!file.commit()) {
        m_error = tr("Cannot write %1: %2").arg(QDir::toNativeSeparators(path), file.errorString());
        return false;
    }
    return true;
}
