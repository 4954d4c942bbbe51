#include "calc/datetimeformateditor.h"

#include "ui_datetimeformateditorbase.h"

#include "calc/datetimeformat.h"

DateTimeFormatEditor::DateTimeFormatEditor(
    const QString &key, const QString &format, QWidget *parent)
    : FormatEditor(key, parent)
    , ui(std::make_unique<Ui::DateTimeFormatEditorBase>())
    , m_opened(QDateTime::currentDateTime())
{
    ui->setupUi(this);
    attach({ ui->edit, ui->list, ui->btnAdd, ui->btnUpdate, ui->btnRemove, ui->btnOk, ui->btnCancel,
               ui->example },
        format);
    setWindowState(windowState() | Qt::WindowMaximized);
}

DateTimeFormatEditor::~DateTimeFormatEditor() = default;

QString DateTimeFormatEditor::preview(const QString &code) const
{
    return formatDateTime(m_opened, code);
}
