#include "lib/qt/aboutdialog.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>

AboutDialog::AboutDialog(
    const QPixmap &picture, const QString &caption, const QString &richText, QWidget *parent)
    : QDialog(parent)
    , m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok, this))
{
    setObjectName(QStringLiteral("about"));
    setWindowTitle(caption);

    auto *pictureLabel = new QLabel(this);
    pictureLabel->setPixmap(picture);
    pictureLabel->setAlignment(Qt::AlignTop | Qt::AlignHCenter);

    auto *textLabel = new QLabel(richText, this);
    textLabel->setObjectName(QStringLiteral("text"));
    textLabel->setTextFormat(Qt::RichText);
    textLabel->setWordWrap(true);
    textLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
    textLabel->setMinimumWidth(360);

    m_buttons->button(QDialogButtonBox::Ok)->setText(tr("Ok"));
    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);

    auto *grid = new QGridLayout(this);
    grid->addWidget(pictureLabel, 0, 0);
    grid->addWidget(textLabel, 0, 1);
    grid->addWidget(m_buttons, 1, 0, 1, 2);
}

QPushButton *AboutDialog::addButton(const QString &text)
{
    return m_buttons->addButton(text, QDialogButtonBox::ActionRole);
}
