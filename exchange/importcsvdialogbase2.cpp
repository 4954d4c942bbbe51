#include "exchange/importcsvdialogbase2.h"

#include "app/resourceicons.h"
#include "card/fielddef.h"
#include "edit/dateformatselector.h"
#include "edit/directoryselector.h"
#include "exchange/importpreviewpages.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QStackedWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace
{
QComboBox *editableCombo(QWidget *parent, const char *name, const QStringList &entries)
{
    auto *combo = new QComboBox(parent);
    combo->setObjectName(QLatin1String(name));
    combo->setEditable(true);
    combo->addItems(entries);
    return combo;
}
} // namespace

ImportCSVDialogBase2::ImportCSVDialogBase2(QWidget *parent)
    : QDialog(parent)
    , title(new QLineEdit(this))
    , type(new QComboBox(this))
    , skip(new QCheckBox(tr("Skip"), this))
    , typePages(new QStackedWidget(this))
    , ths2(editableCombo(this, "ths2", { tr("Space") }))
    , ths(editableCombo(this, "ths", {}))
    , ds(editableCombo(this, "ds", { QStringLiteral("."), QStringLiteral(",") }))
    , dateFormat(new DateFormatSelector(this, QStringLiteral("dateFormat")))
    , timeFormat(new DateFormatSelector(this, QStringLiteral("timeFormat")))
    , dateTimeFormat(new DateFormatSelector(this, QStringLiteral("dateTimeFormat")))
    , mlsep(editableCombo(this, "mlsep", { tr("new line"), tr("space") }))
    , boolp(editableCombo(
          this, "boolp", { tr("Yes/No"), tr("Y/N"), tr("True/False"), QStringLiteral("1/0") }))
    , basep(new DirectorySelector(this))
    , mlists(editableCombo(this, "mlists", { tr("space") }))
    , list(new QTreeWidget(this))
    , status(new QLabel(this))
    , pr(new QProgressBar(this))
    , pages(new ImportPreviewPages(list, status, pr, this))
    , btnBack(new QPushButton(tr("Back"), this))
    , btnOk(new QPushButton(loadIconSet(QStringLiteral("button_ok")), tr("Finish"), this))
    , btnCancel(new QPushButton(loadIconSet(QStringLiteral("button_cancel")), tr("Cancel"), this))
{
    setObjectName(QStringLiteral("ImportCSVDialogBase2"));
    setWindowTitle(tr("Import Text Step 2 of 2"));
    const QList<QPair<QWidget *, const char *>> names
        = { { title, "title" }, { type, "type" }, { skip, "skip" }, { dateFormat, "format" },
              { timeFormat, "format" }, { dateTimeFormat, "format" }, { basep, "basep" },
              { btnBack, "btnBack" }, { btnOk, "btnOk" }, { btnCancel, "btnCancel" } };
    for (const auto &[widget, name] : names)
        widget->setObjectName(QLatin1String(name));
    type->addItems(FieldDef::typeNames());
    list->header()->setSectionsClickable(true);
    btnOk->setDefault(true);

    const QString thousands = tr("Thousand separator:");
    const QString format = tr("Format:");
    typePages->addWidget(new QWidget(typePages));
    typePages->addWidget(page({ { thousands, ths2 } }));
    typePages->addWidget(page({ { thousands, ths }, { tr("Decimal separator:"), ds } }));
    typePages->addWidget(page({ { format, dateFormat } }));
    typePages->addWidget(page({ { format, timeFormat } }));
    typePages->addWidget(page({ { format, dateTimeFormat } }));
    typePages->addWidget(page({ { tr("Split on multiline by separator:"), mlsep } }));
    typePages->addWidget(page({ { tr("Yes/No pair:"), boolp } }));
    typePages->addWidget(page({ { tr("Base directory:"), basep } }));
    typePages->addWidget(page({ { tr("Item separator:"), mlists } }));

    auto *form = new QFormLayout;
    form->addRow(tr("Field Title:"), title);
    auto *typeRow = new QHBoxLayout;
    typeRow->addWidget(type, 1);
    typeRow->addWidget(skip);
    form->addRow(tr("Type:"), typeRow);
    auto *buttons = new QDialogButtonBox(this);
    buttons->addButton(btnBack, QDialogButtonBox::ResetRole);
    buttons->addButton(btnCancel, QDialogButtonBox::RejectRole);
    buttons->addButton(btnOk, QDialogButtonBox::AcceptRole);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(typePages);
    layout->addWidget(pages, 1);
    layout->addWidget(buttons);

    connect(btnBack, &QPushButton::clicked, this, &ImportCSVDialogBase2::back);
    connect(btnOk, &QPushButton::clicked, this, &ImportCSVDialogBase2::finishSetup);
    connect(btnCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(skip, &QCheckBox::clicked, this, &ImportCSVDialogBase2::skipChanged);
    connect(title, &QLineEdit::textEdited, this, &ImportCSVDialogBase2::titleChanged);
    connect(type, &QComboBox::activated, this, &ImportCSVDialogBase2::typeChanged);
    connect(
        list->header(), &QHeaderView::sectionClicked, this, &ImportCSVDialogBase2::columnSelected);
}

QWidget *ImportCSVDialogBase2::page(const QList<QPair<QString, QWidget *>> &rows)
{
    auto *page = new QWidget(typePages);
    auto *form = new QFormLayout(page);
    form->setContentsMargins(0, 0, 0, 0);
    for (const auto &[label, widget] : rows)
        form->addRow(label, widget);
    return page;
}
