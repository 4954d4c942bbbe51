#ifndef DBEDITOR_H
#define DBEDITOR_H

#include "app/dbeditorbase.h"

class DBManager;
class DBRecord;

// The details of one card: its title (which is its file name), folder, icon, password and
// description. The dialog edits copies; apply() puts them into an entry.
class DBEditor : public DBEditorBase
{
    Q_OBJECT

public:
    explicit DBEditor(DBManager *manager, QWidget *parent = nullptr);

    // Fills the dialog from record and runs it; the result of exec().
    int prepare(const DBRecord *record);
    // Puts the dialog's values into record; a new card's folder becomes the next default.
    void apply(DBRecord *record) const;
    // The card file the dialog's values name: folder, title and ".card".
    QString cardPath() const;

    QString iconName() const { return m_icon; }
    QString password() const { return m_password; }

    static QString defaultPath();

public Q_SLOTS:
    void accept() override;
    void selectIcon() override;
    void selectPwd() override;

private:
    // Why the title can't be taken, or empty when it can.
    QString titleProblem() const;
    void showIcon();
    void showLock();

    DBManager *manager;
    QString m_icon;
    QString m_startTitle;
    QString m_password;
};

#endif
