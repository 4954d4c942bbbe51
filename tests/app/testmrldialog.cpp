#include "app/mrldialog.h"
#include "app/resourceicons.h"
#include "support/whenshown.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

namespace
{
// A call of MRLDialog by name: "question", "rename", or "askN" with N buttons, then " D E"
// when it gives its own default and escape button.
int runCall(const QString &call)
{
    if (call == QLatin1String("question"))
        return MRLDialog::question(QStringLiteral("Text"), QStringLiteral("Caption")) ? 1 : 0;
    if (call == QLatin1String("rename")) {
        QString result;
        return MRLDialog::rename(QStringLiteral("old"), result) ? 1 : 0;
    }
    const QString c = QStringLiteral("Caption");
    const QString t = QStringLiteral("Text");
    const QString w = QStringLiteral("dialog_warning");
    const QString ok = QStringLiteral("button_ok");
    const QString a = QStringLiteral("A"), b = QStringLiteral("B"), cc = QStringLiteral("C");
    const QStringList words = call.split(QLatin1Char(' '));
    const bool own = words.size() == 3;
    if (words[0] == QLatin1String("ask1"))
        return MRLDialog::ask(c, t, QStringLiteral("dialog_info"), a, ok);
    if (words[0] == QLatin1String("ask2"))
        return own ? MRLDialog::ask(c, t, w, a, ok, b, ok, words[1].toInt(), words[2].toInt())
                   : MRLDialog::ask(c, t, w, a, ok, b, ok);
    return own ? MRLDialog::ask(c, t, w, a, ok, b, ok, cc, ok, words[1].toInt(), words[2].toInt())
               : MRLDialog::ask(c, t, w, a, ok, b, ok, cc, ok);
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

    const auto row = [](const char *call, const char *answer, int expected) {
        QTest::newRow(qPrintable(QStringLiteral("%1, %2").arg(call, answer)))
            << QString::fromLatin1(call) << QString::fromLatin1(answer) << expected;
    };
    // Return in rename is renameReturnsTheEditedText's.
    row("question", "Return", 1);
    row("question", "Escape", 0);
    row("rename", "Escape", 0);
    row("ask1", "1", 1);
    row("ask1", "Escape", 1);
    row("ask2", "2", 2);
    row("ask2", "Escape", 2);
    row("ask2 2 0", "Return", 2);
    row("ask2 2 0", "Escape", 0);
    row("ask3", "3", 3);
    row("ask3", "Return", 1);
    row("ask3", "Escape", 3);
    row("ask3 3 2", "Return", 3);
    row("ask3 3 2", "Escape", 2);
}

void TestMRLDialog::results()
{
    QFETCH(QString, call);
    QFETCH(QString, answer);

    whenShown<QDialog>([answer](QDialog *box) {
        if (answer == QLatin1String("Return") || answer == QLatin1String("Escape")) {
            QTest::keyClick(box->focusWidget() ? box->focusWidget() : box,
                answer == QLatin1String("Return") ? Qt::Key_Return : Qt::Key_Escape);
        } else {
            auto *button = box->findChild<QPushButton *>(QStringLiteral("button") + answer);
            QVERIFY(button);
            QTest::mouseClick(button, Qt::LeftButton);
        }
    });
    QTEST(runCall(call), "expected");
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
