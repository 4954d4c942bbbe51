#include "edit/customlistdialog.h"

#include "ui_customlistbase.h"

#include "app/resourceicons.h"

namespace
{
constexpr int textColumn = 0;
// The tick of the choice form, "1" or "0", kept out of sight beside the text.
constexpr int choiceColumn = 1;
} // namespace

CustomListDialog::CustomListDialog(
    const QStringList &items, const QString &title, const QString &icon, QWidget *parent)
    : QDialog(parent)
    , ui(std::make_unique<Ui::CustomListBase>())
    , m_icon(icon)
{
    setUp(title);
    for (const QString &item : items)
        addItem(item, false);
    updateButtons();
}

CustomListDialog::CustomListDialog(
    const QStringList &items, const QString &title, const QStringList &choices, QWidget *parent)
    : QDialog(parent)
    , ui(std::make_unique<Ui::CustomListBase>())
    , m_choiceForm(true)
{
    setUp(title);
    for (const QString &item : items)
        addItem(item, choices.contains(item));
    updateButtons();
}

CustomListDialog::~CustomListDialog() = default;

void CustomListDialog::setUp(const QString &title)
{
    ui->setupUi(this);
    const qsizetype bar = title.indexOf(QLatin1Char('|'));
    const QString captionPart = bar < 0 ? title : title.left(bar);
    const QString labelPart = bar < 0 ? title : title.mid(bar + 1);
    setWindowTitle(tr("Edit ") + captionPart);
    ui->caption->setText(labelPart + QStringLiteral(": "));
    ui->list->setColumnHidden(choiceColumn, true);

    ui->btnNew->setIcon(loadIconSet(QStringLiteral("filenew")));
    ui->btnEdit->setIcon(loadIconSet(QStringLiteral("edit")));
    ui->btnRemove->setIcon(loadIconSet(QStringLiteral("remove")));
    ui->btnUp->setIcon(loadIconSet(QStringLiteral("up")));
    ui->btnDown->setIcon(loadIconSet(QStringLiteral("down")));
    ui->btnSort->setIcon(loadIconSet(QStringLiteral("sort-name")));
    ui->btnOk->setIcon(loadIconSet(QStringLiteral("button_ok")));
    ui->btnCancel->setIcon(loadIconSet(QStringLiteral("button_cancel")));

    connect(ui->btnNew, &QPushButton::clicked, this, &CustomListDialog::doNew);
    connect(ui->btnEdit, &QPushButton::clicked, this, &CustomListDialog::doEdit);
    connect(ui->btnRemove, &QPushButton::clicked, this, &CustomListDialog::doRemove);
    connect(ui->btnUp, &QPushButton::clicked, this, &CustomListDialog::doUp);
    connect(ui->btnDown, &QPushButton::clicked, this, &CustomListDialog::doDown);
    connect(ui->btnSort, &QPushButton::clicked, this, &CustomListDialog::sort);
    connect(ui->text, &QLineEdit::textEdited, this, &CustomListDialog::doUpdate);
    connect(ui->list, &QTreeWidget::currentItemChanged, this, &CustomListDialog::currentChanged);
    connect(ui->list, &QTreeWidget::itemClicked, this, &CustomListDialog::itemClicked);
}

QTreeWidgetItem *CustomListDialog::addItem(const QString &itemText, bool ticked)
{
    auto *item = new QTreeWidgetItem(ui->list, QStringList { itemText });
    if (m_choiceForm)
        setTicked(item, ticked);
    else
        item->setIcon(textColumn, loadIconSet(m_icon));
    return item;
}

void CustomListDialog::setTicked(QTreeWidgetItem *item, bool ticked)
{
    item->setText(choiceColumn, ticked ? QStringLiteral("1") : QStringLiteral("0"));
    item->setIcon(
        textColumn, loadIconSet(ticked ? QStringLiteral("button_ok") : QStringLiteral("empty")));
}

bool CustomListDialog::isTicked(const QTreeWidgetItem *item)
{
    return item->text(choiceColumn) == QLatin1String("1");
}

QStringList CustomListDialog::items() const
{
    QStringList texts;
    for (int i = 0; i < ui->list->topLevelItemCount(); ++i)
        texts << ui->list->topLevelItem(i)->text(textColumn);
    return texts;
}

QStringList CustomListDialog::choices() const
{
    QStringList texts;
    for (int i = 0; i < ui->list->topLevelItemCount(); ++i) {
        const QTreeWidgetItem *item = ui->list->topLevelItem(i);
        if (isTicked(item))
            texts << item->text(textColumn);
    }
    return texts;
}

QString CustomListDialog::currentText() const
{
    const QTreeWidgetItem *item = ui->list->currentItem();
    return item ? item->text(textColumn) : QString();
}

void CustomListDialog::doNew()
{
    ui->list->setCurrentItem(addItem(QString(), false));
    ui->text->setFocus();
}

void CustomListDialog::doRemove()
{
    QTreeWidgetItem *item = ui->list->currentItem();
    if (!item)
        return;
    const int index = ui->list->indexOfTopLevelItem(item);
    delete item;
    const int count = ui->list->topLevelItemCount();
    ui->list->setCurrentItem(count == 0 ? nullptr : ui->list->topLevelItem(qMin(index, count - 1)));
    updateButtons();
}

void CustomListDialog::doEdit()
{
    ui->text->setFocus();
    ui->text->selectAll();
}

void CustomListDialog::doUp()
{
    moveCurrent(-1);
}

void CustomListDialog::doDown()
{
    moveCurrent(1);
}

void CustomListDialog::moveCurrent(int offset)
{
    QTreeWidgetItem *item = ui->list->currentItem();
    if (!item)
        return;
    const int index = ui->list->indexOfTopLevelItem(item);
    const int target = index + offset;
    if (target < 0 || target >= ui->list->topLevelItemCount())
        return;
    ui->list->takeTopLevelItem(index);
    ui->list->insertTopLevelItem(target, item);
    ui->list->setCurrentItem(item);
    updateButtons();
}

void CustomListDialog::doUpdate(const QString &newText)
{
    if (QTreeWidgetItem *item = ui->list->currentItem())
        item->setText(textColumn, newText);
}

void CustomListDialog::sort()
{
    // The list's sort is stable and the list doesn't sort by itself afterwards, so the
    // order stays as sorted until the user moves items again.
    ui->list->sortItems(textColumn, Qt::AscendingOrder);
    if (QTreeWidgetItem *item = ui->list->currentItem())
        ui->list->scrollToItem(item);
    updateButtons();
}

void CustomListDialog::currentChanged(QTreeWidgetItem *current)
{
    ui->text->setText(current ? current->text(textColumn) : QString());
    updateButtons();
}

void CustomListDialog::itemClicked(QTreeWidgetItem *item)
{
    if (m_choiceForm && item)
        setTicked(item, !isTicked(item));
}

void CustomListDialog::updateButtons()
{
    QTreeWidgetItem *item = ui->list->currentItem();
    const int index = item ? ui->list->indexOfTopLevelItem(item) : -1;
    ui->btnUp->setEnabled(item && index > 0);
    ui->btnDown->setEnabled(item && index < ui->list->topLevelItemCount() - 1);
    for (QWidget *widget :
        { static_cast<QWidget *>(ui->btnRemove), static_cast<QWidget *>(ui->btnEdit),
            static_cast<QWidget *>(ui->btnSort), static_cast<QWidget *>(ui->text) })
        widget->setEnabled(item != nullptr);
}
