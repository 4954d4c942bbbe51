#include "card/passwordmask.h"

#include <QTest>

class TestPasswordMask : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void masking_data();
    void masking();
    void damagedTextIsAbsorbed_data();
    void damagedTextIsAbsorbed();
};

// Masked: worked out by hand from the masking rule, as a change there breaks every locked
// card; null where only the round trip is checked.
void TestPasswordMask::masking_data()
{
    QTest::addColumn<QString>("password");
    QTest::addColumn<QString>("masked");
    const QString any;
    QTest::newRow("empty") << QString() << QStringLiteral("");
    QTest::newRow("one letter") << QStringLiteral("A") << QStringLiteral("frs2cg");
    QTest::newRow("two letters") << QStringLiteral("ab") << QStringLiteral("frs2bkg3ti4wz");
    QTest::newRow("negative number")
        << QStringLiteral("Zz9") << QStringLiteral("frs2d7h-1kyb6ogk322ql");
    QTest::newRow("cyrillic") << QStringLiteral("ключ")
                              << QStringLiteral("frs1i3h-hfvlj3g5jrh3kg6anazn");
    QTest::newRow("latin") << QStringLiteral("secret") << any;
    QTest::newRow("digits and signs") << QStringLiteral("p@ss w0rd!;=|") << any;
    QTest::newRow("accented") << QStringLiteral("Ærøskøbing") << any;
    QTest::newRow("greek") << QStringLiteral("κωδικός") << any;
    QTest::newRow("cjk") << QStringLiteral("密码鍵") << any;
    QTest::newRow("surrogate pairs") << QStringLiteral("🔑🗝x") << any;
    QTest::newRow("control and max unit")
        << QString(QStringLiteral("\x01\n")) + QChar(0xFFFF) << any;
    QTest::newRow("long") << QStringLiteral("abcdefghij").repeated(20) << any;
}

void TestPasswordMask::masking()
{
    QFETCH(QString, password);
    QFETCH(QString, masked);
    const QString scrambled = PasswordMask::scramble(password);
    if (!masked.isNull())
        QCOMPARE(scrambled, masked);
    if (!password.isEmpty())
        QVERIFY(!scrambled.contains(password.left(3)));
    QCOMPARE(PasswordMask::unscramble(scrambled), password);
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
    QTEST(PasswordMask::unscramble(masked), "readable");
}

QTEST_GUILESS_MAIN(TestPasswordMask)
#include "testpasswordmask.moc"
