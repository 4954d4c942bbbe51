#include "lib/qt/mlcalculatordialog.h"

#include "support/whenshown.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

// The calculator dialog on a line edit: its buttons, its keys and what goes back.
class TestMLCalculatorDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void buttons_data();
    void buttons();
    void errorCannotBeTaken();
    void keyboard_data();
    void keyboard();

private:
    static void click(QDialog *dialog, const QString &name);
};

void TestMLCalculatorDialog::click(QDialog *dialog, const QString &name)
{
    auto *button = dialog->findChild<QPushButton *>(name);
    QVERIFY2(button, qPrintable(name));
    button->click();
}

void TestMLCalculatorDialog::buttons_data()
{
    QTest::addColumn<QString>("clicks");
    QTest::addColumn<bool>("accepted");
    QTest::addColumn<QString>("written"); // the line edit afterwards; it starts as "12"

    QTest::newRow("worked out and taken")
        << "btnMul btn3 btnSub btn1 btnEquals btnOk" << true << "35";
    QTest::newRow("Ok works out the pending sum") << "btnAdd btnPoint btn5 btnOk" << true << "12.5";
    QTest::newRow("Cancel leaves the line edit") << "btn9 btnCancel" << false << "12";
}

void TestMLCalculatorDialog::buttons()
{
    QFETCH(QString, clicks);
    QLineEdit edit(QStringLiteral("12"));
    QString startShown;
    whenShown<MLCalculatorDialog>([&](MLCalculatorDialog *dialog) {
        startShown = dialog->findChild<QLabel *>(QStringLiteral("display"))->text();
        for (const QString &name : clicks.split(QLatin1Char(' ')))
            click(dialog, name);
    });
    QTEST(MLCalculatorDialog::calculate(&edit), "accepted");
    QCOMPARE(startShown, QStringLiteral("12"));
    QTEST(edit.text(), "written");
}

void TestMLCalculatorDialog::errorCannotBeTaken()
{
    MLCalculatorDialog dialog(QStringLiteral("4"));
    dialog.show();
    for (const QChar key : QStringLiteral("/0"))
        dialog.press(key);
    QTest::keyClick(&dialog, Qt::Key_Return);
    QVERIFY(dialog.isVisible());
    QVERIFY(!dialog.findChild<QPushButton *>(QStringLiteral("btnOk"))->isEnabled());
    dialog.press(QLatin1Char('C'));
    QVERIFY(dialog.findChild<QPushButton *>(QStringLiteral("btnOk"))->isEnabled());
}

void TestMLCalculatorDialog::keyboard_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("display");
    QTest::addColumn<bool>("accepted");

    QTest::newRow("comma is a point") << "1,5"
                                      << "1.5" << false;
    QTest::newRow("return works it out") << "7*6\r"
                                         << "42" << false;
    QTest::newRow("second return takes it") << "7*6\r\r"
                                            << "42" << true;
}

void TestMLCalculatorDialog::keyboard()
{
    QFETCH(QString, typed);
    QFETCH(QString, display);

    MLCalculatorDialog dialog(QString {});
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    for (const QChar c : typed) {
        if (c == QLatin1Char('\r'))
            QTest::keyClick(&dialog, Qt::Key_Return);
        else if (c == QLatin1Char('\b'))
            QTest::keyClick(&dialog, Qt::Key_Backspace);
        else
            QTest::keyClicks(&dialog, QString(c));
    }
    QCOMPARE(dialog.findChild<QLabel *>(QStringLiteral("display"))->text(), display);
    QTEST(dialog.result() == QDialog::Accepted, "accepted");
}

QTEST_MAIN(TestMLCalculatorDialog)
#include "testmlcalculatordialog.moc"
