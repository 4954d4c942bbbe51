#include "app/resourceicons.h"
#include "support/testhome.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFont>
#include <QFontMetrics>
#include <QImage>
#include <QTemporaryDir>
#include <QtTest>

// The search of the program's pictures: its order, which steps a screen class takes, and
// the loaders on top of it, on a share folder made by the test.
class TestResourceIcons : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void findIn_data();
    void findIn();
    void loadersUseTheShareFolder();
    void sizedPixmapFollowsTheFont_data();
    void sizedPixmapFollowsTheFont();

private:
    // Writes a square picture of that size as <share>/<relative>.
    void makePicture(const QString &relative, int size);

    QTemporaryDir m_share;
};

void TestResourceIcons::initTestCase()
{
    QVERIFY(m_share.isValid());
    qApp->setObjectName(QStringLiteral("norvika"));
    qputenv("NORVIKA_SHARE", QFile::encodeName(m_share.path()));
    ResourceIcons::reset();
    makePicture(QStringLiteral("pics/plain.png"), 10);
    makePicture(QStringLiteral("pics/std/c07.png"), 11);
    makePicture(QStringLiteral("pics/norvika/icons/12.png"), 12);
    makePicture(QStringLiteral("pics/16/plain.png"), 16);
    makePicture(QStringLiteral("pics/24/plain.png"), 24);
    makePicture(QStringLiteral("pics/32/plain.png"), 32);
}

void TestResourceIcons::cleanup()
{
    ResourceIcons::reset();
}

void TestResourceIcons::makePicture(const QString &relative, int size)
{
    const QString path = m_share.filePath(relative);
    QVERIFY(QDir().mkpath(QFileInfo(path).absolutePath()));
    QImage image(size, size, QImage::Format_ARGB32);
    image.fill(Qt::darkBlue);
    QVERIFY(image.save(path, "PNG"));
}

void TestResourceIcons::findIn_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<bool>("highResolution");
    QTest::addColumn<QString>("expected");

    const QStringList everywhere { "pics144/norvika/i.png", "pics144/mrl/i.png",
        "pics/norvika/i.png", "pics/mrl/i.png", "pics144/i.png", "pics/i.png" };
    QTest::newRow("high resolution takes its own folder first")
        << everywhere << true << QStringLiteral("pics144/norvika/i.png");
    QTest::newRow("low resolution never looks at pics144")
        << everywhere << false << QStringLiteral("pics/norvika/i.png");
    QTest::newRow("shared mrl folder before the common one") << QStringList { "pics/mrl/i.png",
        "pics/i.png" } << false << QStringLiteral("pics/mrl/i.png");
    QTest::newRow("application folder under pics on high resolution")
        << QStringList { "pics/norvika/i.png", "pics144/i.png" } << true
        << QStringLiteral("pics/norvika/i.png");
    QTest::newRow("pics144 alone is not enough on low resolution")
        << QStringList { "pics144/i.png" } << false << QString();
}

void TestResourceIcons::findIn()
{
    QFETCH(QStringList, files);
    QFETCH(bool, highResolution);
    QFETCH(QString, expected);

    QTemporaryDir base;
    for (const QString &file : std::as_const(files)) {
        QVERIFY(QDir().mkpath(QFileInfo(base.filePath(file)).absolutePath()));
        QFile out(base.filePath(file));
        QVERIFY(out.open(QIODevice::WriteOnly));
    }
    const QString found = ResourceIcons::findIn(
        QStringLiteral("i"), base.path(), QStringLiteral("norvika"), highResolution);
    QCOMPARE(found, expected.isEmpty() ? QString() : base.filePath(expected));
}

void TestResourceIcons::loadersUseTheShareFolder()
{
    QCOMPARE(loadImage(QStringLiteral("plain")).width(), 10);
    QCOMPARE(loadPixmap(QStringLiteral("std/c07")).width(), 11);
    QCOMPARE(loadPixmap(QStringLiteral("icons/12")).width(), 12);
    QCOMPARE(loadBitmap(QStringLiteral("plain")).width(), 10);
    const QIcon icon = loadIconSet(QStringLiteral("plain"));
    QVERIFY(!icon.isNull());
    QCOMPARE(icon.availableSizes().value(0), QSize(10, 10));
}

void TestResourceIcons::sizedPixmapFollowsTheFont_data()
{
    QTest::addColumn<int>("minHeight");
    QTest::addColumn<int>("maxHeight");
    QTest::addColumn<int>("expected");
    QTest::newRow("small text") << 1 << 16 << 16;
    QTest::newRow("middle text") << 17 << 24 << 24;
    QTest::newRow("large text") << 25 << 200 << 32;
}

void TestResourceIcons::sizedPixmapFollowsTheFont()
{
    QFETCH(int, minHeight);
    QFETCH(int, maxHeight);
    QFETCH(int, expected);

    // A font whose line height falls into the row's range.
    QFont font;
    for (int pixels = 4; pixels < 120; ++pixels) {
        font.setPixelSize(pixels);
        const int height = QFontMetrics(font).height();
        if (height >= minHeight && height <= maxHeight)
            break;
    }
    const int height = QFontMetrics(font).height();
    if (height < minHeight || height > maxHeight)
        QSKIP("no font of this system has a line height in the range");
    QCOMPARE(ResourceIcons::sizeFor(font), expected);
    QCOMPARE(loadSizedPixmap(QStringLiteral("plain"), font).width(), expected);
}

QTEST_MAIN(TestResourceIcons)
#include "testresourceicons.moc"
