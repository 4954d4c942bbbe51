#include "app/datetimedialog.h"

#include "lib/qt/mldialogbuttons.h"
#include "platform/datetimesettings.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>

namespace
{
// The orders offered, as the settings code them: one octal digit a part, the first part in
// the lowest digit, 1 for the day, 2 the month and 4 the year.
constexpr int dayMonthYear = 0421;
constexpr int monthDayYear = 0412;
constexpr int yearMonthDay = 0124;

QString orderName(int order)
{
    QStringList parts;
    for (auto rest = unsigned(order); rest; rest >>= 3) {
        switch (rest & 7) {
        case 1:
            parts << DateTimeDialog::tr("Day");
            break;
        case 2:
            parts << DateTimeDialog::tr("Month");
            break;
        case 4:
            parts << DateTimeDialog::tr("Year");
            break;
        default:
            break;
        }
    }
    return parts.isEmpty() ? QString::number(order) : parts.join(QLatin1Char(' '));
}
} // namespace

DateTimeDialog::DateTimeDialog(QWidget *parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("datetime"));
    setWindowTitle(tr("Date and Time"));
    new QFormLayout(this);
    DateTimeSettings *settings = DateTimeSettings::instance();
    m_shortOrder = settings->shortOrder();
    m_longOrder = settings->longOrder();

    m_clock = addChoice("clock", tr("Clock"));
    m_clock->addItems({ tr("24 hour"), tr("12 hour (AM/PM)") });
    m_clock->setCurrentIndex(settings->ampm() ? 1 : 0);
    m_week = addChoice("week", tr("Week starts on"));
    m_week->addItems({ tr("Sunday"), tr("Monday") });
    m_week->setCurrentIndex(settings->mondayFirst() ? 1 : 0);
    m_order = addChoice("order", tr("Date order"));
    fillOrders(m_shortOrder);
    m_separator = addChoice("separator", tr("Separator"));
    fillSeparators(settings->dateSeparator());

    QDialogButtonBox *buttons = MLDialogButtons::okCancel(this);
    static_cast<QFormLayout *>(layout())->addRow(buttons);
}

QComboBox *DateTimeDialog::addChoice(const char *name, const QString &label)
{
    auto *combo = new QComboBox(this);
    combo->setObjectName(QString::fromLatin1(name));
    static_cast<QFormLayout *>(layout())->addRow(label, combo);
    return combo;
}

// An order the settings hold but the list lacks (written there by hand) is offered too, so
// that accepting the dialog keeps it.
void DateTimeDialog::fillOrders(int current)
{
    QList<int> orders { dayMonthYear, monthDayYear, yearMonthDay };
    if (!orders.contains(current))
        orders.prepend(current);
    for (const int order : orders)
        m_order->addItem(orderName(order), order);
    m_order->setCurrentIndex(int(orders.indexOf(current)));
}

void DateTimeDialog::fillSeparators(QChar current)
{
    QString separators = QStringLiteral("/.-");
    if (!separators.contains(current))
        separators.prepend(current);
    for (const QChar separator : std::as_const(separators))
        m_separator->addItem(QString(separator));
    m_separator->setCurrentIndex(int(separators.indexOf(current)));
}

void DateTimeDialog::accept()
{
    // Short and long dates take the chosen order; a long order set apart by hand stays
    // while the order is left as it was.
    const int order = m_order->currentData().toInt();
    const int longOrder = order == m_shortOrder ? m_longOrder : order;
    DateTimeSettings::instance()->store(m_clock->currentIndex() == 1, m_week->currentIndex() == 1,
        m_separator->currentText().at(0), order, longOrder);
    QDialog::accept();
}
