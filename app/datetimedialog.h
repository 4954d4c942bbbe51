#ifndef DATETIMEDIALOG_H
#define DATETIMEDIALOG_H

#include <QDialog>

class QComboBox;

// Where the user sets the clock and date forms that every date and time on screen follows:
// 24 or 12 hours, the first day of the week, the order of a date's parts and their
// separator. Accepting writes them to the user's settings, which takes them at once.
class DateTimeDialog : public QDialog
{
    Q_OBJECT

public:
    explicit DateTimeDialog(QWidget *parent = nullptr);

    void accept() override;

private:
    QComboBox *addChoice(const char *name, const QString &label);
    void fillOrders(int current);
    void fillSeparators(QChar current);

    QComboBox *m_clock;
    QComboBox *m_week;
    QComboBox *m_order;
    QComboBox *m_separator;
    int m_shortOrder;
    int m_longOrder;
};

#endif
