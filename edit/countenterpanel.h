#ifndef COUNTENTERPANEL_H
#define COUNTENTERPANEL_H

#include <QWidget>

class MLSpinBox;

// The count entry of CountEnterDialog and CountEnterPopup: a spin box from 1 to 9999 and
// six buttons, "1" to "5" and "Ok". A number button sets the spin box to its number.
// Each button reports chosen(), upon which the owner closes.
class CountEnterPanel : public QWidget
{
    Q_OBJECT

public:
    explicit CountEnterPanel(QWidget *parent = nullptr);

    // Sets the spin box to value, with " " and text after the number.
    void setValue(int value, const QString &text);
    int value() const;

Q_SIGNALS:
    void chosen();

private:
    MLSpinBox *m_spin;
};

#endif
