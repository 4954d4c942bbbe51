#include "views/reportpage.h"

#include "calc/datetimeformat.h"
#include "calc/numberformat.h"
#include "calc/systemdatetimeformat.h"
#include "card/datarecord.h"
#include "card/fielddef.h"
#include "reminders/reminder.h"
#include "views/recordcells.h"

#include <QFontMetrics>
#include <QImageReader>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace
{
// The page's margins and the room around the separator, in pixels of the device.
constexpr int margin = 6;
constexpr int columnRoom = 25;
constexpr int valueOffset = 19;
constexpr int separatorOffset = 13;
// Tall enough for any text that a value column can wrap.
constexpr int measureHeight = 1 << 24;

QString reminderText(const DataRecord &record, const QString &format)
{
    if (!record.hasReminder())
        return QString();
    const QDateTime &moment = record.reminder()->dateTime;
    return format.isEmpty() ? formatDateTimeDefault(moment) : formatDateTime(moment, format);
}

// The size a picture of size is read at: no wider than width, and under the pixel cap.
QSize readSize(const QSize &size, int width)
{
    QSizeF wanted = size;
    if (size.width() > width)
        wanted = QSizeF(width, std::trunc(qreal(size.height()) * width / size.width()));
    const qreal pixels = wanted.width() * wanted.height();
    if (pixels > ReportPage::maxImagePixels)
        wanted *= std::sqrt(ReportPage::maxImagePixels / pixels);
    return QSize(std::max(1, int(wanted.width())), std::max(1, int(wanted.height())));
}
} // namespace

QString ReportPage::valueText(const DataRecord &record, int field, const FieldDef &def)
{
    switch (def.type) {
    case FieldDef::String:
    case FieldDef::Text:
    case FieldDef::List:
    case FieldDef::MultiList:
        return record.stringValue(field);
    case FieldDef::Integer:
    case FieldDef::Double:
    case FieldDef::Count:
    case FieldDef::Increment:
        return formatNumber(record.doubleValue(field), def.format);
    case FieldDef::Date:
    case FieldDef::Time:
    case FieldDef::DateTime:
        return RecordCells::cell(record, field, def).text;
    case FieldDef::Reminder:
        return reminderText(record, def.format);
    case FieldDef::Bool:
        return record.doubleValue(field) == 0 ? tr("No") : tr("Yes");
    default:
        return QString();
    }
}

QString ReportPage::labelText(const FieldDef &def)
{
    return def.title + QLatin1Char(':');
}

QImage ReportPage::readImage(const QString &path, int width)
{
    if (path.isEmpty())
        return QImage();
    QImageReader reader(path);
    const QSize size = reader.size();
    // Without a size in its header a file cannot be read within the cap.
    if (!size.isValid() || size.isEmpty())
        return QImage();
    reader.setScaledSize(readSize(size, std::max(1, width)));
    return reader.read();
}

QRect ReportPage::textBox(const QString &text, int width, int align) const
{
    const QFontMetrics metrics(m_font, m_device);
    return metrics.boundingRect(
        QRect(0, 0, std::max(1, width), measureHeight), align | Qt::TextWordWrap, text);
}

int ReportPage::textHeight(const QString &text, int width, int align) const
{
    return std::max(textBox(text, width, align).height(), m_line);
}

void ReportPage::layout(const DataRecord *record, const QList<FieldDef> &fields, int width,
    const QFont &font, QPaintDevice *device)
{
    m_rows.clear();
    m_width = width;
    m_total = 1;
    m_font = font;
    m_device = device;
    if (!record)
        return;
    const QFontMetrics metrics(m_font, m_device);
    m_line = metrics.lineSpacing();
    m_gap = m_line / 2;
    m_total = 0;
    measureLabels(fields);
    measureValues(*record, fields);
    m_total += 2 * margin;
    placeColumns();
    placeImages(*record);
    fitLabels();
    measurePaintedValues();
}

void ReportPage::measureLabels(const QList<FieldDef> &fields)
{
    const QFontMetrics metrics(m_font, m_device);
    m_labelWidth = 0;
    for (const FieldDef &def : fields) {
        Row row;
        row.label = labelText(def);
        row.isImage = def.type == FieldDef::Image;
        m_labelWidth = std::max(m_labelWidth, metrics.horizontalAdvance(row.label));
        m_rows.append(row);
    }
}

// The first pass: each row as high as its value wrapped beside the widest label.
void ReportPage::measureValues(const DataRecord &record, const QList<FieldDef> &fields)
{
    m_maxValue = 0;
    const int room = m_width - (m_labelWidth + columnRoom);
    for (int i = 0; i < m_rows.size(); ++i) {
        Row &row = m_rows[i];
        int height = m_line;
        if (!row.isImage) {
            row.value = valueText(record, i, fields.at(i));
            const QRect box = textBox(row.value, room, m_settings.valueAlign);
            height = std::max(box.height(), m_line);
            m_maxValue = std::max(m_maxValue, box.width());
        }
        row.height = height + m_gap;
        m_total += row.height;
    }
}

// The label column takes what the widest value leaves, at least the widest label, and
// never more than a third of the page.
void ReportPage::placeColumns()
{
    m_labelCol = m_width - columnRoom - m_maxValue;
    if (m_labelCol < m_labelWidth)
        m_labelCol = m_labelWidth;
    if (m_width / 3 <= m_labelCol)
        m_labelCol = m_width / 3;
    m_valueCol = m_width - (m_labelCol + columnRoom);
    m_valueX = m_labelCol + valueOffset;
}

void ReportPage::placeImages(const DataRecord &record)
{
    const auto hasImage
        = std::any_of(m_rows.cbegin(), m_rows.cend(), [](const Row &row) { return row.isImage; });
    if (!hasImage)
        return;
    const QImage picture = readImage(record.image(), m_valueCol);
    for (Row &row : m_rows) {
        if (!row.isImage)
            continue;
        row.picture = picture;
        const int height = std::max(picture.isNull() ? 0 : picture.height(), m_line) + m_gap;
        m_total += height - row.height;
        row.height = height;
    }
}

// A label that wraps taller than its row makes the page longer; the row keeps its height.
void ReportPage::fitLabels()
{
    for (Row &row : m_rows) {
        row.labelHeight = textBox(row.label, m_labelCol, m_settings.labelAlign).height();
        const int excess = row.labelHeight + 1 + m_gap - row.height;
        if (excess > 0)
            m_total += excess;
    }
}

void ReportPage::measurePaintedValues()
{
    for (Row &row : m_rows) {
        if (row.isImage)
            row.valueHeight = std::max(row.picture.isNull() ? 0 : row.picture.height(), m_line);
        else
            row.valueHeight = textHeight(row.value, m_valueCol, m_settings.valueAlign);
    }
}

int ReportPage::paintedHeight(int i) const
{
    const Row &row = m_rows.at(i);
    return std::max(row.labelHeight, row.valueHeight) + m_gap;
}

void ReportPage::paint(QPainter &painter) const
{
    paintBackground(painter, m_total);
    if (m_rows.isEmpty())
        return;
    paintSeparator(painter, margin, m_total - margin);
    int y = margin;
    for (int i = 0; i < m_rows.size(); ++i)
        y += paintRow(painter, i, y);
}

void ReportPage::paintBackground(QPainter &painter, int height) const
{
    painter.fillRect(QRect(0, 0, m_width, height), m_settings.background);
}

void ReportPage::paintSeparator(QPainter &painter, int top, int bottom) const
{
    if (!m_settings.separatorColor.isValid())
        return;
    painter.setPen(m_settings.separatorColor);
    const int x = m_labelCol + separatorOffset;
    painter.drawLine(x, top, x, bottom);
}

int ReportPage::paintRow(QPainter &painter, int i, int y) const
{
    const Row &row = m_rows.at(i);
    painter.setFont(m_font);
    painter.setPen(m_settings.labelColor);
    painter.drawText(QRect(margin, y, m_labelCol, row.labelHeight),
        m_settings.labelAlign | Qt::TextWordWrap, row.label);
    if (row.isImage) {
        if (!row.picture.isNull())
            painter.drawImage(QPoint(m_valueX, y), row.picture);
    } else {
        painter.setPen(m_settings.valueColor);
        painter.drawText(QRect(m_valueX, y, m_valueCol, row.valueHeight),
            m_settings.valueAlign | Qt::TextWordWrap, row.value);
    }
    const int height = std::max(row.labelHeight, row.valueHeight);
    if (m_settings.lineColor.isValid()) {
        painter.setPen(m_settings.lineColor);
        const int lineY = y + height + m_gap / 2;
        painter.drawLine(margin, lineY, m_width - 12, lineY);
    }
    return height + m_gap;
}
