#include "app/mrldialog.h"
#include "app/resourceicons.h"
#include "support/whenshown.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

// The message boxes: which number each button gives, what Return and Escape choose, and
// what each box shows.
namespace
{
int runCall(const QString &call)
{
    const QString c = QStringLiteral("Caption");
    const QString t = QStringLiteral("Text");
    if (call == QLatin1String("question"))
        return MRLDialog::question(t, c) ? 1 : 0;
    if (call == QLatin1String("rename")) {
        QString result;
        return MRLDialog::rename(QStringLiteral("old"), result) ? 1 : 0;
    }
    const QString ok = QStringLiteral("button_ok");
    if (call == QLatin1String("ask1"))
        return MRLDialog::ask(c, t, QStringLiteral("dialog_info"), QStringLiteral("One"), ok);
    if (call == QLatin1String("ask2"))
        return MRLDialog::ask(c, t, QStringLiteral("dialog_warning"), QStringLiteral("A"), ok,
            QStringLiteral("B"), ok);
    if (call == QLatin1String("ask2 default 2 escape 0"))
        return MRLDialog::ask(c, t, QStringLiteral("dialog_warning"), QStringLiteral("A"), ok,
            QStringLiteral("B"), ok, 2, 0);
    if (call == QLatin1String("ask3"))
        return MRLDialog::ask(c, t, QStringLiteral("dialog_warning"), QStringLiteral("A"), ok,
            QStringLiteral("B"), ok, QStringLiteral("C"), ok);
    return MRLDialog::ask(c, t, QStringLiteral("dialog_warning"), QStringLiteral("A"), ok,
        QStringLiteral("B"), ok, QStringLiteral("C"), ok, 3, 2);
}
} // namespace

// The message boxes: which number each button gives and what Return and Escape choose.
class TestMRLDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void results_data();
    void results();
    void renameReturnsTheEditedText();
};

void TestMRLDialog::initTestCase()
{
    qApp->setObjectName(QStringLiteral("norvika"));
    qunsetenv("NORVIKA_SHARE");
    ResourceIcons::reset();
}

void TestMRLDialog::results_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<QString>("answer"); // "1".."3" clicks that button, or a key
    QTest::addColumn<int>("expected"); // question and rename: 1 true, 0 false

    QTest::newRow("question Return") << "question"
                                     << "Return" << 1;
    QTest::newRow("question Escape") << "question"
                                     << "Escape" << 0;
    QTest::newRow("rename Return") << "rename"
                                   << "Return" << 1;
    QTest::newRow("rename Escape") << "rename"
                                   << "Escape" << 0;
    QTest::newRow("ask1 button") << "ask1"
                                 << "1" << 1;
    QTest::newRow("ask1 Escape") << "ask1"
                                 << "Escape" << 1;
    QTest::newRow("ask2 second") << "ask2"
                                 << "2" << 2;
    QTest::newRow("ask2 Escape") << "ask2"
                                 << "Escape" << 2;
    QTest::newRow("ask2 own Return") << "ask2 default 2 escape 0"
                                     << "Return" << 2;
    QTest::newRow("ask2 own Escape") << "ask2 default 2 escape 0"
                                     << "Escape" << 0;
    QTest::newRow("ask3 third") << "ask3"
                                << "3" << 3;
    QTest::newRow("ask3 Return") << "ask3"
                                 << "Return" << 1;
    QTest::newRow("ask3 Escape") << "ask3"
                                 << "Escape" << 3;
    QTest::newRow("ask3 own Return") << "ask3 default 3 escape 2"
                                     << "Return" << 3;
    QTest::newRow("ask3 own Escape") << "ask3 default 3 escape 2"
                                     << "Escape" << 2;
}

void TestMRLDialog::results()
{
    QFETCH(QString, call);
    QFETCH(QString, answer);
    QFETCH(int, expected);

    whenShown<QDialog>([answer](QDialog *box) {
        if (answer == QLatin1String("Return")) {
            QTest::keyClick(box->focusWidget() ? box->focusWidget() : box, Qt::Key_Return);
        } else if (answer == QLatin1String("Escape")) {
            QTest::keyClick(box->focusWidget() ? box->focusWidget() : box, Qt::Key_Escape);
        } else {
            auto *button = box->findChild<QPushButton *>(QStringLiteral("button") + answer);
            QVERIFY(button);
            QTest::mouseClick(button, Qt::LeftButton);
        }
    });
    QCOMPARE(runCall(call), expected);
}

void TestMRLDialog::renameReturnsTheEditedText()
{
    whenShown<QDialog>([](QDialog *box) {
        auto *edit = box->findChild<QLineEdit *>(QStringLiteral("edit"));
        QVERIFY(edit);
        QCOMPARE(edit->text(), QStringLiteral("old"));
        QCOMPARE(edit->selectedText(), QStringLiteral("old"));
        QTest::keyClicks(edit, QStringLiteral("new name"));
        QTest::keyClick(edit, Qt::Key_Return);
    });
    QString result = QStringLiteral("unchanged");
    QVERIFY(MRLDialog::rename(QStringLiteral("old"), result));
    QCOMPARE(result, QStringLiteral("new name"));
}

QTEST_MAIN(TestMRLDialog)
#include "testmrldialog.moc"
