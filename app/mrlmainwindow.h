#ifndef MRLMAINWINDOW_H
#define MRLMAINWINDOW_H

#include <QHash>
#include <QMainWindow>
#include <QString>

class MRLAction;
class QToolBar;

// The base of the program's main windows: commands kept by name, tool bars fixed at the
// top, the zoom steps of the list font, and the turn between portrait and landscape.
class MRLMainWindow : public QMainWindow
{
    Q_OBJECT

public:
    // Posted to the window by about(), so that the box opens after a running menu closed.
    enum { AboutEvent = 1000 };

    explicit MRLMainWindow(QWidget *parent = nullptr);

    using QMainWindow::addAction;
    using QMainWindow::addToolBar;

    // Makes a command with the picture of that name, files it under name and, with a
    // receiver, connects it to slot. The window takes its shortcut even when no menu shows it.
    MRLAction *addAction(const QString &name, const QString &icon, QObject *receiver,
        const char *slot, bool toggle = false, const QString &text = QString());
    MRLAction *action(const QString &name) const;

    // A tool bar at the top that can neither move nor float.
    QToolBar *addToolBar();
    // A spacer on the bar: it takes all spare room with width 0, otherwise exactly width.
    QWidget *addStretch(QToolBar *bar, int width);

    // The font size of the zoom steps for a wanted size: a step stays, any other goes to
    // the next step up, or with down to the next step down. Enables zoomin and zoomout
    // unless the result is the last step in their direction.
    int snapZoom(int size, bool down);

    bool isPortrait() const { return m_portrait; }

public Q_SLOTS:
    void about();
    virtual void zoomin() { }
    virtual void zoomout() { }
    virtual void rotate() { }

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void showAbout();

    QHash<QString, MRLAction *> m_actions;
    bool m_portrait;
};

#endif
