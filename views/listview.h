#ifndef LISTVIEW_H
#define LISTVIEW_H

#include "card/fielddef.h"
#include "views/pimlistview.h"

#include <QList>

class DataManager;

// The main window's list of the records of the open card. Its columns are fields of the
// card; a column's width belongs to the card's field, so every view of the card shares it.
class ListView : public PIMListView
{
    Q_OBJECT

public:
    explicit ListView(QWidget *parent = nullptr, const QString &name = QStringLiteral("main"));

    // Binds the list, live, to an opened card with its fields and the fields to show as
    // columns, and shows the records.
    void bind(DataManager *manager, const QList<FieldDef> &fields, const QList<int> &columns);

    // The list's own copy of the card's fields, in field order.
    void setFields(const QList<FieldDef> &fields) { m_fields = fields; }
    const QList<FieldDef> &fields() const { return m_fields; }
    DataManager *dataManager() const;

public Q_SLOTS:
    // A row added or changed may need more room in a column the user has not sized.
    void newTask(PIMRecord *record) override;
    void updateTask(PIMRecord *record) override;

protected:
    void addField(int field, Config *config) override;
    void columnResized(int section, int newWidth) override;
    RecordItem *createItem(PIMRecord *record) override;
    RecordItem *createItem(PIMRecord *record, RecordItem *after) override;

private:
    // Columns whose field has no width of the user's fit the rows on the page, within a
    // maximum and never narrower than their header. Nothing is stored: the card keeps only
    // widths the user set.
    void fitUnsetColumns();

    QList<FieldDef> m_fields;
};

#endif
