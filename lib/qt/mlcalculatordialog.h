#ifndef MLCALCULATORDIALOG_H
#define MLCALCULATORDIALOG_H

#include "lib/qt/mlcalculation.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

// A calculator that starts from a number and hands back the result: digit and operator
// buttons, "=", clear and a key to take a digit back, with the keyboard doing the same.
// "Ok", or Return with nothing pending, works out the sum and takes it; an error (a
// division by zero) can't be taken.
class MLCalculatorDialog : public QDialog
{
    Q_OBJECT

public:
    explicit MLCalculatorDialog(const QString &value, QWidget *parent = nullptr);

    // The result after "Ok".
    QString text() const { return m_calculation.display(); }

    // Runs the calculator on the line edit's number and writes the result back into it
    // when accepted; true when accepted.
    static bool calculate(QLineEdit *edit, QWidget *parent = nullptr);

public Q_SLOTS:
    void accept() override;
    void press(QChar key);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    QPushButton *addKey(const QString &label, QChar key, const QString &name);
    void buildKeys();
    void showDisplay();

    MLCalculation m_calculation;
    QLabel *m_display;
    QPushButton *m_ok = nullptr;
};

#endif
