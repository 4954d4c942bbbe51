#include "exchange/importcsvdialog3.h"

#include "app/mrldialog.h"
#include "exchange/cardimporttarget.h"
#include "exchange/csvimporter.h"
#include "exchange/passpacer.h"
#include "exchange/textlinereader.h"
#include "platform/config.h"
#include "platform/platformpaths.h"

#include <QApplication>
#include <QEvent>
#include <QFileInfo>
#include <QLabel>
#include <QProgressBar>

namespace
{
constexpr int startEvent = 1001;
} // namespace

ImportCSVDialog3::ImportCSVDialog3(
    DBManager *manager, TextLineReader *lines, const Setup &setup, QWidget *parent)
    : ImportCSVDialogBase3(parent)
    , m_manager(manager)
    , m_lines(lines)
    , m_setup(setup)
{
    text->setText(tr("Processing data ..."));
    pr->setRange(0, 100);
}

void ImportCSVDialog3::showEvent(QShowEvent *event)
{
    ImportCSVDialogBase3::showEvent(event);
    if (!m_running)
        QCoreApplication::postEvent(this, new QEvent(QEvent::Type(startEvent)));
}

bool ImportCSVDialog3::event(QEvent *event)
{
    if (event->type() == QEvent::Type(startEvent)) {
        runImport();
        return true;
    }
    return ImportCSVDialogBase3::event(event);
}

void ImportCSVDialog3::cancel()
{
    m_stop = true;
}

// Escape and the close button stop the pass like Cancel; the dialog ends when it has.
void ImportCSVDialog3::reject()
{
    if (m_running)
        m_stop = true;
    else
        ImportCSVDialogBase3::reject();
}

// Cards go where new cards go by default.
QString ImportCSVDialog3::folder() const
{
    Config config(qApp->objectName());
    config.setGroup(QStringLiteral("CardOptions"));
    return config.readEntry(QStringLiteral("defaultPath"), PlatformPaths::documentsDir());
}

void ImportCSVDialog3::runImport()
{
    m_running = true;
    CardImportTarget target(m_manager, nullptr);
    target.setFolder(folder());
    const bool begun = target.begin(m_setup.fileName, QByteArray(),
        CsvImporter::description(QFileInfo(m_setup.fileName).fileName()));
    CsvImporter importer(m_setup.format, m_setup.columns, m_setup.startRow, m_setup.titles);
    const qint64 size = qMax<qint64>(1, m_lines->size());
    PassPacer pacer;
    importer.setLineHook([this, size, &pacer] {
        if (pacer.step())
            pr->setValue(int(m_lines->position() * 100 / size));
        return !m_stop;
    });
    const CsvImporter::Outcome outcome
        = begun ? importer.run(*m_lines, target.card()) : CsvImporter::Failed;
    m_count = importer.count();
    // A stopped pass still makes a whole card of the rows read so far.
    const bool saved = begun && target.finish(CsvImporter::fieldsFor(m_setup.columns));
    m_cardPath = saved ? target.path() : QString();
    m_running = false;
    if (!saved)
        MRLDialog::critical(tr("Import"), target.errorString());
    else if (outcome == CsvImporter::Failed)
        MRLDialog::critical(tr("Import"), importer.errorString());
    if (!saved || m_stop)
        ImportCSVDialogBase3::reject();
    else
        accept();
}
