#ifndef DBEDITORBASE_H
#define DBEDITORBASE_H

#include <QDialog>

class DirectorySelector;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QToolButton;

// The form of a card's details: name, folder, icon, lock and description.
class DBEditorBase : public QDialog
{
    Q_OBJECT

public:
    explicit DBEditorBase(QWidget *parent = nullptr);

public Q_SLOTS:
    virtual void selectIcon() = 0;
    virtual void selectPwd() = 0;

protected:
    DirectorySelector *path;
    QLineEdit *title;
    QToolButton *icon;
    QToolButton *lock;
    QPlainTextEdit *memo;
    QPushButton *btnOk = nullptr;
    QPushButton *btnCancel = nullptr;
    QLabel *nameLabel;
    QLabel *locationLabel;
    QGroupBox *descriptionBox;
};

#endif
