#include "lib/qt/mlcombobox.h"

#include "app/resourceicons.h"

#include <QLineEdit>

MLComboBox::MLComboBox(bool editable, QWidget *parent)
    : QComboBox(parent)
{
    setEditable(editable);
    setInsertPolicy(QComboBox::NoInsert);
}

void MLComboBox::addIconItem(const QString &iconName, const QString &text)
{
    QComboBox::addItem(loadIconSet(iconName), text);
}

bool MLComboBox::setCurrentItemText(const QString &text)
{
    const int index = findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (index >= 0) {
        setCurrentIndex(index);
        return true;
    }
    if (isEditable())
        setEditText(text);
    return false;
}
