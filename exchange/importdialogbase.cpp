#include "exchange/importdialogbase.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

ImportDialogBase::ImportDialogBase(QWidget *parent)
    : QDialog(parent)
    , sourceLabel(new QLabel(tr("Source:"), this))
    , sources(new QComboBox(this))
    , unicodeLabel(new QLabel(tr("Codec:"), this))
    , unicode(new QComboBox(this))
    , dateFormatLabel(new QLabel(tr("Date:"), this))
    , dateFormat(new QComboBox(this))
    , calcFieldsLabel(new QLabel(tr("Formula:"), this))
    , calcFields(new QComboBox(this))
    , filesLabel(new QLabel(tr("Files"), this))
    , files(new QListWidget(this))
    , btnReload(new QPushButton(this))
    , btnOpen(new QPushButton(tr("Browse"), this))
    , btnImport(new QPushButton(tr("Import"), this))
    , buttonBox(new QDialogButtonBox(QDialogButtonBox::Close, this))
{
    setObjectName(QStringLiteral("ImportDialogBase"));
    setWindowTitle(tr("Import"));
    sources->setObjectName(QStringLiteral("sources"));
    unicode->setObjectName(QStringLiteral("unicode"));
    dateFormat->setObjectName(QStringLiteral("dateFormat"));
    calcFields->setObjectName(QStringLiteral("calcFields"));
    files->setObjectName(QStringLiteral("files"));
    btnReload->setObjectName(QStringLiteral("btnReload"));
    btnOpen->setObjectName(QStringLiteral("btnOpen"));
    btnImport->setObjectName(QStringLiteral("btnImport"));
    buttonBox->setObjectName(QStringLiteral("buttonBox"));
    // Return imports the selected file rather than closing the dialog.
    btnImport->setDefault(true);
    for (QPushButton *button : { btnReload, btnOpen })
        button->setAutoDefault(false);

    auto *grid = new QGridLayout(this);
    const QList<QPair<QLabel *, QComboBox *>> rows { { sourceLabel, sources },
        { unicodeLabel, unicode }, { dateFormatLabel, dateFormat },
        { calcFieldsLabel, calcFields } };
    for (int row = 0; row < rows.size(); ++row) {
        rows.at(row).first->setBuddy(rows.at(row).second);
        grid->addWidget(rows.at(row).first, row, 0);
        grid->addWidget(rows.at(row).second, row, 1);
    }
    grid->addWidget(filesLabel, 4, 0, 1, 2);
    grid->addWidget(files, 5, 0, 1, 2);
    auto *actions = new QHBoxLayout;
    actions->addWidget(btnReload);
    actions->addWidget(btnOpen);
    actions->addStretch();
    actions->addWidget(btnImport);
    grid->addLayout(actions, 6, 0, 1, 2);
    grid->addWidget(buttonBox, 7, 0, 1, 2);
    grid->setColumnStretch(1, 1);

    connect(
        sources, qOverload<int>(&QComboBox::activated), this, &ImportDialogBase::sourceSelected);
    connect(files, &QListWidget::currentRowChanged, this, &ImportDialogBase::fileSelected);
    connect(btnOpen, &QPushButton::clicked, this, &ImportDialogBase::open);
    connect(btnReload, &QPushButton::clicked, this, &ImportDialogBase::reload);
    connect(btnImport, &QPushButton::clicked, this, &ImportDialogBase::import);
    connect(buttonBox, &QDialogButtonBox::rejected, this, &QDialog::reject);
}
