#include "pclink/transfercommands.h"

#include "pclink/senddatadialogserver.h"
#include "pclink/transfercards.h"
#include "pclink/transferdata.h"
#include "store/dbmanager.h"

void TransferCommands::prepare(DBManager *cards)
{
    cards->save();
    cards->refreshAll();
}

void TransferCommands::serve(DBManager *cards, QWidget *parent)
{
    prepare(cards);
    TransferCards::publishCatalogue(*cards);
    {
        SendDataDialogServer dialog(cards, parent);
        dialog.setWindowState(Qt::WindowMaximized);
        dialog.exec();
    }
    TransferCards::withdrawCatalogue();
}

void TransferCommands::send(DBManager *cards, const QString &currentPath, QWidget *parent)
{
    prepare(cards);
    TransferData dialog(true, cards, currentPath, parent);
    dialog.setWindowState(Qt::WindowMaximized);
    dialog.exec();
}

void TransferCommands::get(DBManager *cards, QWidget *parent)
{
    prepare(cards);
    TransferData dialog(false, cards, QString(), parent);
    dialog.setWindowState(Qt::WindowMaximized);
    dialog.exec();
}
