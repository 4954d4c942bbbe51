#include "exchange/passpacer.h"

#include <QCoreApplication>

PassPacer::PassPacer()
{
    m_clock.start();
}

bool PassPacer::step()
{
    if (m_clock.elapsed() < intervalMs)
        return false;
    QCoreApplication::processEvents();
    m_clock.restart();
    return true;
}
