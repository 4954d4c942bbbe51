#include "platform/qpeapplication.h"

#include "platform/datetimesettings.h"
#include "platform/localtimezone.h"
#include "platform/platformpaths.h"
#include "platform/qcopchannel.h"

#include <QDataStream>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

namespace
{
const QByteArray setDocumentMessage = QByteArrayLiteral("setDocument(QString)");
const QByteArray raiseMessage = QByteArrayLiteral("raise()");
// Lets a settings write (a temporary file, then a rename) finish before it is read.
constexpr int settingsDelayMs = 100;

QPEApplication *qpeApp()
{
    return qobject_cast<QPEApplication *>(QCoreApplication::instance());
}
} // namespace

QPEApplication::QPEApplication(int &argc, char **argv)
    : QApplication(argc, argv)
    , m_startDocument(findStartDocument(arguments()))
{
    LocalTimeZone::pin();
    m_settingsDelay.setSingleShot(true);
    m_settingsDelay.setInterval(settingsDelayMs);
    connect(&m_settingsDelay, &QTimer::timeout, this, &QPEApplication::settingsChanged);
    connect(&m_settingsWatcher, &QFileSystemWatcher::fileChanged, &m_settingsDelay,
        qOverload<>(&QTimer::start));
    connect(&m_settingsWatcher, &QFileSystemWatcher::directoryChanged, &m_settingsDelay,
        qOverload<>(&QTimer::start));
    connect(this, &QObject::objectNameChanged, this, &QPEApplication::openServices);
}

QPEApplication::~QPEApplication() = default;

QString QPEApplication::qpeDir()
{
    return PlatformPaths::shareDir();
}

QString QPEApplication::documentDir()
{
    return PlatformPaths::documentsDir();
}

QString QPEApplication::findStartDocument(const QStringList &arguments)
{
    for (qsizetype i = 1; i < arguments.size(); ++i) {
        const QString &argument = arguments.at(i);
        if (argument.startsWith(QLatin1Char('-')))
            continue;
        // A launcher may hand over a file:// URL in place of a path.
        const QUrl url(argument);
        return QFileInfo(url.isLocalFile() ? url.toLocalFile() : argument).absoluteFilePath();
    }
    return QString();
}

QByteArray QPEApplication::channel() const
{
    const QString name = objectName().isEmpty() ? applicationName() : objectName();
    return QByteArrayLiteral("QPE/Application/") + name.toUtf8();
}

void QPEApplication::openServices()
{
    const bool first = m_channel == nullptr;
    openChannel();
    if (!first)
        return;
    watchSettings();
    serve();
}

void QPEApplication::openChannel()
{
    delete m_channel;
    m_channel = new QCopChannel(channel(), this);
    connect(m_channel, &QCopChannel::received, this, &QPEApplication::receiveAppMessage);
}

void QPEApplication::serve()
{
    if (!m_bridge.listen() || m_alarms)
        return;
    m_alarms = new AlarmDispatcher(this);
    m_alarms->start();
}

bool QPEApplication::forwardToRunningInstance()
{
    if (!m_channel)
        openServices();
    if (m_bridge.isListening())
        return false;
    QByteArray message = raiseMessage;
    QByteArray data;
    if (!m_startDocument.isEmpty()) {
        message = setDocumentMessage;
        QDataStream out(&data, QIODevice::WriteOnly);
        out << m_startDocument;
    }
    if (QCopBridge::forward(channel(), message, data))
        return true;
    // The other one went away meanwhile: this one takes its place.
    serve();
    return false;
}

void QPEApplication::showMainDocumentWidget(QWidget *mainWidget, bool nomaximize)
{
    if (!m_channel)
        openServices();
    m_mainWidget = mainWidget;
    if (nomaximize)
        mainWidget->show();
    else
        mainWidget->showMaximized();
    if (m_startDocument.isEmpty() || m_documentSent)
        return;
    m_documentSent = true;
    QByteArray data;
    QDataStream out(&data, QIODevice::WriteOnly);
    out << m_startDocument;
    QCopChannel::send(channel(), setDocumentMessage, data);
}

void QPEApplication::receiveAppMessage(const QByteArray &msg, const QByteArray &data)
{
    if (msg == setDocumentMessage)
        openDocument(data);
    else if (msg == raiseMessage)
        raiseMainWidget();
    Q_EMIT appMessage(msg, data);
}

void QPEApplication::openDocument(const QByteArray &data)
{
    QDataStream in(data);
    QString path;
    in >> path;
    if (in.status() != QDataStream::Ok || !m_mainWidget)
        return;
    raiseMainWidget();
    if (m_mainWidget->metaObject()->indexOfSlot("setDocument(QString)") >= 0)
        QMetaObject::invokeMethod(m_mainWidget, "setDocument", Q_ARG(QString, path));
}

void QPEApplication::raiseMainWidget()
{
    if (!m_mainWidget)
        return;
    if (!m_mainWidget->isVisible())
        m_mainWidget->show();
    m_mainWidget->raise();
    m_mainWidget->activateWindow();
}

void QPEApplication::setKeepRunning()
{
    QPEApplication *app = qpeApp();
    if (!app)
        return;
    app->m_keepRunning = true;
    app->raiseMainWidget();
}

bool QPEApplication::keepRunning()
{
    const QPEApplication *app = qpeApp();
    return app && app->m_keepRunning;
}

void QPEApplication::watchSettings()
{
    const QString dir = PlatformPaths::settingsDir();
    QDir().mkpath(dir);
    m_qpeSettingsFile = dir + QStringLiteral("/qpe.conf");
    // The folder too: the file may not exist yet, and each write replaces it.
    m_settingsWatcher.addPath(dir);
    if (QFileInfo::exists(m_qpeSettingsFile))
        m_settingsWatcher.addPath(m_qpeSettingsFile);
    DateTimeSettings *settings = DateTimeSettings::instance();
    settings->invalidate();
    m_ampm = settings->ampm();
    m_mondayFirst = settings->mondayFirst();
    m_dateFormat = DateFormat::current();
}

void QPEApplication::settingsChanged()
{
    if (QFileInfo::exists(m_qpeSettingsFile)
        && !m_settingsWatcher.files().contains(m_qpeSettingsFile))
        m_settingsWatcher.addPath(m_qpeSettingsFile);
    // Compared with what this object last told, since other readers may have updated first.
    DateTimeSettings *settings = DateTimeSettings::instance();
    settings->update();
    LocalTimeZone::reload();
    if (settings->ampm() != m_ampm) {
        m_ampm = settings->ampm();
        Q_EMIT clockChanged(m_ampm);
    }
    if (DateFormat::current() != m_dateFormat) {
        m_dateFormat = DateFormat::current();
        Q_EMIT dateFormatChanged(m_dateFormat);
    }
    if (settings->mondayFirst() != m_mondayFirst) {
        m_mondayFirst = settings->mondayFirst();
        Q_EMIT weekChanged(m_mondayFirst);
    }
}
