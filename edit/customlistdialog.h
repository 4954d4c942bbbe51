#ifndef CUSTOMLISTDIALOG_H
#define CUSTOMLISTDIALOG_H

#include <QDialog>
#include <QStringList>

#include <memory>

class QTreeWidgetItem;

namespace Ui
{
class CustomListBase;
} // namespace Ui

// Edits a list of texts: add, remove, rename, move and sort items. In its choice form it
// also ticks some of the items; a click on an item toggles its tick.
//
// The title is "caption part|label part": the caption reads "Edit " and the first part, the
// label over the list the second part and ": ". The results can be read after the dialog
// closed either way: a caller that keeps the items also keeps them after Cancel.
class CustomListDialog : public QDialog
{
    Q_OBJECT

public:
    // The single form; every item shows the picture named icon.
    CustomListDialog(const QStringList &items, const QString &title, const QString &icon,
        QWidget *parent = nullptr);
    // The choice form; the items found in choices start ticked.
    CustomListDialog(const QStringList &items, const QString &title, const QStringList &choices,
        QWidget *parent = nullptr);
    ~CustomListDialog() override;

    // Every item's text in list order.
    QStringList items() const;
    // The texts of the ticked items in list order.
    QStringList choices() const;
    // The current item's text, or the null string when there is none.
    QString currentText() const;

public Q_SLOTS:
    void doNew();
    void doRemove();
    void doEdit();
    void doUp();
    void doDown();
    void doUpdate(const QString &text);
    // Orders the items by text; items with the same text keep their order.
    void sort();

private Q_SLOTS:
    void currentChanged(QTreeWidgetItem *current);
    void itemClicked(QTreeWidgetItem *item);

private:
    void setUp(const QString &title);
    QTreeWidgetItem *addItem(const QString &text, bool ticked);
    void setTicked(QTreeWidgetItem *item, bool ticked);
    static bool isTicked(const QTreeWidgetItem *item);
    // Moves the current item by offset places, when that stays inside the list.
    void moveCurrent(int offset);
    void updateButtons();

    std::unique_ptr<Ui::CustomListBase> ui;
    QString m_icon;
    bool m_choiceForm = false;
};

#endif
