#include "lib/qt/mlcalculation.h"

#include <QCoreApplication>

#include <cmath>

namespace
{
// Digits a typed number may have; more would be beyond what a double keeps anyway.
constexpr int maxDigits = 15;
} // namespace

MLCalculation::MLCalculation(const QString &text)
{
    bool ok = false;
    const double value = text.trimmed().toDouble(&ok);
    m_display = numberText(ok && std::isfinite(value) ? value : 0.0);
}

QString MLCalculation::numberText(double value)
{
    // Twelve digits hide the binary rounding of sums like 0.1 + 0.2; "-0" is just 0.
    return QString::number(value == 0.0 ? 0.0 : value, 'g', 12);
}

void MLCalculation::pressAll(const QString &keys)
{
    for (const QChar key : keys)
        press(key);
}

void MLCalculation::press(QChar key)
{
    if (key.isDigit())
        digit(key);
    else if (key == QLatin1Char('.'))
        point();
    else if (key == QLatin1Char('\b'))
        backspace();
    else if (key == QLatin1Char('C'))
        clear();
    else if (key == QLatin1Char('='))
        finish();
    else if (QStringLiteral("+-*/").contains(key))
        operation(key);
}

void MLCalculation::digit(QChar digit)
{
    if (m_error)
        clear();
    if (m_newEntry) {
        m_display = QStringLiteral("0");
        m_newEntry = false;
    }
    int digits = 0;
    for (const QChar c : std::as_const(m_display))
        digits += c.isDigit() ? 1 : 0;
    if (digits >= maxDigits)
        return;
    if (m_display == QLatin1String("0"))
        m_display = digit;
    else
        m_display += digit;
}

void MLCalculation::point()
{
    if (m_error)
        clear();
    if (m_newEntry) {
        m_display = QStringLiteral("0.");
        m_newEntry = false;
    } else if (!m_display.contains(QLatin1Char('.'))) {
        m_display += QLatin1Char('.');
    }
}

void MLCalculation::backspace()
{
    if (m_error || m_newEntry)
        return;
    m_display.chop(1);
    if (m_display.isEmpty() || m_display == QLatin1String("-"))
        m_display = QStringLiteral("0");
}

void MLCalculation::operation(QChar op)
{
    if (m_error)
        return;
    if (!m_pending.isNull() && !m_newEntry)
        applyPending();
    else if (m_pending.isNull())
        m_accumulator = displayed();
    if (m_error)
        return;
    m_pending = op;
    m_newEntry = true;
}

void MLCalculation::finish()
{
    if (m_error || m_pending.isNull())
        return;
    applyPending();
    m_pending = QChar();
    m_newEntry = true;
}

void MLCalculation::applyPending()
{
    const double operand = displayed();
    double result = m_accumulator;
    switch (m_pending.unicode()) {
    case '+':
        result += operand;
        break;
    case '-':
        result -= operand;
        break;
    case '*':
        result *= operand;
        break;
    case '/':
        result = operand == 0.0 ? NAN : result / operand;
        break;
    }
    if (!std::isfinite(result)) {
        m_error = true;
        m_display = QCoreApplication::translate("MLCalculation", "Error");
        return;
    }
    m_accumulator = result;
    m_display = numberText(result);
}

void MLCalculation::clear()
{
    m_display = QStringLiteral("0");
    m_accumulator = 0.0;
    m_pending = QChar();
    m_newEntry = true;
    m_error = false;
}
