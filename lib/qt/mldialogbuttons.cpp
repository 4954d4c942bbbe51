#include "lib/qt/mldialogbuttons.h"

#include "app/resourceicons.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QPushButton>

QDialogButtonBox *MLDialogButtons::okCancel(QDialog *dialog)
{
    auto *box = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, dialog);
    box->setObjectName(QStringLiteral("buttons"));
    QPushButton *ok = box->button(QDialogButtonBox::Ok);
    ok->setObjectName(QStringLiteral("btnOk"));
    ok->setText(QDialogButtonBox::tr("Ok"));
    ok->setIcon(loadIconSet(QStringLiteral("button_ok")));
    ok->setDefault(true);
    QPushButton *cancel = box->button(QDialogButtonBox::Cancel);
    cancel->setObjectName(QStringLiteral("btnCancel"));
    cancel->setText(QDialogButtonBox::tr("Cancel"));
    cancel->setIcon(loadIconSet(QStringLiteral("button_cancel")));
    QObject::connect(box, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
    QObject::connect(box, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    return box;
}
