#ifndef POPUPDIALOG_H
#define POPUPDIALOG_H

#include <QDialog>
#include <QList>

class QHBoxLayout;
class QPushButton;
class QVBoxLayout;

// A small modal pop-up with a row of buttons at its foot. It comes up at a point, moved as
// little as needed to stay on the screen; a tap outside it or Escape dismisses it.
class PopupDialog : public QDialog
{
    Q_OBJECT

public:
    explicit PopupDialog(QWidget *parent = nullptr);

    // Where the content goes, above the buttons.
    QVBoxLayout *contentLayout() const { return m_content; }
    // A button that ends the pop-up with its number: 1 for the first one added, and so on.
    // Return presses none of them unless one is made the default (a chooser's "Set").
    QPushButton *addButton(const QString &text, const QString &icon);

    // Runs the pop-up at pos; the number of the button that ended it, 0 when dismissed.
    int execAt(const QPoint &pos);
    // Runs the pop-up over the whole of area.
    int execOver(const QRect &area);

    // Where a box of size placed at pos stands after being kept inside area.
    static QPoint keptInside(const QPoint &pos, const QSize &size, const QRect &area);

private:
    QVBoxLayout *m_content;
    QHBoxLayout *m_buttons;
    QList<QPushButton *> m_buttonList;
};

#endif
