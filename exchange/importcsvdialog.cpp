#include "exchange/importcsvdialog.h"

#include "app/mrldialog.h"
#include "exchange/importcsvdialog2.h"
#include "exchange/importpreviewpages.h"
#include "exchange/passpacer.h"
#include "exchange/textlinereader.h"
#include "platform/config.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QStackedWidget>
#include <QTreeWidget>

namespace
{
constexpr int startEvent = 1001;
const QString group = QStringLiteral("ImportCSVOptions");
// The preview shows the start of a line; the rows themselves are read again later.
constexpr qsizetype previewLength = 500;
} // namespace

ImportCSVDialog::ImportCSVDialog(
    DBManager *manager, TextLineReader *lines, const QString &fileName, QWidget *parent)
    : ImportCSVDialogBase(parent)
    , m_manager(manager)
    , m_lines(lines)
    , m_fileName(fileName)
{
    readOptions();
    delimiterChanged();
}

ImportCSVDialog::~ImportCSVDialog()
{
    writeOptions();
}

bool ImportCSVDialog::importFile(DBManager *manager, const QString &path, QTextCodec *codec,
    QWidget *parent, int *count, QString *cardPath)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        MRLDialog::critical(tr("Import"), tr("Cannot open file:") + QLatin1Char('\n') + path);
        return false;
    }
    TextLineReader lines(&file, codec);
    ImportCSVDialog dialog(manager, &lines, path, parent);
    dialog.exec();
    *count = dialog.count();
    *cardPath = dialog.cardPath();
    return dialog.imported();
}

void ImportCSVDialog::readOptions()
{
    Config config(qApp->objectName());
    config.setGroup(group);
    delimiter->setCurrentIndex(config.readNumEntry(QStringLiteral("delimiter"), 0));
    otherDelimiter->setText(
        config.readEntry(QStringLiteral("otherDelimiter"), QStringLiteral(" ")));
    other->setChecked(config.readNumEntry(QStringLiteral("other"), 0) != 0);
    fl1->setChecked(config.readNumEntry(QStringLiteral("firstRowFieldName"), 0) != 0);
    startRow->setValue(config.readNumEntry(QStringLiteral("startRow"), 1));
    qualifier->setEditText(config.readEntry(QStringLiteral("textqualifier"), QStringLiteral("\"")));
}

void ImportCSVDialog::writeOptions() const
{
    Config config(qApp->objectName());
    config.setGroup(group);
    config.writeEntry(QStringLiteral("delimiter"), delimiter->currentIndex());
    config.writeEntry(QStringLiteral("otherDelimiter"), otherDelimiter->text());
    config.writeEntry(QStringLiteral("other"), other->isChecked() ? 1 : 0);
    config.writeEntry(QStringLiteral("firstRowFieldName"), fl1->isChecked() ? 1 : 0);
    config.writeEntry(QStringLiteral("startRow"), startRow->value());
    config.writeEntry(QStringLiteral("textqualifier"), qualifier->currentText());
}

CsvFormat ImportCSVDialog::format() const
{
    CsvFormat format;
    format.delimiter = CsvFormat::delimiterFor(
        delimiter->currentIndex(), other->isChecked(), otherDelimiter->text());
    format.qualifier = qualifier->currentText();
    return format;
}

void ImportCSVDialog::delimiterChanged()
{
    delimiter->setEnabled(!other->isChecked());
    otherDelimiter->setEnabled(other->isChecked());
}

void ImportCSVDialog::setStartRow()
{
    if (QTreeWidgetItem *item = list->currentItem())
        startRow->setValue(item->text(0).toInt());
}

void ImportCSVDialog::showEvent(QShowEvent *event)
{
    ImportCSVDialogBase::showEvent(event);
    QCoreApplication::postEvent(this, new QEvent(QEvent::Type(startEvent)));
}

void ImportCSVDialog::hideEvent(QHideEvent *event)
{
    m_stop = true;
    ImportCSVDialogBase::hideEvent(event);
}

bool ImportCSVDialog::event(QEvent *event)
{
    if (event->type() == QEvent::Type(startEvent)) {
        fillRows();
        return true;
    }
    return ImportCSVDialogBase::event(event);
}

void ImportCSVDialog::fillRows()
{
    m_stop = false;
    status->setText(tr("Processing data ..."));
    pages->showProgress();
    disconnect(btnCancel, nullptr, this, nullptr);
    connect(btnCancel, &QPushButton::clicked, this, &ImportCSVDialog::stopProcess);
    list->clear();
    m_lines->rewind();
    const qint64 size = qMax<qint64>(1, m_lines->size());
    QString line;
    PassPacer pacer;
    for (int row = 1; m_lines->readLine(&line); ++row) {
        if (pacer.step())
            pr->setValue(int(m_lines->position() * 100 / size));
        if (m_stop)
            break;
        if (line.size() > previewLength)
            line = line.left(previewLength) + QStringLiteral(" ...");
        list->addTopLevelItem(new QTreeWidgetItem({ QString::number(row), line }));
    }
    if (m_lines->hasError())
        MRLDialog::critical(tr("Import"), m_lines->errorString());
    pages->showRows();
    disconnect(btnCancel, nullptr, this, nullptr);
    connect(btnCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void ImportCSVDialog::next()
{
    m_stop = true;
    ImportCSVDialog2 step2(
        m_manager, m_lines, format(), startRow->value(), fl1->isChecked(), m_fileName, this);
    const int result = step2.exec();
    if (result == ImportCSVDialog2::Back)
        return;
    m_imported = result == QDialog::Accepted;
    m_count = step2.count();
    m_cardPath = step2.cardPath();
    if (m_imported)
        accept();
    else
        reject();
}
