#include "sequentialbuffer.h"
#include "store/binaryformat.h"
#include "views/viewdef.h"

#include <QBuffer>
#include <QTest>

class TestViewDef : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void storedBytes_data();
    void storedBytes();
    void roundTrip();
    void orderFlag_data();
    void orderFlag();
    void everyTruncationIsRefused();
    void impossibleColumnCount_data();
    void impossibleColumnCount();
    void unsizedDeviceStopsAtTheEnd();
    void remapFields_data();
    void remapFields();
};

Q_DECLARE_METATYPE(ViewDef)

namespace
{
ViewDef viewOf(const QString &title, const QList<int> &columns, int sort, bool ascending,
    const QString &filter)
{
    ViewDef view;
    view.title = title;
    view.columns = columns;
    view.sort = sort;
    view.ascending = ascending;
    view.filter = filter;
    return view;
}

QByteArray bytesOf(const ViewDef &view)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    BinaryFormat::prepare(stream);
    view.write(stream);
    return bytes;
}

bool readFrom(QIODevice &device, ViewDef &view)
{
    QDataStream stream(&device);
    BinaryFormat::prepare(stream);
    return view.read(stream);
}

bool readBytes(const QByteArray &bytes, ViewDef &view)
{
    QByteArray copy = bytes;
    QBuffer buffer(&copy);
    buffer.open(QIODevice::ReadOnly);
    return readFrom(buffer, view);
}

const QString filterUuid = QStringLiteral("00112233-4455-6677-8899-aabbccddeeff");

// The UUID text as the stream stores it: 36 UTF-16 characters.
QByteArray storedUuidText()
{
    QByteArray bytes = QByteArray::fromHex("00000048");
    for (QChar c : filterUuid)
        bytes += QByteArray(1, '\0') + char(c.unicode());
    return bytes;
}
} // namespace

void TestViewDef::storedBytes_data()
{
    QTest::addColumn<ViewDef>("view");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("a new view") << ViewDef()
                                << QByteArray::fromHex("ffffffff"
                                                       "00000000"
                                                       "ffffffff"
                                                       "00000001"
                                                       "ffffffff");
    QTest::newRow("repeated column, descending, filtered")
        << viewOf(QStringLiteral("Big"), { 0, 2, 2 }, 2, false, filterUuid)
        << QByteArray::fromHex("00000006004200690067"
                               "00000003"
                               "00000000"
                               "00000002"
                               "00000002"
                               "00000002"
                               "00000000")
            + storedUuidText();
}

void TestViewDef::storedBytes()
{
    QFETCH(ViewDef, view);
    QFETCH(QByteArray, expected);
    QCOMPARE(bytesOf(view).toHex(), expected.toHex());

    ViewDef read;
    QVERIFY(readBytes(expected, read));
    QCOMPARE(read, view);
    QCOMPARE(read.filter.isNull(), view.filter.isNull());
}

void TestViewDef::roundTrip()
{
    const ViewDef view = viewOf(QStringLiteral("Ünïcode"), { 4, 0, 3, 4 }, -1, true, QString());
    ViewDef read = viewOf(QStringLiteral("stale"), { 9 }, 9, false, filterUuid);
    QVERIFY(readBytes(bytesOf(view), read));
    QCOMPARE(read, view);
}

void TestViewDef::orderFlag_data()
{
    QTest::addColumn<QByteArray>("flag");
    QTest::addColumn<bool>("ascending");
    QTest::newRow("0") << QByteArray::fromHex("00000000") << false;
    QTest::newRow("1") << QByteArray::fromHex("00000001") << true;
    QTest::newRow("7") << QByteArray::fromHex("00000007") << true;
    QTest::newRow("-1") << QByteArray::fromHex("ffffffff") << true;
}

void TestViewDef::orderFlag()
{
    QFETCH(QByteArray, flag);
    QFETCH(bool, ascending);
    const QByteArray bytes
        = QByteArray::fromHex("ffffffff00000000ffffffff") + flag + QByteArray::fromHex("ffffffff");
    ViewDef read;
    read.ascending = !ascending;
    QVERIFY(readBytes(bytes, read));
    QCOMPARE(read.ascending, ascending);
}

void TestViewDef::everyTruncationIsRefused()
{
    const QByteArray whole = bytesOf(viewOf(QStringLiteral("Big"), { 0, 2 }, 1, true, filterUuid));
    for (qsizetype length = 0; length < whole.size(); ++length) {
        ViewDef read;
        QVERIFY2(!readBytes(whole.left(length), read), qPrintable(QString::number(length)));
    }
    ViewDef read;
    QVERIFY(readBytes(whole, read));
}

void TestViewDef::impossibleColumnCount_data()
{
    QTest::addColumn<QByteArray>("count");
    QTest::newRow("huge") << QByteArray::fromHex("7fffffff");
    QTest::newRow("negative") << QByteArray::fromHex("80000000");
    // The two columns and the twelve bytes behind them could hold at most five ints.
    QTest::newRow("more ints than bytes") << QByteArray::fromHex("00000006");
}

void TestViewDef::impossibleColumnCount()
{
    QFETCH(QByteArray, count);
    const QByteArray bytes = QByteArray::fromHex("ffffffff") + count
        + QByteArray::fromHex("0000000000000001"
                              "ffffffff00000001ffffffff");
    QByteArray copy = bytes;
    QBuffer buffer(&copy);
    buffer.open(QIODevice::ReadOnly);
    QDataStream stream(&buffer);
    BinaryFormat::prepare(stream);
    ViewDef read;
    QVERIFY(!read.read(stream));
    QCOMPARE(stream.status(), QDataStream::ReadCorruptData);
    QVERIFY(read.columns.isEmpty());
}

void TestViewDef::unsizedDeviceStopsAtTheEnd()
{
    const QByteArray bytes = QByteArray::fromHex("ffffffff"
                                                 "7fffffff"
                                                 "00000003"
                                                 "00000001");
    SequentialBuffer device(bytes);
    ViewDef read;
    QVERIFY(!readFrom(device, read));
    QCOMPARE(read.columns, QList<int>({ 3, 1 }));
}

void TestViewDef::remapFields_data()
{
    QTest::addColumn<QList<int>>("newIndexOfOld");
    QTest::addColumn<QList<int>>("columns");
    QTest::addColumn<int>("sort");
    QTest::addColumn<QList<int>>("expectedColumns");
    QTest::addColumn<int>("expectedSort");

    QTest::newRow("unchanged") << QList<int> { 0, 1, 2 } << QList<int> { 2, 0, 2 } << 1
                               << QList<int> { 2, 0, 2 } << 1;
    QTest::newRow("moved") << QList<int> { 2, 0, 1 } << QList<int> { 0, 1, 2 } << 0
                           << QList<int> { 2, 0, 1 } << 2;
    QTest::newRow("removed column and sort field")
        << QList<int> { 0, -1, 1 } << QList<int> { 0, 1, 2, 1 } << 1 << QList<int> { 0, 1 } << -1;
    QTest::newRow("every column gone, sort stays")
        << QList<int> { 1, -1 } << QList<int> { 1, 1 } << 0 << QList<int>() << 1;
    QTest::newRow("unsorted stays unsorted")
        << QList<int> { 1, 0 } << QList<int> { 0 } << -1 << QList<int> { 1 } << -1;
    QTest::newRow("indexes past the old schema go")
        << QList<int> { 0 } << QList<int> { 0, 4 } << 4 << QList<int> { 0 } << -1;
}

void TestViewDef::remapFields()
{
    QFETCH(QList<int>, newIndexOfOld);
    QFETCH(QList<int>, columns);
    QFETCH(int, sort);
    QFETCH(QList<int>, expectedColumns);
    QFETCH(int, expectedSort);

    ViewDef view = viewOf(QStringLiteral("v"), columns, sort, false, filterUuid);
    view.remapFields(newIndexOfOld);
    QCOMPARE(view.columns, expectedColumns);
    QCOMPARE(view.sort, expectedSort);
    QCOMPARE(view.title, QStringLiteral("v"));
    QCOMPARE(view.ascending, false);
    QCOMPARE(view.filter, filterUuid);
}

QTEST_GUILESS_MAIN(TestViewDef)
#include "testviewdef.moc"
