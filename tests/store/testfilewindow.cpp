#include "store/filewindow.h"

#include <QFile>
#include <QTemporaryFile>
#include <QTest>

// A load reads a card through the window: every byte must come out once, in order, however
// the reads fall on the window's edges.
class TestFileWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsEveryByteOnce_data();
    void readsEveryByteOnce();
    void seeksBackAndOn();
};

namespace
{
constexpr qint64 window = FileWindow::windowBytes;

QByteArray pattern(qint64 size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    for (qint64 i = 0; i < size; ++i)
        bytes[i] = char((i * 7 + i / 251) & 0xff);
    return bytes;
}
} // namespace

void TestFileWindow::readsEveryByteOnce_data()
{
    QTest::addColumn<qint64>("fileSize");
    QTest::addColumn<qint64>("readSize");
    QTest::newRow("empty file") << qint64(0) << qint64(4);
    QTest::newRow("small reads across two windows") << window + 1000 << qint64(7);
    QTest::newRow("reads ending on the edge") << 2 * window << qint64(4096);
    QTest::newRow("one read spanning three windows") << 2 * window + 5 << 3 * window;
}

void TestFileWindow::readsEveryByteOnce()
{
    QFETCH(qint64, fileSize);
    QFETCH(qint64, readSize);
    const QByteArray expected = pattern(fileSize);
    QTemporaryFile temporary;
    QVERIFY(temporary.open());
    temporary.write(expected);
    temporary.close();

    QFile file(temporary.fileName());
    QVERIFY(file.open(QIODevice::ReadOnly));
    FileWindow reader(file);
    QVERIFY(reader.open(QIODevice::ReadOnly));
    QCOMPARE(reader.size(), fileSize);
    QByteArray got;
    while (!reader.atEnd())
        got += reader.read(readSize);
    QCOMPARE(got.size(), expected.size());
    QVERIFY(got == expected);
    QCOMPARE(reader.read(readSize), QByteArray());
}

void TestFileWindow::seeksBackAndOn()
{
    const QByteArray expected = pattern(window * 2 + 10);
    QTemporaryFile temporary;
    QVERIFY(temporary.open());
    temporary.write(expected);
    temporary.flush();

    FileWindow reader(temporary);
    QVERIFY(!reader.open(QIODevice::ReadWrite));
    QVERIFY(reader.open(QIODevice::ReadOnly));
    for (const qint64 at : { window + 3, qint64(5), 2 * window + 2, window - 2 }) {
        QVERIFY(reader.seek(at));
        QCOMPARE(reader.read(8), expected.mid(at, 8));
        QCOMPARE(reader.pos(), qMin<qint64>(at + 8, expected.size()));
    }
}

QTEST_GUILESS_MAIN(TestFileWindow)
#include "testfilewindow.moc"
