#include "exchange/importcsvdialogbase.h"

#include "app/resourceicons.h"
#include "exchange/csvformat.h"
#include "exchange/importpreviewpages.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QStackedWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

ImportCSVDialogBase::ImportCSVDialogBase(QWidget *parent)
    : QDialog(parent)
    , delimiter(new QComboBox(this))
    , other(new QCheckBox(tr("Other:"), this))
    , otherDelimiter(new QLineEdit(this))
    , qualifier(new QComboBox(this))
    , startRow(new QSpinBox(this))
    , fl1(new QCheckBox(tr("First row is field names"), this))
    , list(new QTreeWidget(this))
    , status(new QLabel(this))
    , pr(new QProgressBar(this))
    , pages(new ImportPreviewPages(list, status, pr, this))
    , btnNext(new QPushButton(tr("Next"), this))
    , btnCancel(new QPushButton(loadIconSet(QStringLiteral("button_cancel")), tr("Cancel"), this))
{
    setObjectName(QStringLiteral("ImportCSVDialogBase"));
    setWindowTitle(tr("Import Text Step 1 of 2"));
    const QList<QPair<QWidget *, const char *>> names
        = { { delimiter, "delimiter" }, { other, "other" }, { otherDelimiter, "otherDelimiter" },
              { qualifier, "qualifier" }, { startRow, "startRow" }, { fl1, "fl1" },
              { btnNext, "btnNext" }, { btnCancel, "btnCancel" } };
    for (const auto &[widget, name] : names)
        widget->setObjectName(QLatin1String(name));
    delimiter->addItems(CsvFormat::delimiterTitles());
    qualifier->setEditable(true);
    qualifier->addItems({ QStringLiteral("\""), QStringLiteral("'") });
    startRow->setRange(1, 999999999);
    list->setHeaderLabels({ tr("Row"), tr("Data") });
    btnNext->setDefault(true);

    auto *form = new QFormLayout;
    auto *delimiters = new QHBoxLayout;
    delimiters->addWidget(delimiter, 1);
    delimiters->addWidget(other);
    delimiters->addWidget(otherDelimiter, 1);
    form->addRow(tr("Delimiters:"), delimiters);
    form->addRow(tr("Text qualifier:"), qualifier);
    form->addRow(tr("Start input at row:"), startRow);
    form->addRow(fl1);
    auto *buttons = new QDialogButtonBox(this);
    buttons->addButton(btnCancel, QDialogButtonBox::RejectRole);
    buttons->addButton(btnNext, QDialogButtonBox::AcceptRole);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(pages, 1);
    layout->addWidget(buttons);

    connect(other, &QCheckBox::clicked, this, &ImportCSVDialogBase::delimiterChanged);
    connect(list, &QTreeWidget::itemClicked, this, &ImportCSVDialogBase::setStartRow);
    connect(btnNext, &QPushButton::clicked, this, &ImportCSVDialogBase::next);
}
