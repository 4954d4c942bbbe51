#ifndef DIRECTORYSELECTOR_H
#define DIRECTORYSELECTOR_H

#include <QList>
#include <QWidget>

class QLineEdit;
class QMenu;
class QToolButton;

// A folder path typed in or chosen from a pop-up of places: the documents, the home and
// the application data folders, and the memory cards that are there. changed() reports a
// new path.
class DirectorySelector : public QWidget
{
    Q_OBJECT

public:
    struct Place {
        QString label;
        QString icon;
        QString path;
    };

    explicit DirectorySelector(QWidget *parent = nullptr);

    QString path() const;
    void setPath(const QString &path);

    // The places offered, in order; a memory card only when its folder exists.
    static QList<Place> places();

public Q_SLOTS:
    // Opens the pop-up of places under the button.
    void choose();

Q_SIGNALS:
    void changed();

private Q_SLOTS:
    void editingFinished();

private:
    QMenu *placesMenu();
    void take(const QString &path);
    void browse();

    QLineEdit *m_edit;
    QToolButton *m_button;
    QString m_path;
};

#endif
