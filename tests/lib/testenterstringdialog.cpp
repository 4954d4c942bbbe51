#include "lib/qt/enterstringdialog.h"

#include "support/whenshown.h"

#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

// The one-line text dialog: the text comes back only on Ok.
class TestEnterStringDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void getText_data();
    void getText();
};

void TestEnterStringDialog::getText_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("accepted");
    QTest::addColumn<QString>("result");

    QTest::newRow("ok") << "btnOk" << true << "Oslo";
    QTest::newRow("cancel") << "btnCancel" << false << "Bergen";
}

void TestEnterStringDialog::getText()
{
    QFETCH(QString, button);

    QString before;
    whenShown<EnterStringDialog>([&](EnterStringDialog *dialog) {
        auto *edit = dialog->findChild<QLineEdit *>(QStringLiteral("text"));
        before = edit->text();
        edit->setText(QStringLiteral("Oslo"));
        dialog->findChild<QPushButton *>(button)->click();
    });
    QString text = QStringLiteral("Bergen");
    QTEST(EnterStringDialog::getText(QStringLiteral("City"), text), "accepted");
    QCOMPARE(before, QStringLiteral("Bergen"));
    QTEST(text, "result");
}

QTEST_MAIN(TestEnterStringDialog)
#include "testenterstringdialog.moc"
