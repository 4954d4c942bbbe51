#ifndef MODALDRIVER_H
#define MODALDRIVER_H

#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QTimer>
#include <QWidget>

#include <functional>

// Answers the modal dialogs that a call brings up, one step for each dialog in the order
// they appear (a dialog shown again counts again). A dialog left without a step, or left
// open by its step for long, is rejected, so that no test hangs; seen() tells what came up.
class ModalDriver : public QObject
{
public:
    using Step = std::function<void(QWidget *)>;

    explicit ModalDriver(const QList<Step> &steps);
    // Steps written as scripts, one a dialog: words separated by blanks, "name=text" typing
    // into the line edit of that name, "name!" pressing Return in the widget of that name,
    // "name#N" choosing entry N of the combo box of that name as a user does, "name"
    // clicking the button of that name.
    explicit ModalDriver(const QStringList &scripts);
    static Step script(const QString &actions);

    int remaining() const { return int(m_steps.size()); }
    // The captions of the dialogs in the order they came up, with " | " and the text of a
    // message box; "unexpected: " marks those that had no step, "stuck: " those rejected
    // after their step left them open.
    const QStringList &seen() const { return m_seen; }

    // Helpers for steps
    static void type(QWidget *dialog, const char *name, const QString &text);
    static void click(QWidget *dialog, const char *name);
    static void pressReturn(QWidget *dialog, const char *name);
    static void choose(QWidget *dialog, const char *name, int index);
    // The text of a message dialog.
    static QString message(QWidget *dialog);

private:
    void poll();
    void runStep(const Step &step, QWidget *widget);
    static void rejectDialog(QWidget *widget);

    QTimer m_timer;
    QList<Step> m_steps;
    QPointer<QWidget> m_last;
    QElapsedTimer m_shown;
    QStringList m_seen;
};

#endif
