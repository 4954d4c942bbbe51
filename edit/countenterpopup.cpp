#include "edit/countenterpopup.h"

#include "edit/countenterpanel.h"

#include <QVBoxLayout>

CountEnterPopup::CountEnterPopup(QWidget *parent)
    : PopupDialog(parent)
    , m_panel(new CountEnterPanel(this))
{
    contentLayout()->addWidget(m_panel);
    connect(m_panel, &CountEnterPanel::chosen, this, &QDialog::accept);
}

int CountEnterPopup::exec(const QPoint &pos, int value, const QString &text)
{
    m_panel->setValue(value, text);
    m_panel->setFocus();
    execAt(pos);
    return m_panel->value();
}
