#ifndef FIELDEDITOR_H
#define FIELDEDITOR_H

#include "card/fielddef.h"

#include <QDialog>
#include <QList>

class DataManager;
class DataRecord;
class QMenu;
class ScrollView;

// Where the user defines a card's fields: names, types, order, and per type a formula,
// format, list items or default. It works on a copy of the card's field list; the caller
// reads fields() after the dialog, however it ended, and hands them to the card. Only the
// formula step reaches the card earlier, so that field numbers match what the records hold.
class FieldEditor : public QDialog
{
    Q_OBJECT

public:
    FieldEditor(DataManager *manager, QWidget *parent = nullptr);

    QList<FieldDef> fields() const { return m_fields; }
    ScrollView *form() const { return m_form; }
    // The record (by UID text) on which the formula editor previews; none when empty.
    void setPreviewRecord(const QString &uid) { m_previewUid = uid; }

public Q_SLOTS:
    void titleChanged(const QString &text);
    void typeChanged(int type);
    void checkSpecFields();
    void extendedMenu();
    void newFieldRecord();

private:
    // The menu of a row's button, as extendedMenu shows it.
    QMenu *createMenu(int index);

    // Default step of each type, on the entry's defaultValue (and items for lists).
    void editDefault(int index);
    void editFormula(int index);
    void editFormat(int index);
    void editItems(int index);
    // Swaps entries index and other and their rows.
    void moveField(int index, int other);
    // Asks first.
    void removeField(int index);

    QWidget *makeRow(int index);
    // The index of the row that holds child, or -1.
    int indexOf(const QObject *child) const;
    void findPreviewRecords(const DataRecord **record, const DataRecord **previous) const;
    void addTypeItems(QMenu *menu, int index);

    DataManager *m_manager;
    QList<FieldDef> m_fields;
    ScrollView *m_form;
    int m_count = 0;
    QString m_previewUid;
};

#endif
