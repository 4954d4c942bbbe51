#ifndef ENTERBOOLDIALOG_H
#define ENTERBOOLDIALOG_H

#include <QDialog>

#include <memory>

namespace Ui
{
class EnterBoolDialogBase;
} // namespace Ui

// A yes-or-no value chosen with "Checked" and "Unchecked".
class EnterBoolDialog : public QDialog
{
    Q_OBJECT

public:
    explicit EnterBoolDialog(const QString &title, QWidget *parent = nullptr);
    ~EnterBoolDialog() override;

    // Runs the dialog on value: the state of "Checked" if accepted, value otherwise.
    bool exec(bool value);
    using QDialog::exec;

private:
    std::unique_ptr<Ui::EnterBoolDialogBase> ui;
};

#endif
