#include "card/taskfinder.h"

#include "card/datamanager.h"
#include "card/datarecord.h"
#include "support/testhome.h"

#include <QtTest>

#include <memory>

// Finding the record of a reminder among the cards: the open card first, then the others
// in order, each in a manager of its own that only a hit keeps alive.
class TestTaskFinder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void openCardFirst();
    void recordInAnotherCard();
};

namespace
{
// A saved card with one record holding text; the record's UID text.
QString makeCard(const QString &path, const QString &text)
{
    DataManager manager(path);
    FieldDef field;
    field.title = QStringLiteral("Name");
    manager.setFields({ field }, true);
    DataRecord *record = manager.newRecord();
    record->setStringValue(0, text);
    manager.add(record);
    const QString uid = record->uidString();
    manager.save();
    return uid;
}

std::unique_ptr<DataManager> openCard(const QString &path)
{
    auto manager = std::make_unique<DataManager>(path);
    manager->load();
    return manager;
}
} // namespace

void TestTaskFinder::openCardFirst()
{
    TestHome home;
    const QString path = home.file("open.card");
    const QString uid = makeCard(path, "open");
    auto open = openCard(path);
    DataRecord *found = TaskFinder::find(open.get(), { path }, uid);
    QVERIFY(found);
    QCOMPARE(found->manager(), open.get());
}

void TestTaskFinder::recordInAnotherCard()
{
    TestHome home;
    const QString openPath = home.file("open.card");
    makeCard(openPath, "open");
    const QString firstPath = home.file("first.card");
    makeCard(firstPath, "first");
    const QString secondPath = home.file("second.card");
    const QString uid = makeCard(secondPath, "second");
    auto open = openCard(openPath);

    DataRecord *found = TaskFinder::find(open.get(), { openPath, firstPath, secondPath }, uid);
    QVERIFY(found);
    std::unique_ptr<PIMManager> other(found->manager());
    QVERIFY(other.get() != open.get());
    QCOMPARE(other->fullPath(), secondPath);
    QCOMPARE(found->stringValue(0), QStringLiteral("second"));
    QCOMPARE(found->uidString(), uid);
}

QTEST_GUILESS_MAIN(TestTaskFinder)
#include "testtaskfinder.moc"
