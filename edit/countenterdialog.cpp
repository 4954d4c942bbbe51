#include "edit/countenterdialog.h"

#include "edit/countenterpanel.h"

#include <QVBoxLayout>

CountEnterDialog::CountEnterDialog(const QString &title, QWidget *parent)
    : QDialog(parent)
    , m_panel(new CountEnterPanel(this))
{
    setWindowTitle(title);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_panel);
    connect(m_panel, &CountEnterPanel::chosen, this, &QDialog::accept);
}

int CountEnterDialog::exec(int value, const QString &text)
{
    m_panel->setValue(value, text);
    m_panel->setFocus();
    QDialog::exec();
    return m_panel->value();
}
