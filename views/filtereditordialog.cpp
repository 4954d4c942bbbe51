#include "views/filtereditordialog.h"

#include "app/resourceicons.h"
#include "card/datamanager.h"
#include "card/datarecord.h"
#include "lib/qt/mlcalculatordialog.h"
#include "lib/qt/mldateedit.h"
#include "lib/qt/mldialogbuttons.h"
#include "lib/qt/mltimeedit.h"
#include "lib/qt/mlyesnodialog.h"
#include "views/filtermatcher.h"

#include <QComboBox>
#include <QDateTimeEdit>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <climits>
#include <cmath>

namespace
{
const QString valueName = QStringLiteral("val");

bool isTextType(int type)
{
    return type == FieldDef::String || type == FieldDef::Text || type == FieldDef::Memo
        || type == FieldDef::List || type == FieldDef::MultiList;
}

bool isAnswerType(int type)
{
    return type == FieldDef::Reminder || type == FieldDef::Image || type == FieldDef::Bool;
}

// A typed number as the condition keeps it: truncated, held inside the int range, and 0
// for what is no finite number.
int truncatedInt(const QString &text)
{
    const double value = text.toDouble();
    if (!std::isfinite(value))
        return 0;
    return int(std::clamp(std::trunc(value), double(INT_MIN), double(INT_MAX)));
}

double finiteDouble(const QString &text)
{
    const double value = text.toDouble();
    return std::isfinite(value) ? value : 0.0;
}

// Gathering the keystrokes of a burst, so that the count runs once for all of them.
constexpr int countDelayMilliseconds = 120;
} // namespace

FilterEditorDialog::FilterEditorDialog(
    DataManager *manager, int index, QWidget *parent, const char *name)
    : QDialog(parent)
    , manager(manager)
    , index(index)
    , fields(manager->fields())
{
    setObjectName(QString::fromLatin1(name ? name : "FilterEditorDialog"));
    const bool find = index == Find;
    setWindowTitle(find ? tr("Find") : tr("Filter Editor"));
    buildWidgets(find);

    FilterDef start;
    if (find)
        start = manager->adHocFilter();
    else if (index >= 0 && index < manager->filters().size())
        start = manager->filters().at(index);
    else
        start.title = tr("New Filter");
    fname->setText(start.title);
    for (const FilterCondition &condition : std::as_const(start.conditions)) {
        working << condition;
        appendRow(condition);
    }
    fieldChanged(0);
    currentRowChanged();
    if (find) {
        countTimer = new QTimer(this);
        countTimer->setSingleShot(true);
        countTimer->setInterval(countDelayMilliseconds);
        connect(countTimer, &QTimer::timeout, this, &FilterEditorDialog::countMatches);
        connect(fs, &QComboBox::currentIndexChanged, this, &FilterEditorDialog::scheduleCount);
        connect(cond, &QComboBox::currentIndexChanged, this, &FilterEditorDialog::scheduleCount);
        watchValue();
        scheduleCount();
        // Find is for typing at once.
        valBase->findChild<QWidget *>(valueName)->setFocus();
    }
    startFilter = shownFilter();
}

void FilterEditorDialog::buildWidgets(bool find)
{
    fname = new QLineEdit(this);
    fname->setObjectName(QStringLiteral("fname"));
    fs = new QComboBox(this);
    fs->setObjectName(QStringLiteral("fs"));
    fs->addItem(loadIconSet(QStringLiteral("document")), FilterCondition::allTextFieldsTitle());
    for (const FieldDef &field : fields)
        fs->addItem(loadIconSet(QStringLiteral("filenew")), field.title);
    cond = new QComboBox(this);
    cond->setObjectName(QStringLiteral("cond"));
    valBase = new QWidget(this);
    valBase->setObjectName(QStringLiteral("valBase"));
    auto *valueLayout = new QHBoxLayout(valBase);
    valueLayout->setContentsMargins(0, 0, 0, 0);
    action = new QLabel(find ? tr("Find items that match these criteria") + QLatin1Char(':')
                             : tr("Filter items that match these criteria") + QLatin1Char(':'),
        this);
    action->setObjectName(QStringLiteral("action"));
    list = new QTreeWidget(this);
    list->setObjectName(QStringLiteral("list"));
    list->setHeaderLabels({ tr("Field"), tr("Condition"), tr("Value") });
    list->setRootIsDecorated(false);
    list->setSortingEnabled(false);
    btnAdd = new QPushButton(loadIconSet(QStringLiteral("bookmark_add")), tr("Add to List"), this);
    btnAdd->setObjectName(QStringLiteral("btnAdd"));
    btnRemove
        = new QPushButton(loadIconSet(QStringLiteral("delete")), tr("Remove from List"), this);
    btnRemove->setObjectName(QStringLiteral("btnRemove"));
    for (QPushButton *button : { btnAdd, btnRemove })
        button->setAutoDefault(false);

    auto *form = new QFormLayout;
    auto *nameLabel = new QLabel(tr("Filter Name:"), this);
    form->addRow(nameLabel, fname);
    auto *line = new QFrame(this);
    line->setFrameShape(QFrame::HLine);
    form->addRow(line);
    form->addRow(tr("Field:"), fs);
    form->addRow(tr("Condition:"), cond);
    form->addRow(tr("Value:"), valBase);
    // Find has no name to give.
    for (QWidget *widget : { static_cast<QWidget *>(nameLabel), static_cast<QWidget *>(fname),
             static_cast<QWidget *>(line) })
        widget->setVisible(!find);

    auto *rowButtons = new QHBoxLayout;
    rowButtons->addWidget(btnAdd);
    rowButtons->addWidget(btnRemove);
    rowButtons->addStretch();
    QDialogButtonBox *buttons = MLDialogButtons::okCancel(this);

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(action);
    layout->addWidget(list, 1);
    layout->addLayout(rowButtons);
    if (find) {
        matches = new QLabel(this);
        matches->setObjectName(QStringLiteral("matches"));
        layout->addWidget(matches);
    }
    layout->addWidget(buttons);

    connect(fs, &QComboBox::currentIndexChanged, this, &FilterEditorDialog::fieldChanged);
    connect(cond, &QComboBox::currentIndexChanged, this, &FilterEditorDialog::conditionChanged);
    connect(btnAdd, &QPushButton::clicked, this, &FilterEditorDialog::addCondition);
    connect(btnRemove, &QPushButton::clicked, this, &FilterEditorDialog::removeCondition);
    connect(list, &QTreeWidget::currentItemChanged, this, &FilterEditorDialog::currentRowChanged);
}

int FilterEditorDialog::typeOf(int field) const
{
    if (field < 0 || field >= fields.size())
        return FieldDef::String;
    return fields.at(field).type;
}

void FilterEditorDialog::fieldChanged(int fieldIndex)
{
    const int type = typeOf(fieldIndex - 1);
    {
        const QSignalBlocker blocker(cond);
        cond->clear();
        cond->addItems(FilterCondition::operatorLabels(type));
        cond->setCurrentIndex(0);
    }
    for (QWidget *old : valBase->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
        delete old;
    valBase->layout()->addWidget(makeValueWidget(type));
    conditionChanged(0);
    if (countTimer)
        watchValue();
}

QWidget *FilterEditorDialog::makeValueWidget(int type)
{
    if (type == FieldDef::Integer || type == FieldDef::Double) {
        auto *box = new QWidget(valBase);
        auto *layout = new QHBoxLayout(box);
        layout->setContentsMargins(0, 0, 0, 0);
        auto *edit = new QLineEdit(box);
        edit->setObjectName(valueName);
        edit->setAlignment(Qt::AlignRight);
        auto *calc = new QToolButton(box);
        calc->setObjectName(QStringLiteral("calc"));
        calc->setIcon(loadIconSet(QStringLiteral("calc")));
        connect(calc, &QToolButton::clicked, this, &FilterEditorDialog::calculateValue);
        layout->addWidget(edit, 1);
        layout->addWidget(calc);
        return box;
    }
    if (type == FieldDef::DateTime) {
        auto *box = new QWidget(valBase);
        box->setObjectName(valueName);
        auto *layout = new QVBoxLayout(box);
        layout->setContentsMargins(0, 0, 0, 0);
        auto *date = new MLDateEdit(box);
        date->setObjectName(QStringLiteral("val1"));
        auto *time = new MLTimeEdit(box);
        time->setObjectName(QStringLiteral("val2"));
        layout->addWidget(date);
        layout->addWidget(time);
        return box;
    }
    QWidget *widget = nullptr;
    if (type == FieldDef::Date) {
        widget = new MLDateEdit(valBase);
    } else if (type == FieldDef::Time) {
        widget = new MLTimeEdit(valBase);
    } else if (isAnswerType(type)) {
        auto *combo = new QComboBox(valBase);
        combo->addItem(loadIconSet(QStringLiteral("button_ok")), tr("Yes"));
        combo->addItem(loadIconSet(QStringLiteral("button_cancel")), tr("No"));
        widget = combo;
    } else if (type == FieldDef::Count || type == FieldDef::Increment) {
        auto *spin = new QSpinBox(valBase);
        spin->setRange(0, INT_MAX);
        spin->setSingleStep(1);
        widget = spin;
    } else {
        widget = new QLineEdit(valBase);
    }
    widget->setObjectName(valueName);
    return widget;
}

void FilterEditorDialog::conditionChanged(int code)
{
    const int type = typeOf(fs->currentIndex() - 1);
    const bool needsNoValue = isTextType(type)
        && (code == FilterCondition::IsEmpty || code == FilterCondition::IsNotEmpty);
    valBase->setEnabled(!needsNoValue);
}

FilterCondition FilterEditorDialog::conditionFromWidgets() const
{
    FilterCondition condition;
    condition.field = fs->currentIndex() - 1;
    condition.op = cond->currentIndex();
    storeValue(condition, typeOf(condition.field));
    return condition;
}

void FilterEditorDialog::storeValue(FilterCondition &condition, int type) const
{
    switch (type) {
    case FieldDef::Integer:
        condition.number = truncatedInt(valBase->findChild<QLineEdit *>(valueName)->text());
        break;
    case FieldDef::Double:
        condition.real = finiteDouble(valBase->findChild<QLineEdit *>(valueName)->text());
        break;
    case FieldDef::Date:
        condition.date = valBase->findChild<MLDateEdit *>(valueName)->date();
        break;
    case FieldDef::Time:
        condition.time = valBase->findChild<MLTimeEdit *>(valueName)->time();
        break;
    case FieldDef::DateTime:
        condition.date = valBase->findChild<MLDateEdit *>(QStringLiteral("val1"))->date();
        condition.time = valBase->findChild<MLTimeEdit *>(QStringLiteral("val2"))->time();
        break;
    case FieldDef::Count:
    case FieldDef::Increment:
        condition.number = valBase->findChild<QSpinBox *>(valueName)->value();
        break;
    default:
        if (isAnswerType(type))
            condition.number = valBase->findChild<QComboBox *>(valueName)->currentIndex();
        else
            condition.text = valBase->findChild<QLineEdit *>(valueName)->text();
    }
}

void FilterEditorDialog::loadValue(const FilterCondition &condition, int type)
{
    switch (type) {
    case FieldDef::Integer:
        valBase->findChild<QLineEdit *>(valueName)->setText(QString::number(condition.number));
        break;
    case FieldDef::Double:
        valBase->findChild<QLineEdit *>(valueName)->setText(
            QString::number(condition.real, 'g', 6));
        break;
    case FieldDef::Date:
        valBase->findChild<MLDateEdit *>(valueName)->setDate(condition.date);
        break;
    case FieldDef::Time:
        valBase->findChild<MLTimeEdit *>(valueName)->setTime(condition.time);
        break;
    case FieldDef::DateTime:
        valBase->findChild<MLDateEdit *>(QStringLiteral("val1"))->setDate(condition.date);
        valBase->findChild<MLTimeEdit *>(QStringLiteral("val2"))->setTime(condition.time);
        break;
    case FieldDef::Count:
    case FieldDef::Increment:
        valBase->findChild<QSpinBox *>(valueName)->setValue(condition.number);
        break;
    default:
        if (isAnswerType(type))
            valBase->findChild<QComboBox *>(valueName)->setCurrentIndex(
                condition.number == 0 ? 0 : 1);
        else
            valBase->findChild<QLineEdit *>(valueName)->setText(condition.text);
    }
}

QString FilterEditorDialog::valueText(const FilterCondition &condition) const
{
    const int type = typeOf(condition.field);
    switch (type) {
    case FieldDef::Integer:
    case FieldDef::Count:
    case FieldDef::Increment:
        return QString::number(condition.number);
    case FieldDef::Double:
        return QString::number(condition.real, 'g', 6);
    case FieldDef::Date:
        return condition.date.toString(MLDateEdit::systemDisplayFormat());
    case FieldDef::Time:
        return condition.time.toString(MLTimeEdit::systemDisplayFormat());
    case FieldDef::DateTime:
        return condition.date.toString(MLDateEdit::systemDisplayFormat()) + QLatin1Char(' ')
            + condition.time.toString(MLTimeEdit::systemDisplayFormat());
    default:
        if (isAnswerType(type))
            return condition.number == 0 ? tr("Yes") : tr("No");
        return condition.text;
    }
}

void FilterEditorDialog::appendRow(const FilterCondition &condition)
{
    const bool known = condition.field >= 0 && condition.field < fields.size();
    const QString field
        = known ? fields.at(condition.field).title : FilterCondition::allTextFieldsTitle();
    const QString label = FilterCondition::operatorLabel(typeOf(condition.field), condition.op);
    new QTreeWidgetItem(list, { field, label, valueText(condition) });
}

void FilterEditorDialog::addCondition()
{
    const FilterCondition condition = conditionFromWidgets();
    working << condition;
    appendRow(condition);
    scheduleCount();
}

void FilterEditorDialog::removeCondition()
{
    const int row = list->indexOfTopLevelItem(list->currentItem());
    if (row < 0 || row >= working.size())
        return;
    const FilterCondition condition = working.at(row);
    const int field
        = condition.field >= -1 && condition.field < fields.size() ? condition.field : -1;
    {
        const QSignalBlocker blocker(fs);
        fs->setCurrentIndex(field + 1);
    }
    fieldChanged(field + 1);
    if (condition.op >= 0 && condition.op < cond->count())
        cond->setCurrentIndex(condition.op);
    loadValue(condition, typeOf(field));
    working.removeAt(row);
    delete list->takeTopLevelItem(row);
    scheduleCount();
}

void FilterEditorDialog::calculateValue()
{
    if (auto *edit = valBase->findChild<QLineEdit *>(valueName))
        MLCalculatorDialog::calculate(edit, this);
}

void FilterEditorDialog::currentRowChanged()
{
    btnRemove->setEnabled(list->currentItem() != nullptr);
}

// Every kind of value widget counts again when its value changes.
void FilterEditorDialog::watchValue()
{
    for (QWidget *widget : valBase->findChildren<QWidget *>()) {
        if (auto *edit = qobject_cast<QLineEdit *>(widget))
            connect(edit, &QLineEdit::textChanged, this, &FilterEditorDialog::scheduleCount);
        else if (auto *spin = qobject_cast<QSpinBox *>(widget))
            connect(spin, &QSpinBox::valueChanged, this, &FilterEditorDialog::scheduleCount);
        else if (auto *combo = qobject_cast<QComboBox *>(widget))
            connect(
                combo, &QComboBox::currentIndexChanged, this, &FilterEditorDialog::scheduleCount);
        else if (auto *moment = qobject_cast<QDateTimeEdit *>(widget))
            connect(
                moment, &QDateTimeEdit::dateTimeChanged, this, &FilterEditorDialog::scheduleCount);
    }
}

void FilterEditorDialog::scheduleCount()
{
    if (countTimer)
        countTimer->start();
}

// The same test the find makes once accepted, over every record of the card.
void FilterEditorDialog::countMatches()
{
    const FilterMatcher find(
        working.isEmpty() ? QList<FilterCondition> { conditionFromWidgets() } : working, fields);
    int count = 0;
    for (const PIMRecord *record : manager->records())
        count += find.accept(*static_cast<const DataRecord *>(record)) ? 1 : 0;
    matches->setText(tr("%1 records match").arg(count));
    emit matchesCounted(count);
}

// The name, the list and the condition the widgets make: all that leaving may throw away.
FilterDef FilterEditorDialog::shownFilter() const
{
    FilterDef shown;
    shown.title = fname->text();
    shown.conditions = working;
    shown.conditions << conditionFromWidgets();
    return shown;
}

// A find is dropped on purpose; a filter edited since the dialog opened is asked about.
void FilterEditorDialog::reject()
{
    if (index != Find) {
        const FilterDef shown = shownFilter();
        if ((shown.title != startFilter.title || shown.conditions != startFilter.conditions)
            && !MLYesNoDialog::ask(windowTitle(), tr("Discard the changes to this filter?")))
            return;
    }
    QDialog::reject();
}

void FilterEditorDialog::apply()
{
    if (working.isEmpty())
        addCondition();
    QString title = fname->text();
    if (title.isEmpty())
        title = tr("Filter");
    if (index == Find) {
        FilterDef find;
        find.title = title;
        find.conditions = working;
        manager->setAdHocFilter(find);
        return;
    }
    QList<FilterDef> list = manager->filters();
    if (index >= 0 && index < list.size()) {
        list[index].title = title;
        list[index].conditions = working;
    } else {
        FilterDef filter;
        filter.title = title;
        filter.conditions = working;
        list << filter;
    }
    manager->setFilters(list);
}
