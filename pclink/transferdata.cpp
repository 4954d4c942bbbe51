#include "pclink/transferdata.h"

#include "app/mrldialog.h"
#include "pclink/senddatadialogclient.h"
#include "pclink/transfercards.h"
#include "platform/config.h"
#include "store/dbmanager.h"
#include "store/dbrecord.h"
#include "store/mrlpim.h"
#include "views/dblistview.h"

#include <QFile>
#include <QFileInfo>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>

namespace
{
DBRecord *entry(PIMRecord *record)
{
    return static_cast<DBRecord *>(record);
}
} // namespace

TransferData::TransferData(
    bool send, DBManager *manager, const QString &currentPath, QWidget *parent, quint16 port)
    : TransferDataBase(parent)
    , m_send(send)
    , m_local(manager)
    , m_port(port)
{
    Config config(MRLPIM::applicationName());
    config.setGroup(QStringLiteral("Options"));
    addr->setText(config.readEntry(QStringLiteral("ip"), defaultAddress()));
    config.setGroup(QStringLiteral("dbs_columns"));
    config.writeEntry(QStringLiteral("column"), QStringLiteral("5;2;3;4"));
    config.write();
    list->readColumns();
    if (m_send) {
        btnConnect->hide();
        dbbox->setTitle(tr("Select card for transfer to device"));
        list->setManager(m_local, true);
        list->init();
        preselect(currentPath);
    } else {
        dbbox->setTitle(tr("Select card for receive"));
        btnOk->setEnabled(false);
    }
    connect(list, &PIMListView::clicked, this, &TransferData::select);
}

TransferData::~TransferData()
{
    dropRemote();
}

void TransferData::preselect(const QString &currentPath)
{
    for (PIMRecord *record : m_local->records()) {
        const bool current = entry(record)->path() == currentPath;
        setTick(m_local, record, current);
        if (current)
            list->showRecord(record);
    }
}

void TransferData::setTick(DBManager *manager, PIMRecord *record, bool ticked)
{
    if (record->hasProperty(TransferCards::transferKey()) == ticked)
        return;
    auto *old = new DBRecord(*entry(record));
    if (ticked)
        record->setProperty(TransferCards::transferKey(), QStringLiteral("1"));
    else
        record->removeProperty(TransferCards::transferKey());
    manager->update(old, record);
}

void TransferData::select(PIMRecord *record)
{
    if (!record)
        return;
    auto *manager = static_cast<DBManager *>(list->manager());
    const QSignalBlocker blocker(list);
    if (record->hasProperty(TransferCards::transferKey()))
        setTick(manager, record, false);
    else if (manager->isAvailable(entry(record)))
        setTick(manager, record, true);
}

void TransferData::storeAddress()
{
    Config config(MRLPIM::applicationName());
    config.setGroup(QStringLiteral("Options"));
    config.writeEntry(QStringLiteral("ip"), addr->text());
    config.write();
}

bool TransferData::runClient(const QStringList &files)
{
    SendDataDialogClient client(addr->text(), m_send, files, this, m_port);
    connect(&client, &SendDataDialogClient::sendFileFailed, this, &TransferData::sendFileFailed);
    connect(&client, &SendDataDialogClient::getFileFailed, this, &TransferData::getFileFailed);
    connect(&client, &SendDataDialogClient::sendFileSuccess, this, &TransferData::sendFileSuccess);
    connect(&client, &SendDataDialogClient::getFileSuccess, this, &TransferData::getFileSuccess);
    return client.exec() == QDialog::Accepted;
}

void TransferData::doConnect()
{
    btnOk->setEnabled(false);
    storeAddress();
    if (!runClient({ TransferCards::catalogueRequest(), TransferCards::cataloguePath() }))
        return;
    // A second Connect replaces the catalogue, and the ticks of the first go with it.
    DBManager *earlier = m_remote;
    m_remote = new DBManager(true);
    m_remote->load();
    for (PIMRecord *record : m_remote->records())
        record->removeProperty(TransferCards::transferKey());
    list->setManager(m_remote, true);
    list->init();
    delete earlier;
    btnOk->setEnabled(true);
}

void TransferData::start()
{
    storeAddress();
    const QStringList files = m_send ? TransferCards::sendList(*m_local) : getList();
    const bool done = runClient(files);
    const QString caption = m_send ? tr("Sending Data") : tr("Get Data");
    if (!done) {
        MRLDialog::critical(caption, m_send ? tr("Data send failed.") : tr("Data get failed."));
        return;
    }
    MRLDialog::information(
        caption, m_send ? tr("Data send successful.") : tr("Data get successful."));
    accept();
}

QStringList TransferData::getList()
{
    QStringList files;
    if (!m_remote)
        return files;
    for (PIMRecord *record : m_remote->view()) {
        if (!record->hasProperty(TransferCards::transferKey()))
            continue;
        const QString remotePath = entry(record)->path();
        const QString destination = TransferCards::getDestination(*m_local, remotePath);
        if (QFileInfo::exists(destination) && !mayOverwrite(remotePath, destination)) {
            setTick(m_remote, record, false);
            continue;
        }
        files << remotePath << destination;
    }
    return files;
}

bool TransferData::mayOverwrite(const QString &remotePath, const QString &destination)
{
    // The destination goes into the base name first, and only that result into the
    // message: %1 shows both and %2 stays as it stands, as users of this text know it.
    const QString name = QFileInfo(remotePath).completeBaseName();
    const QString text = tr("Card [%1] already exists on %2.\nDo you want overwrite it?")
                             .arg(QStringLiteral("%1 %2").arg(name, destination));
    return MRLDialog::ask(tr("Receive Data"), text, QStringLiteral("dialog_critical"),
               tr("Overwrite"), QString(), tr("Cancel"), QString())
        == 1;
}

void TransferData::sendFileFailed(const QString &name, bool &)
{
    if (TransferCards::isCard(name))
        MRLDialog::critical(tr("Send File Failed"), tr("Failed send file: %1.").arg(name));
}

void TransferData::getFileFailed(const QString &name, bool &)
{
    if (TransferCards::isCard(name))
        MRLDialog::critical(tr("Receive File Failed"), tr("Failed receive file: %1.").arg(name));
}

void TransferData::sendFileSuccess(const QString &name)
{
    for (PIMRecord *record : m_local->records()) {
        if (entry(record)->path() == name)
            setTick(m_local, record, false);
    }
}

void TransferData::getFileSuccess(const QString &name)
{
    if (!TransferCards::isCard(name))
        return;
    if (m_remote) {
        for (PIMRecord *record : m_remote->records()) {
            if (entry(record)->path() == name)
                setTick(m_remote, record, false);
        }
    }
    TransferCards::registerFetched(*m_local, name);
}

void TransferData::dropRemote()
{
    if (!m_remote)
        return;
    const QString path = m_remote->fullPath();
    delete m_remote;
    m_remote = nullptr;
    QFile::remove(path);
}
