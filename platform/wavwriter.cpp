#include "platform/wavwriter.h"

#include <QIODevice>
#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace
{
constexpr int fadeMilliseconds = 10;

void appendLE32(QByteArray &out, quint32 value)
{
    char bytes[4];
    qToLittleEndian(value, bytes);
    out.append(bytes, 4);
}

void appendLE16(QByteArray &out, quint16 value)
{
    char bytes[2];
    qToLittleEndian(value, bytes);
    out.append(bytes, 2);
}
} // namespace

WavWriter::WavWriter(int sampleRate)
    : m_sampleRate(std::clamp(sampleRate, 8000, 96000))
{
}

int WavWriter::samplesFor(int milliseconds) const
{
    return int(qint64(std::clamp(milliseconds, 0, maxMilliseconds)) * m_sampleRate / 1000);
}

void WavWriter::appendSample(qint16 value)
{
    appendLE16(m_samples, quint16(value));
}

void WavWriter::addTone(double frequency, int milliseconds, double volume)
{
    const int count = samplesFor(milliseconds);
    const int fade = std::min(samplesFor(fadeMilliseconds), count / 2);
    const double amplitude = std::clamp(volume, 0.0, 1.0) * 32767.0;
    for (int i = 0; i < count; ++i) {
        const int edge = std::min(i, count - 1 - i);
        const double envelope = (fade > 0 && edge < fade) ? double(edge) / fade : 1.0;
        const double phase = 2.0 * std::numbers::pi * frequency * i / m_sampleRate;
        appendSample(qint16(std::lround(amplitude * envelope * std::sin(phase))));
    }
}

void WavWriter::addSilence(int milliseconds)
{
    m_samples.append(qsizetype(samplesFor(milliseconds)) * 2, '\0');
}

QByteArray WavWriter::toWav() const
{
    constexpr quint16 channels = 1;
    constexpr quint16 bitsPerSample = 16;
    constexpr quint16 blockAlign = channels * bitsPerSample / 8;
    QByteArray out;
    out.reserve(44 + m_samples.size());
    out.append("RIFF", 4);
    appendLE32(out, quint32(36 + m_samples.size()));
    out.append("WAVEfmt ", 8);
    appendLE32(out, 16);
    appendLE16(out, 1); // PCM
    appendLE16(out, channels);
    appendLE32(out, quint32(m_sampleRate));
    appendLE32(out, quint32(m_sampleRate) * blockAlign);
    appendLE16(out, blockAlign);
    appendLE16(out, bitsPerSample);
    out.append("data", 4);
    appendLE32(out, quint32(m_samples.size()));
    out.append(m_samples);
    return out;
}

bool WavWriter::write(QIODevice *device) const
{
    const QByteArray bytes = toWav();
    return device->write(bytes) == bytes.size();
}
