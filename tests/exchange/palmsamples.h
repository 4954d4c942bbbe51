#ifndef PALMSAMPLES_H
#define PALMSAMPLES_H

#include <QByteArray>
#include <QMap>
#include <QString>

// The files of tests/data/palm, good and broken, by file name, as the test writer makes them.
QMap<QString, QByteArray> palmSamples();

#endif
