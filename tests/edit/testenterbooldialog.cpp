#include "edit/enterbooldialog.h"

#include "support/whenshown.h"

#include <QPushButton>
#include <QRadioButton>
#include <QtTest>

// The yes-or-no entry: the choice when accepted, the value it came with otherwise.
class TestEnterBoolDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void result_data();
    void result();
};

void TestEnterBoolDialog::result_data()
{
    QTest::addColumn<bool>("value");
    QTest::addColumn<QString>("radio");
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("result");

    QTest::newRow("check, ok") << false << "checked"
                               << "btnOk" << true;
    QTest::newRow("unchanged, ok") << true << ""
                                   << "btnOk" << true;
    QTest::newRow("uncheck, cancel") << true << "unchecked"
                                     << "btnCancel" << true;
}

void TestEnterBoolDialog::result()
{
    QFETCH(bool, value);
    QFETCH(QString, radio);
    QFETCH(QString, button);
    QFETCH(bool, result);

    EnterBoolDialog dialog(QStringLiteral("Paid"));
    bool shownChecked = !value;
    whenShown<EnterBoolDialog>([&](EnterBoolDialog *shown) {
        shownChecked = shown->findChild<QRadioButton *>(QStringLiteral("checked"))->isChecked();
        if (!radio.isEmpty())
            shown->findChild<QRadioButton *>(radio)->click();
        shown->findChild<QPushButton *>(button)->click();
    });
    QCOMPARE(dialog.exec(value), result);
    QCOMPARE(shownChecked, value);
}

QTEST_MAIN(TestEnterBoolDialog)
#include "testenterbooldialog.moc"
