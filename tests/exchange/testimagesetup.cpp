#include "exchange/imagesetup.h"

#include "app/mrldialog.h"
#include "support/testhome.h"
#include "support/whenshown.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QImage>
#include <QImageReader>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QtTest>

// The picture setup: its list, the zoom and the turn of the preview, and what OK does to
// the file.
class TestImageSetup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void listsTheImageDocuments();
    void zoom_data();
    void zoom();
    void rotate_data();
    void rotate();
    void save_data();
    void save();

private:
    // A 40 by 20 picture, red on the left half and blue on the right.
    static QString makePicture(const TestHome &home, const QString &name, const char *format);
    static void accept(ImageSetup &setup);
};

QString TestImageSetup::makePicture(const TestHome &home, const QString &name, const char *format)
{
    QImage image(40, 20, QImage::Format_RGB32);
    image.fill(Qt::red);
    for (int y = 0; y < 20; ++y) {
        for (int x = 20; x < 40; ++x)
            image.setPixel(x, y, qRgb(0, 0, 255));
    }
    const QString path = QDir(home.documents()).filePath(name);
    if (!image.save(path, format))
        qWarning("could not make %s", qPrintable(path));
    return path;
}

void TestImageSetup::accept(ImageSetup &setup)
{
    setup.show();
    setup.findChild<QDialogButtonBox *>(QStringLiteral("okc"))
        ->button(QDialogButtonBox::Ok)
        ->click();
}

// Choosing another picture of the list starts afresh: no zoom, no turn.
void TestImageSetup::listsTheImageDocuments()
{
    TestHome home;
    const QString first = makePicture(home, QStringLiteral("a.png"), "PNG");
    const QString second = makePicture(home, QStringLiteral("b.bmp"), "BMP");
    QFile text(QDir(home.documents()).filePath(QStringLiteral("notes.txt")));
    QVERIFY(text.open(QIODevice::WriteOnly));
    text.close();

    ImageSetup setup(second);
    auto *images = setup.findChild<QListWidget *>(QStringLiteral("images"));
    QStringList names;
    for (int i = 0; i < images->count(); ++i)
        names << images->item(i)->text();
    names.sort();
    QCOMPARE(names, (QStringList { QStringLiteral("a.png"), QStringLiteral("b.bmp") }));
    QCOMPARE(images->currentItem()->text(), QStringLiteral("b.bmp"));
    QCOMPARE(setup.current().size(), QSize(40, 20));

    setup.zoom(50);
    setup.rotate();
    images->setCurrentItem(images->findItems(QStringLiteral("a.png"), Qt::MatchExactly).first());
    QCOMPARE(setup.path(), first);
    QCOMPARE(setup.angle(), 0);
    QCOMPARE(setup.zoomValue(), 100);
    QCOMPARE(setup.current().size(), QSize(40, 20));
}

void TestImageSetup::zoom_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<QSize>("size");

    QTest::newRow("half") << 50 << QSize(20, 10);
    QTest::newRow("truncated") << 33 << QSize(13, 6);
}

void TestImageSetup::zoom()
{
    QFETCH(int, value);
    QFETCH(QSize, size);

    TestHome home;
    ImageSetup setup(makePicture(home, QStringLiteral("p.png"), "PNG"));
    setup.zoom(value);
    QCOMPARE(setup.current().size(), size);
    QCOMPARE(setup.findChild<QLabel *>(QStringLiteral("preview"))->pixmap().size(), size);

    // The slider drives the zoom as well.
    setup.findChild<QSlider *>(QStringLiteral("slider"))->setValue(100);
    QCOMPARE(setup.current().size(), QSize(40, 20));
    QCOMPARE(setup.findChild<QSpinBox *>(QStringLiteral("spin"))->value(), 100);
}

void TestImageSetup::rotate_data()
{
    QTest::addColumn<int>("turns");
    QTest::addColumn<int>("angle");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QRgb>("topLeft");

    QTest::newRow("quarter") << 1 << 90 << QSize(20, 40) << qRgb(255, 0, 0);
    QTest::newRow("half") << 2 << 180 << QSize(40, 20) << qRgb(0, 0, 255);
    QTest::newRow("full turn") << 4 << 0 << QSize(40, 20) << qRgb(255, 0, 0);
}

void TestImageSetup::rotate()
{
    QFETCH(int, turns);
    QFETCH(int, angle);
    QFETCH(QSize, size);
    QFETCH(QRgb, topLeft);

    TestHome home;
    ImageSetup setup(makePicture(home, QStringLiteral("p.png"), "PNG"));
    for (int i = 0; i < turns; ++i)
        setup.rotate();
    QCOMPARE(setup.angle(), angle);
    QCOMPARE(setup.current().size(), size);
    QCOMPARE(setup.current().toImage().pixel(0, 0), topLeft);
}

void TestImageSetup::save_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("format");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QSize>("saved");

    QTest::newRow("replace png") << "p.png" << QByteArray("png") << "button1" << QSize(10, 20);
    QTest::newRow("format by content")
        << "p.dat" << QByteArray("png") << "button1" << QSize(10, 20);
    QTest::newRow("cancel") << "p.png" << QByteArray("png") << "button2" << QSize(40, 20);
}

void TestImageSetup::save()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, format);
    QFETCH(QString, answer);
    QFETCH(QSize, saved);

    TestHome home;
    const QString path = makePicture(home, name, format.toUpper().constData());
    ImageSetup setup(path);
    setup.zoom(50);
    setup.rotate();
    whenShown<MRLDialog>(
        [answer](MRLDialog *box) { box->findChild<QPushButton *>(answer)->click(); });
    accept(setup);
    QCOMPARE(setup.result(), int(QDialog::Accepted));
    QImageReader reader(path);
    QCOMPARE(reader.format(), format);
    QCOMPARE(reader.read().size(), saved);
}

QTEST_MAIN(TestImageSetup)
#include "testimagesetup.moc"
