#include "exchange/importcsvdialog2.h"

#include "app/mrldialog.h"
#include "app/resourceicons.h"
#include "edit/dateformatselector.h"
#include "edit/directoryselector.h"
#include "exchange/csvcolumnscanner.h"
#include "exchange/csvrowreader.h"
#include "exchange/importcsvdialog3.h"
#include "exchange/importpreviewpages.h"
#include "exchange/passpacer.h"
#include "exchange/textlinereader.h"
#include "platform/config.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QStackedWidget>
#include <QStandardItemModel>
#include <QTreeWidget>

namespace
{
constexpr int startEvent = 1001;
const QString group = QStringLiteral("ImportCSVOptions");

// Shows text as the entry it names, or typed in.
void showText(QComboBox *combo, const QString &text)
{
    const int index = combo->findText(text);
    if (index >= 0)
        combo->setCurrentIndex(index);
    else
        combo->setEditText(text);
}

// The separator an entry stands for: entries name a line feed or a blank, typed text itself.
QString separator(const QComboBox *combo, const QString &lineFeedEntry, const QString &blankEntry)
{
    const QString shown = combo->currentText();
    if (shown == lineFeedEntry && !lineFeedEntry.isEmpty())
        return QStringLiteral("\n");
    return shown == blankEntry ? QStringLiteral(" ") : shown;
}

QString cell(const QString &value)
{
    const qsizetype lineFeed = value.indexOf(QLatin1Char('\n'));
    return lineFeed < 0 ? value : value.left(lineFeed) + QStringLiteral(" ...");
}
} // namespace

ImportCSVDialog2::ImportCSVDialog2(DBManager *manager, TextLineReader *lines,
    const CsvFormat &format, int startRow, bool titles, const QString &fileName, QWidget *parent)
    : ImportCSVDialogBase2(parent)
    , m_manager(manager)
    , m_lines(lines)
    , m_format(format)
    , m_startRow(startRow)
    , m_titles(titles)
    , m_fileName(fileName)
{
    btnOk->setEnabled(false);
    updateTypeEntries();
}

ImportCSVDialogBase2::Page ImportCSVDialog2::pageFor(int type)
{
    switch (type) {
    case FieldDef::Integer:
    case FieldDef::Count:
        return IntegerPage;
    case FieldDef::Double:
        return DoublePage;
    case FieldDef::Date:
        return DatePage;
    case FieldDef::Time:
        return TimePage;
    case FieldDef::DateTime:
        return DateTimePage;
    case FieldDef::Text:
    case FieldDef::Memo:
        return TextPage;
    case FieldDef::Bool:
        return BoolPage;
    case FieldDef::Image:
        return ImagePage;
    case FieldDef::MultiList:
        return MultiListPage;
    default:
        return NoPage;
    }
}

void ImportCSVDialog2::showEvent(QShowEvent *event)
{
    ImportCSVDialogBase2::showEvent(event);
    QCoreApplication::postEvent(this, new QEvent(QEvent::Type(startEvent)));
}

void ImportCSVDialog2::hideEvent(QHideEvent *event)
{
    m_stop = true;
    ImportCSVDialogBase2::hideEvent(event);
}

bool ImportCSVDialog2::event(QEvent *event)
{
    if (event->type() == QEvent::Type(startEvent)) {
        if (!m_read)
            readRows();
        return true;
    }
    return ImportCSVDialogBase2::event(event);
}

void ImportCSVDialog2::readRows()
{
    m_read = true;
    m_stop = false;
    status->setText(tr("Processing data ..."));
    pages->showProgress();
    // The columns are known only at the end of the pass.
    btnOk->setEnabled(false);
    m_lines->rewind();
    CsvRowReader reader(*m_lines, m_format);
    const qint64 size = qMax<qint64>(1, m_lines->size());
    PassPacer pacer;
    reader.setLineHook([this, size, &pacer] {
        if (pacer.step())
            pr->setValue(int(m_lines->position() * 100 / size));
        return !m_stop;
    });
    CsvColumnScanner scanner(m_titles);
    QStringList row;
    CsvRowReader::Status status
        = reader.skipLines(m_startRow - 1) ? CsvRowReader::Row : CsvRowReader::End;
    while (status == CsvRowReader::Row && (status = reader.next(&row)) == CsvRowReader::Row) {
        if (scanner.addRow(row) && list->topLevelItemCount() < previewRows)
            addPreviewRow(row);
    }
    if (status == CsvRowReader::Overflow)
        MRLDialog::critical(tr("Import"), reader.errorString());
    m_columns = scanner.columns();
    list->setColumnCount(int(m_columns.size()));
    for (int i = 0; i < m_columns.size(); ++i)
        updateHeader(i);
    pages->showRows();
    btnOk->setEnabled(true);
    if (!m_columns.isEmpty())
        columnSelected(0);
}

void ImportCSVDialog2::addPreviewRow(const QStringList &row)
{
    QStringList cells;
    for (const QString &value : row)
        cells << cell(value);
    if (list->columnCount() < cells.size())
        list->setColumnCount(int(cells.size()));
    list->addTopLevelItem(new QTreeWidgetItem(cells));
}

void ImportCSVDialog2::updateHeader(int column)
{
    const CsvColumn &setting = m_columns.at(column);
    list->headerItem()->setText(column, setting.title);
    list->headerItem()->setIcon(
        column, loadIconSet(setting.skip ? QStringLiteral("delete") : QStringLiteral("button_ok")));
}

// Memo for one column only; Reminder and Increment have no text form to read.
void ImportCSVDialog2::updateTypeEntries()
{
    auto *model = qobject_cast<QStandardItemModel *>(type->model());
    bool memoElsewhere = false;
    for (int i = 0; i < m_columns.size(); ++i)
        memoElsewhere = memoElsewhere || (i != m_current && m_columns.at(i).type == FieldDef::Memo);
    model->item(FieldDef::Memo)->setEnabled(!memoElsewhere);
    model->item(FieldDef::Reminder)->setEnabled(false);
    model->item(FieldDef::Increment)->setEnabled(false);
}

// Takes the page of the current column into its setting, and keeps it for next time.
void ImportCSVDialog2::storeColumn()
{
    if (m_current < 0 || m_current >= m_columns.size())
        return;
    CsvColumn &column = m_columns[m_current];
    Config config(qApp->objectName());
    config.setGroup(group);
    switch (pageFor(column.type)) {
    case IntegerPage:
        column.format = separator(ths2, QString(), tr("Space"));
        config.writeEntry(QStringLiteral("ths2"), ths2->currentText());
        break;
    case DoublePage:
        column.format = ths->currentText();
        column.decimal = ds->currentText();
        config.writeEntry(QStringLiteral("ths"), ths->currentText());
        config.writeEntry(QStringLiteral("ds"), ds->currentText());
        break;
    case DatePage:
        column.format = dateFormat->format();
        config.writeEntry(QStringLiteral("dateFormat"), column.format);
        break;
    case TimePage:
        column.format = timeFormat->format();
        config.writeEntry(QStringLiteral("timeFormat"), column.format);
        break;
    case DateTimePage:
        column.format = dateTimeFormat->format();
        config.writeEntry(QStringLiteral("dateTimeFormat"), column.format);
        break;
    case TextPage:
        column.format = separator(mlsep, tr("new line"), tr("space"));
        config.writeEntry(QStringLiteral("mlsep"),
            column.format == QLatin1String("\n") ? QStringLiteral("[new line]") : column.format);
        break;
    case BoolPage:
        column.format = boolp->currentText();
        config.writeEntry(QStringLiteral("boolp"), column.format);
        break;
    case ImagePage:
        column.format = basep->path();
        config.writeEntry(QStringLiteral("basep"), column.format);
        break;
    case MultiListPage:
        column.format = separator(mlists, QString(), tr("space"));
        config.writeEntry(QStringLiteral("mlists"), mlists->currentText());
        break;
    case NoPage:
        column.format.clear();
        break;
    }
}

// The page of a type as it was left the last time.
void ImportCSVDialog2::fillFromOptions(int fieldType)
{
    Config config(qApp->objectName());
    config.setGroup(group);
    const auto stored = [&config](const char *key, const QString &fallback = QString()) {
        return config.readEntry(QLatin1String(key), fallback);
    };
    switch (pageFor(fieldType)) {
    case IntegerPage:
        showText(ths2, stored("ths2"));
        break;
    case DoublePage:
        showText(ths, stored("ths"));
        showText(ds, stored("ds", QStringLiteral(".")));
        break;
    case DatePage:
        dateFormat->setFormat(stored("dateFormat"));
        break;
    case TimePage:
        timeFormat->setFormat(stored("timeFormat"));
        break;
    case DateTimePage:
        dateTimeFormat->setFormat(stored("dateTimeFormat"));
        break;
    case TextPage: {
        const QString text = stored("mlsep", QStringLiteral(" "));
        showText(mlsep,
            text == QLatin1String("[new line]") ? tr("new line")
                : text == QLatin1String(" ")    ? tr("space")
                                                : text);
        break;
    }
    case BoolPage:
        showText(boolp, stored("boolp"));
        break;
    case ImagePage:
        basep->setPath(stored("basep"));
        break;
    case MultiListPage:
        showText(mlists, stored("mlists"));
        break;
    case NoPage:
        break;
    }
}

// The page of a column as its setting has it.
void ImportCSVDialog2::showColumnFormat(const CsvColumn &column)
{
    const QString &format = column.format;
    switch (pageFor(column.type)) {
    case IntegerPage:
        showText(ths2, format == QLatin1String(" ") ? tr("Space") : format);
        break;
    case DoublePage:
        showText(ths, format);
        showText(ds, column.decimal);
        break;
    case DatePage:
        dateFormat->setFormat(format);
        break;
    case TimePage:
        timeFormat->setFormat(format);
        break;
    case DateTimePage:
        dateTimeFormat->setFormat(format);
        break;
    case TextPage:
        showText(mlsep,
            format == QLatin1String("\n")      ? tr("new line")
                : format == QLatin1String(" ") ? tr("space")
                                               : format);
        break;
    case BoolPage:
        showText(boolp, format);
        break;
    case ImagePage:
        basep->setPath(format);
        break;
    case MultiListPage:
        showText(mlists, format == QLatin1String(" ") ? tr("space") : format);
        break;
    case NoPage:
        break;
    }
}

void ImportCSVDialog2::columnSelected(int column)
{
    if (column < 0 || column >= m_columns.size())
        return;
    storeColumn();
    m_current = column;
    const CsvColumn &setting = m_columns.at(column);
    title->setText(setting.title);
    type->setCurrentIndex(setting.type);
    skip->setChecked(setting.skip);
    typePages->setCurrentIndex(pageFor(setting.type));
    showColumnFormat(setting);
    updateTypeEntries();
}

void ImportCSVDialog2::typeChanged(int fieldType)
{
    if (m_current < 0)
        return;
    m_columns[m_current].type = fieldType;
    typePages->setCurrentIndex(pageFor(fieldType));
    fillFromOptions(fieldType);
    storeColumn();
    updateTypeEntries();
}

void ImportCSVDialog2::titleChanged(const QString &text)
{
    if (m_current < 0)
        return;
    m_columns[m_current].title = text;
    updateHeader(m_current);
}

void ImportCSVDialog2::skipChanged()
{
    if (m_current < 0)
        return;
    m_columns[m_current].skip = skip->isChecked();
    updateHeader(m_current);
}

void ImportCSVDialog2::back()
{
    m_stop = true;
    storeColumn();
    done(Back);
}

void ImportCSVDialog2::finishSetup()
{
    storeColumn();
    m_stop = true;
    ImportCSVDialog3::Setup setup;
    setup.format = m_format;
    setup.columns = m_columns;
    setup.startRow = m_startRow;
    setup.titles = m_titles;
    setup.fileName = m_fileName;
    ImportCSVDialog3 progress(m_manager, m_lines, setup, this);
    const int result = progress.exec();
    m_count = progress.count();
    m_cardPath = progress.cardPath();
    done(result);
}
