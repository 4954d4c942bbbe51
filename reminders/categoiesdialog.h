#ifndef CATEGOIESDIALOG_H
#define CATEGOIESDIALOG_H

#include <QDialog>
#include <QStringList>

class CategoryListView;
class PIMManager;
class PIMRecord;
class QDialogButtonBox;
class QToolButton;

// Edits the store of categories: new, rename, remove and the colours. Given the UIDs of a
// record's categories it also ticks them, and selectedCategories() gives the ticked ones
// back. Every change is saved to the store at once; Ok and Cancel only decide whether the
// caller takes the ticks.
class CategoiesDialog : public QDialog
{
    Q_OBJECT

public:
    // The editor of the store: title and colours, no check marks.
    explicit CategoiesDialog(PIMManager *manager, QWidget *parent = nullptr);
    // The chooser: the categories whose UID is in uids start ticked.
    CategoiesDialog(PIMManager *manager, const QStringList &uids, QWidget *parent = nullptr);

    CategoryListView *list() const { return m_list; }
    // The UIDs of the ticked categories, in list order.
    QStringList selectedCategories() const;

public Q_SLOTS:
    void newCategory();
    void renameCategory();
    void removeCategory();
    void selectionCleared();
    void selected(PIMRecord *record);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    CategoiesDialog(PIMManager *manager, const QStringList *uids, QWidget *parent);
    void markSelected(const QStringList &uids);
    QToolButton *addButton(const QString &icon, const QString &tip, const char *name);
    QWidget *buildButtons();

    PIMManager *m_manager;
    CategoryListView *m_list;
    QToolButton *m_new = nullptr;
    QToolButton *m_rename = nullptr;
    QToolButton *m_remove = nullptr;
    QDialogButtonBox *m_buttons = nullptr;
};

#endif
