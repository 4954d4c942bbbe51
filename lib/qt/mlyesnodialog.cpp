#include "lib/qt/mlyesnodialog.h"

#include "app/mrldialog.h"

#include <QCoreApplication>

bool MLYesNoDialog::ask(const QString &caption, const QString &text)
{
    const int answer = MRLDialog::ask(caption, text, QStringLiteral("dialog_warning"),
        QCoreApplication::translate("MLYesNoDialog", "Yes"), QStringLiteral("button_ok"),
        QCoreApplication::translate("MLYesNoDialog", "No"), QStringLiteral("button_cancel"), 1, 2);
    return answer == 1;
}
