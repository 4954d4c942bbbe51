#include "calc/formateditor.h"

#include "app/resourceicons.h"
#include "lib/qt/mlyesnodialog.h"
#include "store/mrlpim.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>

FormatEditor::FormatEditor(const QString &listName, QWidget *parent)
    : QDialog(parent)
    , m_listName(listName)
{
    setModal(true);
}

void FormatEditor::attach(const Parts &parts, const QString &format)
{
    m_parts = parts;
    m_parts.btnAdd->setIcon(loadIconSet(QStringLiteral("filenew")));
    m_parts.btnUpdate->setIcon(loadIconSet(QStringLiteral("edit")));
    m_parts.btnRemove->setIcon(loadIconSet(QStringLiteral("delete")));
    m_parts.btnOk->setIcon(loadIconSet(QStringLiteral("button_ok")));
    m_parts.btnCancel->setIcon(loadIconSet(QStringLiteral("button_cancel")));

    QStringList codes = MRLPIM::loadDataList(m_listName);
    if (!format.isEmpty() && !codes.contains(format))
        codes << format;
    m_parts.list->addItems(codes);

    connect(m_parts.edit, &QLineEdit::textChanged, this, &FormatEditor::formatChanged);
    connect(m_parts.list, &QListWidget::currentItemChanged, this, [this](QListWidgetItem *item) {
        if (item)
            itemSelected(item->text());
    });
    connect(m_parts.btnAdd, &QPushButton::clicked, this, &FormatEditor::addItem);
    connect(m_parts.btnUpdate, &QPushButton::clicked, this, &FormatEditor::updateItem);
    connect(m_parts.btnRemove, &QPushButton::clicked, this, &FormatEditor::removeItem);
    connect(m_parts.btnOk, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_parts.btnCancel, &QPushButton::clicked, this, &QDialog::reject);

    // No code given: nothing to add or update until the user types one.
    m_parts.btnRemove->setEnabled(!codes.isEmpty());
    setAddUpdate(false, false);
    if (!format.isEmpty()) {
        setCurrentQuietly(indexOf(format));
        itemSelected(format);
    } else {
        redrawPreview();
    }
}

QString FormatEditor::format() const
{
    return m_parts.edit->text();
}

void FormatEditor::redrawPreview()
{
    m_parts.example->setText(preview(m_parts.edit->text()));
}

void FormatEditor::itemSelected(const QString &text)
{
    {
        const QSignalBlocker blocker(m_parts.edit);
        m_parts.edit->setText(text);
    }
    redrawPreview();
    setAddUpdate(false, false);
}

void FormatEditor::formatChanged()
{
    redrawPreview();
    const QString text = m_parts.edit->text();
    const int listed = indexOf(text);
    if (text.isEmpty()) {
        setAddUpdate(false, false);
    } else if (listed >= 0) {
        setCurrentQuietly(listed);
        setAddUpdate(false, false);
    } else {
        setAddUpdate(true, m_parts.list->currentItem() != nullptr);
    }
}

void FormatEditor::addItem()
{
    m_parts.list->addItem(m_parts.edit->text());
    setCurrentQuietly(m_parts.list->count() - 1);
    afterChange();
}

void FormatEditor::updateItem()
{
    if (QListWidgetItem *item = m_parts.list->currentItem())
        item->setText(m_parts.edit->text());
    afterChange();
}

void FormatEditor::removeItem()
{
    const int row = m_parts.list->currentRow();
    if (row < 0)
        return;
    const QString code = m_parts.list->item(row)->text();
    if (!MLYesNoDialog::ask(
            windowTitle(), tr("Are you sure you want to delete\nFormat code [%1] ?").arg(code)))
        return;
    delete m_parts.list->takeItem(row);
    if (m_parts.list->count() > 0)
        m_parts.list->setCurrentRow(qMin(row, m_parts.list->count() - 1));
    afterChange();
}

void FormatEditor::done(int result)
{
    MRLPIM::saveDataList(m_listName, items());
    QDialog::done(result);
}

QStringList FormatEditor::items() const
{
    QStringList texts;
    for (int i = 0; i < m_parts.list->count(); ++i)
        texts << m_parts.list->item(i)->text();
    return texts;
}

int FormatEditor::indexOf(const QString &text) const
{
    for (int i = 0; i < m_parts.list->count(); ++i) {
        if (m_parts.list->item(i)->text() == text)
            return i;
    }
    return -1;
}

void FormatEditor::setCurrentQuietly(int row)
{
    const QSignalBlocker blocker(m_parts.list);
    m_parts.list->setCurrentRow(row);
}

void FormatEditor::setAddUpdate(bool add, bool update)
{
    m_parts.btnAdd->setEnabled(add);
    m_parts.btnUpdate->setEnabled(update);
}

// After the list changed the code is in it, or the list is empty and the code may start it.
void FormatEditor::afterChange()
{
    const bool empty = m_parts.list->count() == 0;
    m_parts.btnRemove->setEnabled(!empty);
    setAddUpdate(empty && !m_parts.edit->text().isEmpty(), false);
}
