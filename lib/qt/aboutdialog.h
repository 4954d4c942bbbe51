#ifndef ABOUTDIALOG_H
#define ABOUTDIALOG_H

#include <QDialog>

class QDialogButtonBox;
class QPixmap;
class QPushButton;

// A modal box that says what a program is: a picture beside a rich text, and "Ok".
class AboutDialog : public QDialog
{
    Q_OBJECT

public:
    AboutDialog(const QPixmap &picture, const QString &caption, const QString &richText,
        QWidget *parent = nullptr);

    // A further button beside "Ok", for the caller to connect.
    QPushButton *addButton(const QString &text);

private:
    QDialogButtonBox *m_buttons;
};

#endif
