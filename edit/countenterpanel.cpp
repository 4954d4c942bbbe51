#include "edit/countenterpanel.h"

#include "app/resourceicons.h"
#include "lib/qt/mlspinbox.h"

#include <QGridLayout>
#include <QPushButton>

namespace
{
constexpr int numberButtons = 5;
constexpr int buttonsPerRow = 3;
} // namespace

CountEnterPanel::CountEnterPanel(QWidget *parent)
    : QWidget(parent)
    , m_spin(new MLSpinBox(1, 9999, 1, this))
{
    m_spin->setObjectName(QStringLiteral("spin"));
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(m_spin, 0, 0, 1, buttonsPerRow);

    for (int number = 1; number <= numberButtons; ++number) {
        auto *button = new QPushButton(QString::number(number), this);
        button->setObjectName(QStringLiteral("btn%1").arg(number));
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, [this, number] {
            m_spin->setValue(number);
            Q_EMIT chosen();
        });
        grid->addWidget(button, 1 + (number - 1) / buttonsPerRow, (number - 1) % buttonsPerRow);
    }
    auto *ok = new QPushButton(loadIconSet(QStringLiteral("button_ok")), tr("Ok"), this);
    ok->setObjectName(QStringLiteral("btnOk"));
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &CountEnterPanel::chosen);
    grid->addWidget(ok, 2, 2);
    setFocusProxy(m_spin);
}

void CountEnterPanel::setValue(int value, const QString &text)
{
    m_spin->setValue(value);
    m_spin->setSuffix(QLatin1Char(' ') + text);
    m_spin->selectAll();
}

int CountEnterPanel::value() const
{
    // A number typed but not yet taken by the spin box counts as well.
    m_spin->interpretText();
    return m_spin->value();
}
