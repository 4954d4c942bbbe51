#include "calc/formulaeditor.h"

#include "calc/formulatranslation.h"
#include "lib/qt/mlyesnodialog.h"

#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTextCursor>

FormulaEditor::FormulaEditor(
    const QString &formula, const QList<FieldDef> &fields, const QString &title, QWidget *parent)
    : FormulaEditorBase(parent)
    , m_fields(fields)
{
    setWindowTitle(tr("Formula Editor") + QStringLiteral(" - [") + title + QLatin1Char(']'));
    m_opened = FormulaTranslation::display(formula, fields);
    fm->setPlainText(m_opened);
    fm->moveCursor(QTextCursor::End);
    functions->addItems(functionNames());
    for (const FieldDef &field : fields) {
        const bool numeric = field.type == FieldDef::Integer || field.type == FieldDef::Double
            || field.type == FieldDef::Count || field.type == FieldDef::Increment;
        if (numeric && field.title != title)
            this->fields->addItem(field.title);
    }

    connect(functions, &QListWidget::itemActivated, this,
        [this](QListWidgetItem *item) { insertFunction(item->text()); });
    connect(functions, &QListWidget::itemClicked, this,
        [this](QListWidgetItem *item) { insertFunction(item->text()); });
    connect(this->fields, &QListWidget::itemActivated, this, &FormulaEditor::insertField);
    connect(this->fields, &QListWidget::itemClicked, this, &FormulaEditor::insertField);
    connect(btnClear, &QPushButton::clicked, this, &FormulaEditor::clear);
    connect(btnOk, &QPushButton::clicked, this, &QDialog::accept);
    // The button says what it does; only Escape and the window's close may surprise.
    connect(btnCancel, &QPushButton::clicked, this, [this] { QDialog::reject(); });
    connect(fm, &QPlainTextEdit::textChanged, this, &FormulaEditor::updatePreview);
    updatePreview();
    fm->setFocus();
}

QStringList FormulaEditor::functionNames()
{
    return { QStringLiteral("+"), QStringLiteral("-"), QStringLiteral("*"), QStringLiteral("/"),
        QStringLiteral("sin()"), QStringLiteral("cos()"), QStringLiteral("tan()"),
        QStringLiteral("arcsin()"), QStringLiteral("arccos()"), QStringLiteral("arctan()"),
        QStringLiteral("abs()"), QStringLiteral("sqrt()"), QStringLiteral("atan()") };
}

QString FormulaEditor::formula() const
{
    return FormulaTranslation::stored(fm->toPlainText(), m_fields);
}

void FormulaEditor::setPreviewRecords(const DataRecord *record, const DataRecord *previous)
{
    m_record = record;
    m_previous = previous;
    updatePreview();
}

void FormulaEditor::insertFunction(const QString &text)
{
    const qsizetype open = text.indexOf(QLatin1Char('('));
    if (open < 0) {
        fm->insertPlainText(QLatin1Char(' ') + text + QLatin1Char(' '));
    } else {
        fm->insertPlainText(text);
        QTextCursor cursor = fm->textCursor();
        cursor.movePosition(
            QTextCursor::Left, QTextCursor::MoveAnchor, int(text.size() - open - 1));
        fm->setTextCursor(cursor);
    }
    fm->setFocus();
}

void FormulaEditor::insertField(QListWidgetItem *item)
{
    if (!item)
        return;
    const QString end = pr->isChecked() ? QStringLiteral("!]") : QStringLiteral("]");
    fm->insertPlainText(QLatin1Char('[') + item->text() + end);
    fm->setFocus();
}

void FormulaEditor::clear()
{
    fm->clear();
}

void FormulaEditor::reject()
{
    if (fm->toPlainText() != m_opened
        && !MLYesNoDialog::ask(windowTitle(), tr("Discard the changes to the formula?")))
        return;
    QDialog::reject();
}

void FormulaEditor::updatePreview()
{
    bool ok = false;
    const double value
        = FormulaTranslation::evaluate(fm->toPlainText(), m_fields, m_record, m_previous, &ok);
    preview->setText(ok ? tr("Value: %1").arg(QString::number(value, 'g', 15)) : tr("failed"));
}
