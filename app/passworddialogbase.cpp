#include "app/passworddialogbase.h"

#include "lib/qt/mldialogbuttons.h"

#include <QDialogButtonBox>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

PasswordDialogBase::PasswordDialogBase(QWidget *parent)
    : QDialog(parent)
    , p1(new QLineEdit(this))
    , p2(new QLineEdit(this))
    , btnMask(new QPushButton(tr("Mask"), this))
    , Line9(new QFrame(this))
    , icon(new QLabel(this))
    , grid(new QGridLayout(this))
{
    setObjectName(QStringLiteral("PasswordDialogBase"));
    setWindowTitle(tr("Enter password"));
    p1->setObjectName(QStringLiteral("p1"));
    p2->setObjectName(QStringLiteral("p2"));
    btnMask->setObjectName(QStringLiteral("btnMask"));
    Line9->setObjectName(QStringLiteral("Line9"));
    icon->setObjectName(QStringLiteral("icon"));
    Line9->setFrameShape(QFrame::HLine);
    Line9->setFrameShadow(QFrame::Sunken);
    icon->setAlignment(Qt::AlignCenter);
    btnMask->setCheckable(true);
    QDialogButtonBox *box = MLDialogButtons::okCancel(this);
    btnOk = box->button(QDialogButtonBox::Ok);
    btnCancel = box->button(QDialogButtonBox::Cancel);
    // Return in a field accepts through the field, not through a default button.
    for (QPushButton *button : { btnMask, btnCancel, btnOk }) {
        button->setDefault(false);
        button->setAutoDefault(false);
    }

    grid->addWidget(icon, firstFieldRow, 0, 2, 1);
    grid->addWidget(p1, firstFieldRow, 1);
    grid->addWidget(p2, firstFieldRow + 1, 1);
    grid->addWidget(Line9, firstFieldRow + 2, 0, 1, 2);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(btnMask);
    buttons->addStretch();
    buttons->addWidget(box);
    grid->addLayout(buttons, firstFieldRow + 3, 0, 1, 2);
    grid->setColumnStretch(1, 1);

    connect(btnMask, &QPushButton::toggled, this, &PasswordDialogBase::maskChanged);
    connect(p1, &QLineEdit::returnPressed, this, &QDialog::accept);
    connect(p2, &QLineEdit::returnPressed, this, &QDialog::accept);
}
