#include "lib/qt/enterstringdialog.h"

#include "lib/qt/mldialogbuttons.h"

#include <QDialogButtonBox>
#include <QLineEdit>
#include <QVBoxLayout>

EnterStringDialog::EnterStringDialog(const QString &caption, const QString &text, QWidget *parent)
    : QDialog(parent)
    , m_edit(new QLineEdit(text, this))
{
    setWindowTitle(caption);
    m_edit->setObjectName(QStringLiteral("text"));
    m_edit->selectAll();
    m_edit->setMinimumWidth(m_edit->fontMetrics().averageCharWidth() * 32);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_edit);
    layout->addWidget(MLDialogButtons::okCancel(this));
    m_edit->setFocus();
}

QString EnterStringDialog::text() const
{
    return m_edit->text();
}

bool EnterStringDialog::getText(const QString &caption, QString &text, QWidget *parent)
{
    EnterStringDialog dialog(caption, text, parent);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    text = dialog.text();
    return true;
}
