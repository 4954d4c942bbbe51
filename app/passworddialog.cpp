#include "app/passworddialog.h"

#include "app/mrldialog.h"
#include "app/resourceicons.h"
#include "store/dbrecord.h"

#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>

namespace
{
// The dialog spans a handheld's screen; on a desktop it stays a readable width.
constexpr int maxWidth = 460;
} // namespace

PasswordDialog::PasswordDialog(bool confirm, QWidget *parent)
    : PasswordDialogBase(parent)
    , confirm(confirm)
{
    btnCancel->setIcon(loadIconSet(QStringLiteral("button_cancel")));
    btnOk->setIcon(loadIconSet(QStringLiteral("button_ok")));
    btnMask->setIcon(loadIconSet(QStringLiteral("lock")));
    if (confirm) {
        icon->setPixmap(loadPixmap(QStringLiteral("lock2")));
    } else {
        p2->hide();
        icon->hide();
    }
    btnMask->setChecked(true);
    maskChanged();

    const QScreen *screen = QGuiApplication::primaryScreen();
    const int screenWidth = screen ? screen->availableGeometry().width() : maxWidth + 20;
    setFixedWidth(qMin(screenWidth - 20, maxWidth));
    setFixedHeight(sizeHint().height());
}

void PasswordDialog::maskChanged()
{
    const QLineEdit::EchoMode mode = btnMask->isChecked() ? QLineEdit::Password : QLineEdit::Normal;
    p1->setEchoMode(mode);
    p2->setEchoMode(mode);
}

QString PasswordDialog::getPassword()
{
    for (;;) {
        p1->clear();
        p2->clear();
        p1->setFocus();
        if (exec() != Accepted)
            return QString();
        if (!confirm || p1->text() == p2->text())
            return typedText();
        MRLDialog::critical(windowTitle(), tr("Passwords do not match."));
    }
}

// Never null, so that an accepted empty field differs from a cancelled dialog.
QString PasswordDialog::typedText() const
{
    const QString text = p1->text();
    return text.isNull() ? QStringLiteral("") : text;
}

bool PasswordDialog::verifyPassword(const DBRecord *record, QWidget *parent)
{
    if (record->password().isEmpty())
        return true;
    PasswordDialog dialog(false, parent);
    const QString typed = dialog.getPassword();
    if (!typed.isNull() && typed == record->password())
        return true;
    MRLDialog::critical(tr("Invalid password"), tr("Access denied."));
    return false;
}
