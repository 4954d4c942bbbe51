#include "exchange/imageeditorwidget.h"

#include "app/resourceicons.h"
#include "exchange/imagesetup.h"
#include "exchange/imageview.h"

#include <QContextMenuEvent>
#include <QCursor>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollArea>
#include <QTimer>

namespace
{
constexpr int buttonPage = 0;
constexpr int picturePage = 1;
// How long a press must be held to count as a long press.
constexpr int holdMilliseconds = 500;
} // namespace

ImageEditorWidget::ImageEditorWidget(QWidget *parent)
    : QStackedWidget(parent)
    , m_button(new QPushButton(
          loadIconSet(QStringLiteral("image")), tr("Setup Image") + QStringLiteral(" ...")))
    , m_scroll(new QScrollArea)
    , m_label(new QLabel)
    , m_holdTimer(new QTimer(this))
{
    m_button->setObjectName(QStringLiteral("btnSetup"));
    m_scroll->setObjectName(QStringLiteral("scroll"));
    m_label->setObjectName(QStringLiteral("picture"));
    m_label->setAlignment(Qt::AlignCenter);
    m_scroll->setWidget(m_label);
    m_scroll->setWidgetResizable(true);
    m_scroll->setAlignment(Qt::AlignCenter);
    m_label->installEventFilter(this);
    insertWidget(buttonPage, m_button);
    insertWidget(picturePage, m_scroll);

    m_holdTimer->setSingleShot(true);
    m_holdTimer->setInterval(holdMilliseconds);
    connect(m_holdTimer, &QTimer::timeout, this, [this] {
        m_held = true;
        showMenu(QCursor::pos());
    });
    connect(m_button, &QPushButton::clicked, this, &ImageEditorWidget::setupImage);
    setCurrentIndex(buttonPage);
}

void ImageEditorWidget::setImage(const QString &path)
{
    m_path = path;
    showPicture();
}

void ImageEditorWidget::showPicture()
{
    m_pixmap = m_path.isEmpty() ? QPixmap() : QPixmap(m_path);
    m_label->setPixmap(m_pixmap);
    setCurrentIndex(m_path.isEmpty() ? buttonPage : picturePage);
}

void ImageEditorWidget::setupImage()
{
    ImageSetup setup(m_path, this, "imageSetup");
    if (setup.exec() != QDialog::Accepted)
        return;
    m_path = setup.path();
    // Read again even for the same path: the setup may have rewritten the file.
    showPicture();
    Q_EMIT changed();
}

void ImageEditorWidget::unsetImage()
{
    m_path.clear();
    showPicture();
    Q_EMIT changed();
}

void ImageEditorWidget::contextMenuEvent(QContextMenuEvent *event)
{
    showMenu(event->globalPos());
}

void ImageEditorWidget::showMenu(const QPoint &globalPos)
{
    QMenu menu(this);
    menu.addAction(loadIconSet(QStringLiteral("package_utilities")),
        tr("Setup Image") + QStringLiteral(" ..."), this, &ImageEditorWidget::setupImage);
    QAction *remove = menu.addAction(loadIconSet(QStringLiteral("button_cancel")),
        tr("Remove Image"), this, &ImageEditorWidget::unsetImage);
    remove->setEnabled(!m_path.isEmpty());
    menu.exec(globalPos);
}

bool ImageEditorWidget::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_label)
        return QStackedWidget::eventFilter(watched, event);
    const bool press = event->type() == QEvent::MouseButtonPress;
    const bool release = event->type() == QEvent::MouseButtonRelease;
    if (!press && !release)
        return QStackedWidget::eventFilter(watched, event);
    const auto *mouse = static_cast<QMouseEvent *>(event);
    if (mouse->button() != Qt::LeftButton)
        return QStackedWidget::eventFilter(watched, event);
    if (press) {
        m_held = false;
        m_holdTimer->start();
        return QStackedWidget::eventFilter(watched, event);
    }
    m_holdTimer->stop();
    if (!m_held && m_label->rect().contains(mouse->position().toPoint()))
        pictureTapped();
    return true;
}

void ImageEditorWidget::pictureTapped()
{
    // A picture that can't be read has nothing to view; choosing another is what helps.
    if (m_pixmap.isNull()) {
        setupImage();
        return;
    }
    ImageView view(m_path, true, this);
    view.exec();
}
