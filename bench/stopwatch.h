#ifndef STOPWATCH_H
#define STOPWATCH_H

#include <functional>

// Runs an operation several times and keeps the fastest run, in milliseconds: the least
// disturbed figure on a shared machine. setup runs before each timed run, untimed.
class Stopwatch
{
public:
    explicit Stopwatch(int runs) : m_runs(runs) {}

    double best(const std::function<void()> &operation,
                const std::function<void()> &setup = {}) const;

private:
    int m_runs;
};

#endif
