#include "exchange/exportdialog.h"

#include "app/mrldialog.h"
#include "card/datamanager.h"
#include "edit/dateformatselector.h"
#include "edit/textcodecselector.h"
#include "exchange/passpacer.h"
#include "platform/config.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QProgressDialog>

namespace
{
const QString group = QStringLiteral("ExportOptions");
} // namespace

ExportDialog::ExportDialog(QWidget *parent)
    : ExportDialogBase(parent)
{
    readOptions();
    delimiterChanged();
}

ExportDialog::~ExportDialog()
{
    writeOptions();
}

void ExportDialog::delimiterChanged()
{
    delimiter->setEnabled(!other->isChecked());
    otherDelimiter->setEnabled(other->isChecked());
}

void ExportDialog::readOptions()
{
    Config config(qApp->objectName());
    config.setGroup(group);
    delimiter->setCurrentIndex(config.readNumEntry(QStringLiteral("delimiter"), 0));
    unicode->setCurrentIndex(config.readNumEntry(QStringLiteral("unicode"), 0));
    otherDelimiter->setText(
        config.readEntry(QStringLiteral("otherDelimiter"), QStringLiteral(" ")));
    other->setChecked(config.readNumEntry(QStringLiteral("other"), 0) != 0);
    qualifier->setEditText(config.readEntry(QStringLiteral("textqualifier"), QStringLiteral("\"")));
    if (config.hasKey(QStringLiteral("multiline2"))) {
        const QString text = config.readEntry(QStringLiteral("multiline2"));
        const int index = ml->findText(text);
        if (index >= 0)
            ml->setCurrentIndex(index);
        else
            ml->setEditText(text);
    } else {
        ml->setCurrentIndex(config.readNumEntry(QStringLiteral("multiline1"), 0));
    }
    dateFormat->setFormat(config.readEntry(QStringLiteral("date")));
    timeFormat->setFormat(config.readEntry(QStringLiteral("time")));
    dateTimeFormat->setFormat(config.readEntry(QStringLiteral("datetime")));
}

void ExportDialog::writeOptions() const
{
    Config config(qApp->objectName());
    config.setGroup(group);
    config.writeEntry(QStringLiteral("delimiter"), delimiter->currentIndex());
    config.writeEntry(QStringLiteral("unicode"), unicode->currentIndex());
    config.writeEntry(QStringLiteral("otherDelimiter"), otherDelimiter->text());
    config.writeEntry(QStringLiteral("other"), other->isChecked() ? 1 : 0);
    config.writeEntry(QStringLiteral("textqualifier"), qualifier->currentText());
    config.writeEntry(QStringLiteral("multiline1"), ml->currentIndex());
    config.removeEntry(QStringLiteral("multiline2"));
    if (ml->currentText() != ml->itemText(ml->currentIndex()))
        config.writeEntry(QStringLiteral("multiline2"), ml->currentText());
    config.writeEntry(QStringLiteral("dateFormat"), dateFormat->format());
    config.writeEntry(QStringLiteral("timeFormat"), timeFormat->format());
    config.writeEntry(QStringLiteral("dateTimeFormat"), dateTimeFormat->format());
}

QString ExportDialog::multilineSeparator() const
{
    const QString shown = ml->currentText();
    if (shown != ml->itemText(ml->currentIndex()))
        return shown;
    switch (ml->currentIndex()) {
    case 0:
        return QStringLiteral("\n");
    case 1:
        return QStringLiteral(" ");
    default:
        return shown;
    }
}

CsvExporter::Options ExportDialog::options() const
{
    CsvExporter::Options options;
    options.format.delimiter = CsvFormat::delimiterFor(
        delimiter->currentIndex(), other->isChecked(), otherDelimiter->text());
    options.format.qualifier = qualifier->currentText();
    options.dateFormat = dateFormat->format();
    options.timeFormat = timeFormat->format();
    options.dateTimeFormat = dateTimeFormat->format();
    options.multilineSeparator = multilineSeparator();
    options.codec = unicode->codec();
    return options;
}

QString ExportDialog::exportFileName(const QString &baseName)
{
    Config config(qApp->objectName());
    config.setGroup(group);
    const QString start = config.readEntry(QStringLiteral("path"), QDir::homePath());
    const QString folder = QFileInfo(start).isDir() ? start : QFileInfo(start).absolutePath();
    QString path;
    for (;;) {
        path = QFileDialog::getSaveFileName(this, tr("Export to CSV"),
            folder + QLatin1Char('/') + baseName + QStringLiteral(".csv"),
            tr("All Files (*);;") + tr("CSV Files (*.csv);;"), nullptr,
            QFileDialog::DontConfirmOverwrite);
        if (path.isEmpty())
            return QString();
        if (QFileInfo(path).suffix() != QLatin1String("csv"))
            path += QStringLiteral(".csv");
        if (!QFileInfo::exists(path))
            break;
        const QString text
            = tr("The file: %1\nalready exists.\nDo you want to replace the existing file?")
                  .arg(QFileInfo(path).fileName());
        if (MRLDialog::ask(tr("Export"), text, QStringLiteral("dialog_warning"), tr("Replace"),
                QStringLiteral("button_ok"), tr("Cancel"), QStringLiteral("button_cancel"))
            == 1)
            break;
    }
    config.writeEntry(QStringLiteral("path"), path);
    return path;
}

bool ExportDialog::write(
    CsvExporter &exporter, const DataManager &card, const QString &path, QWidget *parent)
{
    QProgressDialog progress(tr("Exporting records ..."), tr("Cancel"), 0, card.count(), parent);
    progress.setWindowTitle(tr("Export"));
    progress.setWindowModality(Qt::WindowModal);
    // A short export ends before the dialog would have shown.
    progress.setMinimumDuration(500);
    PassPacer pacer;
    exporter.setProgressHook([&](int written) {
        if (pacer.step())
            progress.setValue(written);
        return !progress.wasCanceled();
    });
    return exporter.write(card, path);
}
