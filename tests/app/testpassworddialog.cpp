#include "app/passworddialog.h"
#include "app/resourceicons.h"
#include "modaldriver.h"
#include "store/dbmanager.h"
#include "store/dbrecord.h"
#include "support/testhome.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

class TestPasswordDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void maskSwitchesEcho();
    void getPassword_data();
    void getPassword();
    void verifyPassword_data();
    void verifyPassword();
};

void TestPasswordDialog::initTestCase()
{
    qApp->setObjectName(QStringLiteral("norvika"));
    ResourceIcons::reset();
}

void TestPasswordDialog::maskSwitchesEcho()
{
    PasswordDialog dialog(true);
    auto *p2 = dialog.findChild<QLineEdit *>("p2");
    QCOMPARE(p2->echoMode(), QLineEdit::Password);
    dialog.findChild<QPushButton *>("btnMask")->click();
    QCOMPARE(dialog.findChild<QLineEdit *>("p1")->echoMode(), QLineEdit::Normal);
    QCOMPARE(p2->echoMode(), QLineEdit::Normal);
}

void TestPasswordDialog::getPassword_data()
{
    QTest::addColumn<bool>("confirm");
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QString>("result"); // "<null>" for the null string
    QTest::addColumn<QStringList>("seen");

    const QString ask = QStringLiteral("Enter password");
    const QString mismatch = QStringLiteral("Enter password ... | Passwords do not match.");
    QTest::newRow("typed") << false << QStringList { "p1=abc btnOk" } << "abc"
                           << QStringList { ask };
    QTest::newRow("return in the second field")
        << true << QStringList { "p1=x p2=x p2!" } << "x" << QStringList { ask };
    QTest::newRow("mismatch, then confirmed")
        << true << QStringList { "p1=x p2=y btnOk", "button1", "p1=Zö p2=Zö btnOk" } << "Zö"
        << QStringList { ask, mismatch, ask };
    QTest::newRow("mismatch, then cancelled")
        << true << QStringList { "p1=x p2=y btnOk", "button1", "btnCancel" } << "<null>"
        << QStringList { ask, mismatch, ask };
}

void TestPasswordDialog::getPassword()
{
    QFETCH(bool, confirm);
    QFETCH(QStringList, steps);
    QFETCH(QString, result);
    QFETCH(QStringList, seen);
    PasswordDialog dialog(confirm);
    // Each round starts with empty fields: a left-over text would be sent again.
    auto *p1 = dialog.findChild<QLineEdit *>("p1");
    p1->setText(QStringLiteral("left over"));
    ModalDriver driver(steps);
    const QString password = dialog.getPassword();
    QCOMPARE(driver.seen(), seen);
    QCOMPARE(driver.remaining(), 0);
    if (result == QLatin1String("<null>"))
        QVERIFY(password.isNull());
    else
        QCOMPARE(password, result);
}

void TestPasswordDialog::verifyPassword_data()
{
    QTest::addColumn<QString>("password");
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<bool>("result");
    QTest::addColumn<QStringList>("seen");

    const QString ask = QStringLiteral("Enter password");
    const QString denied = QStringLiteral("Invalid password ... | Access denied.");
    QTest::newRow("unlocked") << "" << QStringList {} << true << QStringList {};
    QTest::newRow("right") << "Ключ" << QStringList { "p1=Ключ btnOk" } << true
                           << QStringList { ask };
    QTest::newRow("wrong") << "key" << QStringList { "p1=Key btnOk", "button1" } << false
                           << QStringList { ask, denied };
}

void TestPasswordDialog::verifyPassword()
{
    QFETCH(QString, password);
    QFETCH(QStringList, steps);
    QFETCH(QStringList, seen);
    TestHome home;
    DBManager list(false);
    DBRecord record(&list);
    record.setPassword(password);
    ModalDriver driver(steps);
    QTEST(PasswordDialog::verifyPassword(&record), "result");
    QCOMPARE(driver.seen(), seen);
    QCOMPARE(driver.remaining(), 0);
}

QTEST_MAIN(TestPasswordDialog)
#include "testpassworddialog.moc"
