#include "platform/wavwriter.h"

#include <QBuffer>
#include <QTest>
#include <QtEndian>

class TestWavWriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void header();
    void durationIsBounded();
};

namespace
{
quint32 le32(const QByteArray &b, int at)
{
    return qFromLittleEndian<quint32>(b.constData() + at);
}

quint16 le16(const QByteArray &b, int at)
{
    return qFromLittleEndian<quint16>(b.constData() + at);
}
} // namespace

void TestWavWriter::header()
{
    WavWriter wav(8000);
    wav.addTone(440.0, 100);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QVERIFY(wav.write(&buffer));
    const QByteArray bytes = buffer.data();
    QCOMPARE(bytes.left(4), QByteArrayLiteral("RIFF"));
    QCOMPARE(le32(bytes, 4), quint32(bytes.size() - 8));
    QCOMPARE(bytes.mid(8, 8), QByteArrayLiteral("WAVEfmt "));
    QCOMPARE(le32(bytes, 16), 16u);
    QCOMPARE(le16(bytes, 20), 1); // PCM
    QCOMPARE(le16(bytes, 22), 1); // mono
    QCOMPARE(le32(bytes, 24), 8000u); // sample rate
    QCOMPARE(le32(bytes, 28), 16000u); // bytes per second
    QCOMPARE(le16(bytes, 32), 2); // block
    QCOMPARE(le16(bytes, 34), 16); // bits
    QCOMPARE(bytes.mid(36, 4), QByteArrayLiteral("data"));
    QCOMPARE(le32(bytes, 40), quint32(bytes.size() - 44));
}

void TestWavWriter::durationIsBounded()
{
    WavWriter wav(8000);
    wav.addSilence(std::numeric_limits<int>::max());
    QCOMPARE(wav.sampleCount(), qsizetype(WavWriter::maxMilliseconds) * 8);
}

QTEST_GUILESS_MAIN(TestWavWriter)
#include "testwavwriter.moc"
