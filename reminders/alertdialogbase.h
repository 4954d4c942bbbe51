#ifndef ALERTDIALOGBASE_H
#define ALERTDIALOGBASE_H

#include <QDialog>

class PIMListView;
class QComboBox;
class QDialogButtonBox;
class QLabel;
class QPushButton;

// The form of the reminder list: the reminders that came, the date of the current one, the
// snooze choice and the buttons acting on the current row.
class AlertDialogBase : public QDialog
{
    Q_OBJECT

public:
    explicit AlertDialogBase(QWidget *parent = nullptr);

public Q_SLOTS:
    virtual void snooze() = 0;
    virtual void dismiss() = 0;
    virtual void dismissAll() = 0;
    virtual void open() = 0;

protected:
    PIMListView *lv;
    QLabel *dateLabel;
    QLabel *date;
    QLabel *snoozeLabel;
    QComboBox *snoozebox;
    QPushButton *snoozebutton;
    QPushButton *dismissbutton;
    QPushButton *dismissAllButton;
    QPushButton *openbutton;
    QDialogButtonBox *buttons;

private:
    QPushButton *addButton(const QString &text, const char *name);
};

#endif
