#ifndef MLDATETIMEEDIT_H
#define MLDATETIMEEDIT_H

#include <QDateTime>
#include <QWidget>

class MLDateEdit;
class MLTimeEdit;

// A moment edited as a date with its calendar beside a time. An empty date makes the
// whole moment invalid.
class MLDateTimeEdit : public QWidget
{
    Q_OBJECT

public:
    explicit MLDateTimeEdit(QWidget *parent = nullptr);

    QDateTime dateTime() const;
    // An invalid moment empties the date and sets the time to midnight.
    void setDateTime(const QDateTime &dateTime);

    MLDateEdit *dateEdit() const { return m_date; }
    MLTimeEdit *timeEdit() const { return m_time; }

private:
    MLDateEdit *m_date;
    MLTimeEdit *m_time;
};

#endif
