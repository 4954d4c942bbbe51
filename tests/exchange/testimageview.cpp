#include "exchange/imageview.h"

#include "support/testhome.h"

#include <QDir>
#include <QImage>
#include <QtTest>

// The picture viewer: the fitting rule, and both ways of showing.
class TestImageView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fittedSize_data();
    void fittedSize();
    void fittedLoadsOnceShown();
    void actualSizeInAScrollView();
    void missingFileShowsNothing();

private:
    static QString makePicture(const TestHome &home, const QSize &size);
};

QString TestImageView::makePicture(const TestHome &home, const QSize &size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    const QString path = QDir(home.documents()).filePath(QStringLiteral("view.png"));
    image.save(path, "PNG");
    return path;
}

void TestImageView::fittedSize_data()
{
    QTest::addColumn<QSize>("picture");
    QTest::addColumn<QSize>("room");
    QTest::addColumn<QSize>("shown");

    QTest::newRow("smaller both ways") << QSize(50, 40) << QSize(100, 100) << QSize(50, 40);
    QTest::newRow("too wide") << QSize(400, 100) << QSize(200, 200) << QSize(200, 50);
    QTest::newRow("too big, width decides")
        << QSize(600, 300) << QSize(200, 150) << QSize(200, 100);
    QTest::newRow("too big, height decides")
        << QSize(300, 600) << QSize(200, 150) << QSize(75, 150);
    QTest::newRow("fraction truncated") << QSize(301, 100) << QSize(100, 100) << QSize(100, 33);
    QTest::newRow("no room") << QSize(10, 10) << QSize(0, 0) << QSize(0, 0);
}

void TestImageView::fittedSize()
{
    QFETCH(QSize, picture);
    QFETCH(QSize, room);
    QFETCH(QSize, shown);
    QCOMPARE(ImageView::fittedSize(picture, room), shown);
}

void TestImageView::fittedLoadsOnceShown()
{
    TestHome home;
    ImageView view(makePicture(home, QSize(2000, 1000)), true);
    QVERIFY(view.shown().isNull());
    view.resize(400, 300);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    QTRY_VERIFY(!view.shown().isNull());
    const QSize room = view.findChild<QWidget *>(QStringLiteral("picture"))->size();
    QCOMPARE(view.shown().size(), ImageView::fittedSize(QSize(2000, 1000), room));
    QVERIFY(view.shown().width() <= room.width() && view.shown().height() <= room.height());
}

void TestImageView::actualSizeInAScrollView()
{
    TestHome home;
    ImageView view(makePicture(home, QSize(2000, 1000)), false);
    QCOMPARE(view.shown().size(), QSize(2000, 1000));
}

void TestImageView::missingFileShowsNothing()
{
    TestHome home;
    ImageView view(QDir(home.documents()).filePath(QStringLiteral("none.png")), true);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    QVERIFY(view.shown().isNull());
}

QTEST_MAIN(TestImageView)
#include "testimageview.moc"
