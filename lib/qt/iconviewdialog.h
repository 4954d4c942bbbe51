#ifndef ICONVIEWDIALOG_H
#define ICONVIEWDIALOG_H

#include <QDialog>
#include <QPixmap>
#include <QString>

class QListWidget;

// A dialog that shows named pictures in a grid and gives back the name chosen.
class IconViewDialog : public QDialog
{
    Q_OBJECT

public:
    explicit IconViewDialog(const QString &caption, QWidget *parent = nullptr);

    void addIcon(const QString &name, const QPixmap &pixmap);
    int count() const;
    QStringList names() const;
    // Selects the picture of that name, if there is one.
    void setCurrentName(const QString &name);
    // The name of the selected picture, or the null string.
    QString currentName() const;

private:
    QListWidget *view;
};

#endif
