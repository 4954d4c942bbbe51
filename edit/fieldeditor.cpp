#include "edit/fieldeditor.h"

#include "app/resourceicons.h"
#include "calc/datetimeformateditor.h"
#include "calc/formulaeditor.h"
#include "calc/numberformateditor.h"
#include "card/datamanager.h"
#include "card/datarecord.h"
#include "edit/autoincrementdialog.h"
#include "edit/countenterdialog.h"
#include "edit/customlistdialog.h"
#include "edit/enterbooldialog.h"
#include "edit/fieldtypecombo.h"
#include "edit/popupchoosers.h"
#include "edit/scrollview.h"
#include "exchange/imagesetup.h"
#include "lib/qt/enterstringdialog.h"
#include "lib/qt/mlcalculatordialog.h"
#include "lib/qt/mlyesnodialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTimer>
#include <QVBoxLayout>

FieldEditor::FieldEditor(DataManager *manager, QWidget *parent)
    : QDialog(parent)
    , m_manager(manager)
    , m_fields(manager->fields())
    , m_form(new ScrollView(this))
{
    setModal(true);
    setWindowTitle(tr("Field's Editor - ") + QFileInfo(manager->fullPath()).completeBaseName());
    // Every way out applies what stands, so there is only one button.
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    QPushButton *close = buttons->button(QDialogButtonBox::Close);
    close->setObjectName(QStringLiteral("btnClose"));
    close->setIcon(loadIconSet(QStringLiteral("button_ok")));
    close->setDefault(true);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::accept);
    connect(m_form->newFieldButton(), &QPushButton::clicked, this, &FieldEditor::newFieldRecord);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_form);
    layout->addWidget(buttons);

    for (m_count = 0; m_count < m_fields.size(); ++m_count)
        m_form->addRow(makeRow(m_count));
    if (m_fields.isEmpty())
        newFieldRecord();
    else
        checkSpecFields();
    resize(480, 480);
}

QWidget *FieldEditor::makeRow(int index)
{
    const FieldDef &field = m_fields.at(index);
    auto *row = new QWidget;
    row->setObjectName(QString::number(index));
    auto *label = new QLabel(QStringLiteral(" %1.").arg(index + 1), row);
    label->setObjectName(QStringLiteral("label"));
    label->setFixedWidth(label->fontMetrics().horizontalAdvance(QStringLiteral(" 000.")));
    auto *name = new QLineEdit(field.title, row);
    name->setObjectName(QStringLiteral("name"));
    auto *type = new QComboBox(row);
    type->setObjectName(QStringLiteral("type"));
    FieldTypeCombo::fill(type);
    type->setCurrentIndex(field.type);
    auto *more = new QPushButton(loadIconSet(QStringLiteral("package_utilities")), QString(), row);
    more->setObjectName(QStringLiteral("more"));
    more->setAutoDefault(false);

    connect(name, &QLineEdit::textEdited, this, &FieldEditor::titleChanged);
    connect(type, &QComboBox::currentIndexChanged, this, &FieldEditor::typeChanged);
    connect(more, &QPushButton::clicked, this, &FieldEditor::extendedMenu);
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(label);
    layout->addWidget(name, 1);
    layout->addWidget(type);
    layout->addWidget(more);
    return row;
}

int FieldEditor::indexOf(const QObject *child) const
{
    for (const QObject *object = child; object; object = object->parent()) {
        if (object->parent() == m_form->form()) {
            bool ok = false;
            const int index = object->objectName().toInt(&ok);
            return ok && index < m_fields.size() ? index : -1;
        }
    }
    return -1;
}

void FieldEditor::titleChanged(const QString &text)
{
    const int index = indexOf(sender());
    if (index < 0)
        return;
    m_fields[index].title = text;
    m_fields[index].label = text;
}

void FieldEditor::typeChanged(int type)
{
    const int index = indexOf(sender());
    if (index < 0 || type < 0 || type >= FieldDef::TypeCount)
        return;
    FieldDef &field = m_fields[index];
    // Whatever the types, nothing of the old one carries over.
    field.type = type;
    field.defaultValue.clear();
    field.format.clear();
    field.formula.clear();
    field.items.clear();
    checkSpecFields();
}

void FieldEditor::checkSpecFields()
{
    QList<int> held;
    for (const FieldDef &field : std::as_const(m_fields)) {
        if (FieldDef::isSingleInstance(field.type))
            held << field.type;
    }
    for (int i = 0; i < m_fields.size(); ++i) {
        auto *combo = m_form->row(i)->findChild<QComboBox *>(QStringLiteral("type"));
        auto *model = qobject_cast<QStandardItemModel *>(combo->model());
        for (const int type : { FieldDef::Memo, FieldDef::Reminder, FieldDef::Image })
            model->item(type)->setEnabled(!held.contains(type) || m_fields.at(i).type == type);
    }
}

void FieldEditor::newFieldRecord()
{
    FieldDef field;
    field.title = tr("Field %1").arg(m_count + 1);
    field.label = field.title;
    m_fields << field;
    QWidget *row = makeRow(m_count);
    m_form->addRow(row);
    ++m_count;
    checkSpecFields();
    // The form grows once the layout has run; "New Field" stands just below the new row.
    QTimer::singleShot(
        0, m_form, [this] { m_form->ensureWidgetVisible(m_form->newFieldButton()); });
    // The new name is selected, so typing replaces "Field N" as a desktop user expects.
    auto *name = row->findChild<QLineEdit *>(QStringLiteral("name"));
    name->setFocus();
    name->selectAll();
}

void FieldEditor::extendedMenu()
{
    auto *button = qobject_cast<QWidget *>(sender());
    const int index = indexOf(sender());
    if (!button || index < 0)
        return;
    auto *name = m_form->row(index)->findChild<QLineEdit *>(QStringLiteral("name"));
    name->setFocus();
    name->selectAll();
    QMenu *menu = createMenu(index);
    const QSize size = menu->sizeHint();
    menu->exec(button->mapToGlobal(QPoint(button->width() - size.width(), button->height())));
    menu->deleteLater();
}

QMenu *FieldEditor::createMenu(int index)
{
    auto *menu = new QMenu(this);
    QAction *up = menu->addAction(loadIconSet(QStringLiteral("up")), tr("Up"), this,
        [this, index] { moveField(index, index - 1); });
    up->setEnabled(index > 0);
    QAction *down = menu->addAction(loadIconSet(QStringLiteral("down")), tr("Down"), this,
        [this, index] { moveField(index, index + 1); });
    down->setEnabled(index < m_fields.size() - 1);
    menu->addSeparator();
    addTypeItems(menu, index);
    menu->addSeparator();
    menu->addAction(loadIconSet(QStringLiteral("remove")), tr("Remove"), this,
        [this, index] { removeField(index); });
    return menu;
}

void FieldEditor::addTypeItems(QMenu *menu, int index)
{
    const FieldDef &field = m_fields.at(index);
    const QString more = QStringLiteral(" ...");
    switch (field.type) {
    case FieldDef::Integer:
    case FieldDef::Double:
        menu->addAction(loadIconSet(QStringLiteral("math")), tr("Formula") + more, this,
            [this, index] { editFormula(index); });
        break;
    default:
        break;
    }
    switch (field.type) {
    case FieldDef::Date:
    case FieldDef::Time:
    case FieldDef::DateTime:
    case FieldDef::Integer:
    case FieldDef::Double:
    case FieldDef::Count:
    case FieldDef::Increment:
    case FieldDef::Reminder:
        menu->addAction(loadIconSet(QStringLiteral("format")), tr("Format") + more, this,
            [this, index] { editFormat(index); });
        break;
    case FieldDef::List:
    case FieldDef::MultiList:
        menu->addAction(loadIconSet(QStringLiteral("edit")), tr("Edit List") + more, this,
            [this, index] { editItems(index); });
        break;
    case FieldDef::Image:
        if (!field.defaultValue.isEmpty())
            menu->addAction(loadIconSet(QStringLiteral("delete")), tr("Unset Image"), this,
                [this, index] { m_fields[index].defaultValue.clear(); });
        break;
    default:
        break;
    }
    switch (field.type) {
    case FieldDef::Date:
    case FieldDef::Time:
    case FieldDef::DateTime:
    case FieldDef::Reminder:
        break;
    default:
        menu->addAction(loadIconSet(QStringLiteral("filenew")), tr("Default") + more, this,
            [this, index] { editDefault(index); });
        break;
    }
}

void FieldEditor::moveField(int index, int other)
{
    if (index < 0 || other < 0 || index >= m_fields.size() || other >= m_fields.size())
        return;
    m_fields.swapItemsAt(index, other);
    QWidget *first = m_form->row(index);
    QWidget *second = m_form->row(other);
    first->setObjectName(QString::number(other));
    second->setObjectName(QString::number(index));
    m_form->relayout();
}

void FieldEditor::removeField(int index)
{
    if (index < 0 || index >= m_fields.size())
        return;
    if (!MLYesNoDialog::ask(windowTitle(), tr("Are you sure you want to delete\nCurrent Field ?")))
        return;
    m_fields.removeAt(index);
    m_form->removeRow(m_form->row(index));
    m_form->relayout();
    --m_count;
    checkSpecFields();
}

void FieldEditor::findPreviewRecords(const DataRecord **record, const DataRecord **previous) const
{
    *record = nullptr;
    *previous = nullptr;
    if (m_previewUid.isEmpty())
        return;
    const QList<PIMRecord *> &records = m_manager->records();
    for (int i = 0; i < records.size(); ++i) {
        if (records.at(i)->uidString() == m_previewUid) {
            *record = static_cast<const DataRecord *>(records.at(i));
            if (i > 0)
                *previous = static_cast<const DataRecord *>(records.at(i - 1));
            return;
        }
    }
}

void FieldEditor::editFormula(int index)
{
    // The numbers in a formula must mean what the records hold: what was moved or removed
    // so far takes effect first.
    m_manager->setFields(m_fields);
    m_fields = m_manager->fields();
    const FieldDef &field = m_fields.at(index);
    FormulaEditor dialog(field.formula, m_fields, field.title, this);
    const DataRecord *record = nullptr;
    const DataRecord *previous = nullptr;
    findPreviewRecords(&record, &previous);
    dialog.setPreviewRecords(record, previous);
    if (dialog.exec() == QDialog::Accepted)
        m_fields[index].formula = dialog.formula();
}

void FieldEditor::editFormat(int index)
{
    FieldDef &field = m_fields[index];
    std::unique_ptr<FormatEditor> dialog;
    switch (field.type) {
    case FieldDef::Date:
        dialog = std::make_unique<DateTimeFormatEditor>(
            QStringLiteral("dateFormat"), field.format, this);
        break;
    case FieldDef::Time:
        dialog = std::make_unique<DateTimeFormatEditor>(
            QStringLiteral("timeFormat"), field.format, this);
        break;
    case FieldDef::DateTime:
    case FieldDef::Reminder:
        dialog = std::make_unique<DateTimeFormatEditor>(
            QStringLiteral("dateTimeFormat"), field.format, this);
        break;
    default:
        dialog = std::make_unique<NumberFormatEditor>(field.format, field.title, this);
        break;
    }
    if (dialog->exec() == QDialog::Accepted)
        field.format = dialog->format();
}

void FieldEditor::editItems(int index)
{
    FieldDef &field = m_fields[index];
    CustomListDialog dialog(field.items, QStringLiteral("%1|%2").arg(field.title, field.title),
        QStringLiteral("document"), this);
    dialog.exec();
    // The list dialog keeps no copy: its items are the field's however it closed.
    field.items = dialog.items();
}

void FieldEditor::editDefault(int index)
{
    FieldDef &field = m_fields[index];
    QString &value = field.defaultValue;
    const QString &title = field.title;
    switch (field.type) {
    case FieldDef::String:
        EnterStringDialog::getText(title, value, this);
        break;
    case FieldDef::Integer:
    case FieldDef::Double: {
        MLCalculatorDialog dialog(value, this);
        dialog.setWindowTitle(title);
        if (dialog.exec() == QDialog::Accepted)
            value = dialog.text();
        break;
    }
    case FieldDef::Text:
    case FieldDef::Memo:
        editText(this, title, value);
        break;
    case FieldDef::List: {
        CustomListDialog dialog(field.items, QStringLiteral("%1|%2").arg(title, title),
            QStringLiteral("document"), this);
        dialog.exec();
        field.items = dialog.items();
        value = dialog.currentText();
        break;
    }
    case FieldDef::Bool:
        value = EnterBoolDialog(title, this).exec(value == QLatin1String("1"))
            ? QStringLiteral("1")
            : QStringLiteral("0");
        break;
    case FieldDef::Count:
        value = QString::number(CountEnterDialog(title, this).exec(value.toInt(), QString()));
        break;
    case FieldDef::Image: {
        ImageSetup dialog(value, this);
        dialog.setWindowTitle(title);
        if (dialog.exec() == QDialog::Accepted)
            value = dialog.path();
        break;
    }
    case FieldDef::MultiList: {
        CustomListDialog dialog(field.items, QStringLiteral("%1|%2").arg(title, title),
            value.split(QLatin1Char(';'), Qt::SkipEmptyParts), this);
        dialog.exec();
        field.items = dialog.items();
        value = dialog.choices().join(QLatin1Char(';'));
        break;
    }
    case FieldDef::Increment: {
        AutoIncrementDialog dialog(title, value, this);
        if (dialog.exec() == QDialog::Accepted)
            value = dialog.value();
        break;
    }
    default:
        break;
    }
}
