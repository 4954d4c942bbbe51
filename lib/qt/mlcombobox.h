#ifndef MLCOMBOBOX_H
#define MLCOMBOBOX_H

#include <QComboBox>

// A combo box whose entries carry the program's pictures. Editable, it takes typed text
// without adding it to its entries: the entries belong to whoever filled them.
class MLComboBox : public QComboBox
{
    Q_OBJECT

public:
    explicit MLComboBox(bool editable, QWidget *parent = nullptr);

    // Adds an entry showing the picture of that name.
    void addIconItem(const QString &iconName, const QString &text);

    // Makes the entry with that text current. If none has it, an editable box shows the
    // text as typed and a fixed one stays as it was. True when an entry was found.
    bool setCurrentItemText(const QString &text);
};

#endif
