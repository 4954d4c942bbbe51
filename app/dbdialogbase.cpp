#include "app/dbdialogbase.h"

#include "views/dblistview.h"

#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

DBDialogBase::DBDialogBase(QWidget *parent)
    : QDialog(parent)
    , list(new DBListView(this))
    , memo(new QPlainTextEdit(this))
    , btnOpen(new QPushButton(this))
    , btnNew(new QPushButton(this))
    , btnEdit(new QPushButton(this))
    , btnDup(new QPushButton(this))
    , btnRemove(new QPushButton(this))
    , btnSelect(new QPushButton(this))
    , btnOk(new QPushButton(this))
{
    setObjectName(QStringLiteral("DBDialogBase"));
    memo->setObjectName(QStringLiteral("memo"));
    btnOpen->setObjectName(QStringLiteral("btnOpen"));
    btnNew->setObjectName(QStringLiteral("btnNew"));
    btnEdit->setObjectName(QStringLiteral("btnEdit"));
    btnDup->setObjectName(QStringLiteral("btnDup"));
    btnRemove->setObjectName(QStringLiteral("btnRemove"));
    btnSelect->setObjectName(QStringLiteral("btnSelect"));
    btnOk->setObjectName(QStringLiteral("btnOk"));
    btnOpen->setToolTip(tr("Add Cards"));
    btnNew->setToolTip(tr("New Card"));
    btnEdit->setToolTip(tr("Card's Details"));
    btnDup->setToolTip(tr("Duplicate Card"));
    btnRemove->setToolTip(tr("Remove Card"));
    for (QPushButton *button : { btnOpen, btnNew, btnEdit, btnDup, btnRemove, btnSelect, btnOk })
        button->setAutoDefault(false);

    auto *buttons = new QHBoxLayout;
    for (QPushButton *button : { btnOpen, btnNew, btnEdit, btnDup, btnRemove })
        buttons->addWidget(button);
    buttons->addStretch();
    buttons->addWidget(btnSelect);
    buttons->addWidget(btnOk);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(3, 3, 3, 3);
    layout->setSpacing(3);
    layout->addWidget(list, 1);
    layout->addWidget(memo);
    layout->addLayout(buttons);

    connect(btnNew, &QPushButton::clicked, this, &DBDialogBase::doNew);
    connect(btnEdit, &QPushButton::clicked, this, &DBDialogBase::doEdit);
    connect(btnDup, &QPushButton::clicked, this, &DBDialogBase::doDuplicate);
    connect(btnSelect, &QPushButton::clicked, this, &DBDialogBase::doSelect);
    connect(btnOk, &QPushButton::clicked, this, &QDialog::reject);
}
