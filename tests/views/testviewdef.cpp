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
    void impossibleColumnCount_data();
    void impossibleColumnCount();
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

bool readBytes(const QByteArray &bytes, ViewDef &view)
{
    QDataStream stream(bytes);
    BinaryFormat::prepare(stream);
    return view.read(stream);
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

    ViewDef read = viewOf(QStringLiteral("stale"), { 9 }, 9, false, filterUuid);
    QVERIFY(readBytes(expected, read));
    QCOMPARE(read, view);
    QCOMPARE(read.filter.isNull(), view.filter.isNull());
}

// The count is checked against the bytes left; a device that cannot tell how many are left
// reads what there is and stops at the end.
void TestViewDef::impossibleColumnCount_data()
{
    QTest::addColumn<QByteArray>("count");
    QTest::addColumn<bool>("sequential");
    QTest::addColumn<QList<int>>("columns");
    QTest::newRow("huge") << QByteArray::fromHex("7fffffff") << false << QList<int>();
    QTest::newRow("negative") << QByteArray::fromHex("80000000") << false << QList<int>();
    // The two columns and the twelve bytes behind them could hold at most five ints.
    QTest::newRow("more ints than bytes")
        << QByteArray::fromHex("00000006") << false << QList<int>();
    QTest::newRow("huge on an unsized device")
        << QByteArray::fromHex("7fffffff") << true << QList<int> { 0, 1, -1, 1, -1 };
}

void TestViewDef::impossibleColumnCount()
{
    QFETCH(QByteArray, count);
    QFETCH(bool, sequential);
    QFETCH(QList<int>, columns);
    QByteArray bytes = QByteArray::fromHex("ffffffff") + count
        + QByteArray::fromHex("0000000000000001"
                              "ffffffff00000001ffffffff");
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    SequentialBuffer unsized(bytes);
    QDataStream stream(sequential ? static_cast<QIODevice *>(&unsized) : &buffer);
    BinaryFormat::prepare(stream);
    ViewDef read;
    QVERIFY(!read.read(stream));
    if (!sequential)
        QCOMPARE(stream.status(), QDataStream::ReadCorruptData);
    QCOMPARE(read.columns, columns);
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
