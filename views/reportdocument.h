#ifndef REPORTDOCUMENT_H
#define REPORTDOCUMENT_H

#include "card/fielddef.h"
#include "views/reportsettings.h"

#include <QCoreApplication>
#include <QFont>
#include <QList>
#include <QString>

class DataRecord;
class QPagedPaintDevice;

// A record's report page on paper: laid out at the width and resolution of a paged device
// (a printer or a PDF file), broken into pages between rows. A row taller than a page is
// scaled down to fit one.
class ReportDocument
{
    Q_DECLARE_TR_FUNCTIONS(ReportDocument)

public:
    // The resolution a PDF is written at: that of the screen, so the page looks the same.
    static constexpr int pdfResolution = 96;

    ReportDocument(const DataRecord *record, const QList<FieldDef> &fields,
        const ReportSettings &settings, const QFont &font);

    // Paints every page on device; false when the device cannot be painted on.
    bool print(QPagedPaintDevice *device) const;
    // An A4 PDF at path. The file appears only when whole; on failure errorString() says why.
    bool writePdf(const QString &path);

    QString errorString() const { return m_error; }

private:
    const DataRecord *m_record;
    QList<FieldDef> m_fields;
    ReportSettings m_settings;
    QFont m_font;
    QString m_error;
};

#endif
