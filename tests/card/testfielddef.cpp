#include "card/fielddef.h"
#include "store/binaryformat.h"

#include <QBuffer>
#include <QDataStream>
#include <QTest>

class TestFieldDef : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void freshDefinition();
    void typeNamesInCodeOrder();
    void retyping_data();
    void retyping();
    void sortKeys_data();
    void sortKeys();
    void truncation_data();
    void truncation();
    void streamRoundTrip();
    void hugeItemCountIsRefused();
};

void TestFieldDef::freshDefinition()
{
    const FieldDef field;
    QVERIFY(field.title.isEmpty() && field.formula.isEmpty() && field.items.isEmpty());
    QCOMPARE(field.type, int(FieldDef::String));
    QCOMPARE(field.width, -1);
    QCOMPARE(field.origin, -1);
}

void TestFieldDef::typeNamesInCodeOrder()
{
    const QStringList expected = { "String", "Integer", "Double", "Date", "Time", "DateTime",
        "Text", "Memo", "Reminder", "List", "Bool", "Count", "Image", "MultiList", "Increment" };
    QCOMPARE(FieldDef::typeNames(), expected);
    QCOMPARE(FieldDef::typeName(FieldDef::Increment), QStringLiteral("Increment"));
    QCOMPARE(FieldDef::typeName(15), QString());
}

void TestFieldDef::retyping_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<bool>("kept");
    QTest::newRow("String to Text") << int(FieldDef::String) << int(FieldDef::Text) << true;
    QTest::newRow("List to MultiList") << int(FieldDef::List) << int(FieldDef::MultiList) << true;
    QTest::newRow("Integer to Double") << int(FieldDef::Integer) << int(FieldDef::Double) << true;
    QTest::newRow("Bool to Increment") << int(FieldDef::Bool) << int(FieldDef::Increment) << true;
    QTest::newRow("Count to Integer") << int(FieldDef::Count) << int(FieldDef::Integer) << true;
    QTest::newRow("String to Integer") << int(FieldDef::String) << int(FieldDef::Integer) << false;
    QTest::newRow("Double to Text") << int(FieldDef::Double) << int(FieldDef::Text) << false;
    QTest::newRow("Date to DateTime") << int(FieldDef::Date) << int(FieldDef::DateTime) << false;
    QTest::newRow("Time to Date") << int(FieldDef::Time) << int(FieldDef::Date) << false;
    QTest::newRow("Date stays Date") << int(FieldDef::Date) << int(FieldDef::Date) << true;
    QTest::newRow("Memo to String") << int(FieldDef::Memo) << int(FieldDef::String) << false;
    QTest::newRow("Image to Reminder") << int(FieldDef::Image) << int(FieldDef::Reminder) << false;
}

void TestFieldDef::retyping()
{
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(bool, kept);
    QCOMPARE(FieldDef::keepsValue(from, to), kept);
}

void TestFieldDef::sortKeys_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("expected");
    QTest::newRow("integer") << FieldDef::integerSortKey(42) << "00000042";
    QTest::newRow("negative integer keeps its sign") << FieldDef::integerSortKey(-5) << "-0000005";
    QTest::newRow("wide integer is not cut")
        << FieldDef::integerSortKey(1234567890) << "1234567890";
    QTest::newRow("double") << FieldDef::doubleSortKey(3.5) << "000003.50000";
    QTest::newRow("negative double") << FieldDef::doubleSortKey(-2.25) << "-00002.25000";
    QTest::newRow("long double key") << FieldDef::doubleSortKey(1234567.125) << "1234567.12500";
    QTest::newRow("epoch date") << FieldDef::dateSortKey(QDate(1980, 1, 1)) << "00000000";
    QTest::newRow("date") << FieldDef::dateSortKey(QDate(1980, 2, 1)) << "00000031";
    QTest::newRow("date before the epoch")
        << FieldDef::dateSortKey(QDate(1979, 12, 31)) << "-0000001";
    QTest::newRow("invalid date") << FieldDef::dateSortKey(QDate()) << QString();
    QTest::newRow("time") << FieldDef::timeSortKey(QTime(1, 2, 3, 999)) << "00003723";
    QTest::newRow("invalid time") << FieldDef::timeSortKey(QTime()) << QString();
    QTest::newRow("date-time") << FieldDef::dateTimeSortKey(QDateTime(QDate(1980, 1, 2),
        QTime(0, 0, 10))) << "00086410";
    QTest::newRow("date-time in 2004")
        << FieldDef::dateTimeSortKey(QDateTime(QDate(2004, 3, 7), QTime(18, 5, 9))) << "763149909";
    QTest::newRow("date-time without date")
        << FieldDef::dateTimeSortKey(QDateTime(QDate(), QTime(1, 0))) << QString();
    QTest::newRow("flag set") << FieldDef::flagSortKey(true) << "1";
    QTest::newRow("flag clear") << FieldDef::flagSortKey(false) << "0";
}

void TestFieldDef::sortKeys()
{
    QFETCH(QString, key);
    QFETCH(QString, expected);
    QCOMPARE(key, expected);
}

void TestFieldDef::truncation_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("expected");
    QTest::newRow("positive fraction") << 2.9 << 2;
    QTest::newRow("negative fraction") << -2.9 << -2;
    QTest::newRow("too large") << 1e20 << std::numeric_limits<int>::max();
    QTest::newRow("too small") << -1e20 << std::numeric_limits<int>::min();
    QTest::newRow("not a number") << qQNaN() << 0;
    QTest::newRow("infinity") << qInf() << std::numeric_limits<int>::max();
}

void TestFieldDef::truncation()
{
    QFETCH(double, value);
    QFETCH(int, expected);
    QCOMPARE(FieldDef::truncated(value), expected);
}

static FieldDef sampleField()
{
    FieldDef field;
    field.title = QStringLiteral("Größe");
    field.label = QStringLiteral("Größe");
    field.type = FieldDef::MultiList;
    field.defaultValue = QStringLiteral("a;b");
    field.items = { QStringLiteral("a"), QStringLiteral("b"), QString() };
    field.width = 80;
    field.origin = 3;
    return field;
}

void TestFieldDef::streamRoundTrip()
{
    const FieldDef field = sampleField();
    QByteArray bytes;
    {
        QDataStream out(&bytes, QIODevice::WriteOnly);
        BinaryFormat::prepare(out);
        field.write(out);
    }
    QDataStream in(bytes);
    BinaryFormat::prepare(in);
    FieldDef read;
    read.origin = 7;
    QVERIFY(read.read(in));
    QCOMPARE(read, field);
    QCOMPARE(read.origin, -1);
    QVERIFY(in.atEnd());
}

void TestFieldDef::hugeItemCountIsRefused()
{
    QByteArray bytes;
    {
        QDataStream out(&bytes, QIODevice::WriteOnly);
        BinaryFormat::prepare(out);
        out << QString() << QString() << qint32(0) << QString() << QString() << QString()
            << quint32(0x7fffffff);
    }
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QDataStream in(&buffer);
    BinaryFormat::prepare(in);
    FieldDef field;
    QVERIFY(!field.read(in));
    QCOMPARE(in.status(), QDataStream::ReadCorruptData);
}

QTEST_GUILESS_MAIN(TestFieldDef)
#include "testfielddef.moc"
