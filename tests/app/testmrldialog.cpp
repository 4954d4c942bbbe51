#include "app/mrldialog.h"
#include "app/resourceicons.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

#include <functional>

// The message boxes: which number each button gives, what Return and Escape choose, and
// what each box shows.
class TestMRLDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void results_data();
    void results();
    void layout_data();
    void layout();
    void renameReturnsTheEditedText();
    void renameCancelledKeepsTheResult();
    void questionCaptionDefaultsToDelete();

private:
    struct Seen {
        QString caption;
        QStringList buttons;
        bool hasIcon = false;
    };
    // Runs answer on the next modal box once it is on screen, noting what it showed.
    void whenShown(const std::function<void(QDialog *)> &answer);
    static int runCall(const QString &call);

    Seen m_seen;
};

void TestMRLDialog::initTestCase()
{
    qApp->setObjectName(QStringLiteral("norvika"));
    qunsetenv("NORVIKA_SHARE");
    ResourceIcons::reset();
}

void TestMRLDialog::whenShown(const std::function<void(QDialog *)> &answer)
{
    m_seen = Seen();
    auto *poll = new QTimer(this);
    poll->setInterval(10);
    auto tries = std::make_shared<int>(0);
    connect(poll, &QTimer::timeout, this, [this, poll, tries, answer] {
        auto *box = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (!box) {
            if (++*tries > 300) {
                poll->deleteLater();
                QFAIL("no box came up");
            }
            return;
        }
        poll->stop();
        poll->deleteLater();
        m_seen.caption = box->windowTitle();
        for (int i = 1; i <= 3; ++i) {
            if (auto *button = box->findChild<QPushButton *>(QStringLiteral("button%1").arg(i)))
                m_seen.buttons << button->text();
        }
        auto *icon = box->findChild<QLabel *>(QStringLiteral("icon"));
        m_seen.hasIcon = icon && !icon->pixmap().isNull();
        answer(box);
    });
    poll->start();
}

int TestMRLDialog::runCall(const QString &call)
{
    const QString c = QStringLiteral("Caption");
    const QString t = QStringLiteral("Text");
    if (call == QLatin1String("question"))
        return MRLDialog::question(t, c) ? 1 : 0;
    if (call == QLatin1String("critical")) {
        MRLDialog::critical(c, t);
        return -1;
    }
    if (call == QLatin1String("warning")) {
        MRLDialog::warning(c, t);
        return -1;
    }
    if (call == QLatin1String("information")) {
        MRLDialog::information(c, t);
        return -1;
    }
    if (call == QLatin1String("rename")) {
        QString result;
        return MRLDialog::rename(QStringLiteral("old"), result) ? 1 : 0;
    }
    const QString ok = QStringLiteral("button_ok");
    if (call == QLatin1String("ask1"))
        return MRLDialog::ask(c, t, QStringLiteral("dialog_info"), QStringLiteral("One"), ok);
    if (call == QLatin1String("ask2"))
        return MRLDialog::ask(c, t, QStringLiteral("dialog_warning"), QStringLiteral("Import"),
            QStringLiteral("import"), QStringLiteral("Edit"), QStringLiteral("edit"));
    if (call == QLatin1String("ask2 default 2 escape 0"))
        return MRLDialog::ask(c, t, QStringLiteral("dialog_warning"), QStringLiteral("A"), ok,
            QStringLiteral("B"), ok, 2, 0);
    if (call == QLatin1String("ask3"))
        return MRLDialog::ask(c, t, QStringLiteral("dialog_warning"), QStringLiteral("A"), ok,
            QStringLiteral("B"), ok, QStringLiteral("C"), ok);
    if (call == QLatin1String("ask3 default 3 escape 2"))
        return MRLDialog::ask(c, t, QStringLiteral("dialog_warning"), QStringLiteral("A"), ok,
            QStringLiteral("B"), ok, QStringLiteral("C"), ok, 3, 2);
    return -2;
}

void TestMRLDialog::results_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<QString>("answer"); // "1".."3" clicks that button, or a key
    QTest::addColumn<int>("expected"); // question and rename: 1 true, 0 false

    QTest::newRow("question Ok") << "question"
                                 << "1" << 1;
    QTest::newRow("question Cancel") << "question"
                                     << "2" << 0;
    QTest::newRow("question Return") << "question"
                                     << "Return" << 1;
    QTest::newRow("question Escape") << "question"
                                     << "Escape" << 0;
    QTest::newRow("rename Ok") << "rename"
                               << "1" << 1;
    QTest::newRow("rename Cancel") << "rename"
                                   << "2" << 0;
    QTest::newRow("rename Return") << "rename"
                                   << "Return" << 1;
    QTest::newRow("rename Escape") << "rename"
                                   << "Escape" << 0;
    QTest::newRow("ask1 button") << "ask1"
                                 << "1" << 1;
    QTest::newRow("ask1 Escape") << "ask1"
                                 << "Escape" << 1;
    QTest::newRow("ask2 first") << "ask2"
                                << "1" << 1;
    QTest::newRow("ask2 second") << "ask2"
                                 << "2" << 2;
    QTest::newRow("ask2 Return") << "ask2"
                                 << "Return" << 1;
    QTest::newRow("ask2 Escape") << "ask2"
                                 << "Escape" << 2;
    QTest::newRow("ask2 own Return") << "ask2 default 2 escape 0"
                                     << "Return" << 2;
    QTest::newRow("ask2 own Escape") << "ask2 default 2 escape 0"
                                     << "Escape" << 0;
    QTest::newRow("ask3 third") << "ask3"
                                << "3" << 3;
    QTest::newRow("ask3 second") << "ask3"
                                 << "2" << 2;
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

    whenShown([answer](QDialog *box) {
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

void TestMRLDialog::layout_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<QStringList>("buttons");

    QTest::newRow("question") << "question" << QStringList { "Ok", "Cancel" };
    QTest::newRow("critical") << "critical" << QStringList { "Ok" };
    QTest::newRow("warning") << "warning" << QStringList { "Ok" };
    QTest::newRow("information") << "information" << QStringList { "Ok" };
    QTest::newRow("ask1") << "ask1" << QStringList { "One" };
    QTest::newRow("ask2") << "ask2" << QStringList { "Import", "Edit" };
    QTest::newRow("ask3") << "ask3" << QStringList { "A", "B", "C" };
}

void TestMRLDialog::layout()
{
    QFETCH(QString, call);
    QFETCH(QStringList, buttons);

    whenShown([](QDialog *box) { QTest::keyClick(box, Qt::Key_Escape); });
    runCall(call);
    QCOMPARE(m_seen.caption, QStringLiteral("Caption ..."));
    QCOMPARE(m_seen.buttons, buttons);
    QVERIFY(m_seen.hasIcon);
}

void TestMRLDialog::renameReturnsTheEditedText()
{
    whenShown([](QDialog *box) {
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
    QCOMPARE(m_seen.caption, QStringLiteral("Rename ..."));
}

void TestMRLDialog::renameCancelledKeepsTheResult()
{
    whenShown([](QDialog *box) {
        auto *edit = box->findChild<QLineEdit *>(QStringLiteral("edit"));
        QVERIFY(edit);
        QTest::keyClicks(edit, QStringLiteral("other"));
        QTest::mouseClick(box->findChild<QPushButton *>(QStringLiteral("button2")), Qt::LeftButton);
    });
    QString result = QStringLiteral("unchanged");
    QVERIFY(!MRLDialog::rename(QStringLiteral("old"), result));
    QCOMPARE(result, QStringLiteral("unchanged"));
}

void TestMRLDialog::questionCaptionDefaultsToDelete()
{
    whenShown([](QDialog *box) { QTest::keyClick(box, Qt::Key_Escape); });
    MRLDialog::question(QStringLiteral("Are you sure?"));
    QCOMPARE(m_seen.caption, QStringLiteral("Delete ..."));
}

QTEST_MAIN(TestMRLDialog)
#include "testmrldialog.moc"
