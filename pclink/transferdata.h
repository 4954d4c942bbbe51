#ifndef TRANSFERDATA_H
#define TRANSFERDATA_H

#include "pclink/pclinkserver.h"
#include "pclink/transferdatabase.h"

#include <QStringList>

class DBManager;
class PIMRecord;

// Send: ticks local cards and pushes them to the server. Get: fetches the server's catalogue
// on Connect, ticks its cards and pulls them here.
class TransferData : public TransferDataBase
{
    Q_OBJECT

public:
    TransferData(bool send, DBManager *manager, const QString &currentPath,
        QWidget *parent = nullptr, quint16 port = PCLinkServer::defaultPort);
    ~TransferData() override;

    static QString defaultAddress() { return QStringLiteral("192.168.129.201"); }

public Q_SLOTS:
    void select(PIMRecord *record);
    void start() override;
    void doConnect() override;
    void sendFileFailed(const QString &name, bool &stop);
    void getFileFailed(const QString &name, bool &stop);
    void sendFileSuccess(const QString &name);
    void getFileSuccess(const QString &name);

private:
    void preselect(const QString &currentPath);
    void storeAddress();
    bool runClient(const QStringList &files);
    QStringList getList();
    bool mayOverwrite(const QString &remotePath, const QString &destination);
    void setTick(DBManager *manager, PIMRecord *record, bool ticked);
    void dropRemote();

    bool m_send;
    DBManager *m_local;
    DBManager *m_remote = nullptr;
    quint16 m_port;
};

#endif
