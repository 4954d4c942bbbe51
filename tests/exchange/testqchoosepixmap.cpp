#include "exchange/qchoosepixmap.h"

#include <QImageWriter>
#include <QtTest>

// The filter of the picture chooser: all writable formats together, each alone, all files.
class TestQChoosePixmap : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void filterEntries();
};

void TestQChoosePixmap::filterEntries()
{
    const QStringList entries = pixmapFilter().split(QStringLiteral(";;"));
    const QList<QByteArray> formats = QImageWriter::supportedImageFormats();
    QVERIFY(formats.contains("png"));
    QCOMPARE(entries.size(), formats.size() + 2);

    QVERIFY(entries.first().startsWith(QLatin1String("All Pixmaps (*.")));
    QVERIFY(entries.first().contains(QLatin1String("*.png")));
    QVERIFY(entries.first().endsWith(QLatin1Char(')')));
    const int png = int(formats.indexOf("png"));
    QCOMPARE(entries.at(png + 1), QStringLiteral("PNG-Pixmaps (*.png)"));
    QCOMPARE(entries.last(), QStringLiteral("All Files (*)"));
}

QTEST_MAIN(TestQChoosePixmap)
#include "testqchoosepixmap.moc"
