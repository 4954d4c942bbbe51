#ifndef DATASCROLLVIEW_H
#define DATASCROLLVIEW_H

#include "card/fielddef.h"

#include <QList>
#include <QScrollArea>

class DataRecord;
class QLabel;
class QToolButton;

// The form of the record editor: one row for each field of the card, in field order, each
// with the widget of the field's type. A row is a child named by its field's index with a
// label "label" and a value widget "val". Rows of fields that are not typed in here
// (calculated, Memo, Reminder, Increment) exist but are disabled and hidden.
class DataScrollView : public QScrollArea
{
    Q_OBJECT

public:
    explicit DataScrollView(QWidget *parent = nullptr);

    // Adds the row of field index; the buttons of its row call the receiver's slots
    // calculateValue(), editList() and editMultiList().
    void addRow(int index, const FieldDef &field, const QStringList &items, QObject *receiver);
    // Gives every label the width of the widest; call after the last row.
    void alignLabels();

    int rowCount() const { return int(m_fields.size()); }
    int visibleRowCount() const { return m_visibleRows; }
    QWidget *row(int index) const;
    // The value widget of a row, or null.
    QWidget *valueWidget(int index) const;
    // The first line edit of the visible rows, which takes the focus.
    QWidget *firstEdit() const;

    // Fills the rows from record, and stores the rows into it.
    void load(const DataRecord *record);
    void store(DataRecord *record) const;

    // Refills a List row's entries, keeping its text.
    void setListItems(int index, const QStringList &items);
    // A MultiList row's choices, kept as line-feed separated text.
    static QString multiListChoices(const QWidget *value);
    static void setMultiListChoices(QWidget *value, const QString &choices);

    // True for fields that get a visible row.
    static bool isEditable(const FieldDef &field);

public Q_SLOTS:
    // Lays the form out again after a row changed its size (a picture set or removed).
    void updateWidgets();

private:
    QWidget *createValueWidget(
        QWidget *row, const FieldDef &field, const QStringList &items, QObject *receiver);
    // A tool button shows its picture alone; its text (the title) names it for editList().
    QToolButton *addButton(QWidget *row, const QString &icon, const QString &name,
        QObject *receiver, const char *slot);
    void loadValue(int index, const DataRecord *record);
    void storeValue(int index, DataRecord *record) const;

    QWidget *m_form;
    QList<FieldDef> m_fields;
    QList<QLabel *> m_labels;
    int m_visibleRows = 0;
};

#endif
