#ifndef COUNTENTERPOPUP_H
#define COUNTENTERPOPUP_H

#include "edit/popupdialog.h"

class CountEnterPanel;

// A count from 1 to 9999 entered in a pop-up at a point; see CountEnterPanel.
class CountEnterPopup : public PopupDialog
{
    Q_OBJECT

public:
    explicit CountEnterPopup(QWidget *parent = nullptr);

    // Shows value with text after it at pos; the count shown when the pop-up closed, also
    // when it was dismissed.
    int exec(const QPoint &pos, int value, const QString &text);
    using QDialog::exec;

private:
    CountEnterPanel *m_panel;
};

#endif
