#ifndef MLCALCULATION_H
#define MLCALCULATION_H

#include <QChar>
#include <QString>

// The arithmetic of a pocket calculator: a number is typed into the display, an operator
// takes it, and the next operator or "=" works out what is pending, left to right.
// Keys: "0"-"9", ".", "+", "-", "*", "/", "=", "C" (clear) and "\b" (take back a digit).
class MLCalculation
{
public:
    // Starts with the number in text on display; text that isn't a number gives 0.
    explicit MLCalculation(const QString &text = QString());

    void press(QChar key);
    void pressAll(const QString &keys);

    QString display() const { return m_display; }
    bool hasError() const { return m_error; }
    bool hasPending() const { return !m_pending.isNull(); }
    // Works out a pending operation, as "=" does.
    void finish();

    static QString numberText(double value);

private:
    void digit(QChar digit);
    void point();
    void backspace();
    void operation(QChar op);
    void clear();
    // Applies the pending operation to the accumulator and the displayed number.
    void applyPending();
    double displayed() const { return m_display.toDouble(); }

    QString m_display;
    double m_accumulator = 0.0;
    QChar m_pending;
    bool m_newEntry = true;
    bool m_error = false;
};

#endif
