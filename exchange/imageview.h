#ifndef IMAGEVIEW_H
#define IMAGEVIEW_H

#include <QDialog>
#include <QImage>

class QLabel;

// Shows a picture file, either fitted into the dialog or at its own size in a scroll view.
// A fitted picture is read once the dialog is on screen, when the room for it is known.
class ImageView : public QDialog
{
    Q_OBJECT

public:
    ImageView(const QString &path, bool fitted, QWidget *parent = nullptr);

    // The size a picture is shown at in room: as it is when smaller than room both ways,
    // otherwise scaled down, proportions kept, until it just fits.
    static QSize fittedSize(const QSize &picture, const QSize &room);

    // The picture on screen.
    QPixmap shown() const;

protected:
    void showEvent(QShowEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void customEvent(QEvent *event) override;

private:
    void fit();

    QString m_path;
    bool m_fitted;
    bool m_posted = false;
    QImage m_image;
    QLabel *m_label;
};

#endif
