#include "edit/dataeditor.h"

#include "app/resourceicons.h"
#include "card/datamanager.h"
#include "card/datarecord.h"
#include "edit/customlistdialog.h"
#include "edit/datascrollview.h"
#include "lib/qt/mlcalculatordialog.h"
#include "lib/qt/mldialogbuttons.h"
#include "lib/qt/mlspinbox.h"
#include "lib/qt/mltabwidget.h"
#include "lib/qt/mlyesnodialog.h"
#include "reminders/remindereditor.h"

#include <QAction>
#include <QDataStream>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFrame>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QToolButton>
#include <QVBoxLayout>

#include <limits>

DataEditor::DataEditor(DataManager *manager, QWidget *parent)
    : QDialog(parent)
    , m_manager(manager)
{
    setObjectName(QStringLiteral("DataEditor"));
    setModal(true);
}

DataEditor::~DataEditor()
{
    delete m_backup;
}

int DataEditor::run(DataRecord *record, int page)
{
    m_record = record;
    build(page);
    load();
    if (!m_record)
        return QDialog::Accepted;
    return exec();
}

void DataEditor::build(int page)
{
    bool memo = false;
    bool reminder = false;
    for (const FieldDef &field : m_manager->fieldList()) {
        memo = memo || field.type == FieldDef::Memo;
        reminder = reminder || field.type == FieldDef::Reminder;
    }
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(3, 3, 3, 3);
    buildForm();
    if (memo || reminder) {
        buildTabs(memo, reminder);
        layout->addWidget(m_tabs, 1);
    } else {
        layout->addWidget(m_form, 1);
    }
    layout->addWidget(buildNavigator());
    layout->addWidget(MLDialogButtons::okCancel(this));
    showPage(page);
    if (QWidget *edit = m_form->firstEdit())
        edit->setFocus();
}

void DataEditor::buildForm()
{
    m_form = new DataScrollView(this);
    const QList<FieldDef> &fields = m_manager->fieldList();
    for (int i = 0; i < fields.size(); ++i)
        m_form->addRow(i, fields.at(i), m_manager->fieldItems(i), this);
    m_form->alignLabels();
}

void DataEditor::buildTabs(bool memo, bool reminder)
{
    m_tabs = new MLTabWidget(this);
    m_tabs->setObjectName(QStringLiteral("tabs"));
    m_tabs->addTab(m_form, QStringLiteral("document"), tr("Record"));
    if (memo) {
        m_memo = new QPlainTextEdit(m_tabs);
        m_memo->setObjectName(QStringLiteral("memo"));
        m_memo->setLineWrapMode(QPlainTextEdit::WidgetWidth);
        m_memo->setWordWrapMode(QTextOption::WordWrap);
        m_tabs->addTab(m_memo, QStringLiteral("info"), tr("Memo"));
    }
    if (reminder) {
        m_reminder = new ReminderEditor(true, m_tabs);
        m_reminder->setObjectName(QStringLiteral("reminder"));
        m_tabs->addTab(m_reminder, QStringLiteral("clock"), tr("Reminder"));
    }
}

void DataEditor::showPage(int page)
{
    if (!m_tabs)
        return;
    if (page == MemoPage && m_memo) {
        m_tabs->showPage(m_memo);
    } else if (page == ReminderPage && m_reminder) {
        m_tabs->showPage(m_reminder);
    } else if (m_form->visibleRowCount() == 0) {
        m_tabs->removePage(m_form);
        m_form->hide();
        m_tabs->setCurrentIndex(0);
    }
}

QWidget *DataEditor::buildNavigator()
{
    auto *bar = new QWidget(this);
    bar->setObjectName(QStringLiteral("navigator"));
    auto *layout = new QHBoxLayout(bar);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(1);
    addNavigatorAction(bar, QStringLiteral("new"), QStringLiteral("filenew"), tr("New Record"),
        &DataEditor::doNew);
    addNavigatorAction(bar, QStringLiteral("clone"), QStringLiteral("editcopy"),
        tr("Duplicate Record"), &DataEditor::doClone);
    addNavigatorAction(bar, QStringLiteral("delete"), QStringLiteral("remove"), tr("Remove Record"),
        &DataEditor::doDelete);
    auto *separator = new QFrame(bar);
    separator->setFrameShape(QFrame::VLine);
    layout->addWidget(separator);
    layout->addStretch(1);
    addNavigatorAction(bar, QStringLiteral("start"), QStringLiteral("reload2"), tr("First Record"),
        &DataEditor::doStart);
    addNavigatorAction(bar, QStringLiteral("back"), QStringLiteral("back"), tr("Previous Record"),
        &DataEditor::doBack);
    m_position = new MLSpinBox(1, 1, 1, bar);
    m_position->setObjectName(QStringLiteral("position"));
    layout->addWidget(m_position);
    connect(m_position, &QSpinBox::valueChanged, this, &DataEditor::recordSelected);
    addNavigatorAction(bar, QStringLiteral("forward"), QStringLiteral("forward"), tr("Next Record"),
        &DataEditor::doForward);
    addNavigatorAction(bar, QStringLiteral("end"), QStringLiteral("reload"), tr("Last Record"),
        &DataEditor::doEnd);
    return bar;
}

QAction *DataEditor::addNavigatorAction(QWidget *bar, const QString &name, const QString &icon,
    const QString &text, void (DataEditor::*slot)())
{
    auto *action = new QAction(loadIconSet(icon), text, this);
    action->setObjectName(name);
    connect(action, &QAction::triggered, this, slot);
    action->setToolTip(text);
    auto *button = new QToolButton(bar);
    button->setDefaultAction(action);
    button->setAutoRaise(true);
    bar->layout()->addWidget(button);
    return action;
}

void DataEditor::load()
{
    if (!m_record) {
        QDialog::accept();
        return;
    }
    updateNavigator();
    delete m_backup;
    m_backup = m_manager->contains(m_record) ? new DataRecord(*m_record) : nullptr;
    setWindowTitle(captionText());
    m_form->load(m_record);
    if (m_memo)
        m_memo->setPlainText(m_record->memo());
    if (m_reminder)
        m_reminder->setReminder(m_record->reminder());
    m_loadedState = shownState();
}

QString DataEditor::captionText() const
{
    const QString kind = m_backup ? tr("Edit Record") : tr("New Record");
    return kind + QStringLiteral(" - ") + QFileInfo(m_manager->fileName()).baseName();
}

void DataEditor::store()
{
    m_form->store(m_record);
    if (m_memo)
        m_record->setMemo(m_memo->toPlainText());
    if (m_reminder)
        m_record->setReminder(m_reminder->reminder());
}

// Adds a record not yet stored, or updates a stored one (the manager takes the backup).
void DataEditor::saveRecord()
{
    m_record->save(m_backup);
    m_backup = nullptr;
}

int DataEditor::position() const
{
    const qsizetype index = m_manager->records().indexOf(m_record);
    return index >= 0 ? int(index) : m_manager->count();
}

void DataEditor::moveTo(int index)
{
    store();
    saveRecord();
    const int last = m_manager->count() - 1;
    m_record = static_cast<DataRecord *>(m_manager->records().at(qBound(0, index, last)));
    load();
}

void DataEditor::updateNavigator()
{
    const bool stored = m_manager->contains(m_record);
    const int count = m_manager->count();
    const int pos = position();
    {
        const QSignalBlocker blocker(m_position);
        m_position->setRange(1, count + (stored ? 0 : 1));
        m_position->setValue(pos + 1);
    }
    const bool notFirst = pos != 0;
    const bool notLast = pos < count - 1;
    findChild<QAction *>(QStringLiteral("back"))->setEnabled(notFirst);
    findChild<QAction *>(QStringLiteral("start"))->setEnabled(notFirst);
    findChild<QAction *>(QStringLiteral("forward"))->setEnabled(notLast);
    findChild<QAction *>(QStringLiteral("end"))->setEnabled(notLast);
}

// A record not in the store stands behind the last one: back reaches the last record, and
// forward, once it was saved at the end, the record itself.
void DataEditor::doBack()
{
    moveTo(position() - 1);
}

void DataEditor::doForward()
{
    moveTo(position() + 1);
}

void DataEditor::doStart()
{
    moveTo(0);
}

// The last record once the one on screen was saved, which may be that record itself.
void DataEditor::doEnd()
{
    moveTo(std::numeric_limits<int>::max());
}

void DataEditor::recordSelected(int position)
{
    moveTo(position - 1);
}

void DataEditor::doNew()
{
    store();
    saveRecord();
    m_record = m_manager->newRecord();
    load();
}

void DataEditor::doClone()
{
    store();
    saveRecord();
    auto *copy = new DataRecord(*m_record);
    copy->newUid();
    copy->setCreated(QDateTime::currentDateTime());
    m_record = copy;
    load();
}

void DataEditor::doDelete()
{
    if (!MLYesNoDialog::ask(
            tr("Remove Record"), tr("Are you sure you want to delete\nCurrent Record ?")))
        return;
    const int pos = position();
    const bool stored = m_manager->contains(m_record);
    delete m_backup;
    m_backup = nullptr;
    if (stored)
        m_manager->remove(m_record);
    else
        delete m_record;
    m_record = nullptr;
    const int count = m_manager->count();
    if (count > 0) {
        const int index = (!stored || pos >= count) ? count - 1 : pos;
        m_record = static_cast<DataRecord *>(m_manager->records().at(index));
    }
    load();
}

void DataEditor::accept()
{
    if (m_record) {
        store();
        saveRecord();
    }
    QDialog::accept();
}

QByteArray DataEditor::shownState() const
{
    DataRecord shown(*m_record);
    m_form->store(&shown);
    if (m_memo)
        shown.setMemo(m_memo->toPlainText());
    if (m_reminder)
        shown.setReminder(m_reminder->reminder());
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    shown.write(stream);
    return bytes;
}

// A new record is lost by a rejection even when untouched, but then nothing typed goes
// with it; a stored record keeps what navigation saved and loses only what is on screen.
bool DataEditor::mayDiscard() const
{
    if (!m_record || shownState() == m_loadedState)
        return true;
    const QString question
        = m_backup ? tr("Discard the changes to this record?") : tr("Discard this new record?");
    return MLYesNoDialog::ask(windowTitle(), question);
}

void DataEditor::reject()
{
    if (!mayDiscard())
        return;
    if (m_record && !m_manager->contains(m_record)) {
        delete m_record;
        m_record = nullptr;
    }
    QDialog::reject();
}

int DataEditor::fieldOfSender() const
{
    const QObject *button = sender();
    return button && button->parent() ? button->parent()->objectName().toInt() : -1;
}

void DataEditor::calculateValue()
{
    if (auto *edit = qobject_cast<QLineEdit *>(m_form->valueWidget(fieldOfSender())))
        MLCalculatorDialog::calculate(edit, this);
}

void DataEditor::editList()
{
    const int i = fieldOfSender();
    const auto *button = qobject_cast<const QToolButton *>(sender());
    if (i < 0 || !button)
        return;
    const QString title = button->text();
    CustomListDialog dialog(m_manager->fieldItems(i), QStringLiteral("%1|%2").arg(title, title),
        QStringLiteral("document"), this);
    dialog.exec();
    // The items are the card's, changed however the dialog closed.
    m_manager->setFieldItems(i, dialog.items());
    m_form->setListItems(i, dialog.items());
}

void DataEditor::editMultiList()
{
    const int i = fieldOfSender();
    const auto *button = qobject_cast<const QToolButton *>(sender());
    QWidget *value = m_form->valueWidget(i);
    if (!button || !value)
        return;
    const QString title = button->text();
    const QStringList choices
        = DataScrollView::multiListChoices(value).split(u'\n', Qt::SkipEmptyParts);
    CustomListDialog dialog(
        m_manager->fieldItems(i), QStringLiteral("%1|%2").arg(title, title), choices, this);
    if (dialog.exec() == QDialog::Accepted)
        DataScrollView::setMultiListChoices(value, dialog.choices().join(u'\n'));
    m_manager->setFieldItems(i, dialog.items());
}
