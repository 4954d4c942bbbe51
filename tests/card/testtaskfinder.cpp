#include "card/taskfinder.h"

#include "card/datamanager.h"
#include "card/datarecord.h"
#include "support/testhome.h"

#include <QtTest>

#include <memory>

// Finding the record of a reminder among the cards: the open card first, then the others
// in order, each in a manager of its own that only a hit keeps alive. Bad names and bad
// cards find nothing or are passed over, and a card searched in vain is left as it was.
class TestTaskFinder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void find_data();
    void find();
};

namespace
{
// A saved card of one record holding text, locked with password unless empty, with a
// calculated field when asked; the record's UID text.
QString makeCard(const QString &path, const QString &text, const QString &password = QString(),
    bool calculated = false)
{
    DataManager manager(path);
    FieldDef name;
    name.title = QStringLiteral("Name");
    QList<FieldDef> fields { name };
    if (calculated) {
        FieldDef sum;
        sum.type = FieldDef::Integer;
        sum.title = QStringLiteral("Sum");
        sum.formula = QStringLiteral("1 + 1");
        fields << sum;
    }
    manager.setFields(fields, true);
    manager.setPassword(password);
    DataRecord *record = manager.newRecord();
    record->setStringValue(0, text);
    manager.add(record);
    const QString uid = record->uidString();
    manager.save();
    return uid;
}

struct Snapshot {
    QByteArray bytes;
    QDateTime modified;
    bool operator==(const Snapshot &) const = default;
};

Snapshot snapshot(const QString &path)
{
    QFile file(path);
    return { file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray(),
        QFileInfo(path).lastModified() };
}
} // namespace

void TestTaskFinder::find_data()
{
    QTest::addColumn<QStringList>("cards");
    QTest::addColumn<QString>("uid");
    QTest::addColumn<QString>("found");
    // Cards in the list's order: "open" is the open card, "gone" has no file, "damaged" is
    // cut short, "locked" has a password, "calculated" a formula; "hit" holds the UID.
    const QStringList all { "open", "gone", "damaged", "locked", "calculated", "plain" };
    const auto row
        = [](const char *name, const QStringList &cards, const char *uid, const char *found) {
              QTest::newRow(name) << cards << QString(uid) << QString(found);
          };
    row("open card first", all, "open", "open");
    row("past a gone and a damaged card", { "open", "gone", "damaged", "calculated", "hit" }, "hit",
        "hit");
    row("locked card, no password asked", all, "locked", "locked");
    row("no open card", { "plain", "hit" }, "hit", "hit");
    row("UID in no card", all, "absent", "");
    row("short UID", all, "short", "");
    row("over-long UID", all, "long", "");
    row("garbage", all, "garbage", "");
    row("empty", all, "empty", "");
}

void TestTaskFinder::find()
{
    QFETCH(QStringList, cards);
    QFETCH(QString, uid);
    QFETCH(QString, found);
    TestHome home;
    QHash<QString, QString> uids { { "absent", "0f8fad5b-d9cb-469f-a165-70867728950e" },
        { "short", "0f8fad5b" }, { "long", QString(5000, QLatin1Char('7')) },
        { "garbage", QStringLiteral("\u00e9%1\t\n-//..").arg(QChar(0)) }, { "empty", "" } };
    QStringList paths;
    std::unique_ptr<DataManager> open;
    for (const QString &card : cards) {
        const QString path = home.file(card + QStringLiteral(".card"));
        paths << path;
        if (card != QLatin1String("gone"))
            uids[card] = makeCard(path, card, card == QLatin1String("locked") ? "secret" : "",
                card == QLatin1String("calculated"));
        if (card == QLatin1String("damaged"))
            QVERIFY(QFile::resize(path, QFileInfo(path).size() / 2));
        if (card == QLatin1String("open")) {
            open = std::make_unique<DataManager>(path);
            QVERIFY(open->load());
        }
    }
    QHash<QString, Snapshot> before;
    for (const QString &path : paths)
        before.insert(path, snapshot(path));
    QTest::qWait(20); // a rewrite would show in the modification time

    DataRecord *record = TaskFinder::find(open.get(), paths, uids.value(uid));
    QCOMPARE(record ? record->stringValue(0) : QString(), found);
    if (record && record->manager() != open.get()) {
        QCOMPARE(record->manager()->fullPath(), home.file(found + QStringLiteral(".card")));
        delete record->manager();
    }
    open.reset();
    for (const QString &path : paths)
        QVERIFY2(snapshot(path) == before.value(path), qPrintable(path));
}

QTEST_GUILESS_MAIN(TestTaskFinder)
#include "testtaskfinder.moc"
