#include "edit/autoincrementdialog.h"

#include "app/resourceicons.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include <limits>

namespace
{
QSpinBox *numberBox(const QString &name, int value, QWidget *parent)
{
    auto *box = new QSpinBox(parent);
    box->setObjectName(name);
    box->setRange(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
    box->setValue(value);
    return box;
}
} // namespace

AutoIncrementDialog::AutoIncrementDialog(
    const QString &title, const QString &value, QWidget *parent)
    : QDialog(parent)
{
    setModal(true);
    setWindowTitle(title);
    const QStringList parts = value.split(QLatin1Char(';'));
    m_start = numberBox(QStringLiteral("start"), parts.value(0).toInt(), this);
    m_step = numberBox(QStringLiteral("step"), parts.value(1).toInt(), this);

    auto *buttons = new QDialogButtonBox(this);
    QPushButton *ok = buttons->addButton(QDialogButtonBox::Ok);
    QPushButton *cancel = buttons->addButton(QDialogButtonBox::Cancel);
    ok->setObjectName(QStringLiteral("btnOk"));
    cancel->setObjectName(QStringLiteral("btnCancel"));
    ok->setIcon(loadIconSet(QStringLiteral("button_ok")));
    cancel->setIcon(loadIconSet(QStringLiteral("button_cancel")));
    ok->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *form = new QFormLayout;
    form->addRow(tr("Starting number:"), m_start);
    form->addRow(tr("Increment Amount:"), m_step);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);
    m_start->setFocus();
    m_start->selectAll();
}

QString AutoIncrementDialog::value() const
{
    return QStringLiteral("%1;%2").arg(m_start->value()).arg(m_step->value());
}
