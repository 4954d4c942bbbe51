#include "app/dbeditorbase.h"

#include "lib/qt/mldialogbuttons.h"

#include "edit/directoryselector.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

DBEditorBase::DBEditorBase(QWidget *parent)
    : QDialog(parent)
    , path(new DirectorySelector(this))
    , title(new QLineEdit(this))
    , icon(new QToolButton(this))
    , lock(new QToolButton(this))
    , memo(new QPlainTextEdit)
    , nameLabel(new QLabel(tr("Name:"), this))
    , locationLabel(new QLabel(tr("Location:"), this))
    , descriptionBox(new QGroupBox(tr("Description"), this))
{
    setObjectName(QStringLiteral("DBEditorBase"));
    setWindowTitle(tr("Card's Details"));
    path->setObjectName(QStringLiteral("path"));
    title->setObjectName(QStringLiteral("title"));
    icon->setObjectName(QStringLiteral("icon"));
    lock->setObjectName(QStringLiteral("lock"));
    memo->setObjectName(QStringLiteral("memo"));
    icon->setIconSize(QSize(32, 32));
    icon->setAutoRaise(true);
    lock->setAutoRaise(true);

    auto *grid = new QGridLayout(this);
    grid->addWidget(icon, 0, 0, 2, 1);
    grid->addWidget(nameLabel, 0, 1);
    grid->addWidget(title, 0, 2);
    grid->addWidget(lock, 0, 3);
    grid->addWidget(locationLabel, 1, 1);
    grid->addWidget(path, 1, 2, 1, 2);
    auto *description = new QVBoxLayout(descriptionBox);
    description->addWidget(memo);
    grid->addWidget(descriptionBox, 2, 0, 1, 4);
    QDialogButtonBox *buttons = MLDialogButtons::okCancel(this);
    btnOk = buttons->button(QDialogButtonBox::Ok);
    btnCancel = buttons->button(QDialogButtonBox::Cancel);
    grid->addWidget(buttons, 3, 0, 1, 4);
    grid->setColumnStretch(2, 1);
    grid->setRowStretch(2, 1);

    connect(icon, &QToolButton::clicked, this, &DBEditorBase::selectIcon);
    connect(lock, &QToolButton::clicked, this, &DBEditorBase::selectPwd);
}
