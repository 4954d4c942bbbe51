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
    void buttonsWriteTheResultBack();
    void cancelLeavesTheLineEdit();
    void okWorksOutThePendingSum();
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

void TestMLCalculatorDialog::buttonsWriteTheResultBack()
{
    QLineEdit edit(QStringLiteral("12"));
    whenShown<MLCalculatorDialog>([](MLCalculatorDialog *dialog) {
        QCOMPARE(
            dialog->findChild<QLabel *>(QStringLiteral("display"))->text(), QStringLiteral("12"));
        for (const char *name : { "btnMul", "btn3", "btnSub", "btn1", "btnEquals" })
            click(dialog, QString::fromLatin1(name));
        QCOMPARE(
            dialog->findChild<QLabel *>(QStringLiteral("display"))->text(), QStringLiteral("35"));
        click(dialog, QStringLiteral("btnOk"));
    });
    QVERIFY(MLCalculatorDialog::calculate(&edit));
    QCOMPARE(edit.text(), QStringLiteral("35"));
}

void TestMLCalculatorDialog::cancelLeavesTheLineEdit()
{
    QLineEdit edit(QStringLiteral("12"));
    whenShown<MLCalculatorDialog>([](MLCalculatorDialog *dialog) {
        click(dialog, QStringLiteral("btn9"));
        click(dialog, QStringLiteral("btnCancel"));
    });
    QVERIFY(!MLCalculatorDialog::calculate(&edit));
    QCOMPARE(edit.text(), QStringLiteral("12"));
}

void TestMLCalculatorDialog::okWorksOutThePendingSum()
{
    MLCalculatorDialog dialog(QStringLiteral("1.5"));
    dialog.press(QLatin1Char('+'));
    dialog.press(QLatin1Char('2'));
    dialog.show();
    QTest::mouseClick(dialog.findChild<QPushButton *>(QStringLiteral("btnOk")), Qt::LeftButton);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(dialog.text(), QStringLiteral("3.5"));
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
    QFETCH(bool, accepted);

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
    QCOMPARE(dialog.result() == QDialog::Accepted, accepted);
}

QTEST_MAIN(TestMLCalculatorDialog)
#include "testmlcalculatordialog.moc"
