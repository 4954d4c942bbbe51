#include "exchange/imageeditorwidget.h"

#include "exchange/imagesetup.h"
#include "support/testhome.h"
#include "support/whenshown.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QImage>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

// The picture of the record editor: which page shows, and what setup and removal do.
class TestImageEditorWidget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pages_data();
    void pages();
    void setup_data();
    void setup();
    void unsetEmptiesAndReports();

private:
    static QString makePicture(const TestHome &home, const QString &name);
};

QString TestImageEditorWidget::makePicture(const TestHome &home, const QString &name)
{
    QImage image(30, 10, QImage::Format_RGB32);
    image.fill(Qt::yellow);
    const QString path = QDir(home.documents()).filePath(name);
    image.save(path, "PNG");
    return path;
}

void TestImageEditorWidget::pages_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("page");
    QTest::addColumn<bool>("picture");

    QTest::newRow("no path") << "" << 0 << false;
    QTest::newRow("picture") << "p.png" << 1 << true;
    QTest::newRow("missing file") << "gone.png" << 1 << false;
}

void TestImageEditorWidget::pages()
{
    QFETCH(QString, name);
    QFETCH(int, page);
    QFETCH(bool, picture);

    TestHome home;
    makePicture(home, QStringLiteral("p.png"));
    const QString path = name.isEmpty() ? QString() : QDir(home.documents()).filePath(name);
    ImageEditorWidget widget;
    QSignalSpy changed(&widget, &ImageEditorWidget::changed);
    widget.setImage(path);
    QCOMPARE(widget.currentIndex(), page);
    QCOMPARE(widget.image(), path);
    QCOMPARE(!widget.pixmap().isNull(), picture);
    QCOMPARE(changed.count(), 0);
}

void TestImageEditorWidget::setup_data()
{
    QTest::addColumn<bool>("ok");
    QTest::newRow("Ok takes the chosen picture") << true;
    QTest::newRow("Escape changes nothing") << false;
}

void TestImageEditorWidget::setup()
{
    QFETCH(bool, ok);
    TestHome home;
    const QString path = makePicture(home, QStringLiteral("p.png"));
    ImageEditorWidget widget;
    QSignalSpy changed(&widget, &ImageEditorWidget::changed);
    whenShown<ImageSetup>([ok](ImageSetup *setup) {
        setup->findChild<QListWidget *>(QStringLiteral("images"))->setCurrentRow(0);
        if (!ok)
            return QTest::keyClick(setup, Qt::Key_Escape);
        setup->findChild<QDialogButtonBox *>(QStringLiteral("okc"))
            ->button(QDialogButtonBox::Ok)
            ->click();
    });
    widget.findChild<QPushButton *>(QStringLiteral("btnSetup"))->click();
    QCOMPARE(widget.image(), ok ? path : QString());
    QCOMPARE(widget.currentIndex(), ok ? 1 : 0);
    QCOMPARE(widget.pixmap().size(), ok ? QSize(30, 10) : QSize(0, 0));
    QCOMPARE(changed.count(), ok ? 1 : 0);
}

void TestImageEditorWidget::unsetEmptiesAndReports()
{
    TestHome home;
    ImageEditorWidget widget;
    widget.setImage(makePicture(home, QStringLiteral("p.png")));
    QSignalSpy changed(&widget, &ImageEditorWidget::changed);
    widget.unsetImage();
    QVERIFY(widget.image().isEmpty());
    QVERIFY(widget.pixmap().isNull());
    QCOMPARE(widget.currentIndex(), 0);
    QCOMPARE(changed.count(), 1);
}

QTEST_MAIN(TestImageEditorWidget)
#include "testimageeditorwidget.moc"
