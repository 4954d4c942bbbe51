#include "card/datamanager.h"
#include "card/datarecord.h"
#include "platform/alarmtable.h"
#include "reminders/reminder.h"
#include "store/binaryformat.h"
#include "support/testhome.h"

#include <QFile>
#include <QSignalSpy>
#include <QTest>

#include <memory>

class TestDataManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void roundTripKeepsEverything();
    void smallCardBytes();
    void damagedHeader_data();
    void damagedHeader();
    void incrementCounter_data();
    void incrementCounter();
    void retypingByFamily_data();
    void retypingByFamily();
    void removingFieldDropsFiltersAndColumns();
    void movingFieldsRenumbersFormulas();
    void calculationOrder_data();
    void calculationOrder();
    void previousRecordWalk();
    void alarmFollowsReminders();
    void findKeepsTheSortedOrder_data();
    void findKeepsTheSortedOrder();
};

namespace
{

using F = FieldDef;

// Fields of the given types titled f0, f1...; a formula per field where one is given.
QList<FieldDef> fieldsOf(const QList<int> &types, const QStringList &formulas = {})
{
    QList<FieldDef> fields;
    for (int i = 0; i < types.size(); ++i) {
        FieldDef field;
        field.type = types.at(i);
        field.title = field.label = QStringLiteral("f%1").arg(i);
        if (i < formulas.size() && !formulas.at(i).isEmpty())
            field.formula = formulas.at(i);
        fields.append(field);
    }
    return fields;
}

std::unique_ptr<DataManager> cardWith(const TestHome &home, const QList<FieldDef> &fields)
{
    auto manager = std::make_unique<DataManager>(home.file(QStringLiteral("test.card")));
    manager->setFields(fields, true);
    return manager;
}

DataRecord *addRecord(DataManager &manager, const QList<double> &numbers = {})
{
    auto *record = static_cast<DataRecord *>(manager.createRecord());
    for (int i = 0; i < numbers.size(); ++i)
        record->setDoubleValue(i, numbers.at(i));
    manager.add(record);
    return record;
}

QByteArray fileBytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

FilterDef filterOn(const QString &title, const QList<int> &fields, const QString &text = "x")
{
    FilterDef filter;
    filter.title = title;
    for (int field : fields) {
        FilterCondition c;
        c.field = field;
        c.op = 0;
        c.text = text;
        filter.conditions.append(c);
    }
    return filter;
}

ViewDef viewOf(const QList<int> &columns, int sort, bool ascending, const QString &filter = {})
{
    ViewDef view;
    view.title = QStringLiteral("v");
    view.columns = columns;
    view.sort = sort;
    view.ascending = ascending;
    view.filter = filter;
    return view;
}

QList<FieldDef> everyTypeFields()
{
    QList<FieldDef> fields;
    for (int type = 0; type < F::TypeCount; ++type) {
        fields.append(fieldsOf({ type }).at(0));
        fields.last().title = F::typeName(type) + QStringLiteral(" – ✓");
    }
    fields[F::List].items = { QStringLiteral("ja"), QStringLiteral("nej") };
    fields[F::MultiList].items = { QStringLiteral("α"), QStringLiteral("β") };
    fields[F::Double].format = QStringLiteral("0.00");
    fields[F::Increment].defaultValue = QStringLiteral("1;1");
    fields[F::String].width = 120;
    return fields;
}

void fillEveryType(DataRecord *record)
{
    record->setStringValue(F::String, QStringLiteral("Ærøskøbing 鍵 🔑"));
    record->setDoubleValue(F::Integer, -42);
    record->setDoubleValue(F::Double, 3.14159);
    record->setDateValue(F::Date, QDate(1969, 7, 20));
    record->setTimeValue(F::Time, QTime(13, 14, 15, 16));
    record->setDateTimeValue(F::DateTime, QDateTime(QDate(2038, 1, 19), QTime(3, 14, 8)));
    record->setStringValue(F::Text, QStringLiteral("line one\nстрока два"));
    record->setStringValue(F::List, QStringLiteral("nej"));
    record->setDoubleValue(F::Bool, 1);
    record->setDoubleValue(F::Count, 7);
    record->setStringValue(F::MultiList, QStringLiteral("α\nβ"));
    record->setDoubleValue(F::Increment, 99);
    record->setMemo(QStringLiteral("a memo\nwith ünïcödé"));
    record->setImage(QStringLiteral("pictures/cat.png"));
    auto *reminder = new Reminder;
    reminder->dateTime = QDateTime(QDate(2001, 1, 1), QTime(8, 30));
    reminder->sound = reminder->led = true;
    reminder->type = 7;
    record->setReminder(reminder);
    record->setProperty(QStringLiteral("colour"), QStringLiteral("grün"));
    record->setCategories({ QStringLiteral("6f1c2a34-8d0e-4b7a-9e21-3c5d7f901a2b") });
}

} // namespace

void TestDataManager::roundTripKeepsEverything()
{
    TestHome home;
    auto card = cardWith(home, everyTypeFields());
    card->setDescription(QStringLiteral("Bücher – книги"));
    card->setIcon(QStringLiteral("12"));
    card->setPassword(QStringLiteral("пароль"));
    card->setProperty(QStringLiteral("custom"), QStringLiteral("värde"));
    card->setFilters({ filterOn(QStringLiteral("Ærø"), { 0 }, QStringLiteral("Æ")),
        filterOn(QStringLiteral("all"), { -1 }) });
    card->setViews({ viewOf({ 0, 2, 0 }, 2, false, card->filters().at(1).uuidString()),
        viewOf({}, -1, true) });
    card->setCurrentView(0);
    fillEveryType(addRecord(*card));
    addRecord(*card); // every slot unset
    QVERIFY(card->save());
    const QString path = home.file(QStringLiteral("test.card"));
    const QByteArray firstSave = fileBytes(path);

    DataManager read(path);
    QVERIFY(read.load());
    QVERIFY(!read.loadedDamaged());
    QCOMPARE(read.fieldList(), card->fieldList());
    QCOMPARE(read.sortColumn(), 2);
    QCOMPARE(read.currentFilter(), 1);
    QCOMPARE(read.currentView(), 0);
    QCOMPARE(read.filters(), card->filters());
    QCOMPARE(read.views(), card->views());
    QCOMPARE(read.count(), 2);
    // Writing back what was read gives the same bytes, so every part was read whole;
    // these spot checks catch a part written and read back the same wrong way.
    const auto *full = static_cast<DataRecord *>(read.records().at(0));
    const auto *unset = static_cast<DataRecord *>(read.records().at(1));
    QCOMPARE(full->uidString(), card->records().at(0)->uidString());
    QCOMPARE(full->stringValue(F::String), QStringLiteral("Ærøskøbing 鍵 🔑"));
    QCOMPARE(*full->reminder(), *static_cast<DataRecord *>(card->records().at(0))->reminder());
    QVERIFY(unset->stringValue(F::String).isNull() && !unset->hasReminder());
    QVERIFY(read.forceSave());
    QCOMPARE(fileBytes(path), firstSave);
}

// The expected bytes are written out by hand, field by field, in the golden file.
void TestDataManager::smallCardBytes()
{
    TestHome home;
    {
        QList<FieldDef> fields = fieldsOf({ F::String, F::Integer });
        fields[0].title = fields[0].label = QStringLiteral("Title");
        fields[1].title = fields[1].label = QStringLiteral("Year");
        fields[1].width = 40;
        auto card = cardWith(home, fields);
        card->setDescription(QStringLiteral("Books"));
        card->setIcon(QStringLiteral("12"));
        card->setPassword(QStringLiteral("A"));
        card->setViews({ viewOf({ 1, 0 }, 1, false) });
        QList<ViewDef> views = card->views();
        views[0].title = QStringLiteral("All");
        card->setViews(views);
        card->setCurrentView(0);
        auto *record = static_cast<DataRecord *>(card->createRecord());
        const uuid_t uid = { 0x00, 0x11, 0x22, 0x33, 0x44, 0x55, 0x66, 0x77, 0x88, 0x99, 0xaa, 0xbb,
            0xcc, 0xdd, 0xee, 0xff };
        record->setUid(uid);
        const QDateTime stamp(QDate(2004, 3, 7), QTime(18, 5, 9));
        record->setCreated(stamp);
        record->setUpdated(stamp);
        record->setStringValue(0, QStringLiteral("Dune"));
        record->setDoubleValue(1, 1965.5);
        card->add(record);
        QVERIFY(card->save());
    }
    QFile golden(TestHome::dataFile(QStringLiteral("card/smallcard.hex")));
    QVERIFY(golden.open(QIODevice::ReadOnly | QIODevice::Text));
    QByteArray hex;
    while (!golden.atEnd())
        hex += golden.readLine().split('#').first().simplified().replace(' ', "");
    QCOMPARE(fileBytes(home.file(QStringLiteral("test.card"))).toHex(' '),
        QByteArray::fromHex(hex).toHex(' '));
}

// A card header whose counts cannot be: nothing past it is trusted.
void TestDataManager::damagedHeader_data()
{
    QTest::addColumn<QByteArray>("tail");
    auto bytes = [](auto write) {
        QByteArray tail;
        QDataStream out(&tail, QIODevice::WriteOnly);
        BinaryFormat::prepare(out);
        write(out);
        return tail;
    };
    QTest::newRow("field count") << bytes([](QDataStream &out) { out << qint32(0x10000000); });
    QTest::newRow("negative field count") << bytes([](QDataStream &out) { out << qint32(-3); });
    QTest::newRow("item count") << bytes([](QDataStream &out) {
        out << qint32(1) << QString() << QString() << qint32(0) << QString() << QString()
            << QString() << quint32(0x7fffffff);
    });
    QTest::newRow("filter count") << bytes(
        [](QDataStream &out) { out << qint32(0) << qint32(0x7ffffff0); });
    QTest::newRow("view count") << bytes([](QDataStream &out) {
        out << qint32(0) << qint32(0) << qint32(-1) << qint32(0x20000000);
    });
    QTest::newRow("cut short") << bytes([](QDataStream &out) { out << qint32(1) << QString(); });
}

void TestDataManager::damagedHeader()
{
    QFETCH(QByteArray, tail);
    TestHome home;
    QByteArray content;
    {
        QDataStream out(&content, QIODevice::WriteOnly);
        BinaryFormat::prepare(out);
        // The base header, with one record promised, then description, icon and password.
        out << qint32(0) << QDateTime() << qint32(-1) << qint8(1) << qint32(15) << QString()
            << qint32(1) << qint32(0);
        out << QStringLiteral("d") << QStringLiteral("i") << QString();
    }
    content += tail + QByteArray(64, '\x01'); // what would be a record
    const QString path = home.file(QStringLiteral("test.card"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
    file.close();

    DataManager card(path);
    QVERIFY(card.load());
    QVERIFY(card.loadedDamaged());
    QCOMPARE(card.count(), 0);
    card.setDescription(QStringLiteral("kept"));
    QVERIFY(card.save());
    QCOMPARE(fileBytes(path + QStringLiteral(".damaged")), content);
}

void TestDataManager::incrementCounter_data()
{
    QTest::addColumn<QString>("defaultValue");
    QTest::addColumn<QList<int>>("values");
    QTest::addColumn<QString>("after");
    QTest::newRow("step 2") << "5;2" << QList<int> { 5, 7, 9 } << "11;2";
    QTest::newRow("negative step") << "10;-3" << QList<int> { 10, 7 } << "4;-3";
    QTest::newRow("empty step") << "5;" << QList<int> { 5, 5 } << "5;0";
    QTest::newRow("no step") << "3" << QList<int> { 3 } << "3;0";
    QTest::newRow("empty default") << "" << QList<int> { 0 } << "0;0";
}

void TestDataManager::incrementCounter()
{
    QFETCH(QString, defaultValue);
    QFETCH(QList<int>, values);
    TestHome home;
    QList<FieldDef> fields = fieldsOf({ F::Increment });
    fields[0].defaultValue = defaultValue;
    auto card = cardWith(home, fields);
    QVERIFY(card->save());
    // Every record made moves the counter, whether or not it is kept.
    for (int expected : values) {
        std::unique_ptr<DataRecord> record(card->newRecord());
        QCOMPARE(record->intValue(0), expected);
    }
    QTEST(card->field(0).defaultValue, "after");
    QVERIFY(card->isChanged());
}

void TestDataManager::retypingByFamily_data()
{
    QTest::addColumn<int>("field");
    QTest::addColumn<int>("newType");
    QTest::addColumn<bool>("kept");
    QTest::newRow("String to Integer") << 0 << int(F::Integer) << false;
    QTest::newRow("String to MultiList") << 0 << int(F::MultiList) << true;
    QTest::newRow("Integer to Double") << 1 << int(F::Double) << true;
    QTest::newRow("Integer to Increment") << 1 << int(F::Increment) << true;
    QTest::newRow("Integer to Text") << 1 << int(F::Text) << false;
    QTest::newRow("Date to DateTime") << 2 << int(F::DateTime) << false;
    QTest::newRow("Date to Time") << 2 << int(F::Time) << false;
}

void TestDataManager::retypingByFamily()
{
    QFETCH(int, field);
    QFETCH(int, newType);
    QFETCH(bool, kept);
    TestHome home;
    auto card = cardWith(home, fieldsOf({ F::String, F::Integer, F::Date }));
    DataRecord *record = addRecord(*card);
    record->setStringValue(0, QStringLiteral("text"));
    record->setDoubleValue(1, 12);
    record->setDateValue(2, QDate(2020, 2, 29));
    QList<FieldDef> fields = card->fields();
    fields[field].type = newType;
    card->setFields(fields);

    for (int other = 0; other < 3; ++other)
        QCOMPARE(record->isSet(other), other != field || kept);
    if (kept && field == 1)
        QCOMPARE(record->doubleValue(1), 12.0);
    if (kept && field == 0)
        QCOMPARE(record->stringValue(0), QStringLiteral("text"));
}

// Filters naming the removed field go; views lose its columns and, if sorted on it, their
// sort; the card's sort column follows its field.
void TestDataManager::removingFieldDropsFiltersAndColumns()
{
    TestHome home;
    auto card = cardWith(home, fieldsOf({ F::String, F::Integer, F::String }));
    card->setFilters({ filterOn(QStringLiteral("on 1"), { 1 }),
        filterOn(QStringLiteral("on 2 and all"), { 2, -1 }),
        filterOn(QStringLiteral("on 0 and 1"), { 0, 1 }) });
    card->setViews(
        { viewOf({ 0, 1, 2, 1 }, 1, true), viewOf({ 1 }, 2, false), viewOf({ 2, 0 }, -1, true) });
    card->sort(2);
    QList<FieldDef> fields = card->fields();
    fields.removeAt(1);
    card->setFields(fields);

    QCOMPARE(card->filters().size(), 1);
    QCOMPARE(card->filters().at(0).title, QStringLiteral("on 2 and all"));
    QCOMPARE(card->filters().at(0).conditions.at(0).field, 1);
    QCOMPARE(card->filters().at(0).conditions.at(1).field, -1);
    const QList<ViewDef> views = card->views();
    QCOMPARE(views.size(), 3);
    QCOMPARE(views.at(0).columns, QList<int>({ 0, 1 }));
    QCOMPARE(views.at(0).sort, -1);
    QCOMPARE(views.at(1).columns, QList<int>());
    QCOMPARE(views.at(1).sort, 1);
    QCOMPARE(views.at(2).columns, QList<int>({ 1, 0 }));
    QCOMPARE(card->sortColumn(), 1);
    fields = card->fields();
    fields.removeAt(1);
    card->setFields(fields);
    QCOMPARE(card->sortColumn(), -1);
}

void TestDataManager::movingFieldsRenumbersFormulas()
{
    TestHome home;
    auto card = cardWith(
        home, fieldsOf({ F::Integer, F::Integer, F::Double }, { "", "", "[F0] + [F1]" }));
    card->setFields(card->fields()); // works out the order of the existing formula
    DataRecord *record = addRecord(*card, { 2, 40 });
    QCOMPARE(record->doubleValue(2), 42.0);

    QList<FieldDef> fields = card->fields();
    std::swap(fields[0], fields[2]); // sum, b, a
    // Formulas are written against the numbering the list was handed out with.
    fields.append(fieldsOf({ F::Double }, { "[F0] + [F0]" }).at(0));
    card->setFields(fields);

    QCOMPARE(card->field(0).formula, QStringLiteral("[F2] + [F1]"));
    QCOMPARE(card->field(3).formula, QStringLiteral("[F2] + [F2]"));
    QCOMPARE(card->property(QStringLiteral("fs")), QStringLiteral("0;3"));
    QCOMPARE(card->property(QStringLiteral("fr")), QStringLiteral("0"));
    QCOMPARE(record->doubleValue(0), 42.0);
    QCOMPARE(record->doubleValue(2), 2.0);
    QCOMPARE(record->doubleValue(3), 4.0);

    // A "!" reference is renumbered too, with no record to recalculate.
    auto empty = cardWith(home, fieldsOf({ F::Integer, F::Integer }, { "", "[F0!] + 1" }));
    fields = empty->fields();
    fields.prepend(fieldsOf({ F::String }).at(0));
    empty->setFields(fields);
    QCOMPARE(empty->field(2).formula, QStringLiteral("[F1!] + 1"));
    QCOMPARE(empty->property(QStringLiteral("fs")), QStringLiteral("2"));
    QCOMPARE(empty->property(QStringLiteral("fr")), QStringLiteral("1"));

    // Removing the field a formula reads drops the formula and the order with it.
    fields = empty->fields();
    fields.removeAt(1);
    empty->setFields(fields);
    QVERIFY(empty->field(1).formula.isNull());
    QVERIFY(!empty->hasProperty(QStringLiteral("fs")));
    QVERIFY(!empty->hasProperty(QStringLiteral("fr")));
}

void TestDataManager::calculationOrder_data()
{
    QTest::addColumn<QStringList>("formulas"); // one field each; empty means no formula
    QTest::addColumn<QString>("order"); // null: no "fs"
    QTest::addColumn<QString>("usesPrevious");
    QTest::addColumn<QStringList>("bad");
    QTest::newRow("chain") << QStringList { "[F1] + 1", "[F2] + 1", "[F3] + 1", "" } << "2;1;0"
                           << "0" << QStringList();
    QTest::newRow("two-field cycle")
        << QStringList { "[F1] + 1", "[F0] + 1", "[F3] + 2", "" } << "2"
        << "0" << QStringList { "[F1] + 1", "[F0] + 1" };
    QTest::newRow("behind a cycle") << QStringList { "[F1]", "[F1] + [F2]", "[F1]", "1" } << "3"
                                    << "0" << QStringList { "[F1]", "[F1] + [F2]", "[F1]" };
    QTest::newRow("previous record is no dependency")
        << QStringList { "[F1!] + 1", "[F0] + 1" } << "0;1"
        << "1" << QStringList();
    QTest::newRow("previous seen in a cycle too")
        << QStringList { "[F1] + [F0!]", "[F0]", "7" } << "2"
        << "1" << QStringList { "[F1] + [F0!]", "[F0]" };
}

void TestDataManager::calculationOrder()
{
    QFETCH(QStringList, formulas);
    QFETCH(QString, order);
    QFETCH(QStringList, bad);
    TestHome home;
    auto card = cardWith(home, fieldsOf(QList<int>(formulas.size(), F::Double), formulas));
    for (const QString &formula : bad)
        QTest::ignoreMessage(
            QtDebugMsg, qPrintable(QStringLiteral("Bad formula (%1)").arg(formula)));
    card->setFields(card->fields());
    QCOMPARE(card->hasProperty(QStringLiteral("fs")), !order.isNull());
    QCOMPARE(card->property(QStringLiteral("fs")), order);
    QTEST(card->property(QStringLiteral("fr")), "usesPrevious");
}

// A running total over the store order: each record adds its amount to the previous total.
void TestDataManager::previousRecordWalk()
{
    TestHome home;
    auto card = cardWith(home, fieldsOf({ F::Integer, F::Integer }, { "", "[F0] + [F1!]" }));
    card->setFields(card->fields());
    DataRecord *first = addRecord(*card, { 1 });
    DataRecord *second = addRecord(*card, { 2 });
    DataRecord *third = addRecord(*card, { 3 });
    // The first record has no previous one, so its total keeps the unset slot's 0.
    QCOMPARE(first->doubleValue(1), 0.0);
    QCOMPARE(second->doubleValue(1), 2.0);
    QCOMPARE(third->doubleValue(1), 5.0);

    const QDateTime stale(QDate(2000, 1, 1), QTime(0, 0, 1));
    first->setUpdated(stale);
    third->setUpdated(stale);
    QSignalSpy updates(card.get(), &PIMManager::taskUpdated);
    auto *old = new DataRecord(*second);
    second->setDoubleValue(0, 10);
    second->save(old);
    QCOMPARE(second->doubleValue(1), 10.0);
    QCOMPARE(third->doubleValue(1), 13.0);
    QCOMPARE(first->updated(), stale);
    QVERIFY(third->updated() > stale);
    QCOMPARE(updates.count(), 2); // the walk's third record, then the update itself
    QCOMPARE(updates.at(0).at(0).value<PIMRecord *>(), third);

    // A removal recalculates from the record that moved up.
    first->setDoubleValue(1, 100);
    card->remove(second);
    QCOMPARE(third->doubleValue(1), 103.0);
}

static DataRecord *addWithReminder(DataManager &manager, const QDateTime &when)
{
    auto *record = static_cast<DataRecord *>(manager.createRecord());
    if (when.isValid()) {
        auto *reminder = new Reminder;
        reminder->dateTime = when;
        record->setReminder(reminder);
    }
    manager.add(record);
    return record;
}

static void saveWithReminder(DataRecord *record, const QDateTime &when)
{
    auto *old = new DataRecord(*record);
    auto *reminder = new Reminder;
    reminder->dateTime = when;
    record->setReminder(reminder);
    record->save(old);
}

static QList<AlarmTable::Alarm> alarmsOf(const QList<const DataRecord *> &records)
{
    QList<AlarmTable::Alarm> list;
    for (const DataRecord *record : records)
        list.append({ record->reminder()->dateTime, QByteArrayLiteral("QPE/Application/norvika"),
            "alarm(QDateTime,int)" + record->uidString().toLatin1(), 0 });
    return list;
}

static QDateTime inDays(int days)
{
    const QDateTime now = QDateTime::currentDateTime();
    return QDateTime(now.date().addDays(days), QTime(now.time().hour(), now.time().minute()));
}

// Only a reminder still to come has an alarm, from when it is added.
void TestDataManager::alarmFollowsReminders()
{
    TestHome home;
    auto card = cardWith(home, fieldsOf({ F::Reminder }));
    DataRecord *first = addWithReminder(*card, QDateTime());
    addWithReminder(*card, inDays(-2));
    DataRecord *record = addWithReminder(*card, inDays(1));
    QCOMPARE(AlarmTable().alarms(), alarmsOf({ record }));
    for (int days : { 3, 3, -1, 5 }) { // the same time twice must not register it twice
        saveWithReminder(record, inDays(days));
        QCOMPARE(AlarmTable().alarms(), days > 0 ? alarmsOf({ record }) : alarmsOf({}));
    }
    card->remove(first); // the record moving up keeps its alarm
    QCOMPARE(AlarmTable().alarms(), alarmsOf({ record }));
    card->remove(record);
    QVERIFY(AlarmTable().alarms().isEmpty());
}

void TestDataManager::findKeepsTheSortedOrder_data()
{
    QTest::addColumn<bool>("ascending");
    QTest::addColumn<QString>("renamed"); // the last record's new name, then found again
    QTest::addColumn<QList<int>>("found"); // positions in the order added, before and after
    QTest::newRow("ascending") << true << "" << QList<int> { 1, 0, 2, 4, 1, 0, 2, 4 };
    QTest::newRow("descending") << false << "" << QList<int> { 4, 0, 2, 1, 4, 0, 2, 1 };
    QTest::newRow("edit moves") << true << "a0 x" << QList<int> { 1, 0, 2, 4, 1, 4, 0, 2 };
    QTest::newRow("edit drops") << false << "c" << QList<int> { 4, 0, 2, 1, 0, 2, 1 };
}

void TestDataManager::findKeepsTheSortedOrder()
{
    QFETCH(bool, ascending);
    QFETCH(QString, renamed);
    TestHome home;
    auto card = cardWith(home, fieldsOf({ F::String }));
    for (const char *name : { "b x", "a x", "b x", "a", "c x" }) {
        auto *record = static_cast<DataRecord *>(card->createRecord());
        record->setStringValue(0, QString::fromLatin1(name));
        card->add(record);
    }
    card->setSort(0, ascending);
    QList<int> positions;
    for (int pass = 0; pass < 2; ++pass) {
        card->setAdHocFilter(filterOn(QStringLiteral("find"), { 0 }));
        for (const PIMRecord *record : card->view())
            positions.append(int(card->records().indexOf(record)));
        auto *last = static_cast<DataRecord *>(card->records().last());
        auto *old = new DataRecord(*last);
        last->setStringValue(0, renamed.isEmpty() ? last->stringValue(0) : renamed);
        last->save(old);
    }
    QTEST(positions, "found");
}

QTEST_GUILESS_MAIN(TestDataManager)
#include "testdatamanager.moc"
