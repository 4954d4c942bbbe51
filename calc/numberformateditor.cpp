#include "calc/numberformateditor.h"

#include "ui_numberformateditorbase.h"

#include "calc/numberformat.h"
#include "platform/config.h"

#include <QCoreApplication>

namespace
{
const QString optionsGroup = QStringLiteral("Options");
const QString numberKey = QStringLiteral("numberformat");
} // namespace

NumberFormatEditor::NumberFormatEditor(const QString &format, const QString &title, QWidget *parent)
    : FormatEditor(QStringLiteral("numberformat"), parent)
    , ui(std::make_unique<Ui::NumberFormatEditorBase>())
{
    ui->setupUi(this);
    setWindowTitle(tr("Number Format Editor [%1]").arg(title));
    {
        Config config(qApp->objectName());
        config.setGroup(optionsGroup);
        ui->number->setText(config.readEntry(numberKey, QStringLiteral("1234.5678")));
    }
    attach({ ui->edit, ui->list, ui->btnAdd, ui->btnUpdate, ui->btnRemove, ui->btnOk, ui->btnCancel,
               ui->example },
        format);
    connect(ui->number, &QLineEdit::textChanged, this, &NumberFormatEditor::numberChanged);
}

NumberFormatEditor::~NumberFormatEditor() = default;

void NumberFormatEditor::numberChanged()
{
    redrawPreview();
    Config config(qApp->objectName());
    config.setGroup(optionsGroup);
    config.writeEntry(numberKey, ui->number->text());
    config.write();
}

QString NumberFormatEditor::preview(const QString &code) const
{
    return formatNumber(ui->number->text().toDouble(), code);
}
