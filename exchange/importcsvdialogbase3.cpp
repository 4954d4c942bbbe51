#include "exchange/importcsvdialogbase3.h"

#include "app/resourceicons.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

ImportCSVDialogBase3::ImportCSVDialogBase3(QWidget *parent)
    : QDialog(parent)
    , icon(new QLabel(this))
    , text(new QLabel(this))
    , pr(new QProgressBar(this))
    , btnCancel(new QPushButton(loadIconSet(QStringLiteral("button_cancel")), tr("Cancel"), this))
{
    setObjectName(QStringLiteral("ImportCSVDialogBase3"));
    setWindowTitle(tr("Import Text/CSV Progress"));
    icon->setObjectName(QStringLiteral("icon"));
    text->setObjectName(QStringLiteral("text"));
    pr->setObjectName(QStringLiteral("pr"));
    btnCancel->setObjectName(QStringLiteral("btnCancel"));
    icon->setPixmap(loadIconSet(QStringLiteral("import")).pixmap(32, 32));
    auto *top = new QHBoxLayout;
    top->addWidget(icon);
    top->addWidget(text, 1);
    auto *buttons = new QDialogButtonBox(this);
    buttons->addButton(btnCancel, QDialogButtonBox::RejectRole);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(pr);
    layout->addWidget(buttons);
    connect(btnCancel, &QPushButton::clicked, this, &ImportCSVDialogBase3::cancel);
}
