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

    void newRecordDefaults_data();
    void newRecordDefaults();
    void newRecordTakesCurrentMoments();
    void incrementCounter_data();
    void incrementCounter();

    void sortKeys_data();
    void sortKeys();
    void sortColumnPastFieldsBuildsNoKeys();
    void updateMovesRecordBySortValue();

    void retypingByFamily_data();
    void retypingByFamily();
    void removingFieldDropsFilters();
    void removingFieldTakesViewColumns();
    void movingFieldsRenumbersFormulas();
    void removedReferenceDropsFormula();
    void calculationOrder_data();
    void calculationOrder();
    void previousRecordWalk();
    void schemaChangeWithoutRecords();
    void memoSurvivesFieldRemoval();
    void sortColumnFollowsField();
    void failedFormulaGivesZero();

    void alarmOnAdding_data();
    void alarmOnAdding();
    void alarmMovesOnUpdate();
    void alarmGoesOnRemoval();
    void recordMovingUpKeepsItsAlarm();

    void currentViewAppliesSortAndFilter();
    void adHocFilterIsNotStored();
    void filterPastTheListLetsAllPass();
};

namespace
{

FieldDef makeField(int type, const QString &title, const QString &formula = QString())
{
    FieldDef field;
    field.type = type;
    field.title = title;
    field.label = title;
    field.formula = formula;
    return field;
}

QString cardPath(const TestHome &home, const QString &name = QStringLiteral("test.card"))
{
    return home.file(name);
}

std::unique_ptr<DataManager> cardWith(const TestHome &home, const QList<FieldDef> &fields)
{
    auto manager = std::make_unique<DataManager>(cardPath(home));
    manager->setFields(fields, true);
    return manager;
}

DataRecord *addRecord(DataManager &manager, const QList<double> &numbers)
{
    auto *record = static_cast<DataRecord *>(manager.createRecord());
    for (int i = 0; i < numbers.size(); ++i)
        record->setDoubleValue(i, numbers.at(i));
    manager.add(record);
    return record;
}

DataRecord *recordAt(const DataManager &manager, int i)
{
    return static_cast<DataRecord *>(manager.records().at(i));
}

QByteArray fileBytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

FilterCondition condition(int field, const QString &text)
{
    FilterCondition c;
    c.field = field;
    c.op = 0;
    c.text = text;
    return c;
}

FilterDef filterOn(const QString &title, const QList<FilterCondition> &conditions)
{
    FilterDef filter;
    filter.title = title;
    filter.conditions = conditions;
    return filter;
}

ViewDef viewOf(const QString &title, const QList<int> &columns, int sort, bool ascending,
    const QString &filter = QString())
{
    ViewDef view;
    view.title = title;
    view.columns = columns;
    view.sort = sort;
    view.ascending = ascending;
    view.filter = filter;
    return view;
}

const uuid_t fixedUid = { 0x00, 0x11, 0x22, 0x33, 0x44, 0x55, 0x66, 0x77, 0x88, 0x99, 0xaa, 0xbb,
    0xcc, 0xdd, 0xee, 0xff };

} // namespace

// ---- The card file --------------------------------------------------------------------

static QList<FieldDef> everyTypeFields()
{
    QList<FieldDef> fields;
    for (int type = 0; type < FieldDef::TypeCount; ++type)
        fields.append(makeField(type, FieldDef::typeName(type) + QStringLiteral(" – ✓")));
    fields[FieldDef::List].items = { QStringLiteral("ja"), QStringLiteral("nej") };
    fields[FieldDef::MultiList].items = { QStringLiteral("α"), QStringLiteral("β") };
    fields[FieldDef::Double].format = QStringLiteral("0.00");
    fields[FieldDef::Increment].defaultValue = QStringLiteral("1;1");
    fields[FieldDef::String].width = 120;
    return fields;
}

static void fillEveryType(DataRecord *record)
{
    record->setStringValue(FieldDef::String, QStringLiteral("Ærøskøbing 鍵 🔑"));
    record->setDoubleValue(FieldDef::Integer, -42);
    record->setDoubleValue(FieldDef::Double, 3.14159);
    record->setDateValue(FieldDef::Date, QDate(1969, 7, 20));
    record->setTimeValue(FieldDef::Time, QTime(13, 14, 15, 16));
    record->setDateTimeValue(FieldDef::DateTime, QDateTime(QDate(2038, 1, 19), QTime(3, 14, 8)));
    record->setStringValue(FieldDef::Text, QStringLiteral("line one\nстрока два"));
    record->setStringValue(FieldDef::List, QStringLiteral("nej"));
    record->setDoubleValue(FieldDef::Bool, 1);
    record->setDoubleValue(FieldDef::Count, 7);
    record->setStringValue(FieldDef::MultiList, QStringLiteral("α\nβ"));
    record->setDoubleValue(FieldDef::Increment, 99);
    record->setMemo(QStringLiteral("a memo\nwith ünïcödé"));
    record->setImage(QStringLiteral("pictures/cat.png"));
    auto *reminder = new Reminder;
    reminder->dateTime = QDateTime(QDate(2001, 1, 1), QTime(8, 30));
    reminder->sound = true;
    reminder->led = true;
    reminder->type = 7;
    record->setReminder(reminder);
    record->setProperty(QStringLiteral("colour"), QStringLiteral("grün"));
    record->setCategories({ QStringLiteral("6f1c2a34-8d0e-4b7a-9e21-3c5d7f901a2b") });
}

static void compareRecords(const DataRecord *read, const DataRecord *written)
{
    QCOMPARE(read->uidString(), written->uidString());
    QCOMPARE(read->created(), written->created());
    QCOMPARE(read->updated(), written->updated());
    QCOMPARE(read->properties(), written->properties());
    QCOMPARE(read->categories(), written->categories());
    for (int i = 0; i < FieldDef::TypeCount; ++i) {
        QCOMPARE(read->stringValue(i), written->stringValue(i));
        QCOMPARE(read->doubleValue(i), written->doubleValue(i));
        QCOMPARE(read->dateValue(i), written->dateValue(i));
        QCOMPARE(read->timeValue(i), written->timeValue(i));
        QCOMPARE(read->dateTimeValue(i), written->dateTimeValue(i));
    }
    QCOMPARE(read->memo(), written->memo());
    QCOMPARE(read->image(), written->image());
    QCOMPARE(read->hasReminder(), written->hasReminder());
    if (read->hasReminder())
        QCOMPARE(*read->reminder(), *written->reminder());
}

void TestDataManager::roundTripKeepsEverything()
{
    TestHome home;
    DataManager card(cardPath(home));
    card.setFields(everyTypeFields(), true);
    card.setDescription(QStringLiteral("Bücher – книги"));
    card.setIcon(QStringLiteral("12"));
    card.setPassword(QStringLiteral("пароль"));
    card.setProperty(QStringLiteral("custom"), QStringLiteral("värde"));
    card.setFilters({ filterOn(QStringLiteral("Ærø"), { condition(0, QStringLiteral("Æ")) }),
        filterOn(QStringLiteral("all"), { condition(-1, QStringLiteral("x")) }) });
    card.setViews(
        { viewOf(QStringLiteral("Short"), { 0, 2, 0 }, 2, false, card.filters().at(1).uuidString()),
            viewOf(QStringLiteral("Plain"), {}, -1, true) });
    card.setCurrentView(0);
    QCOMPARE(card.currentFilter(), 1);

    fillEveryType(addRecord(card, {}));
    addRecord(card, {}); // every slot unset
    QVERIFY(card.save());
    const QByteArray firstSave = fileBytes(cardPath(home));

    DataManager read(cardPath(home));
    QVERIFY(read.load());
    QVERIFY(!read.loadedDamaged());
    QCOMPARE(read.fieldList(), card.fieldList());
    QCOMPARE(read.description(), card.description());
    QCOMPARE(read.icon(), card.icon());
    QCOMPARE(read.password(), card.password());
    QCOMPARE(read.properties(), card.properties());
    QCOMPARE(read.sortColumn(), 2);
    QCOMPARE(read.sortOrder(), false);
    QCOMPARE(read.currentFilter(), 1);
    QCOMPARE(read.currentView(), 0);
    QCOMPARE(read.filters().size(), 2);
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(read.filters().at(i).title, card.filters().at(i).title);
        QCOMPARE(read.filters().at(i).uuidString(), card.filters().at(i).uuidString());
        QCOMPARE(read.filters().at(i).conditions.size(), 1);
        QCOMPARE(
            read.filters().at(i).conditions.at(0).text, card.filters().at(i).conditions.at(0).text);
    }
    QCOMPARE(read.views().size(), 2);
    QCOMPARE(read.views().at(0).columns, QList<int>({ 0, 2, 0 }));
    QCOMPARE(read.views().at(0).filter, card.views().at(0).filter);
    QCOMPARE(read.views().at(1).title, QStringLiteral("Plain"));
    QCOMPARE(read.count(), 2);
    for (int i = 0; i < 2; ++i)
        compareRecords(recordAt(read, i), recordAt(card, i));

    QVERIFY(read.forceSave());
    QCOMPARE(fileBytes(cardPath(home)), firstSave);
}

// The expected bytes are written out by hand, field by field, in the golden file.
static QByteArray goldenBytes(const QString &name)
{
    QFile file(TestHome::dataFile(name));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return QByteArray();
    QByteArray hex;
    while (!file.atEnd()) {
        QByteArray line = file.readLine();
        const qsizetype comment = line.indexOf('#');
        if (comment >= 0)
            line.truncate(comment);
        hex += line.simplified().replace(' ', "");
    }
    return QByteArray::fromHex(hex);
}

void TestDataManager::smallCardBytes()
{
    TestHome home;
    {
        DataManager card(cardPath(home));
        QList<FieldDef> fields = { makeField(FieldDef::String, QStringLiteral("Title")),
            makeField(FieldDef::Integer, QStringLiteral("Year")) };
        fields[1].width = 40;
        card.setFields(fields, true);
        card.setDescription(QStringLiteral("Books"));
        card.setIcon(QStringLiteral("12"));
        card.setPassword(QStringLiteral("A"));
        card.setViews({ viewOf(QStringLiteral("All"), { 1, 0 }, 1, false) });
        card.setCurrentView(0);
        auto *record = static_cast<DataRecord *>(card.createRecord());
        record->setUid(fixedUid);
        const QDateTime stamp(QDate(2004, 3, 7), QTime(18, 5, 9));
        record->setCreated(stamp);
        record->setUpdated(stamp);
        record->setStringValue(0, QStringLiteral("Dune"));
        record->setDoubleValue(1, 1965.5);
        card.add(record);
        QVERIFY(card.save());
    }
    const QByteArray expected = goldenBytes(QStringLiteral("card/smallcard.hex"));
    QVERIFY(!expected.isEmpty());
    QCOMPARE(fileBytes(cardPath(home)).toHex(' '), expected.toHex(' '));
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
    content += tail;
    content += QByteArray(64, '\x01'); // what would be a record
    QFile file(cardPath(home));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
    file.close();

    DataManager card(cardPath(home));
    QVERIFY(card.load());
    QVERIFY(card.loadedDamaged());
    QCOMPARE(card.count(), 0);
    card.setDescription(QStringLiteral("kept"));
    QVERIFY(card.save());
    QCOMPARE(fileBytes(cardPath(home) + QStringLiteral(".damaged")), content);
}

// ---- New records ----------------------------------------------------------------------

void TestDataManager::newRecordDefaults_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("defaultValue");
    QTest::addColumn<QVariant>("expected");
    QTest::newRow("String") << int(FieldDef::String) << "abc" << QVariant("abc");
    QTest::newRow("Text") << int(FieldDef::Text) << "a\nb" << QVariant("a\nb");
    QTest::newRow("List") << int(FieldDef::List) << "Oslo" << QVariant("Oslo");
    QTest::newRow("MultiList") << int(FieldDef::MultiList) << "a;b;;c" << QVariant("a\nb\n\nc");
    QTest::newRow("Integer cut towards zero") << int(FieldDef::Integer) << "-3.9" << QVariant(-3.0);
    QTest::newRow("Integer not a number") << int(FieldDef::Integer) << "x" << QVariant(0.0);
    QTest::newRow("Double") << int(FieldDef::Double) << "2.5" << QVariant(2.5);
    QTest::newRow("Bool") << int(FieldDef::Bool) << "1" << QVariant(1.0);
    QTest::newRow("Count") << int(FieldDef::Count) << "7.5" << QVariant(7.0);
    QTest::newRow("Memo") << int(FieldDef::Memo) << "note" << QVariant("note");
    QTest::newRow("Image") << int(FieldDef::Image) << "pic.png" << QVariant("pic.png");
    QTest::newRow("Reminder") << int(FieldDef::Reminder) << "" << QVariant();
}

void TestDataManager::newRecordDefaults()
{
    QFETCH(int, type);
    QFETCH(QString, defaultValue);
    QFETCH(QVariant, expected);
    TestHome home;
    FieldDef field = makeField(type, QStringLiteral("f"));
    field.defaultValue = defaultValue;
    auto card = cardWith(home, { field });
    std::unique_ptr<DataRecord> record(card->newRecord());
    QCOMPARE(card->count(), 0);
    switch (type) {
    case FieldDef::Memo:
        QCOMPARE(record->memo(), expected.toString());
        break;
    case FieldDef::Image:
        QCOMPARE(record->image(), expected.toString());
        break;
    case FieldDef::Reminder:
        QVERIFY(!record->hasReminder());
        break;
    default:
        if (FieldDef::family(type) == FieldDef::TextFamily)
            QCOMPARE(record->stringValue(0), expected.toString());
        else
            QCOMPARE(record->doubleValue(0), expected.toDouble());
    }
}

void TestDataManager::newRecordTakesCurrentMoments()
{
    TestHome home;
    auto card = cardWith(home,
        { makeField(FieldDef::Date, QStringLiteral("d")),
            makeField(FieldDef::Time, QStringLiteral("t")),
            makeField(FieldDef::DateTime, QStringLiteral("dt")) });
    const QDateTime before = QDateTime::currentDateTime();
    std::unique_ptr<DataRecord> record(card->newRecord());
    const QDateTime after = QDateTime::currentDateTime();
    QVERIFY(record->dateValue(0) >= before.date() && record->dateValue(0) <= after.date());
    QVERIFY(record->timeValue(1).isValid());
    QVERIFY(record->dateTimeValue(2) >= before && record->dateTimeValue(2) <= after);
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
    QFETCH(QString, after);
    TestHome home;
    FieldDef field = makeField(FieldDef::Increment, QStringLiteral("No."));
    field.defaultValue = defaultValue;
    auto card = cardWith(home, { field });
    QVERIFY(card->save());
    // Every record made moves the counter, whether or not it is kept.
    for (int expected : values) {
        std::unique_ptr<DataRecord> record(card->newRecord());
        QCOMPARE(record->intValue(0), expected);
    }
    QCOMPARE(card->field(0).defaultValue, after);
    QVERIFY(card->isChanged());
}

// ---- Sorting --------------------------------------------------------------------------

void TestDataManager::sortKeys_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("emptyKey"); // of a record with nothing set
    const QString none;
    const QString zero = QStringLiteral("00000000");
    const QString no = QStringLiteral("0");
    QTest::newRow("String") << int(FieldDef::String) << "Ærøskøbing 鍵 🔑" << none;
    QTest::newRow("Integer") << int(FieldDef::Integer) << "-0000042" << zero;
    QTest::newRow("Double") << int(FieldDef::Double) << "000003.14159"
                            << "000000.00000";
    QTest::newRow("Date") << int(FieldDef::Date) << "-0003817" << none;
    QTest::newRow("Time") << int(FieldDef::Time) << "00047655" << none;
    QTest::newRow("DateTime") << int(FieldDef::DateTime) << "1831950848" << none;
    QTest::newRow("Text") << int(FieldDef::Text) << "line one\nстрока два" << none;
    QTest::newRow("Memo") << int(FieldDef::Memo) << "1" << no;
    QTest::newRow("Reminder") << int(FieldDef::Reminder) << "1" << no;
    QTest::newRow("List") << int(FieldDef::List) << "nej" << none;
    QTest::newRow("Bool") << int(FieldDef::Bool) << "00000001" << zero;
    QTest::newRow("Count") << int(FieldDef::Count) << "00000007" << zero;
    QTest::newRow("Image") << int(FieldDef::Image) << "1" << no;
    QTest::newRow("MultiList") << int(FieldDef::MultiList) << "α\nβ" << none;
    QTest::newRow("Increment") << int(FieldDef::Increment) << "00000099" << zero;
}

void TestDataManager::sortKeys()
{
    QFETCH(int, column);
    QFETCH(QString, key);
    QFETCH(QString, emptyKey);
    TestHome home;
    auto card = cardWith(home, everyTypeFields());
    DataRecord *full = addRecord(*card, {});
    fillEveryType(full);
    DataRecord *empty = addRecord(*card, {});
    card->sort(column);
    QCOMPARE(full->sortKeys(), QStringList { key });
    QCOMPARE(empty->sortKeys(), QStringList { emptyKey });
}

void TestDataManager::sortColumnPastFieldsBuildsNoKeys()
{
    TestHome home;
    auto card = cardWith(home, { makeField(FieldDef::String, QStringLiteral("s")) });
    DataRecord *record = addRecord(*card, {});
    card->sort(3);
    QVERIFY(record->sortKeys().isEmpty());
}

void TestDataManager::updateMovesRecordBySortValue()
{
    TestHome home;
    auto card = cardWith(home, { makeField(FieldDef::Integer, QStringLiteral("n")) });
    DataRecord *one = addRecord(*card, { 1 });
    DataRecord *two = addRecord(*card, { 2 });
    DataRecord *three = addRecord(*card, { 3 });
    card->sort(0);
    QCOMPARE(card->view(), QList<PIMRecord *>({ one, two, three }));
    auto *old = new DataRecord(*one);
    one->setDoubleValue(0, 5);
    one->save(old);
    QCOMPARE(card->view(), QList<PIMRecord *>({ two, three, one }));
}

// ---- Schema changes -------------------------------------------------------------------

void TestDataManager::retypingByFamily_data()
{
    QTest::addColumn<int>("field");
    QTest::addColumn<int>("newType");
    QTest::addColumn<bool>("kept");
    QTest::newRow("String to Integer") << 0 << int(FieldDef::Integer) << false;
    QTest::newRow("String to MultiList") << 0 << int(FieldDef::MultiList) << true;
    QTest::newRow("Integer to Double") << 1 << int(FieldDef::Double) << true;
    QTest::newRow("Integer to Bool") << 1 << int(FieldDef::Bool) << true;
    QTest::newRow("Integer to Count") << 1 << int(FieldDef::Count) << true;
    QTest::newRow("Integer to Increment") << 1 << int(FieldDef::Increment) << true;
    QTest::newRow("Integer to Text") << 1 << int(FieldDef::Text) << false;
    QTest::newRow("Date to DateTime") << 2 << int(FieldDef::DateTime) << false;
    QTest::newRow("Date to Time") << 2 << int(FieldDef::Time) << false;
}

void TestDataManager::retypingByFamily()
{
    QFETCH(int, field);
    QFETCH(int, newType);
    QFETCH(bool, kept);
    TestHome home;
    auto card = cardWith(home,
        { makeField(FieldDef::String, QStringLiteral("s")),
            makeField(FieldDef::Integer, QStringLiteral("n")),
            makeField(FieldDef::Date, QStringLiteral("d")) });
    DataRecord *record = addRecord(*card, {});
    record->setStringValue(0, QStringLiteral("text"));
    record->setDoubleValue(1, 12);
    record->setDateValue(2, QDate(2020, 2, 29));

    QList<FieldDef> fields = card->fields();
    fields[field].type = newType;
    card->setFields(fields);

    QCOMPARE(record->isSet(field), kept);
    for (int other = 0; other < 3; ++other) {
        if (other != field)
            QVERIFY(record->isSet(other));
    }
    if (kept && field == 1)
        QCOMPARE(record->doubleValue(1), 12.0);
    if (kept && field == 0)
        QCOMPARE(record->stringValue(0), QStringLiteral("text"));
}

void TestDataManager::removingFieldDropsFilters()
{
    TestHome home;
    auto card = cardWith(home,
        { makeField(FieldDef::String, QStringLiteral("a")),
            makeField(FieldDef::String, QStringLiteral("b")),
            makeField(FieldDef::String, QStringLiteral("c")) });
    card->setFilters({ filterOn(QStringLiteral("on b"), { condition(1, QStringLiteral("x")) }),
        filterOn(QStringLiteral("on c and all"),
            { condition(2, QStringLiteral("y")), condition(-1, QStringLiteral("z")) }),
        filterOn(QStringLiteral("on a and b"),
            { condition(0, QStringLiteral("x")), condition(1, QStringLiteral("x")) }) });
    QList<FieldDef> fields = card->fields();
    fields.removeAt(1);
    card->setFields(fields);

    const QList<FilterDef> filters = card->filters();
    QCOMPARE(filters.size(), 1);
    QCOMPARE(filters.at(0).title, QStringLiteral("on c and all"));
    QCOMPARE(filters.at(0).conditions.at(0).field, 1);
    QCOMPARE(filters.at(0).conditions.at(1).field, -1);
}

void TestDataManager::removingFieldTakesViewColumns()
{
    TestHome home;
    auto card = cardWith(home,
        { makeField(FieldDef::String, QStringLiteral("a")),
            makeField(FieldDef::Integer, QStringLiteral("b")),
            makeField(FieldDef::String, QStringLiteral("c")) });
    card->setViews({ viewOf(QStringLiteral("sorted on b"), { 0, 1, 2, 1 }, 1, true),
        viewOf(QStringLiteral("only b"), { 1 }, 2, false),
        viewOf(QStringLiteral("unsorted"), { 2, 0 }, -1, true) });
    QList<FieldDef> fields = card->fields();
    fields.removeAt(1);
    card->setFields(fields);

    const QList<ViewDef> views = card->views();
    QCOMPARE(views.size(), 3);
    QCOMPARE(views.at(0).columns, QList<int>({ 0, 1 }));
    QCOMPARE(views.at(0).sort, -1);
    QCOMPARE(views.at(1).columns, QList<int>());
    QCOMPARE(views.at(1).sort, 1);
    QCOMPARE(views.at(2).columns, QList<int>({ 1, 0 }));
    QCOMPARE(views.at(2).sort, -1);
}

void TestDataManager::movingFieldsRenumbersFormulas()
{
    TestHome home;
    auto card = cardWith(home,
        { makeField(FieldDef::Integer, QStringLiteral("a")),
            makeField(FieldDef::Integer, QStringLiteral("b")),
            makeField(FieldDef::Double, QStringLiteral("sum"), QStringLiteral("[F0] + [F1]")) });
    QList<FieldDef> fields = card->fields();
    card->setFields(fields); // works out the order of the existing formula
    DataRecord *record = addRecord(*card, { 2, 40 });
    QCOMPARE(record->doubleValue(2), 42.0);

    fields = card->fields();
    std::swap(fields[0], fields[2]); // sum, b, a
    // Formulas are written against the numbering the list was handed out with.
    fields.append(
        makeField(FieldDef::Double, QStringLiteral("twice"), QStringLiteral("[F0] + [F0]")));
    card->setFields(fields);

    QCOMPARE(card->field(0).formula, QStringLiteral("[F2] + [F1]"));
    QCOMPARE(card->field(3).formula, QStringLiteral("[F2] + [F2]"));
    QCOMPARE(card->property(QStringLiteral("fs")), QStringLiteral("0;3"));
    QCOMPARE(card->property(QStringLiteral("fr")), QStringLiteral("0"));
    QCOMPARE(record->doubleValue(0), 42.0);
    QCOMPARE(record->doubleValue(2), 2.0);
    QCOMPARE(record->doubleValue(3), 4.0);
}

void TestDataManager::removedReferenceDropsFormula()
{
    TestHome home;
    auto card = cardWith(home,
        { makeField(FieldDef::Integer, QStringLiteral("a")),
            makeField(FieldDef::Double, QStringLiteral("f"), QStringLiteral("[F0] + 1")) });
    card->setFields(card->fields());
    QVERIFY(card->hasProperty(QStringLiteral("fs")));
    QList<FieldDef> fields = card->fields();
    fields.removeAt(0);
    card->setFields(fields);
    QVERIFY(card->field(0).formula.isNull());
    QVERIFY(!card->hasProperty(QStringLiteral("fs")));
    QVERIFY(!card->hasProperty(QStringLiteral("fr")));
}

void TestDataManager::calculationOrder_data()
{
    QTest::addColumn<QStringList>("formulas"); // one field each; empty means no formula
    QTest::addColumn<QString>("order"); // null: no "fs"
    QTest::addColumn<QString>("usesPrevious");
    QTest::addColumn<QStringList>("bad");
    QTest::newRow("none") << QStringList { "", "" } << QString() << QString() << QStringList();
    QTest::newRow("later field first") << QStringList { "[F1] + 1", "5", "" } << "1;0"
                                       << "0" << QStringList();
    QTest::newRow("chain") << QStringList { "[F1] + 1", "[F2] + 1", "[F3] + 1", "" } << "2;1;0"
                           << "0" << QStringList();
    QTest::newRow("two-field cycle")
        << QStringList { "[F1] + 1", "[F0] + 1", "[F3] + 2", "" } << "2"
        << "0" << QStringList { "[F1] + 1", "[F0] + 1" };
    QTest::newRow("behind a cycle") << QStringList { "[F1]", "[F1] + [F2]", "[F1]", "1" } << "3"
                                    << "0" << QStringList { "[F1]", "[F1] + [F2]", "[F1]" };
    QTest::newRow("own value") << QStringList { "[F0] + 1" } << "0"
                               << "0" << QStringList();
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
    QFETCH(QString, usesPrevious);
    QFETCH(QStringList, bad);
    TestHome home;
    QList<FieldDef> fields;
    for (const QString &formula : formulas)
        fields.append(makeField(
            FieldDef::Double, QStringLiteral("f"), formula.isEmpty() ? QString() : formula));
    auto card = cardWith(home, fields);
    for (const QString &formula : bad)
        QTest::ignoreMessage(
            QtDebugMsg, qPrintable(QStringLiteral("Bad formula (%1)").arg(formula)));
    card->setFields(card->fields());
    QCOMPARE(card->hasProperty(QStringLiteral("fs")), !order.isNull());
    QCOMPARE(card->property(QStringLiteral("fs")), order);
    QCOMPARE(card->property(QStringLiteral("fr")), usesPrevious);
}

// A running total over the store order: each record adds its amount to the previous total.
void TestDataManager::previousRecordWalk()
{
    TestHome home;
    auto card = cardWith(home,
        { makeField(FieldDef::Integer, QStringLiteral("amount")),
            makeField(
                FieldDef::Integer, QStringLiteral("total"), QStringLiteral("[F0] + [F1!]")) });
    card->setFields(card->fields());
    QCOMPARE(card->property(QStringLiteral("fr")), QStringLiteral("1"));
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

void TestDataManager::schemaChangeWithoutRecords()
{
    TestHome home;
    auto card = cardWith(home,
        { makeField(FieldDef::Integer, QStringLiteral("a")),
            makeField(FieldDef::Integer, QStringLiteral("b"), QStringLiteral("[F0!] + 1")) });
    QList<FieldDef> fields = card->fields();
    fields.prepend(makeField(FieldDef::String, QStringLiteral("new")));
    card->setFields(fields);
    QCOMPARE(card->field(2).formula, QStringLiteral("[F1!] + 1"));
    QCOMPARE(card->property(QStringLiteral("fs")), QStringLiteral("2"));
    QCOMPARE(card->property(QStringLiteral("fr")), QStringLiteral("1"));
}

void TestDataManager::memoSurvivesFieldRemoval()
{
    TestHome home;
    auto card = cardWith(home,
        { makeField(FieldDef::String, QStringLiteral("s")),
            makeField(FieldDef::Memo, QStringLiteral("memo")) });
    DataRecord *record = addRecord(*card, {});
    record->setMemo(QStringLiteral("remember me"));
    QList<FieldDef> fields = card->fields();
    fields.removeAt(1);
    card->setFields(fields);
    QCOMPARE(record->slotCount(), 1);
    fields = card->fields();
    fields.append(makeField(FieldDef::Memo, QStringLiteral("memo again")));
    card->setFields(fields);
    QCOMPARE(record->memo(), QStringLiteral("remember me"));
    QVERIFY(!record->isSet(1));
}

void TestDataManager::sortColumnFollowsField()
{
    TestHome home;
    auto card = cardWith(home,
        { makeField(FieldDef::String, QStringLiteral("a")),
            makeField(FieldDef::Integer, QStringLiteral("b")) });
    card->sort(1);
    QList<FieldDef> fields = card->fields();
    fields.move(1, 0);
    card->setFields(fields);
    QCOMPARE(card->sortColumn(), 0);
    fields = card->fields();
    fields.removeAt(0);
    card->setFields(fields);
    QCOMPARE(card->sortColumn(), -1);
}

void TestDataManager::failedFormulaGivesZero()
{
    TestHome home;
    auto card = cardWith(
        home, { makeField(FieldDef::Double, QStringLiteral("bad"), QStringLiteral("bar(1)")) });
    card->setFields(card->fields());
    auto *record = static_cast<DataRecord *>(card->createRecord());
    record->setDoubleValue(0, 9);
    QTest::ignoreMessage(QtDebugMsg, "calculated failed");
    card->add(record);
    QVERIFY(record->isSet(0));
    QCOMPARE(record->doubleValue(0), 0.0);
}

// ---- Alarms ---------------------------------------------------------------------------

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

static QList<AlarmTable::Alarm> alarms()
{
    return AlarmTable().alarms();
}

static AlarmTable::Alarm alarmOf(const DataRecord *record)
{
    return { record->reminder()->dateTime, QByteArrayLiteral("QPE/Application/norvika"),
        "alarm(QDateTime,int)" + record->uidString().toLatin1(), 0 };
}

static QDateTime inDays(int days)
{
    const QDateTime now = QDateTime::currentDateTime();
    return QDateTime(now.date().addDays(days), QTime(now.time().hour(), now.time().minute()));
}

void TestDataManager::alarmOnAdding_data()
{
    QTest::addColumn<QDateTime>("when");
    QTest::addColumn<bool>("registered");
    QTest::newRow("future reminder") << inDays(2) << true;
    QTest::newRow("past reminder") << inDays(-2) << false;
    QTest::newRow("no reminder") << QDateTime() << false;
}

void TestDataManager::alarmOnAdding()
{
    QFETCH(QDateTime, when);
    QFETCH(bool, registered);
    TestHome home;
    auto card = cardWith(home, { makeField(FieldDef::Reminder, QStringLiteral("r")) });
    const DataRecord *record = addWithReminder(*card, when);
    if (registered)
        QCOMPARE(alarms(), QList<AlarmTable::Alarm>({ alarmOf(record) }));
    else
        QVERIFY(alarms().isEmpty());
}

void TestDataManager::alarmMovesOnUpdate()
{
    TestHome home;
    auto card = cardWith(home, { makeField(FieldDef::Reminder, QStringLiteral("r")) });
    DataRecord *record = addWithReminder(*card, inDays(1));
    saveWithReminder(record, inDays(3));
    QCOMPARE(alarms(), QList<AlarmTable::Alarm>({ alarmOf(record) }));
    saveWithReminder(record, inDays(3));
    QCOMPARE(alarms(), QList<AlarmTable::Alarm>({ alarmOf(record) }));
    saveWithReminder(record, inDays(-1));
    QVERIFY(alarms().isEmpty());
}

void TestDataManager::alarmGoesOnRemoval()
{
    TestHome home;
    auto card = cardWith(home, { makeField(FieldDef::Reminder, QStringLiteral("r")) });
    DataRecord *record = addWithReminder(*card, inDays(1));
    QCOMPARE(alarms().size(), 1);
    card->remove(record);
    QVERIFY(alarms().isEmpty());
}

void TestDataManager::recordMovingUpKeepsItsAlarm()
{
    TestHome home;
    auto card = cardWith(home, { makeField(FieldDef::Reminder, QStringLiteral("r")) });
    DataRecord *first = addWithReminder(*card, QDateTime());
    const DataRecord *second = addWithReminder(*card, inDays(5));
    card->remove(first);
    QCOMPARE(alarms(), QList<AlarmTable::Alarm>({ alarmOf(second) }));
}

// ---- Filters and views ----------------------------------------------------------------

void TestDataManager::currentViewAppliesSortAndFilter()
{
    TestHome home;
    auto card = cardWith(home,
        { makeField(FieldDef::String, QStringLiteral("name")),
            makeField(FieldDef::Integer, QStringLiteral("n")) });
    DataRecord *anna = addRecord(*card, {});
    anna->setStringValue(0, QStringLiteral("Anna"));
    DataRecord *bert = addRecord(*card, {});
    bert->setStringValue(0, QStringLiteral("Bert"));
    card->setFilters({ filterOn(QStringLiteral("with e"), { condition(0, QStringLiteral("e")) }) });
    card->setViews({ viewOf(QStringLiteral("e, reversed"), { 0 }, 0, false,
                         card->filters().at(0).uuidString()),
        viewOf(QStringLiteral("unknown filter"), { 1 }, 1, true,
            QStringLiteral("00000000-0000-0000-0000-000000000000")) });
    QSignalSpy updates(card.get(), &PIMManager::updated);
    card->setCurrentView(0);
    QCOMPARE(card->currentView(), 0);
    QCOMPARE(card->sortColumn(), 0);
    QCOMPARE(card->sortOrder(), false);
    QCOMPARE(card->currentFilter(), 0);
    QCOMPARE(card->view(), QList<PIMRecord *>({ bert }));
    QVERIFY(updates.count() >= 1);

    card->setCurrentView(1);
    QCOMPARE(card->currentFilter(), 0);
    QCOMPARE(card->sortColumn(), 1);

    card->setCurrentView(-1);
    QCOMPARE(card->currentView(), -1);
    QCOMPARE(card->sortColumn(), 1);
    card->setViews(card->views());
    QCOMPARE(card->currentView(), -1);
}

void TestDataManager::adHocFilterIsNotStored()
{
    TestHome home;
    {
        auto card = cardWith(home, { makeField(FieldDef::String, QStringLiteral("name")) });
        addRecord(*card, {})->setStringValue(0, QStringLiteral("Anna"));
        addRecord(*card, {})->setStringValue(0, QStringLiteral("Bert"));
        card->setAdHocFilter(filterOn(QString(), { condition(0, QStringLiteral("nn")) }));
        QCOMPARE(card->currentFilter(), -2);
        QCOMPARE(card->view().size(), 1);
        QVERIFY(card->save());
    }
    DataManager read(cardPath(home));
    QVERIFY(read.load());
    QCOMPARE(read.currentFilter(), -1);
    QCOMPARE(read.view().size(), 2);
}

void TestDataManager::filterPastTheListLetsAllPass()
{
    TestHome home;
    auto card = cardWith(home, { makeField(FieldDef::String, QStringLiteral("name")) });
    addRecord(*card, {})->setStringValue(0, QStringLiteral("Anna"));
    card->setFilters({ filterOn(QStringLiteral("none"), { condition(0, QStringLiteral("zzz")) }) });
    card->setCurrentFilter(0);
    QCOMPARE(card->view().size(), 0);
    card->setCurrentFilter(5);
    QCOMPARE(card->view().size(), 1);
}

QTEST_GUILESS_MAIN(TestDataManager)
#include "testdatamanager.moc"
