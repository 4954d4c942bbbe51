#ifndef NUMBERFORMATEDITOR_H
#define NUMBERFORMATEDITOR_H

#include "calc/formateditor.h"

#include <memory>

namespace Ui
{
class NumberFormatEditorBase;
} // namespace Ui

// Edits a number format code and the user's list of such codes, previewing the code on an
// example number that the user may change and that is kept for next time.
class NumberFormatEditor : public FormatEditor
{
    Q_OBJECT

public:
    NumberFormatEditor(const QString &format, const QString &title, QWidget *parent = nullptr);
    ~NumberFormatEditor() override;

public Q_SLOTS:
    // Redraws the preview and keeps the example number in the options.
    void numberChanged();

protected:
    QString preview(const QString &code) const override;

private:
    std::unique_ptr<Ui::NumberFormatEditorBase> ui;
};

#endif
