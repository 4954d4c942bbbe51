#ifndef MLDATEEDIT_H
#define MLDATEEDIT_H

#include <QDate>
#include <QDateEdit>

// A date editor with a pop-up calendar that can also hold no date at all: a record's date
// may be empty. The parts stand in the order and with the separator of the user's date
// settings, and follow them when they change.
class MLDateEdit : public QDateEdit
{
    Q_OBJECT

public:
    explicit MLDateEdit(QWidget *parent = nullptr);

    // The date shown, or an invalid date when the editor is empty.
    QDate date() const;
    // An invalid date empties the editor.
    void setDate(const QDate &date);
    bool isEmpty() const;

    void stepBy(int steps) override;

    // The display format that writes dates as the user's settings do, e.g. "dd/MM/yyyy".
    static QString systemDisplayFormat();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private Q_SLOTS:
    void applySettings();

private:
    // The date that stands for "no date": the lowest the editor can show.
    static QDate emptyDate();
};

#endif
