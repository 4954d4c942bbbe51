#include "sqlitepeer.h"

#include "card/datamanager.h"
#include "card/datarecord.h"

#include <QFile>
#include <QList>

#include <sqlite3.h>

namespace
{
// One row held in memory, as a loaded card holds its records.
struct Row {
    QString uid, name, moment, notes, colour, tags;
    double count = 0, price = 0, done = 0;
    qint64 day = 0, hour = 0;
};

QString text(sqlite3_stmt *statement, int column)
{
    return QString::fromUtf8(
        reinterpret_cast<const char *>(sqlite3_column_text(statement, column)));
}

Row readRow(sqlite3_stmt *statement)
{
    Row row;
    row.uid = text(statement, 0);
    row.name = text(statement, 1);
    row.count = sqlite3_column_double(statement, 2);
    row.price = sqlite3_column_double(statement, 3);
    row.day = sqlite3_column_int64(statement, 4);
    row.hour = sqlite3_column_int64(statement, 5);
    row.moment = text(statement, 6);
    row.notes = text(statement, 7);
    row.colour = text(statement, 8);
    row.done = sqlite3_column_double(statement, 9);
    row.tags = text(statement, 10);
    return row;
}
} // namespace

SqlitePeer::SqlitePeer(const QString &databasePath, int runs)
    : m_path(databasePath)
    , m_stopwatch(runs)
{
}

bool SqlitePeer::exec(sqlite3 *db, const char *sql)
{
    char *message = nullptr;
    if (sqlite3_exec(db, sql, nullptr, nullptr, &message) == SQLITE_OK)
        return true;
    m_error = QString::fromUtf8(message);
    sqlite3_free(message);
    return false;
}

bool SqlitePeer::import(const DataManager &card)
{
    QFile::remove(m_path);
    sqlite3 *db = nullptr;
    if (sqlite3_open(QFile::encodeName(m_path).constData(), &db) != SQLITE_OK) {
        m_error = QString::fromUtf8(sqlite3_errmsg(db));
        sqlite3_close(db);
        return false;
    }
    bool ok = exec(db,
        "CREATE TABLE card(uid TEXT, name TEXT, count INTEGER, price REAL,"
        " day INTEGER, hour INTEGER, moment TEXT, notes TEXT, colour TEXT,"
        " done INTEGER, tags TEXT); BEGIN");
    sqlite3_stmt *insert = nullptr;
    ok = ok
        && sqlite3_prepare_v2(
               db, "INSERT INTO card VALUES(?,?,?,?,?,?,?,?,?,?,?)", -1, &insert, nullptr)
            == SQLITE_OK;
    for (const PIMRecord *base : card.records()) {
        if (!ok)
            break;
        const auto *r = static_cast<const DataRecord *>(base);
        const QByteArray uid = r->uidString().toUtf8(), name = r->stringValue(0).toUtf8(),
                         moment = r->dateTimeValue(5).toString(Qt::ISODate).toUtf8(),
                         notes = r->stringValue(6).toUtf8(), colour = r->stringValue(7).toUtf8(),
                         tags = r->stringValue(9).toUtf8();
        sqlite3_bind_text(insert, 1, uid.constData(), -1, SQLITE_TRANSIENT);
        sqlite3_bind_text(insert, 2, name.constData(), -1, SQLITE_TRANSIENT);
        sqlite3_bind_double(insert, 3, r->doubleValue(1));
        sqlite3_bind_double(insert, 4, r->doubleValue(2));
        sqlite3_bind_int64(insert, 5, r->dateValue(3).toJulianDay());
        sqlite3_bind_int64(insert, 6, r->timeValue(4).msecsSinceStartOfDay());
        sqlite3_bind_text(insert, 7, moment.constData(), -1, SQLITE_TRANSIENT);
        sqlite3_bind_text(insert, 8, notes.constData(), -1, SQLITE_TRANSIENT);
        sqlite3_bind_text(insert, 9, colour.constData(), -1, SQLITE_TRANSIENT);
        sqlite3_bind_double(insert, 10, r->doubleValue(8));
        sqlite3_bind_text(insert, 11, tags.constData(), -1, SQLITE_TRANSIENT);
        ok = sqlite3_step(insert) == SQLITE_DONE && sqlite3_reset(insert) == SQLITE_OK;
    }
    sqlite3_finalize(insert);
    ok = ok && exec(db, "COMMIT");
    if (!ok && m_error.isEmpty())
        m_error = QString::fromUtf8(sqlite3_errmsg(db));
    sqlite3_close(db);
    return ok;
}

// Each run opens the database anew, as a card is loaded anew: the operating system's file
// cache is warm for both, neither keeps a cache of its own between runs.
double SqlitePeer::timeQuery(const QString &sql, bool materialize) const
{
    const QByteArray query = sql.toUtf8();
    return m_stopwatch.best([&] {
        sqlite3 *db = nullptr;
        sqlite3_open_v2(QFile::encodeName(m_path).constData(), &db, SQLITE_OPEN_READONLY, nullptr);
        sqlite3_stmt *statement = nullptr;
        sqlite3_prepare_v2(db, query.constData(), -1, &statement, nullptr);
        QList<Row> rows;
        while (sqlite3_step(statement) == SQLITE_ROW) {
            if (materialize)
                rows.append(readRow(statement));
        }
        sqlite3_finalize(statement);
        sqlite3_close(db);
    });
}

double SqlitePeer::readAllRows() const
{
    return timeQuery(QStringLiteral("SELECT * FROM card"), true);
}

double SqlitePeer::orderBy(const QString &column) const
{
    return timeQuery(QStringLiteral("SELECT * FROM card ORDER BY %1").arg(column), true);
}

double SqlitePeer::likeOverTextColumns(const QString &needle) const
{
    return timeQuery(QStringLiteral("SELECT count(*) FROM card WHERE name LIKE '%%1%' OR notes "
                                    "LIKE '%%1%' OR colour LIKE '%%1%' OR tags LIKE '%%1%'")
                         .arg(needle),
        false);
}

double SqlitePeer::threeConditions(const QString &prefix, int atLeast, const QDate &from) const
{
    return timeQuery(
        QStringLiteral("SELECT count(*) FROM card WHERE name LIKE '%1%' AND count >= %2"
                       " AND day >= %3")
            .arg(prefix)
            .arg(atLeast)
            .arg(from.toJulianDay()),
        false);
}
