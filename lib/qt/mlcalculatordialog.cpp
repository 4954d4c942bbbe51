#include "lib/qt/mlcalculatordialog.h"

#include "app/resourceicons.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace
{
struct KeyCap {
    const char *label;
    char key;
    const char *name;
};

// Four rows of four, as on a desk calculator, then clear and take-back.
constexpr KeyCap keyCaps[] = {
    { "7", '7', "btn7" },
    { "8", '8', "btn8" },
    { "9", '9', "btn9" },
    { "\u00f7", '/', "btnDiv" },
    { "4", '4', "btn4" },
    { "5", '5', "btn5" },
    { "6", '6', "btn6" },
    { "\u00d7", '*', "btnMul" },
    { "1", '1', "btn1" },
    { "2", '2', "btn2" },
    { "3", '3', "btn3" },
    { "\u2212", '-', "btnSub" },
    { "0", '0', "btn0" },
    { ".", '.', "btnPoint" },
    { "=", '=', "btnEquals" },
    { "+", '+', "btnAdd" },
};
constexpr int columns = 4;
} // namespace

MLCalculatorDialog::MLCalculatorDialog(const QString &value, QWidget *parent)
    : QDialog(parent)
    , m_calculation(value)
    , m_display(new QLabel(this))
{
    setWindowTitle(tr("Calculator"));
    m_display->setObjectName(QStringLiteral("display"));
    m_display->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_display->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    m_display->setTextInteractionFlags(Qt::TextSelectableByMouse);
    QFont font = m_display->font();
    font.setPointSize(font.pointSize() * 3 / 2);
    m_display->setFont(font);
    buildKeys();
    showDisplay();
}

void MLCalculatorDialog::buildKeys()
{
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_display);

    auto *grid = new QGridLayout;
    int index = 0;
    for (const KeyCap &cap : keyCaps) {
        QPushButton *button = addKey(
            QString::fromUtf8(cap.label), QLatin1Char(cap.key), QString::fromLatin1(cap.name));
        grid->addWidget(button, index / columns, index % columns);
        ++index;
    }
    const int row = index / columns;
    grid->addWidget(addKey(tr("C"), QLatin1Char('C'), QStringLiteral("btnClear")), row, 0, 1, 2);
    grid->addWidget(addKey(QStringLiteral("\u2190"), QLatin1Char('\b'), QStringLiteral("btnBack")),
        row, 2, 1, 2);
    layout->addLayout(grid);

    auto *buttons = new QHBoxLayout;
    m_ok = new QPushButton(loadIconSet(QStringLiteral("button_ok")), tr("Ok"), this);
    m_ok->setObjectName(QStringLiteral("btnOk"));
    auto *cancel
        = new QPushButton(loadIconSet(QStringLiteral("button_cancel")), tr("Cancel"), this);
    cancel->setObjectName(QStringLiteral("btnCancel"));
    for (QPushButton *button : { m_ok, cancel }) {
        button->setAutoDefault(false);
        buttons->addWidget(button);
    }
    connect(m_ok, &QPushButton::clicked, this, &MLCalculatorDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &MLCalculatorDialog::reject);
    layout->addLayout(buttons);
}

QPushButton *MLCalculatorDialog::addKey(const QString &label, QChar key, const QString &name)
{
    auto *button = new QPushButton(label, this);
    button->setObjectName(name);
    button->setAutoDefault(false);
    // The keyboard drives the calculator; a focused key would swallow Return and Space.
    button->setFocusPolicy(Qt::NoFocus);
    button->setMinimumSize(36, 32);
    connect(button, &QPushButton::clicked, this, [this, key] { press(key); });
    return button;
}

void MLCalculatorDialog::press(QChar key)
{
    m_calculation.press(key);
    showDisplay();
}

void MLCalculatorDialog::showDisplay()
{
    m_display->setText(m_calculation.display());
    m_ok->setEnabled(!m_calculation.hasError());
}

void MLCalculatorDialog::accept()
{
    m_calculation.finish();
    showDisplay();
    if (m_calculation.hasError())
        return;
    QDialog::accept();
}

void MLCalculatorDialog::keyPressEvent(QKeyEvent *event)
{
    const QString text = event->text();
    const QChar key = text.size() == 1 ? text.at(0) : QChar();
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        // The first Return works the sum out, the next one takes it.
        if (m_calculation.hasPending())
            press(QLatin1Char('='));
        else
            accept();
        return;
    case Qt::Key_Backspace:
        press(QLatin1Char('\b'));
        return;
    case Qt::Key_Delete:
        press(QLatin1Char('C'));
        return;
    default:
        break;
    }
    if (!key.isNull() && QStringLiteral("0123456789.+-*/=").contains(key)) {
        press(key);
        return;
    }
    if (key == QLatin1Char(','))
        press(QLatin1Char('.'));
    else
        QDialog::keyPressEvent(event);
}

bool MLCalculatorDialog::calculate(QLineEdit *edit, QWidget *parent)
{
    MLCalculatorDialog dialog(edit->text(), parent ? parent : edit->window());
    if (dialog.exec() != QDialog::Accepted)
        return false;
    edit->setText(dialog.text());
    return true;
}
