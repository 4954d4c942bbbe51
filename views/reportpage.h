#ifndef REPORTPAGE_H
#define REPORTPAGE_H

#include "views/reportsettings.h"

#include <QCoreApplication>
#include <QFont>
#include <QImage>
#include <QList>
#include <QString>

class DataRecord;
class FieldDef;
class QPaintDevice;
class QPainter;

// One record laid out as a page of rows: each field's label on the left, its value (text
// or the record's picture) on the right, lines between the rows and a separator between
// the columns. It measures and paints on any paint device, so the screen, the printer,
// the PDF file and the command line all show the same page.
class ReportPage
{
    Q_DECLARE_TR_FUNCTIONS(ReportPage)

public:
    // A picture is never read with more pixels than this, whatever its file claims.
    static constexpr qint64 maxImagePixels = 4 * 1024 * 1024;

    struct Row {
        QString label;
        QString value;
        bool isImage = false;
        QImage picture; // null unless the record's picture loaded
        int labelHeight = 0; // in the label column
        int valueHeight = 0; // in the value column
        int height = 0; // kept from the measuring passes, gap included
    };

    // The text a field of the record shows on the page.
    static QString valueText(const DataRecord &record, int field, const FieldDef &def);
    static QString labelText(const FieldDef &def);
    // The picture at path, read scaled to at most width pixels across and under
    // maxImagePixels; null when it is missing or cannot be decoded.
    static QImage readImage(const QString &path, int width);

    void setSettings(const ReportSettings &settings) { m_settings = settings; }
    const ReportSettings &settings() const { return m_settings; }

    // Lays the record out at width, measuring text with font on device. Without a record
    // the page is empty and one pixel high.
    void layout(const DataRecord *record, const QList<FieldDef> &fields, int width,
        const QFont &font, QPaintDevice *device);

    int width() const { return m_width; }
    int height() const { return m_total; }
    int labelColumn() const { return m_labelCol; }
    int valueColumn() const { return m_valueCol; }
    int valueX() const { return m_valueX; }
    int gap() const { return m_gap; }
    const QList<Row> &rows() const { return m_rows; }
    // The height row i takes when painted, gap included.
    int paintedHeight(int i) const;

    // The whole page from the top left corner of the painter.
    void paint(QPainter &painter) const;
    // Background of the area; the separator from top to bottom.
    void paintBackground(QPainter &painter, int height) const;
    void paintSeparator(QPainter &painter, int top, int bottom) const;
    // Row i with its top at y; returns the height it took, gap included.
    int paintRow(QPainter &painter, int i, int y) const;

private:
    int textHeight(const QString &text, int width, int align) const;
    QRect textBox(const QString &text, int width, int align) const;
    void measureLabels(const QList<FieldDef> &fields);
    void measureValues(const DataRecord &record, const QList<FieldDef> &fields);
    void placeColumns();
    void placeImages(const DataRecord &record);
    void fitLabels();
    void measurePaintedValues();

    ReportSettings m_settings;
    QFont m_font;
    QPaintDevice *m_device = nullptr;
    QList<Row> m_rows;
    int m_width = 0;
    int m_line = 0;
    int m_gap = 0;
    int m_labelWidth = 0;
    int m_maxValue = 0;
    int m_total = 1;
    int m_labelCol = 0;
    int m_valueCol = 0;
    int m_valueX = 0;
};

#endif
