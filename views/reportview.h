#ifndef REPORTVIEW_H
#define REPORTVIEW_H

#include "card/fielddef.h"
#include "views/reportpage.h"

#include <QList>
#include <QPixmap>
#include <QWidget>

class DataRecord;
class ReportScrollView;

// One record as a report page. The page is laid out and painted once into a pixmap, so
// that painting the widget is a single copy and scrolling costs nothing.
class ReportView : public QWidget
{
    Q_OBJECT

public:
    // A page is cut off at this many pixels rather than making a pixmap too large to hold.
    static constexpr qint64 maxPagePixels = 16 * 1024 * 1024;
    static constexpr int maxPageHeight = 32767;

    explicit ReportView(ReportScrollView *view);

    // Shows record (not owned) with the fields of its card.
    void setRecord(DataRecord *record);
    DataRecord *record() const { return m_record; }
    // Takes the stored colours and alignments; the page follows at the next layout().
    void readSettings();
    // Lays the page out at the widget's width and paints it.
    void layout();

    QString valueText(int index) const;
    const ReportPage &page() const { return m_page; }
    const QPixmap &pagePixmap() const { return m_pixmap; }
    QList<FieldDef> fields() const { return m_fields; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    int pageHeight() const;

    DataRecord *m_record = nullptr;
    ReportScrollView *m_view;
    ReportPage m_page;
    QPixmap m_pixmap;
    QList<FieldDef> m_fields;
};

#endif
