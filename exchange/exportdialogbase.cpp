#include "exchange/exportdialogbase.h"

#include "app/mrlapplication.h"
#include "app/resourceicons.h"
#include "edit/dateformatselector.h"
#include "edit/textcodecselector.h"
#include "exchange/csvformat.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

ExportDialogBase::ExportDialogBase(QWidget *parent)
    : QDialog(parent)
    , type(new QComboBox(this))
    , delimiter(new QComboBox(this))
    , other(new QCheckBox(tr("Other:"), this))
    , otherDelimiter(new QLineEdit(this))
    , qualifier(new QComboBox(this))
    , unicode(new TextCodecSelector(this))
    , dateFormat(new DateFormatSelector(this, QStringLiteral("dateFormat")))
    , timeFormat(new DateFormatSelector(this, QStringLiteral("timeFormat")))
    , dateTimeFormat(new DateFormatSelector(this, QStringLiteral("dateTimeFormat")))
    , ml(new QComboBox(this))
    , okCancelWidget(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this))
{
    setObjectName(QStringLiteral("ExportDialogBase"));
    setWindowTitle(tr("Export"));
    const QList<QPair<QWidget *, const char *>> names = { { type, "type" },
        { delimiter, "delimiter" }, { other, "other" }, { otherDelimiter, "otherDelimiter" },
        { qualifier, "qualifier" }, { unicode, "unicode" }, { dateFormat, "dateFormat" },
        { timeFormat, "timeFormat" }, { dateTimeFormat, "dateTimeFormat" }, { ml, "ml" },
        { okCancelWidget, "okCancelWidget" } };
    for (const auto &[widget, name] : names)
        widget->setObjectName(QLatin1String(name));
    type->addItem(tr("CSV"));
    delimiter->addItems(CsvFormat::delimiterTitles());
    qualifier->setEditable(true);
    qualifier->addItems({ QStringLiteral("\""), QStringLiteral("'"), QStringLiteral("`") });
    ml->setEditable(true);
    ml->addItems({ tr("new line"), tr("space") });
    okCancelWidget->button(QDialogButtonBox::Ok)->setIcon(loadIconSet(QStringLiteral("button_ok")));
    okCancelWidget->button(QDialogButtonBox::Cancel)
        ->setIcon(loadIconSet(QStringLiteral("button_cancel")));
    layOut(MRLApplication::isLowResolution());

    connect(other, &QCheckBox::clicked, this, &ExportDialogBase::delimiterChanged);
    connect(okCancelWidget, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(okCancelWidget, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void ExportDialogBase::addRow(QGridLayout *grid, const QString &label, QWidget *field)
{
    const int row = grid->rowCount();
    auto *text = new QLabel(label, this);
    text->setBuddy(field);
    grid->addWidget(text, row, 0);
    grid->addWidget(field, row, 1, 1, 3);
}

void ExportDialogBase::layOut(bool narrow)
{
    auto *grid = new QGridLayout;
    addRow(grid, tr("Export to:"), type);
    addRow(grid, tr("Delimiters:"), delimiter);
    const int row = narrow ? grid->rowCount() : grid->rowCount() - 1;
    if (narrow) {
        grid->addWidget(other, row, 0);
        grid->addWidget(otherDelimiter, row, 1, 1, 3);
    } else {
        grid->removeWidget(delimiter);
        grid->addWidget(delimiter, row, 1);
        grid->addWidget(other, row, 2);
        grid->addWidget(otherDelimiter, row, 3);
    }
    addRow(grid, tr("Text qualifier:"), qualifier);
    addRow(grid, tr("Codec:"), unicode);
    addRow(grid, tr("Date:"), dateFormat);
    addRow(grid, tr("Time:"), timeFormat);
    addRow(grid, tr("DateTime:"), dateTimeFormat);
    addRow(grid, tr("Multiline text separator:"), ml);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addStretch();
    layout->addWidget(okCancelWidget);
}
