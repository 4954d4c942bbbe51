#ifndef ENTERSTRINGDIALOG_H
#define ENTERSTRINGDIALOG_H

#include <QDialog>

class QLineEdit;

// One line of text under a caption, with "Ok" and "Cancel".
class EnterStringDialog : public QDialog
{
    Q_OBJECT

public:
    EnterStringDialog(const QString &caption, const QString &text, QWidget *parent = nullptr);

    QString text() const;

    // Runs the dialog on text; when accepted, text takes the typed line and true is returned.
    static bool getText(const QString &caption, QString &text, QWidget *parent = nullptr);

private:
    QLineEdit *m_edit;
};

#endif
