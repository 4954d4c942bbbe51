#include "resulttable.h"

namespace {
QString cell(double ms)
{
    return ms < 0 ? QStringLiteral("-") : QString::number(ms, 'f', 2);
}

QString ratio(double ours, double other)
{
    return other <= 0 ? QStringLiteral("-") : QString::number(ours / other, 'f', 2);
}
} // namespace

void ResultTable::add(const QString &operation, double ours, double peer, double raw)
{
    m_rows.append({operation, ours, peer, raw});
}

QString ResultTable::text() const
{
    QString out = QStringLiteral("| operation | norvika ms | sqlite3 ms | ours/sqlite3 | raw I/O ms | ours/raw |\n"
                                 "|---|---:|---:|---:|---:|---:|\n");
    for (const Row &row : m_rows) {
        out += QStringLiteral("| %1 | %2 | %3 | %4 | %5 | %6 |\n")
                   .arg(row.operation, cell(row.ours), cell(row.peer), ratio(row.ours, row.peer),
                        cell(row.raw), ratio(row.ours, row.raw));
    }
    return out;
}
