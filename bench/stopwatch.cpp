#include "stopwatch.h"

#include <QElapsedTimer>

#include <limits>

double Stopwatch::best(const std::function<void()> &operation,
                       const std::function<void()> &setup) const
{
    double fastest = std::numeric_limits<double>::infinity();
    for (int i = 0; i < m_runs; ++i) {
        if (setup)
            setup();
        QElapsedTimer timer;
        timer.start();
        operation();
        fastest = qMin(fastest, timer.nsecsElapsed() / 1e6);
    }
    return fastest;
}
