#include "card/fielddef.h"
#include "store/binaryformat.h"

#include <QDataStream>
#include <QTest>

class TestFieldDef : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void truncation_data();
    void truncation();
    void streamRoundTrip();
};

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

QTEST_GUILESS_MAIN(TestFieldDef)
#include "testfielddef.moc"
