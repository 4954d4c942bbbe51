#ifndef POPUPCHOOSERS_H
#define POPUPCHOOSERS_H

#include <QDate>
#include <QDateTime>
#include <QPoint>
#include <QString>
#include <QTime>

class QWidget;

// Small modal pop-ups that edit one value in place. Each comes up at a point (the text
// over the whole window), writes the new value back and returns whether it changed.

// A multi-line text under its title, with "Close". The text is taken however it closes.
bool editText(QWidget *parent, const QString &title, QString &text);

// A list filled from the data list file listName, the present text selected; a click or
// Return takes an item, "Cancel" leaves text alone.
bool chooseFromList(QWidget *parent, const QPoint &pos, QString &text, const QString &listName);

// A date and time with "Remove Reminder" and "Set". "Remove Reminder" sets removed (and
// counts as a change) and leaves dateTime alone.
bool editReminderDateTime(QWidget *parent, const QPoint &pos, QDateTime &dateTime, bool &removed);

// A date with its calendar, on date if valid and today otherwise: "Set" takes it, "Today"
// gives the current date, "None" an invalid date.
bool editDate(QWidget *parent, const QPoint &pos, QDate &date);

// A time: "Set" takes it, "Current" gives the current time.
bool editTime(QWidget *parent, const QPoint &pos, QTime &time);

// A date and time: "Set" takes them, "Current" gives the current date and time.
bool editDateTime(QWidget *parent, const QPoint &pos, QDateTime &dateTime);

#endif
