#ifndef PASSPACER_H
#define PASSPACER_H

#include <QElapsedTimer>

// Keeps the user interface live during a long pass run on its thread. Processing events
// for every line costs more than the line itself, so they are processed once some
// milliseconds have passed: often enough for the progress bar and a Cancel click, seldom
// enough to leave the pass its speed.
class PassPacer
{
public:
    static constexpr qint64 intervalMs = 30;

    PassPacer();

    // True when the interval has passed since the last true; events are then processed.
    bool step();

private:
    QElapsedTimer m_clock;
};

#endif
