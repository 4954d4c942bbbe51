#ifndef CATEGORIESSELECTOR_H
#define CATEGORIESSELECTOR_H

#include <QStringList>
#include <QWidget>

class MLComboBox;
class PIMManager;
class PIMRecord;
class QToolButton;

// Chooses a record's categories: a combo box of single categories and, for a record with
// several, one entry per category that leads the whole set (" [...]"), plus a button that
// opens the categories dialog.
class CategoriesSelector : public QWidget
{
    Q_OBJECT

public:
    explicit CategoriesSelector(QWidget *parent = nullptr);

    // The categories of the record's manager's related manager, showing the record's own.
    void setRecord(const PIMRecord *record);
    void setCategories(const QStringList &uids);
    // Gives the record the categories of the chosen entry.
    void apply(PIMRecord *record) const;

    PIMManager *manager() const { return m_manager; }
    MLComboBox *comboBox() const { return m_combo; }
    // The UIDs of the chosen entry, front first.
    QStringList currentCategories() const;

public Q_SLOTS:
    void edit();

private:
    void addSingles(const QString &current);
    void addSets(const QStringList &uids);
    QString titleOf(const QString &uid) const;

    PIMManager *m_manager = nullptr;
    MLComboBox *m_combo;
    QToolButton *m_edit;
    QStringList m_entries; // per entry of the combo: its UIDs joined with "|"
};

#endif
