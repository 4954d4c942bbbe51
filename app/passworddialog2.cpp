#include "app/passworddialog2.h"

#include "app/cardpixmap.h"
#include "app/resourceicons.h"
#include "store/dbmanager.h"
#include "store/dbrecord.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardItemModel>
#include <QToolButton>

PasswordDialog2::PasswordDialog2(DBManager *manager, DBRecord *record, QWidget *parent)
    : PasswordDialog(false, parent)
    , manager(manager)
    , cards(new QComboBox(this))
    , btnCards(new QToolButton(this))
{
    cards->setObjectName(QStringLiteral("cards"));
    btnCards->setObjectName(QStringLiteral("btnCards"));
    btnCancel->setText(tr("Exit"));
    btnCards->setIcon(loadIconSet(QStringLiteral("cards")));
    btnCards->setAutoRaise(true);
    grid->addWidget(cards, firstFieldRow - 1, 0, 1, 2);
    grid->addWidget(btnCards, firstFieldRow - 1, 2);
    fillCards(record);
    setFixedHeight(sizeHint().height());

    connect(cards, &QComboBox::activated, this, &PasswordDialog2::dbActivated);
    connect(btnCards, &QToolButton::clicked, this, &PasswordDialog2::callManager);
}

// An entry whose card can't be read is shown greyed and can't be chosen.
void PasswordDialog2::fillCards(DBRecord *current)
{
    auto *model = qobject_cast<QStandardItemModel *>(cards->model());
    for (PIMRecord *entry : manager->view()) {
        auto *card = static_cast<DBRecord *>(entry);
        cards->addItem(QIcon(cardPixmap(manager, card)), card->title(), card->uidString());
        if (card == current)
            cards->setCurrentIndex(cards->count() - 1);
        else if (model && !manager->isAvailable(card))
            model->item(cards->count() - 1)->setEnabled(false);
    }
}

DBRecord *PasswordDialog2::selectedRecord() const
{
    // By identity rather than by title: two folders may hold cards of the same name.
    return static_cast<DBRecord *>(manager->findByUid(cards->currentData().toString()));
}

void PasswordDialog2::dbActivated()
{
    const DBRecord *record = selectedRecord();
    if (record && record->password().isEmpty())
        accept();
    else
        p1->clear();
}

void PasswordDialog2::callManager()
{
    managerRequested = true;
    reject();
}

DBRecord *PasswordDialog2::authorize(
    DBManager *manager, DBRecord *record, bool &cancelled, QWidget *parent)
{
    cancelled = false;
    if (record->password().isEmpty())
        return record;
    PasswordDialog2 dialog(manager, record, parent);
    const QString typed = dialog.getPassword();
    if (dialog.isManagerRequested()) {
        cancelled = true;
        return nullptr;
    }
    DBRecord *chosen = dialog.selectedRecord();
    if (!chosen)
        return nullptr;
    if (chosen->password().isEmpty())
        return chosen;
    // A null text is "Exit": it matches no password.
    return !typed.isNull() && typed == chosen->password() ? chosen : nullptr;
}
