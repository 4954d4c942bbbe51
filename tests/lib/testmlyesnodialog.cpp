#include "lib/qt/mlyesnodialog.h"

#include "app/mrldialog.h"
#include "support/whenshown.h"

#include <QPushButton>
#include <QtTest>

// The yes-or-no question: what each answer, Escape included, gives.
class TestMLYesNoDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void answers_data();
    void answers();
};

void TestMLYesNoDialog::answers_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("yes");

    QTest::newRow("yes") << "button1" << true;
    QTest::newRow("no") << "button2" << false;
    QTest::newRow("escape") << "" << false;
}

void TestMLYesNoDialog::answers()
{
    QFETCH(QString, answer);

    whenShown<MRLDialog>([answer](MRLDialog *box) {
        if (answer.isEmpty())
            QTest::keyClick(box, Qt::Key_Escape);
        else
            box->findChild<QPushButton *>(answer)->click();
    });
    QTEST(MLYesNoDialog::ask(QStringLiteral("Delete"), QStringLiteral("Sure?")), "yes");
}

QTEST_MAIN(TestMLYesNoDialog)
#include "testmlyesnodialog.moc"
