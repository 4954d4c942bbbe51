#ifndef MRLDIALOG_H
#define MRLDIALOG_H

#include <QDialog>
#include <QList>
#include <QString>

class QGridLayout;
class QHBoxLayout;
class QLineEdit;
class QPushButton;

// The program's message boxes: a picture, a text and up to three buttons. Each use is one
// static call; a caption gets " ..." appended. A button's result is its number, 1 to 3.
class MRLDialog : public QDialog
{
    Q_OBJECT

public:
    // Ok and Cancel; true for Ok. The caption is "Delete" when none is given.
    static bool question(const QString &text, const QString &caption = QString());
    static void critical(const QString &caption, const QString &text);
    static void warning(const QString &caption, const QString &text);
    static void information(const QString &caption, const QString &text);
    // A line edit that starts with text; on Ok, true and its text in result.
    static bool rename(const QString &text, QString &result);

    // Return presses defaultButton, Escape gives escapeButton's number (0: none chosen).
    static int ask(const QString &caption, const QString &text, const QString &icon,
        const QString &button1, const QString &icon1);
    static int ask(const QString &caption, const QString &text, const QString &icon,
        const QString &button1, const QString &icon1, const QString &button2, const QString &icon2,
        int defaultButton = 1, int escapeButton = 2);
    static int ask(const QString &caption, const QString &text, const QString &icon,
        const QString &button1, const QString &icon1, const QString &button2, const QString &icon2,
        const QString &button3, const QString &icon3, int defaultButton = 1, int escapeButton = 3);

protected:
    void reject() override;

private:
    MRLDialog(const QString &caption, const QString &text, const QString &icon);

    QPushButton *addButton(const QString &text, const QString &icon);
    QLineEdit *addLineEdit(const QString &text);
    // Runs the box modally with the buttons' roles; the number of the button chosen.
    int run(int defaultButton, int escapeButton);

    QGridLayout *m_grid;
    QHBoxLayout *m_buttonRow;
    QList<QPushButton *> m_buttons;
    int m_escapeResult = 0;
};

#endif
