#include "edit/scrollview.h"

#include "app/resourceicons.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

ScrollView::ScrollView(QWidget *parent)
    : QScrollArea(parent)
    , m_form(new QWidget)
    , m_rows(new QVBoxLayout)
    , m_newField(new QPushButton(loadIconSet(QStringLiteral("button_ok")), tr("New Field")))
{
    m_newField->setObjectName(QStringLiteral("newField"));
    // Return in a row closes the editor, it does not add a field.
    m_newField->setAutoDefault(false);
    m_rows->setContentsMargins(0, 0, 0, 0);
    auto *newRow = new QHBoxLayout;
    newRow->addStretch();
    newRow->addWidget(m_newField);
    auto *layout = new QVBoxLayout(m_form);
    layout->addLayout(m_rows);
    layout->addLayout(newRow);
    layout->addStretch();
    setWidget(m_form);
    setWidgetResizable(true);
}

void ScrollView::addRow(QWidget *row)
{
    row->setParent(m_form);
    m_rows->addWidget(row);
    row->show();
    // Tab goes through the rows and on to "New Field", which was made before them.
    QWidget *last = nullptr;
    for (QWidget *child : row->findChildren<QWidget *>()) {
        if (child->focusPolicy() & Qt::TabFocus)
            last = child;
    }
    if (last)
        setTabOrder(last, m_newField);
}

void ScrollView::removeRow(QWidget *row)
{
    m_rows->removeWidget(row);
    row->hide();
    row->setObjectName(QString());
    row->deleteLater();
}

QWidget *ScrollView::row(int index) const
{
    return m_form->findChild<QWidget *>(QString::number(index), Qt::FindDirectChildrenOnly);
}

int ScrollView::rowCount() const
{
    return int(rowsByName().size());
}

QList<QWidget *> ScrollView::rowsByName() const
{
    QList<QWidget *> rows;
    for (int i = 0; i < m_rows->count(); ++i) {
        QWidget *row = m_rows->itemAt(i)->widget();
        if (row && !row->objectName().isEmpty())
            rows << row;
    }
    std::stable_sort(rows.begin(), rows.end(), [](const QWidget *a, const QWidget *b) {
        return a->objectName().toInt() < b->objectName().toInt();
    });
    return rows;
}

void ScrollView::relayout()
{
    const QList<QWidget *> rows = rowsByName();
    for (QWidget *row : rows)
        m_rows->removeWidget(row);
    for (int i = 0; i < rows.size(); ++i) {
        QWidget *row = rows.at(i);
        m_rows->addWidget(row);
        row->setObjectName(QString::number(i));
        if (auto *label = row->findChild<QLabel *>(QStringLiteral("label")))
            label->setText(QStringLiteral(" %1.").arg(i + 1));
    }
}
