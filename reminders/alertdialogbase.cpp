#include "reminders/alertdialogbase.h"

#include "views/listview.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

AlertDialogBase::AlertDialogBase(QWidget *parent)
    : QDialog(parent)
    , lv(new ListView(this, QStringLiteral("alarm")))
    , dateLabel(new QLabel(tr("Date:"), this))
    , date(new QLabel(this))
    , snoozeLabel(new QLabel(tr("Click Snooze to be reminded again in:"), this))
    , snoozebox(new QComboBox(this))
    , buttons(new QDialogButtonBox(QDialogButtonBox::Close, this))
{
    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->setSpacing(6);
    layout->addWidget(lv, 0, 0, 1, 2);
    layout->addWidget(dateLabel, 1, 0);
    layout->addWidget(date, 1, 1);
    layout->addWidget(snoozeLabel, 2, 0, 1, 2);
    snoozebox->setObjectName(QStringLiteral("snoozebox"));
    layout->addWidget(snoozebox, 3, 0);
    snoozebutton = addButton(tr("Snooze"), "snoozebutton");
    layout->addWidget(snoozebutton, 3, 1);

    auto *row = new QHBoxLayout;
    dismissbutton = addButton(tr("Dismiss"), "dismissbutton");
    dismissAllButton = addButton(tr("Dismiss All"), "dismissAllButton");
    openbutton = addButton(tr("Open"), "openbutton");
    for (QPushButton *button : { dismissbutton, dismissAllButton, openbutton })
        row->addWidget(button);
    row->addStretch();
    row->addWidget(buttons);
    layout->addLayout(row, 4, 0, 1, 2);
    layout->setRowStretch(0, 1);

    connect(snoozebutton, &QPushButton::clicked, this, &AlertDialogBase::snooze);
    connect(dismissbutton, &QPushButton::clicked, this, &AlertDialogBase::dismiss);
    connect(dismissAllButton, &QPushButton::clicked, this, &AlertDialogBase::dismissAll);
    connect(openbutton, &QPushButton::clicked, this, &AlertDialogBase::open);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    // Return closes the list as every other way out does.
    buttons->button(QDialogButtonBox::Close)->setDefault(true);
}

// The row of buttons takes no Return: that closes nothing here.
QPushButton *AlertDialogBase::addButton(const QString &text, const char *name)
{
    auto *button = new QPushButton(text, this);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false);
    return button;
}
