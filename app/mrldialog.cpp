#include "app/mrldialog.h"

#include "app/resourceicons.h"

#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace
{
QString captionOf(const QString &caption)
{
    return caption + QStringLiteral(" ...");
}
} // namespace

MRLDialog::MRLDialog(const QString &caption, const QString &text, const QString &icon)
    : QDialog(QApplication::activeWindow())
    , m_grid(new QGridLayout(this))
    , m_buttonRow(new QHBoxLayout)
{
    setWindowTitle(captionOf(caption));

    auto *picture = new QLabel(this);
    picture->setObjectName(QStringLiteral("icon"));
    picture->setPixmap(loadPixmap(icon));
    picture->setAlignment(Qt::AlignTop | Qt::AlignHCenter);

    auto *message = new QLabel(text, this);
    message->setObjectName(QStringLiteral("text"));
    message->setTextFormat(Qt::PlainText);
    message->setWordWrap(true);

    m_grid->addWidget(picture, 0, 0);
    m_grid->addWidget(message, 0, 1);
    m_grid->setColumnStretch(1, 1);
    m_buttonRow->addStretch();
    m_grid->addLayout(m_buttonRow, 2, 0, 1, 2);
}

QPushButton *MRLDialog::addButton(const QString &text, const QString &icon)
{
    auto *button = new QPushButton(text, this);
    const int number = int(m_buttons.size()) + 1;
    button->setObjectName(QStringLiteral("button%1").arg(number));
    if (!icon.isEmpty())
        button->setIcon(loadIconSet(icon));
    // Only the default button takes Return, whichever has the focus.
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, number] { done(number); });
    m_buttons.append(button);
    m_buttonRow->addWidget(button);
    return button;
}

QLineEdit *MRLDialog::addLineEdit(const QString &text)
{
    auto *edit = new QLineEdit(text, this);
    edit->setObjectName(QStringLiteral("edit"));
    edit->selectAll();
    m_grid->addWidget(edit, 1, 0, 1, 2);
    edit->setFocus();
    return edit;
}

int MRLDialog::run(int defaultButton, int escapeButton)
{
    if (defaultButton >= 1 && defaultButton <= m_buttons.size())
        m_buttons.at(defaultButton - 1)->setDefault(true);
    m_escapeResult = escapeButton;
    return exec();
}

void MRLDialog::reject()
{
    done(m_escapeResult);
}

bool MRLDialog::question(const QString &text, const QString &caption)
{
    MRLDialog box(caption.isEmpty() ? tr("Delete") : caption, text, QStringLiteral("remove2"));
    box.addButton(tr("Ok"), QStringLiteral("button_ok"));
    box.addButton(tr("Cancel"), QStringLiteral("button_cancel"));
    return box.run(1, 2) == 1;
}

void MRLDialog::critical(const QString &caption, const QString &text)
{
    MRLDialog box(caption, text, QStringLiteral("dialog_critical"));
    box.addButton(tr("Ok"), QStringLiteral("button_ok"));
    box.run(1, 1);
}

void MRLDialog::warning(const QString &caption, const QString &text)
{
    MRLDialog box(caption, text, QStringLiteral("dialog_warning"));
    box.addButton(tr("Ok"), QString());
    box.run(1, 1);
}

void MRLDialog::information(const QString &caption, const QString &text)
{
    MRLDialog box(caption, text, QStringLiteral("dialog_info"));
    box.addButton(tr("Ok"), QString());
    box.run(1, 1);
}

bool MRLDialog::rename(const QString &text, QString &result)
{
    MRLDialog box(tr("Rename"), QString(), QStringLiteral("rename2"));
    QLineEdit *edit = box.addLineEdit(text);
    box.addButton(tr("Ok"), QString());
    box.addButton(tr("Cancel"), QString());
    if (box.run(1, 2) != 1)
        return false;
    result = edit->text();
    return true;
}

int MRLDialog::ask(const QString &caption, const QString &text, const QString &icon,
    const QString &button1, const QString &icon1)
{
    MRLDialog box(caption, text, icon);
    box.addButton(button1, icon1);
    return box.run(1, 1);
}

int MRLDialog::ask(const QString &caption, const QString &text, const QString &icon,
    const QString &button1, const QString &icon1, const QString &button2, const QString &icon2,
    int defaultButton, int escapeButton)
{
    MRLDialog box(caption, text, icon);
    box.addButton(button1, icon1);
    box.addButton(button2, icon2);
    return box.run(defaultButton, escapeButton);
}

int MRLDialog::ask(const QString &caption, const QString &text, const QString &icon,
    const QString &button1, const QString &icon1, const QString &button2, const QString &icon2,
    const QString &button3, const QString &icon3, int defaultButton, int escapeButton)
{
    MRLDialog box(caption, text, icon);
    box.addButton(button1, icon1);
    box.addButton(button2, icon2);
    box.addButton(button3, icon3);
    return box.run(defaultButton, escapeButton);
}
