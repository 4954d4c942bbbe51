#ifndef SENDDATADIALOGCLIENT_H
#define SENDDATADIALOGCLIENT_H

#include "pclink/pclinkserver.h"
#include "pclink/transferprogressdialog.h"

#include <QStringList>

class TransferRunner;

// The client's progress window: connects once it is on screen, runs the file list of pairs
// through the link and ends by accept when the list has run out, by reject on an error or
// Close.
class SendDataDialogClient : public TransferProgressDialog
{
    Q_OBJECT

public:
    SendDataDialogClient(const QString &address, bool send, const QStringList &files,
        QWidget *parent = nullptr, quint16 port = PCLinkServer::defaultPort);

Q_SIGNALS:
    void sendFileFailed(const QString &name, bool &stop);
    void getFileFailed(const QString &name, bool &stop);
    void sendFileSuccess(const QString &name);
    void getFileSuccess(const QString &name);

private Q_SLOTS:
    void connecting();
    void statusChanged(const QString &status);
    void receiveFile(const QString &name);
    void finished(bool ok, const QString &error);

private:
    TransferRunner *m_runner;
};

#endif
