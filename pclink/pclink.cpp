#include "pclink/pclink.h"

#include "pclink/pclinkframe.h"
#include "pclink/pclinkpaths.h"

#include <QFileInfo>

PCLink::PCLink(Role role, QObject *parent)
    : QTcpSocket(parent)
    , m_role(role)
{
    m_stallTimer.setSingleShot(true);
    m_stallTimer.setInterval(defaultStallMs);
    connect(this, &QIODevice::readyRead, this, &PCLink::readIncoming);
    connect(this, &QIODevice::bytesWritten, this, &PCLink::writeNextBlock);
    connect(this, &QAbstractSocket::disconnected, this, &PCLink::abandonTransfer);
    connect(&m_stallTimer, &QTimer::timeout, this, &PCLink::dropStalledPeer);
}

PCLink::~PCLink()
{
    // Closing the socket below signals; nobody may hear it from a half-destroyed object.
    QObject::disconnect();
    m_file.close();
    m_target.reset(); // discards an unfinished file
    abort();
}

// ---- Operations -------------------------------------------------------------------------

void PCLink::sendFile(const QString &path, const QString &target)
{
    const QString resolved = PCLinkPaths::resolve(path);
    m_file.setFileName(resolved);
    const QFileInfo info(resolved);
    if (!info.isFile() || info.size() >= maxFileSize || !m_file.open(QIODevice::ReadOnly)) {
        sendMessage("FS");
        emit sendingFileFailed();
        return;
    }
    m_file.close();
    m_state = Waiting;
    m_offerPending = true;
    sendMessage("I", { resolved, QString::number(info.size()), target });
    watchStall();
}

void PCLink::requestFile(const QString &remote, const QString &local)
{
    m_state = Waiting;
    m_requestedLocal = local;
    sendMessage("R", { remote, local });
    watchStall();
}

// ---- Reading ----------------------------------------------------------------------------

void PCLink::readIncoming()
{
    bool more = true;
    while (more && state() == ConnectedState)
        more = m_state == Receiving ? receiveContent() : readFrames();
    watchStall();
}

// File bytes up to the announced size; true when the file is done and frames may follow.
bool PCLink::receiveContent()
{
    while (m_state == Receiving) {
        const qint64 left = qint64(m_totalSize) - m_transferred;
        QByteArray block;
        if (!m_buffer.isEmpty()) {
            block = m_buffer.left(left);
            m_buffer.remove(0, block.size());
        } else {
            block = read(qMin(left, blockSize));
        }
        if (block.isEmpty())
            return false;
        m_target->write(block);
        m_transferred += quint32(block.size());
        emit progress(int(m_transferred), m_totalSize);
        if (m_transferred == quint32(m_totalSize))
            finishReceiving();
    }
    return true;
}

// Dispatches every whole frame; true when one of them switched to file content.
bool PCLink::readFrames()
{
    for (;;) {
        QByteArray payload;
        const PCLinkFrame::Take taken = PCLinkFrame::take(m_buffer, payload);
        if (taken == PCLinkFrame::Broken) {
            breakConnection();
            return false;
        }
        if (taken == PCLinkFrame::NeedMore) {
            if (!appendChunk())
                return false;
            continue;
        }
        dispatch(payload);
        if (m_state == Receiving || state() != ConnectedState)
            return m_state == Receiving;
    }
}

// Reads no more than one frame can hold, so the buffer stays bounded.
bool PCLink::appendChunk()
{
    const qint64 room
        = PCLinkFrame::maxLengthDigits + 1 + PCLinkFrame::maxPayload - m_buffer.size();
    const qint64 available = bytesAvailable();
    if (room <= 0 || available <= 0)
        return false;
    QByteArray chunk = read(qMin(room, available));
    // Payloads hold no NUL: whatever follows one in a chunk is noise.
    const qsizetype nul = chunk.indexOf('\0');
    if (nul >= 0)
        chunk.truncate(nul);
    m_buffer += chunk;
    return true;
}

void PCLink::dispatch(const QByteArray &payload)
{
    if (payload.isEmpty())
        return;
    // While file bytes go out, anything written here would land inside the file.
    const bool sending = m_state == Sending;
    switch (payload.at(0)) {
    case 'R':
        if (!sending)
            handleRequest(payload);
        break;
    case 'I':
        if (!sending)
            handleOffer(payload);
        break;
    case 'A':
        handleAnswer(payload);
        break;
    case 'F':
        if (payload.size() >= 2 && payload.at(1) == 'S')
            handleFailure();
        break;
    default:
        break;
    }
}

void PCLink::handleRequest(const QByteArray &payload)
{
    PCLinkFrame::FieldReader fields(payload, 1);
    QString remote;
    QString local;
    const bool read = fields.next(remote) && fields.next(local);
    if (m_role != Server || !read
        || !PCLinkPaths::mayRead(PCLinkPaths::resolve(remote), m_servedFiles)) {
        sendMessage("FS");
        return;
    }
    sendFile(remote, local);
}

void PCLink::handleOffer(const QByteArray &payload)
{
    PCLinkFrame::FieldReader fields(payload, 1);
    QString sizeText;
    QString target;
    bool sized = false;
    qint64 size = -1;
    if (fields.next(m_peerPath) && fields.next(sizeText) && fields.next(target))
        size = sizeText.toLongLong(&sized);
    m_transferred = 0;
    // A client takes a file only as the answer to its own request, under the name it asked;
    // an offer out of the blue is turned down without disturbing what this end is doing.
    if (m_role == Client && m_requestedLocal.isNull()) {
        sendMessage("ACANCEL");
        return;
    }
    const bool expected = m_role == Server || target == m_requestedLocal;
    const QString allowed = m_role == Client ? PCLinkPaths::resolve(m_requestedLocal) : QString();
    m_requestedLocal = QString();
    if (!sized || size < 0 || size >= maxFileSize || !expected) {
        refuseOffer();
        return;
    }
    m_totalSize = int(size);
    m_localPath = PCLinkPaths::resolve(target);
    if (!PCLinkPaths::mayWrite(m_localPath, allowed) || !openTarget()) {
        refuseOffer();
        // An empty file refused reports both its failure and its end, as peers expect.
        if (m_totalSize == 0)
            emit receiveFileFinished(m_localPath);
        return;
    }
    m_state = Receiving;
    sendMessage("AOK");
    emit receiveFile(m_localPath);
    if (m_totalSize == 0)
        finishReceiving();
}

bool PCLink::openTarget()
{
    m_target = std::make_unique<QSaveFile>(m_localPath);
    m_target->setDirectWriteFallback(false);
    if (m_target->open(QIODevice::WriteOnly))
        return true;
    m_target.reset();
    return false;
}

void PCLink::refuseOffer()
{
    m_state = Idle;
    sendMessage("ACANCEL");
    emit receiveFileFailed();
}

void PCLink::finishReceiving()
{
    m_state = Idle;
    const bool saved = m_target->commit();
    m_target.reset();
    if (!saved) {
        emit receiveFileFailed();
        return;
    }
    emit receiveFileFinished(m_localPath);
}

void PCLink::handleAnswer(const QByteArray &payload)
{
    if (!m_offerPending)
        return; // an answer to nothing
    m_offerPending = false;
    m_transferred = 0;
    if (payload != "AOK" || !m_file.open(QIODevice::ReadOnly)) {
        m_state = Idle;
        emit sendingFileFailed();
        return;
    }
    m_state = Sending;
    if (m_file.size() == 0) {
        m_file.close();
        m_state = Idle;
        emit sendingFileFinished();
        return;
    }
    write(m_file.read(blockSize));
}

void PCLink::handleFailure()
{
    const bool asked = m_role == Server || !m_requestedLocal.isNull();
    m_requestedLocal = QString();
    m_state = Idle;
    if (asked)
        emit receiveFileFailed();
}

// ---- Writing ----------------------------------------------------------------------------

void PCLink::writeNextBlock(qint64 written)
{
    if (m_state != Sending)
        return;
    m_transferred += quint32(written);
    emit progress(int(m_transferred), int(m_file.size()));
    if (m_transferred >= m_file.size()) {
        m_file.close();
        m_state = Idle;
        emit sendingFileFinished();
    } else if (!m_file.atEnd() && bytesToWrite() < blockSize) {
        // One block per report, and only once the socket has passed the last one on.
        write(m_file.read(blockSize));
    }
    watchStall();
}

void PCLink::sendMessage(const QByteArray &tag, const QStringList &fields)
{
    write(PCLinkFrame::message(tag, fields));
}

// ---- Ending -----------------------------------------------------------------------------

void PCLink::watchStall()
{
    if (m_state != Idle || !m_buffer.isEmpty())
        m_stallTimer.start();
    else
        m_stallTimer.stop();
}

void PCLink::dropStalledPeer()
{
    breakConnection();
}

void PCLink::breakConnection()
{
    abandonTransfer();
    abort();
}

// The state stays as it was: that is how a client learns the transfer did not finish.
void PCLink::abandonTransfer()
{
    m_stallTimer.stop();
    m_buffer.clear();
    m_file.close();
    m_target.reset();
    m_offerPending = false;
}
