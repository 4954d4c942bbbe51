#include "lib/qt/passwordhash.h"

#include <QRegularExpression>
#include <QTest>

class TestPasswordHash : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void roundTrip_data();
    void roundTrip();
    void formAndFreshSalt();
    void foreignHashMatchesNothing_data();
    void foreignHashMatchesNothing();
};

void TestPasswordHash::roundTrip_data()
{
    QTest::addColumn<QString>("password");
    QTest::addColumn<QString>("wrong");

    QTest::newRow("latin") << "secret"
                           << "Secret";
    QTest::newRow("empty") << ""
                           << " ";
    QTest::newRow("non-latin") << "пароль密码"
                               << "пароль";
}

void TestPasswordHash::roundTrip()
{
    QFETCH(QString, password);
    QFETCH(QString, wrong);
    const QString hash = PasswordHash::hashPassword(password);
    QVERIFY(!hash.isNull());
    QVERIFY(PasswordHash::checkPassword(password, hash));
    QVERIFY(!PasswordHash::checkPassword(wrong, hash));
}

// MD5 crypt, with a new salt for each hash of the same password.
void TestPasswordHash::formAndFreshSalt()
{
    static const QRegularExpression md5Crypt(
        QStringLiteral("^\\$1\\$[a-z]{8}\\$[./0-9A-Za-z]{22}$"));
    const QString first = PasswordHash::hashPassword(QStringLiteral("same"));
    const QString second = PasswordHash::hashPassword(QStringLiteral("same"));
    QVERIFY2(md5Crypt.match(first).hasMatch(), qPrintable(first));
    QVERIFY2(md5Crypt.match(second).hasMatch(), qPrintable(second));
    QVERIFY(first.left(11) != second.left(11));
}

void TestPasswordHash::foreignHashMatchesNothing_data()
{
    QTest::addColumn<QString>("hash");
    QTest::newRow("empty") << "";
    QTest::newRow("sha512 marker") << "$6$abcdefgh$xyz";
    QTest::newRow("cut md5") << "$1$abcdefgh$";
}

void TestPasswordHash::foreignHashMatchesNothing()
{
    QFETCH(QString, hash);
    QVERIFY(!PasswordHash::checkPassword(QStringLiteral("secret"), hash));
    QVERIFY(!PasswordHash::checkPassword(QString(), hash));
}

QTEST_GUILESS_MAIN(TestPasswordHash)
#include "testpasswordhash.moc"
