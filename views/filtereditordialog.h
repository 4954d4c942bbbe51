#ifndef FILTEREDITORDIALOG_H
#define FILTEREDITORDIALOG_H

#include "views/filterdef.h"

#include <QDialog>

class DataManager;
class FieldDef;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTimer;
class QTreeWidget;

// Edits the conditions of a named filter, or of the find: the widgets make one condition,
// which the list collects. For find the dialog also counts, as the user types, how many
// records the conditions would let through.
class FilterEditorDialog : public QDialog
{
    Q_OBJECT

public:
    enum { NewFilter = -1, Find = -2 };

    // index: a filter of the manager, NewFilter or Find.
    FilterEditorDialog(
        DataManager *manager, int index, QWidget *parent = nullptr, const char *name = nullptr);

    // Called after the dialog was accepted: stores the filter, or starts the find.
    void apply();
    QList<FilterCondition> conditions() const { return working; }

public Q_SLOTS:
    void fieldChanged(int index);
    void conditionChanged(int code);
    void addCondition();
    void removeCondition();
    void calculateValue();
    // Asks before an edited filter is thrown away.
    void reject() override;

Q_SIGNALS:
    // One pass of the live count of find is done.
    void matchesCounted(int count);

private Q_SLOTS:
    void currentRowChanged();
    void scheduleCount();
    void countMatches();

private:
    void buildWidgets(bool find);
    QWidget *makeValueWidget(int type);
    // The type a condition on field is tested as: the text types for "All Text Fields"
    // and for a field past the list of a damaged card.
    int typeOf(int field) const;
    FilterCondition conditionFromWidgets() const;
    void storeValue(FilterCondition &condition, int type) const;
    void loadValue(const FilterCondition &condition, int type);
    QString valueText(const FilterCondition &condition) const;
    void appendRow(const FilterCondition &condition);
    void watchValue();
    FilterDef shownFilter() const;

    DataManager *manager;
    const int index;
    const QList<FieldDef> fields;
    QList<FilterCondition> working;
    FilterDef startFilter;

    QLineEdit *fname = nullptr;
    QComboBox *fs = nullptr;
    QComboBox *cond = nullptr;
    QWidget *valBase = nullptr;
    QLabel *action = nullptr;
    QTreeWidget *list = nullptr;
    QPushButton *btnAdd = nullptr;
    QPushButton *btnRemove = nullptr;
    QLabel *matches = nullptr;
    QTimer *countTimer = nullptr;
};

#endif
