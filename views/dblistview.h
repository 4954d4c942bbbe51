#ifndef DBLISTVIEW_H
#define DBLISTVIEW_H

#include "views/pimlistview.h"

#include <QPixmap>
#include <QString>

class DBManager;
class DBRecord;

// The list of cards: icon, title, whether there is a description, whether there is a
// password, and the folder of the card file. The widths of the title and folder columns are
// kept in the settings; the columns that show only an icon fit it and can't be resized.
class DBListView : public PIMListView
{
    Q_OBJECT

public:
    // The card list's fields, which are also the manager's sort columns.
    // TransferField is the title with a tick, for lists that choose cards to transfer.
    enum Field {
        IconField = 0,
        TitleField,
        DescriptionField,
        PasswordField,
        PathField,
        TransferField
    };
    // The list's own cell icons.
    enum { DocumentIcon = 1, LockIcon = 2, TickedIcon = 3, UntickedIcon = 4 };
    static constexpr int defaultWidth = 113;

    explicit DBListView(QWidget *parent = nullptr, const QString &name = QStringLiteral("db"));

    DBManager *dbManager() const;

    // What a row shows of a card for one field: a text or a picture.
    struct Cell {
        QString text;
        QPixmap pixmap;
    };
    virtual Cell cell(const DBRecord *record, int field) const;

protected:
    void addField(int field, Config *config) override;
    void columnResized(int section, int newWidth) override;
    RecordItem *createItem(PIMRecord *record) override;
    RecordItem *createItem(PIMRecord *record, RecordItem *after) override;

    // The settings key of the width of a field's column, or empty for a fitted column.
    static QString widthKey(int field);
};

#endif
