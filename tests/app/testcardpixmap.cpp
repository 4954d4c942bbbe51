#include "app/cardpixmap.h"
#include "app/resourceicons.h"
#include "store/dbmanager.h"
#include "store/dbrecord.h"
#include "support/testhome.h"

#include <QApplication>
#include <QImage>
#include <QTest>

class TestCardPixmap : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void looks_data();
    void looks();
    void missingIcon();
};

void TestCardPixmap::initTestCase()
{
    qApp->setObjectName(QStringLiteral("norvika"));
    ResourceIcons::reset();
}

void TestCardPixmap::looks_data()
{
    QTest::addColumn<bool>("extended");
    QTest::addColumn<QString>("password");
    QTest::addColumn<bool>("available");
    QTest::addColumn<bool>("overlaid"); // the top left quarter differs from the icon
    QTest::addColumn<bool>("greyed"); // the lower right quarter differs from the icon

    QTest::newRow("plain") << false << "" << true << false << false;
    QTest::newRow("locked") << false << "pw" << true << true << false;
    QTest::newRow("unavailable") << false << "" << false << true << true;
    QTest::newRow("catalogue entry") << true << "" << false << false << false;
}

void TestCardPixmap::looks()
{
    QFETCH(bool, extended);
    QFETCH(QString, password);
    QFETCH(bool, available);
    TestHome home;
    DBManager list(extended);
    DBRecord record(&list);
    record.setPassword(password);
    record.setAvailable(available);
    const QImage icon
        = loadPixmap(QStringLiteral("icons/12")).toImage().convertToFormat(QImage::Format_ARGB32);
    const QImage result
        = cardPixmap(&list, &record).toImage().convertToFormat(QImage::Format_ARGB32);
    QVERIFY(!icon.isNull());
    QCOMPARE(result.size(), icon.size());
    const int w = icon.width() / 2;
    const int h = icon.height() / 2;
    QTEST(result.copy(0, 0, w, h) != icon.copy(0, 0, w, h), "overlaid");
    QTEST(result.copy(w, h, w, h) != icon.copy(w, h, w, h), "greyed");
}

void TestCardPixmap::missingIcon()
{
    TestHome home;
    DBManager list(false);
    DBRecord record(&list);
    record.setIcon(QStringLiteral("no such icon"));
    record.setPassword(QStringLiteral("pw"));
    QVERIFY(cardPixmap(&list, &record).isNull());
}

QTEST_MAIN(TestCardPixmap)
#include "testcardpixmap.moc"
