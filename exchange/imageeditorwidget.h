#ifndef IMAGEEDITORWIDGET_H
#define IMAGEEDITORWIDGET_H

#include <QPixmap>
#include <QStackedWidget>

class QLabel;
class QPushButton;
class QScrollArea;
class QTimer;

// The picture of a record in the record editor. Without a picture it is a button that sets
// one up; with one, the picture, which opens the viewer when tapped. A long press or the
// context menu offers to set up or remove the picture.
class ImageEditorWidget : public QStackedWidget
{
    Q_OBJECT

public:
    explicit ImageEditorWidget(QWidget *parent = nullptr);

    // Shows the picture at path; a file that can't be read shows an empty picture, and the
    // path is kept all the same.
    void setImage(const QString &path);
    QString image() const { return m_path; }
    QPixmap pixmap() const { return m_pixmap; }

public Q_SLOTS:
    // Runs ImageSetup on the present path and takes what it chose.
    void setupImage();
    void unsetImage();

Q_SIGNALS:
    // The user set up or removed the picture.
    void changed();

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void showMenu(const QPoint &globalPos);
    void showPicture();
    void pictureTapped();

    QString m_path;
    QPixmap m_pixmap;
    QPushButton *m_button;
    QScrollArea *m_scroll;
    QLabel *m_label;
    QTimer *m_holdTimer;
    bool m_held = false;
};

#endif
