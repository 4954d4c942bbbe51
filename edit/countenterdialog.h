#ifndef COUNTENTERDIALOG_H
#define COUNTENTERDIALOG_H

#include <QDialog>

class CountEnterPanel;

// A count from 1 to 9999 entered in a dialog; see CountEnterPanel.
class CountEnterDialog : public QDialog
{
    Q_OBJECT

public:
    explicit CountEnterDialog(const QString &title, QWidget *parent = nullptr);

    // Shows value with text after it and runs the dialog; the count shown when it closed,
    // however it was closed.
    int exec(int value, const QString &text);
    using QDialog::exec;

private:
    CountEnterPanel *m_panel;
};

#endif
