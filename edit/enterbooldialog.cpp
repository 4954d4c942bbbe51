#include "edit/enterbooldialog.h"

#include "ui_enterbooldialogbase.h"

#include "app/resourceicons.h"

EnterBoolDialog::EnterBoolDialog(const QString &title, QWidget *parent)
    : QDialog(parent)
    , ui(std::make_unique<Ui::EnterBoolDialogBase>())
{
    ui->setupUi(this);
    setWindowTitle(title);
    ui->btnOk->setIcon(loadIconSet(QStringLiteral("button_ok")));
    ui->btnCancel->setIcon(loadIconSet(QStringLiteral("button_cancel")));
    setFixedSize(sizeHint());
}

EnterBoolDialog::~EnterBoolDialog() = default;

bool EnterBoolDialog::exec(bool value)
{
    ui->checked->setChecked(value);
    ui->unchecked->setChecked(!value);
    (value ? ui->checked : ui->unchecked)->setFocus();
    if (QDialog::exec() != QDialog::Accepted)
        return value;
    return ui->checked->isChecked();
}
