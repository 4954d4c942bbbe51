#include "lib/qt/mlspinbox.h"

#include <QFocusEvent>
#include <QLineEdit>
#include <QTimer>

MLSpinBox::MLSpinBox(int minValue, int maxValue, int step, QWidget *parent)
    : QSpinBox(parent)
{
    setRange(minValue, maxValue);
    setSingleStep(step);
}

void MLSpinBox::focusInEvent(QFocusEvent *event)
{
    QSpinBox::focusInEvent(event);
    // The press that gave the focus places the cursor after this returns; select then.
    if (event->reason() == Qt::MouseFocusReason)
        QTimer::singleShot(0, this, [this] { selectAll(); });
}
