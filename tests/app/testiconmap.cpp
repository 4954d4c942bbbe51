#include "app/resourceicons.h"

#include <QApplication>
#include <QFile>
#include <QRegularExpression>
#include <QTextStream>
#include <QtTest>

// Every name of the icon map must come back from the program's search as a real picture
// of the built share folder, in every size the program asks for.
class TestIconMap : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void resolves_data();
    void resolves();
    void namesTheProgramRelyOn_data();
    void namesTheProgramRelyOn();

private:
    // Name as the program asks for it (the application's folder is searched on its own).
    QStringList m_names;
};

void TestIconMap::initTestCase()
{
    qApp->setObjectName(QStringLiteral("norvika"));
    qunsetenv("NORVIKA_SHARE");
    ResourceIcons::reset();

    QFile map(QStringLiteral(NORVIKA_ICON_MAP));
    QVERIFY2(map.open(QIODevice::ReadOnly | QIODevice::Text), qPrintable(map.fileName()));
    QTextStream in(&map);
    static const QRegularExpression spaces(QStringLiteral("\\s+"));
    while (!in.atEnd()) {
        const QString line = in.readLine().trimmed();
        if (line.isEmpty() || line.startsWith(QLatin1Char('#'))
            || line.startsWith(QLatin1Char('[')))
            continue;
        m_names << line.split(spaces).first();
    }
    QVERIFY(m_names.size() > 100);
}

void TestIconMap::resolves_data()
{
    QTest::addColumn<QString>("name");
    for (const QString &name : std::as_const(m_names))
        QTest::newRow(qPrintable(name)) << name;
}

void TestIconMap::resolves()
{
    QFETCH(QString, name);
    const QImage image = loadImage(name);
    QVERIFY2(!image.isNull(), qPrintable(name));
    QVERIFY(image.width() >= 8 && image.width() <= 24);
    for (const char *size : { "16", "24", "32" }) {
        const QString sized = QLatin1String(size) + QLatin1Char('/') + name;
        QVERIFY2(!loadImage(sized).isNull(), qPrintable(sized));
    }
    const QString high = ResourceIcons::findIn(
        name, QStringLiteral(NORVIKA_BUILD_SHARE_DIR), QStringLiteral("norvika"), true);
    QVERIFY2(high.contains(QStringLiteral("/pics144/")), qPrintable(high));
    QVERIFY(!QImage(high).isNull());
}

void TestIconMap::namesTheProgramRelyOn_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : { "cards", "std/c07", "filenew", "viewmag+", "viewmag-", "viewmag",
             "sort-name", "mouse", "dialog_critical", "dialog_warning", "dialog_info", "remove2",
             "rename2", "button_ok", "button_cancel", "lock", "lock2", "lockoverlay", "Brightloom",
             "pclink", "pda", "document", "image", "empty" })
        QTest::newRow(name) << QString::fromLatin1(name);
    // The pictures a card may choose, by number.
    for (int i = 0; i < 40; ++i)
        QTest::addRow("icons/%d", i) << QStringLiteral("icons/%1").arg(i);
}

void TestIconMap::namesTheProgramRelyOn()
{
    QFETCH(QString, name);
    QVERIFY2(m_names.contains(name), qPrintable(name));
    QVERIFY(!loadPixmap(name).isNull());
}

QTEST_MAIN(TestIconMap)
#include "testiconmap.moc"
