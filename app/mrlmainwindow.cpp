#include "app/mrlmainwindow.h"

#include "app/datetimedialog.h"
#include "app/resourceicons.h"
#include "lib/qt/aboutdialog.h"
#include "lib/qt/mrlaction.h"
#include "platform/platformpaths.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <QResizeEvent>
#include <QScreen>
#include <QToolBar>

namespace
{
// The key codes of the handheld's two zoom keys.
const int deviceZoomInKey = 0x2010;
const int deviceZoomOutKey = 0x200f;

const int zoomSteps[] = { 8, 10, 12, 14, 16, 18, 20, 24, 36 };

bool desktopIsPortrait()
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen && screen->geometry().width() <= screen->geometry().height();
}
} // namespace

MRLMainWindow::MRLMainWindow(QWidget *parent)
    : QMainWindow(parent)
    , m_portrait(desktopIsPortrait())
{
    setWindowTitle(qApp->objectName());

    addAction(QStringLiteral("Brightloom"), QStringLiteral("Brightloom"), this, SLOT(about()),
        false, tr("About") + QStringLiteral(" ..."));
    addAction(QStringLiteral("zoomin"), QStringLiteral("viewmag+"), this, SLOT(zoomin()), false,
        tr("Zoom In"))
        ->setShortcut(QKeySequence::ZoomIn);
    addAction(QStringLiteral("zoomout"), QStringLiteral("viewmag-"), this, SLOT(zoomout()), false,
        tr("Zoom Out"))
        ->setShortcut(QKeySequence::ZoomOut);
    addAction(QStringLiteral("exit"), QStringLiteral("exit"), qApp, SLOT(quit()), false, tr("Exit"))
        ->setShortcut(QKeySequence::Quit);
}

MRLAction *MRLMainWindow::addAction(const QString &name, const QString &icon, QObject *receiver,
    const char *slot, bool toggle, const QString &text)
{
    auto *action = new MRLAction(name, icon, loadIconSet(icon), text, toggle, this);
    if (receiver && slot)
        connect(action, SIGNAL(triggered(bool)), receiver, slot);
    QWidget::addAction(action);
    m_actions.insert(name, action);
    return action;
}

MRLAction *MRLMainWindow::action(const QString &name) const
{
    return m_actions.value(name);
}

QToolBar *MRLMainWindow::addToolBar()
{
    auto *bar = new QToolBar(this);
    bar->setMovable(false);
    bar->setFloatable(false);
    // The window's own menu of tool bars would let the user hide the only one.
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    QMainWindow::addToolBar(Qt::TopToolBarArea, bar);
    return bar;
}

QWidget *MRLMainWindow::addStretch(QToolBar *bar, int width)
{
    auto *spacer = new QWidget(bar);
    if (width == 0)
        spacer->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    else
        spacer->setFixedWidth(width);
    bar->addWidget(spacer);
    return spacer;
}

int MRLMainWindow::snapZoom(int size, bool down)
{
    int result = down ? zoomSteps[0] : std::end(zoomSteps)[-1];
    if (down) {
        for (int step : zoomSteps) {
            if (step <= size)
                result = step;
        }
    } else {
        for (auto it = std::rbegin(zoomSteps); it != std::rend(zoomSteps); ++it) {
            if (*it >= size)
                result = *it;
        }
    }
    if (MRLAction *in = action(QStringLiteral("zoomin")))
        in->setEnabled(result != std::end(zoomSteps)[-1]);
    if (MRLAction *out = action(QStringLiteral("zoomout")))
        out->setEnabled(result != zoomSteps[0]);
    return result;
}

void MRLMainWindow::about()
{
    QCoreApplication::postEvent(this, new QEvent(QEvent::Type(AboutEvent)));
}

bool MRLMainWindow::event(QEvent *event)
{
    if (event->type() == QEvent::Type(AboutEvent)) {
        showAbout();
        return true;
    }
    return QMainWindow::event(event);
}

void MRLMainWindow::keyPressEvent(QKeyEvent *event)
{
    QMainWindow::keyPressEvent(event);
    const int key = event->key();
    if (key == deviceZoomInKey || key == Qt::Key_ZoomIn)
        zoomin();
    else if (key == deviceZoomOutKey || key == Qt::Key_ZoomOut)
        zoomout();
}

void MRLMainWindow::resizeEvent(QResizeEvent *event)
{
    QMainWindow::resizeEvent(event);
    const bool portrait = width() <= height();
    if (portrait == m_portrait)
        return;
    m_portrait = portrait;
    rotate();
    qDebug("Rotate, now %s", portrait ? "Vertical" : "Horizontal");
}

void MRLMainWindow::showAbout()
{
    const QString text
        = tr("<h3>Norvika %1</h3>"
             "<p>A personal card-file database: each card is one file that holds its own "
             "fields, records, views and filters.</p>"
             "<p>Settings: %2<br>Application data: %3<br>New cards: %4<br>"
             "Pictures and program files: %5</p>")
              .arg(QStringLiteral(NORVIKA_VERSION), PlatformPaths::settingsDir().toHtmlEscaped(),
                  PlatformPaths::dataDir().toHtmlEscaped(),
                  PlatformPaths::documentsDir().toHtmlEscaped(),
                  PlatformPaths::shareDir().toHtmlEscaped());
    AboutDialog box(loadPixmap(QStringLiteral("32/cards")),
        tr("About") + QStringLiteral(" Norvika"), text, this);
    QPushButton *dateTime = box.addButton(tr("Date and Time") + QStringLiteral(" ..."));
    dateTime->setObjectName(QStringLiteral("dateTime"));
    connect(dateTime, &QPushButton::clicked, &box, [&box] { DateTimeDialog(&box).exec(); });
    box.exec();
}
