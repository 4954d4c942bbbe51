#include "card/passwordmask.h"

#include <QTest>

class TestPasswordMask : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void knownForms_data();
    void knownForms();
    void roundTrip_data();
    void roundTrip();
    void damagedTextIsAbsorbed_data();
    void damagedTextIsAbsorbed();
};

// Worked out by hand from the masking rule; a change here breaks every locked card.
void TestPasswordMask::knownForms_data()
{
    QTest::addColumn<QString>("password");
    QTest::addColumn<QString>("masked");
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("one letter") << QStringLiteral("A") << QStringLiteral("frs2cg");
    QTest::newRow("two letters") << QStringLiteral("ab") << QStringLiteral("frs2bkg3ti4wz");
    QTest::newRow("negative number")
        << QStringLiteral("Zz9") << QStringLiteral("frs2d7h-1kyb6ogk322ql");
    QTest::newRow("cyrillic") << QStringLiteral("ключ")
                              << QStringLiteral("frs1i3h-hfvlj3g5jrh3kg6anazn");
}

void TestPasswordMask::knownForms()
{
    QFETCH(QString, password);
    QFETCH(QString, masked);
    QCOMPARE(PasswordMask::scramble(password), masked);
    QCOMPARE(PasswordMask::unscramble(masked), password);
}

void TestPasswordMask::roundTrip_data()
{
    QTest::addColumn<QString>("password");
    QTest::newRow("latin") << QStringLiteral("secret");
    QTest::newRow("digits and signs") << QStringLiteral("p@ss w0rd!;=|");
    QTest::newRow("accented") << QStringLiteral("Ærøskøbing");
    QTest::newRow("greek") << QStringLiteral("κωδικός");
    QTest::newRow("cjk") << QStringLiteral("密码鍵");
    QTest::newRow("surrogate pairs") << QStringLiteral("🔑🗝x");
    QTest::newRow("control and max unit") << QString(QStringLiteral("\x01\n")) + QChar(0xFFFF);
    QTest::newRow("long") << QStringLiteral("abcdefghij").repeated(20);
}

void TestPasswordMask::roundTrip()
{
    QFETCH(QString, password);
    const QString masked = PasswordMask::scramble(password);
    QVERIFY(!masked.contains(password.left(3)));
    QCOMPARE(PasswordMask::unscramble(masked), password);
}

void TestPasswordMask::damagedTextIsAbsorbed_data()
{
    QTest::addColumn<QString>("masked");
    QTest::addColumn<QString>("readable");
    QTest::newRow("length past the end") << QStringLiteral("frs2cgz") << QStringLiteral("A");
    QTest::newRow("zero length") << QStringLiteral("frs2cga") << QStringLiteral("A");
    QTest::newRow("letter below a") << QStringLiteral("frs2cg!") << QStringLiteral("A");
    QTest::newRow("no base-36 number") << QStringLiteral("frs2cgc$$") << QStringLiteral("A");
    QTest::newRow("garbage") << QStringLiteral("\u4e00\u4e00") << QString();
}

void TestPasswordMask::damagedTextIsAbsorbed()
{
    QFETCH(QString, masked);
    QFETCH(QString, readable);
    QCOMPARE(PasswordMask::unscramble(masked), readable);
}

QTEST_GUILESS_MAIN(TestPasswordMask)
#include "testpasswordmask.moc"
