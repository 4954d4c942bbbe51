#include "pclink/transferdatabase.h"

#include "app/resourceicons.h"
#include "views/dblistview.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

TransferDataBase::TransferDataBase(QWidget *parent)
    : QDialog(parent)
    , addr(new QLineEdit(this))
    , btnConnect(new QPushButton(tr("Connect"), this))
    , dbbox(new QGroupBox(this))
    , list(new DBListView(dbbox, QStringLiteral("dbs")))
    , btnOk(new QPushButton(tr("Start"), this))
    , btnCancel(new QPushButton(tr("Cancel"), this))
{
    setObjectName(QStringLiteral("TransferDataBase"));
    setWindowTitle(tr("Transfer Data"));
    addr->setObjectName(QStringLiteral("addr"));
    btnConnect->setObjectName(QStringLiteral("btnConnect"));
    btnOk->setObjectName(QStringLiteral("btnOk"));
    btnCancel->setObjectName(QStringLiteral("btnCancel"));
    btnConnect->setIcon(loadIconSet(QStringLiteral("connect")));
    btnOk->setIcon(loadIconSet(QStringLiteral("button_ok")));
    btnCancel->setIcon(loadIconSet(QStringLiteral("button_cancel")));
    btnConnect->setAutoDefault(false);

    auto *setting = new QGroupBox(tr("Setting"), this);
    auto *address = new QHBoxLayout(setting);
    address->addWidget(new QLabel(tr("Device IP address:"), setting));
    address->addWidget(addr, 1);
    address->addWidget(btnConnect);
    auto *cards = new QVBoxLayout(dbbox);
    cards->addWidget(list);
    // Start runs the transfer and closes the window only when it succeeded.
    auto *buttons = new QDialogButtonBox(this);
    buttons->addButton(btnOk, QDialogButtonBox::ActionRole);
    buttons->addButton(btnCancel, QDialogButtonBox::RejectRole);
    btnOk->setDefault(true);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(setting);
    layout->addWidget(dbbox, 1);
    layout->addWidget(buttons);

    connect(btnConnect, &QPushButton::clicked, this, &TransferDataBase::doConnect);
    connect(btnOk, &QPushButton::clicked, this, &TransferDataBase::start);
    connect(btnCancel, &QPushButton::clicked, this, &QDialog::reject);
}
