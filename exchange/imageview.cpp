#include "exchange/imageview.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QLabel>
#include <QPixmap>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>

namespace
{
// Posted on the first show: the picture is read after the layout gave the label its size.
constexpr QEvent::Type loadEvent = QEvent::Type(1001);
} // namespace

ImageView::ImageView(const QString &path, bool fitted, QWidget *parent)
    : QDialog(parent)
    , m_path(path)
    , m_fitted(fitted)
    , m_label(new QLabel)
{
    setWindowTitle(tr("Image Viewer"));
    m_label->setObjectName(QStringLiteral("picture"));
    m_label->setAlignment(Qt::AlignCenter);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);

    const QColor background = palette().color(QPalette::Dark);
    if (fitted) {
        // The label takes the room the dialog gives; the picture never widens it.
        m_label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
        m_label->setAutoFillBackground(true);
        QPalette labelPalette = m_label->palette();
        labelPalette.setColor(QPalette::Window, background);
        m_label->setPalette(labelPalette);
        layout->addWidget(m_label);
    } else {
        auto *scroll = new QScrollArea(this);
        scroll->setObjectName(QStringLiteral("scroll"));
        scroll->setAlignment(Qt::AlignCenter);
        QPalette scrollPalette = scroll->palette();
        scrollPalette.setColor(QPalette::Window, background);
        scroll->setPalette(scrollPalette);
        scroll->setBackgroundRole(QPalette::Window);
        scroll->viewport()->setPalette(scrollPalette);
        scroll->viewport()->setAutoFillBackground(true);
        m_image = QImage(path);
        m_label->setPixmap(QPixmap::fromImage(m_image));
        scroll->setWidget(m_label);
        layout->addWidget(scroll);
    }
    if (const QScreen *screen = QGuiApplication::primaryScreen())
        resize(screen->availableSize() * 3 / 4);
}

QSize ImageView::fittedSize(const QSize &picture, const QSize &room)
{
    if (picture.width() < room.width() && picture.height() < room.height())
        return picture;
    if (room.width() <= 0 || room.height() <= 0)
        return QSize(0, 0);
    const double ratio
        = qMax(double(picture.width()) / room.width(), double(picture.height()) / room.height());
    return QSize(int(picture.width() / ratio), int(picture.height() / ratio));
}

QPixmap ImageView::shown() const
{
    return m_label->pixmap();
}

void ImageView::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    if (m_fitted && !m_posted) {
        m_posted = true;
        QCoreApplication::postEvent(this, new QEvent(loadEvent));
    }
}

void ImageView::customEvent(QEvent *event)
{
    if (event->type() != loadEvent)
        return;
    m_image = QImage(m_path);
    fit();
}

void ImageView::resizeEvent(QResizeEvent *event)
{
    QDialog::resizeEvent(event);
    if (m_fitted && !m_image.isNull())
        fit();
}

void ImageView::fit()
{
    const QSize size = fittedSize(m_image.size(), m_label->size());
    if (size == m_image.size())
        m_label->setPixmap(QPixmap::fromImage(m_image));
    else
        m_label->setPixmap(QPixmap::fromImage(
            m_image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)));
}
