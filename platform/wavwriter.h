#ifndef WAVWRITER_H
#define WAVWRITER_H

#include <QByteArray>

class QIODevice;

// Builds a short sound of tones and pauses and writes it as a WAV file (16-bit mono PCM),
// so the program's alarm sounds are made by its own build rather than shipped.
class WavWriter
{
public:
    static constexpr int maxMilliseconds = 10000; // per piece, to keep a slip from filling a disk

    explicit WavWriter(int sampleRate = 22050);

    // A sine tone at the volume (0 to 1), faded in and out so it starts and stops clean.
    void addTone(double frequency, int milliseconds, double volume = 0.5);
    void addSilence(int milliseconds);

    int sampleRate() const { return m_sampleRate; }
    qsizetype sampleCount() const { return m_samples.size() / 2; }

    QByteArray toWav() const;
    bool write(QIODevice *device) const;

private:
    int samplesFor(int milliseconds) const;
    void appendSample(qint16 value);

    int m_sampleRate;
    QByteArray m_samples;
};

#endif
