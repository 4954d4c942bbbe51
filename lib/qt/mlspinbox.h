#ifndef MLSPINBOX_H
#define MLSPINBOX_H

#include <QSpinBox>

// A whole-number spin box made with its range and step. A tap into it selects the number,
// so that what is typed next replaces it, as keyboard focus does.
class MLSpinBox : public QSpinBox
{
    Q_OBJECT

public:
    MLSpinBox(int minValue, int maxValue, int step, QWidget *parent = nullptr);

protected:
    void focusInEvent(QFocusEvent *event) override;
};

#endif
