#include "views/reportviewdialog.h"

#include "app/mrldialog.h"
#include "app/resourceicons.h"
#include "card/datarecord.h"
#include "lib/qt/mlspinbox.h"
#include "lib/qt/mrlaction.h"
#include "platform/platformpaths.h"
#include "store/pimmanager.h"
#include "views/reportdocument.h"
#include "views/reportscrollview.h"
#include "views/reportview.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFrame>
#include <QHBoxLayout>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

ReportViewDialog::ReportViewDialog(DataRecord *record, QWidget *parent, const QString &name)
    : QDialog(parent)
    , m_record(record)
    , m_manager(record ? record->manager() : nullptr)
    , m_scroll(new ReportScrollView(this))
{
    setObjectName(name);
    setWindowTitle(tr("Report View"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_scroll, 1);
    auto *line = new QFrame(this);
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    layout->addWidget(line);
    layout->addWidget(createBar());
    resize(480, 560);
    reportView()->setRecord(m_record);
    refreshBar();
}

ReportView *ReportViewDialog::reportView() const
{
    return m_scroll->reportView();
}

MRLAction *ReportViewDialog::action(const QString &name) const
{
    return findChild<MRLAction *>(name, Qt::FindDirectChildrenOnly);
}

MRLAction *ReportViewDialog::addAction(
    const QString &name, const QString &icon, const QString &text)
{
    auto *action = new MRLAction(name, icon, loadIconSet(icon), text, false, this);
    return action;
}

QWidget *ReportViewDialog::createBar()
{
    auto *bar = new QWidget(this);
    auto *row = new QHBoxLayout(bar);
    row->setContentsMargins(4, 4, 4, 4);
    const auto button = [bar, row](MRLAction *action) {
        auto *tool = new QToolButton(bar);
        tool->setObjectName(action->name());
        tool->setDefaultAction(action);
        row->addWidget(tool);
    };
    button(addAction(QStringLiteral("start"), QStringLiteral("reload2"), tr("First Record")));
    button(addAction(QStringLiteral("back"), QStringLiteral("back"), tr("Previous Record")));
    m_spin = new MLSpinBox(1, 1, 1, bar);
    m_spin->setObjectName(QStringLiteral("record"));
    row->addWidget(m_spin);
    button(addAction(QStringLiteral("forward"), QStringLiteral("forward"), tr("Next Record")));
    button(addAction(QStringLiteral("end"), QStringLiteral("reload"), tr("Last Record")));
    connect(action(QStringLiteral("start")), &QAction::triggered, this, &ReportViewDialog::doStart);
    connect(action(QStringLiteral("back")), &QAction::triggered, this, &ReportViewDialog::doBack);
    connect(
        action(QStringLiteral("forward")), &QAction::triggered, this, &ReportViewDialog::doForward);
    connect(action(QStringLiteral("end")), &QAction::triggered, this, &ReportViewDialog::doEnd);
    connect(m_spin, &QSpinBox::valueChanged, this, &ReportViewDialog::recordSelected);
    row->addStretch(1);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, bar);
    QPushButton *print
        = buttons->addButton(tr("Print") + QStringLiteral(" ..."), QDialogButtonBox::ActionRole);
    print->setObjectName(QStringLiteral("btnPrint"));
    QPushButton *pdf = buttons->addButton(
        tr("Export PDF") + QStringLiteral(" ..."), QDialogButtonBox::ActionRole);
    pdf->setObjectName(QStringLiteral("btnExportPdf"));
    QPushButton *close = buttons->button(QDialogButtonBox::Close);
    close->setObjectName(QStringLiteral("btnClose"));
    // Return closes the viewer like every other way out; it never starts a print.
    close->setDefault(true);
    print->setAutoDefault(false);
    pdf->setAutoDefault(false);
    connect(print, &QPushButton::clicked, this, &ReportViewDialog::doPrint);
    connect(pdf, &QPushButton::clicked, this, &ReportViewDialog::doExportPdf);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    row->addWidget(buttons);
    return bar;
}

int ReportViewDialog::position() const
{
    const QList<PIMRecord *> &list = m_manager->view();
    const qsizetype index = list.indexOf(m_record);
    return int(index < 0 ? list.size() : index);
}

void ReportViewDialog::showRecord(DataRecord *record)
{
    if (!record)
        return;
    m_record = record;
    reportView()->setRecord(m_record);
    refreshBar();
    m_record->select();
}

void ReportViewDialog::doStart()
{
    if (!m_manager->view().isEmpty())
        showRecord(static_cast<DataRecord *>(m_manager->view().first()));
}

void ReportViewDialog::doEnd()
{
    if (!m_manager->view().isEmpty())
        showRecord(static_cast<DataRecord *>(m_manager->view().last()));
}

// A record outside the list steps back into it at its end.
void ReportViewDialog::doBack()
{
    const QList<PIMRecord *> &list = m_manager->view();
    const int index = position();
    if (index >= list.size())
        doEnd();
    else if (index > 0)
        showRecord(static_cast<DataRecord *>(list.at(index - 1)));
}

void ReportViewDialog::doForward()
{
    const QList<PIMRecord *> &list = m_manager->view();
    const int index = position();
    if (index >= list.size())
        doEnd();
    else if (index + 1 < list.size())
        showRecord(static_cast<DataRecord *>(list.at(index + 1)));
}

void ReportViewDialog::recordSelected(int n)
{
    const QList<PIMRecord *> &list = m_manager->view();
    if (n >= 1 && n <= list.size())
        showRecord(static_cast<DataRecord *>(list.at(n - 1)));
}

void ReportViewDialog::refreshBar()
{
    if (!m_manager) {
        // Nothing to walk through: the bar stays off.
        m_spin->setEnabled(false);
        for (const char *name : { "start", "back", "forward", "end" })
            action(QLatin1String(name))->setEnabled(false);
        return;
    }
    const int count = int(m_manager->view().size());
    const int index = position();
    {
        const QSignalBlocker blocker(m_spin);
        m_spin->setRange(1, index < count ? count : count + 1);
        m_spin->setValue(index + 1);
    }
    action(QStringLiteral("back"))->setEnabled(index != 0);
    action(QStringLiteral("start"))->setEnabled(index != 0);
    action(QStringLiteral("forward"))->setEnabled(index < count - 1);
    action(QStringLiteral("end"))->setEnabled(index < count - 1);
}

bool ReportViewDialog::print(QPagedPaintDevice *device) const
{
    const ReportView *view = reportView();
    return ReportDocument(m_record, view->fields(), view->page().settings(), view->font())
        .print(device);
}

void ReportViewDialog::doPrint()
{
    // At the screen's resolution the page keeps the proportions it has on screen.
    QPrinter printer(QPrinter::ScreenResolution);
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    if (!print(&printer))
        MRLDialog::critical(windowTitle(), tr("The page could not be printed."));
}

bool ReportViewDialog::exportPdf(const QString &path)
{
    const ReportView *view = reportView();
    ReportDocument document(m_record, view->fields(), view->page().settings(), view->font());
    if (document.writePdf(path))
        return true;
    MRLDialog::critical(windowTitle(), document.errorString());
    return false;
}

void ReportViewDialog::doExportPdf()
{
    QFileDialog dialog(
        this, tr("Export PDF"), PlatformPaths::documentsDir(), tr("PDF files (*.pdf)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("pdf"));
    if (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty())
        exportPdf(dialog.selectedFiles().first());
}
