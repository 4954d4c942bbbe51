#include "lib/qt/enterstringdialog.h"

#include "app/resourceicons.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

EnterStringDialog::EnterStringDialog(const QString &caption, const QString &text, QWidget *parent)
    : QDialog(parent)
    , m_edit(new QLineEdit(text, this))
{
    setWindowTitle(caption);
    m_edit->setObjectName(QStringLiteral("text"));
    m_edit->selectAll();
    m_edit->setMinimumWidth(m_edit->fontMetrics().averageCharWidth() * 32);

    auto *ok = new QPushButton(loadIconSet(QStringLiteral("button_ok")), tr("Ok"), this);
    ok->setObjectName(QStringLiteral("btnOk"));
    ok->setDefault(true);
    auto *cancel
        = new QPushButton(loadIconSet(QStringLiteral("button_cancel")), tr("Cancel"), this);
    cancel->setObjectName(QStringLiteral("btnCancel"));
    cancel->setAutoDefault(false);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_edit);
    layout->addLayout(buttons);
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
