#ifndef QPEAPPLICATION_H
#define QPEAPPLICATION_H

#include "platform/alarmdispatcher.h"
#include "platform/dateformat.h"
#include "platform/qcopbridge.h"

#include <QApplication>
#include <QByteArray>
#include <QFileSystemWatcher>
#include <QPointer>
#include <QTimer>
#include <QWidget>

class QCopChannel;

// The application object of the platform, done on a desktop. Once the object has its name
// (setObjectName, right after construction) it listens on its channel
// "QPE/Application/<name>", serves the QCop bridge for other processes, delivers alarms,
// and watches the user's "qpe" settings for clock and date changes.
//
// One program runs per user and home. main() asks after making the application:
//
//     MyApplication app(argc, argv);          // names itself
//     if (app.forwardToRunningInstance())
//         return 0;                           // the running one took this start's document
//
// Messages on the application's channel all reach appMessage(); besides,
// "setDocument(QString)" raises the main document widget and calls its slot
// setDocument(const QString &), and "raise()" raises it.
class QPEApplication : public QApplication
{
    Q_OBJECT

public:
    QPEApplication(int &argc, char **argv);
    ~QPEApplication() override;

    // The platform's read-only files (pics, sounds, etc) and the user's documents.
    static QString qpeDir();
    static QString documentDir();

    // "QPE/Application/" and the object name (the application name while there is none).
    QByteArray channel() const;
    // The document named on the command line, as an absolute path; empty without one.
    QString startDocument() const { return m_startDocument; }

    // When another instance runs for this user and home, hands it this start's document
    // ("setDocument(QString)"), or with none "raise()", and returns true. Otherwise this
    // process becomes the running instance and false is returned.
    bool forwardToRunningInstance();

    // Shows the program's main window (maximized unless nomaximize) and, for a start with
    // a document, sends it "setDocument(QString)" through the application's channel.
    void showMainDocumentWidget(QWidget *mainWidget, bool nomaximize = false);
    QWidget *mainDocumentWidget() const { return m_mainWidget; }

    // A handler of a message asks the program to stay up and be seen after serving it.
    static void setKeepRunning();
    static bool keepRunning();

    // Whether this process serves the bridge and delivers the alarms.
    bool isRunningInstance() const { return m_bridge.isListening(); }

Q_SIGNALS:
    void appMessage(const QByteArray &msg, const QByteArray &data);
    void clockChanged(bool ampm);
    void dateFormatChanged(DateFormat format);
    void weekChanged(bool mondayFirst);

private:
    void openServices();
    void openChannel();
    void serve();
    void receiveAppMessage(const QByteArray &msg, const QByteArray &data);
    void openDocument(const QByteArray &data);
    void raiseMainWidget();
    void watchSettings();
    void settingsChanged();
    static QString findStartDocument(const QStringList &arguments);

    QString m_startDocument;
    QCopChannel *m_channel = nullptr;
    QCopBridge m_bridge;
    AlarmDispatcher *m_alarms = nullptr;
    QFileSystemWatcher m_settingsWatcher;
    QTimer m_settingsDelay;
    QString m_qpeSettingsFile;
    QPointer<QWidget> m_mainWidget;
    bool m_documentSent = false;
    bool m_keepRunning = false;
    bool m_ampm = false;
    bool m_mondayFirst = false;
    DateFormat m_dateFormat;
};

#endif
