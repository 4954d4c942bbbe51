#ifndef MRLACTION_H
#define MRLACTION_H

#include <QAction>
#include <QString>

// A command a window keeps under a name (its object name), with the name of its picture,
// so that menus, tool bars and buttons can all find and show the same command.
class MRLAction : public QAction
{
    Q_OBJECT

public:
    MRLAction(const QString &name, const QString &iconName, const QIcon &icon, const QString &text,
        bool toggle, QObject *parent);

    QString name() const { return objectName(); }
    QString iconName() const { return m_iconName; }

private:
    QString m_iconName;
};

#endif
