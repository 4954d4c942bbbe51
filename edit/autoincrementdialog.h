#ifndef AUTOINCREMENTDIALOG_H
#define AUTOINCREMENTDIALOG_H

#include <QDialog>

class QSpinBox;

// The default of an Increment field: the next number a new record takes and the amount
// the counter moves by, held as "next;step".
class AutoIncrementDialog : public QDialog
{
    Q_OBJECT

public:
    // value is split at ";" with empty parts kept; a part that is no number reads 0.
    AutoIncrementDialog(const QString &title, const QString &value, QWidget *parent = nullptr);

    // "next;step" of the two boxes.
    QString value() const;

private:
    QSpinBox *m_start;
    QSpinBox *m_step;
};

#endif
