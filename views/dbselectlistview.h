#ifndef DBSELECTLISTVIEW_H
#define DBSELECTLISTVIEW_H

#include "views/dblistview.h"

// A card list with one more column that ticks cards for a transfer: the property
// "transfer" of an entry. A click on that column's header ticks every card that can be
// transferred, or, when all are ticked, unticks them all.
class DBSelectListView : public DBListView
{
    Q_OBJECT

public:
    enum { TransferField = PathField + 1 };
    enum { OnIcon = 3, OffIcon = 4 };

    explicit DBSelectListView(
        QWidget *parent = nullptr, const QString &name = QStringLiteral("db"));

    Cell cell(const DBRecord *record, int field) const override;

    static bool isTicked(const DBRecord *record);

public Q_SLOTS:
    void sectionClicked(int section) override;

protected:
    void addField(int field, Config *config) override;

private:
    void tickAll(bool tick);
};

#endif
