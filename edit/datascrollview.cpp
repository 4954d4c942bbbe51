#include "edit/datascrollview.h"

#include "app/resourceicons.h"
#include "card/datarecord.h"
#include "exchange/imageeditorwidget.h"
#include "lib/qt/mlcombobox.h"
#include "lib/qt/mldateedit.h"
#include "lib/qt/mldatetimeedit.h"
#include "lib/qt/mlspinbox.h"
#include "lib/qt/mltimeedit.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QToolButton>
#include <QVBoxLayout>

#include <limits>

namespace
{
const QString valueName = QStringLiteral("val");

QPlainTextEdit *fourLineText(QWidget *parent)
{
    auto *edit = new QPlainTextEdit(parent);
    edit->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    edit->setWordWrapMode(QTextOption::WordWrap);
    const int margin = int(edit->document()->documentMargin());
    edit->setFixedHeight(
        4 * edit->fontMetrics().lineSpacing() + 2 * edit->frameWidth() + 2 * margin);
    return edit;
}

QLineEdit *numberEdit(QWidget *parent)
{
    auto *edit = new QLineEdit(parent);
    edit->setAlignment(Qt::AlignRight);
    return edit;
}
} // namespace

DataScrollView::DataScrollView(QWidget *parent)
    : QScrollArea(parent)
    , m_form(new QWidget)
{
    setObjectName(QStringLiteral("form"));
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    auto *layout = new QVBoxLayout(m_form);
    layout->setContentsMargins(3, 3, 3, 3);
    layout->addStretch(1);
    setWidget(m_form);
}

bool DataScrollView::isEditable(const FieldDef &field)
{
    if (field.isCalculated())
        return false;
    return field.type != FieldDef::Memo && field.type != FieldDef::Reminder
        && field.type != FieldDef::Increment;
}

void DataScrollView::addRow(
    int index, const FieldDef &field, const QStringList &items, QObject *receiver)
{
    auto *row = new QWidget(m_form);
    row->setObjectName(QString::number(index));
    m_fields.append(field);
    auto *formLayout = static_cast<QVBoxLayout *>(m_form->layout());
    // Before the closing stretch, so that rows stay at the top.
    formLayout->insertWidget(formLayout->count() - 1, row);
    if (!isEditable(field)) {
        row->setEnabled(false);
        row->hide();
        m_labels.append(nullptr);
        return;
    }
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    auto *label = new QLabel(field.title + QStringLiteral(": "), row);
    label->setObjectName(QStringLiteral("label"));
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    layout->addWidget(label);
    m_labels.append(label);
    QWidget *value = createValueWidget(row, field, items, receiver);
    value->setObjectName(valueName);
    layout->insertWidget(1, value, 1);
    // A row's button was made before its value: Tab reaches them as they stand on screen.
    for (QToolButton *button : row->findChildren<QToolButton *>(Qt::FindDirectChildrenOnly))
        QWidget::setTabOrder(value, button);
    ++m_visibleRows;
}

QWidget *DataScrollView::createValueWidget(
    QWidget *row, const FieldDef &field, const QStringList &items, QObject *receiver)
{
    switch (field.type) {
    case FieldDef::Integer:
    case FieldDef::Double:
        addButton(
            row, QStringLiteral("calc"), QStringLiteral("calc"), receiver, SLOT(calculateValue()));
        return numberEdit(row);
    case FieldDef::Date:
        return new MLDateEdit(row);
    case FieldDef::Time:
        return new MLTimeEdit(row);
    case FieldDef::DateTime: {
        auto *box = new MLDateTimeEdit(row);
        box->dateEdit()->setObjectName(QStringLiteral("val1"));
        box->timeEdit()->setObjectName(QStringLiteral("val2"));
        return box;
    }
    case FieldDef::Text:
        return fourLineText(row);
    case FieldDef::List: {
        auto *combo = new MLComboBox(true, row);
        combo->addItems(items);
        addButton(row, QStringLiteral("edit"), row->objectName(), receiver, SLOT(editList()))
            ->setText(field.title);
        return combo;
    }
    case FieldDef::Bool:
        return new QCheckBox(row);
    case FieldDef::Count:
        return new MLSpinBox(0, std::numeric_limits<int>::max(), 1, row);
    case FieldDef::Image: {
        auto *image = new ImageEditorWidget(row);
        connect(image, &ImageEditorWidget::changed, this, &DataScrollView::updateWidgets);
        return image;
    }
    case FieldDef::MultiList: {
        auto *edit = new QLineEdit(row);
        edit->setEnabled(false);
        addButton(row, QStringLiteral("edit"), row->objectName(), receiver, SLOT(editMultiList()))
            ->setText(field.title);
        return edit;
    }
    default:
        return new QLineEdit(row);
    }
}

QToolButton *DataScrollView::addButton(
    QWidget *row, const QString &icon, const QString &name, QObject *receiver, const char *slot)
{
    auto *button = new QToolButton(row);
    button->setObjectName(name);
    button->setIcon(loadIconSet(icon));
    row->layout()->addWidget(button);
    connect(button, SIGNAL(clicked()), receiver, slot);
    return button;
}

void DataScrollView::alignLabels()
{
    int widest = 0;
    for (const QLabel *label : std::as_const(m_labels)) {
        if (label)
            widest = qMax(widest, label->sizeHint().width());
    }
    for (QLabel *label : std::as_const(m_labels)) {
        if (label)
            label->setFixedWidth(widest);
    }
}

QWidget *DataScrollView::row(int index) const
{
    return m_form->findChild<QWidget *>(QString::number(index), Qt::FindDirectChildrenOnly);
}

QWidget *DataScrollView::valueWidget(int index) const
{
    const QWidget *r = row(index);
    return r ? r->findChild<QWidget *>(valueName, Qt::FindDirectChildrenOnly) : nullptr;
}

QWidget *DataScrollView::firstEdit() const
{
    for (int i = 0; i < rowCount(); ++i) {
        const QWidget *r = row(i);
        if (r && !r->isHidden()) {
            if (auto *edit = r->findChild<QLineEdit *>())
                return edit;
        }
    }
    return nullptr;
}

void DataScrollView::load(const DataRecord *record)
{
    for (int i = 0; i < rowCount(); ++i) {
        if (isEditable(m_fields.at(i)))
            loadValue(i, record);
    }
}

void DataScrollView::store(DataRecord *record) const
{
    for (int i = 0; i < rowCount(); ++i) {
        if (isEditable(m_fields.at(i)))
            storeValue(i, record);
    }
}

void DataScrollView::loadValue(int i, const DataRecord *record)
{
    QWidget *value = valueWidget(i);
    switch (m_fields.at(i).type) {
    case FieldDef::Integer:
        static_cast<QLineEdit *>(value)->setText(QString::number(record->intValue(i)));
        break;
    case FieldDef::Double:
        static_cast<QLineEdit *>(value)->setText(QString::number(record->doubleValue(i), 'g', 6));
        break;
    case FieldDef::Date:
        static_cast<MLDateEdit *>(value)->setDate(record->dateValue(i));
        break;
    case FieldDef::Time: {
        const QTime time = record->timeValue(i);
        static_cast<MLTimeEdit *>(value)->setTime(time.isValid() ? time : QTime(0, 0));
        break;
    }
    case FieldDef::DateTime:
        static_cast<MLDateTimeEdit *>(value)->setDateTime(record->dateTimeValue(i));
        break;
    case FieldDef::Text:
        static_cast<QPlainTextEdit *>(value)->setPlainText(record->stringValue(i));
        break;
    case FieldDef::List:
        static_cast<MLComboBox *>(value)->setCurrentItemText(record->stringValue(i));
        break;
    case FieldDef::Bool:
        static_cast<QCheckBox *>(value)->setChecked(record->intValue(i) != 0);
        break;
    case FieldDef::Count:
        static_cast<MLSpinBox *>(value)->setValue(record->intValue(i));
        break;
    case FieldDef::Image:
        static_cast<ImageEditorWidget *>(value)->setImage(record->image());
        break;
    case FieldDef::MultiList:
        setMultiListChoices(value, record->stringValue(i));
        break;
    default:
        static_cast<QLineEdit *>(value)->setText(record->stringValue(i));
        break;
    }
}

void DataScrollView::storeValue(int i, DataRecord *record) const
{
    const QWidget *value = valueWidget(i);
    switch (m_fields.at(i).type) {
    case FieldDef::Integer:
    case FieldDef::Double:
        // Both as doubles: a fraction typed into an Integer field stays until the next save.
        record->setDoubleValue(i, static_cast<const QLineEdit *>(value)->text().toDouble());
        break;
    case FieldDef::Date:
        record->setDateValue(i, static_cast<const MLDateEdit *>(value)->date());
        break;
    case FieldDef::Time:
        record->setTimeValue(i, static_cast<const MLTimeEdit *>(value)->time());
        break;
    case FieldDef::DateTime:
        record->setDateTimeValue(i, static_cast<const MLDateTimeEdit *>(value)->dateTime());
        break;
    case FieldDef::Text:
        record->setStringValue(i, static_cast<const QPlainTextEdit *>(value)->toPlainText());
        break;
    case FieldDef::List:
        record->setStringValue(i, static_cast<const MLComboBox *>(value)->currentText());
        break;
    case FieldDef::Bool:
        record->setIntValue(i, static_cast<const QCheckBox *>(value)->isChecked() ? 1 : 0);
        break;
    case FieldDef::Count:
        record->setIntValue(i, static_cast<const MLSpinBox *>(value)->value());
        break;
    case FieldDef::Image:
        record->setImage(static_cast<const ImageEditorWidget *>(value)->image());
        break;
    case FieldDef::MultiList:
        record->setStringValue(i, multiListChoices(value));
        break;
    default:
        record->setStringValue(i, static_cast<const QLineEdit *>(value)->text());
        break;
    }
}

void DataScrollView::setListItems(int index, const QStringList &items)
{
    auto *combo = qobject_cast<MLComboBox *>(valueWidget(index));
    if (!combo)
        return;
    const QString text = combo->currentText();
    combo->clear();
    combo->addItems(items);
    combo->setCurrentItemText(text);
}

// The line edit shows the choices joined by ";"; its caption keeps the line-feed form
// that the record stores.
QString DataScrollView::multiListChoices(const QWidget *value)
{
    return value->windowTitle();
}

void DataScrollView::setMultiListChoices(QWidget *value, const QString &choices)
{
    value->setWindowTitle(choices);
    if (auto *edit = qobject_cast<QLineEdit *>(value))
        edit->setText(choices.split(u'\n', Qt::SkipEmptyParts).join(u';'));
}

void DataScrollView::updateWidgets()
{
    m_form->adjustSize();
    m_form->updateGeometry();
}
