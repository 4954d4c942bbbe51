#ifndef RESULTTABLE_H
#define RESULTTABLE_H

#include <QList>
#include <QString>

// The printed result: one row per operation with our time, the peer's and the raw I/O
// cost where they apply, and the ratios ours/peer and ours/raw.
class ResultTable
{
public:
    static constexpr double none = -1;

    void add(const QString &operation, double ours, double peer = none, double raw = none);
    QString text() const;

private:
    struct Row
    {
        QString operation;
        double ours;
        double peer;
        double raw;
    };
    QList<Row> m_rows;
};

#endif
