#include "edit/countenterdialog.h"
#include "edit/countenterpopup.h"

#include "support/whenshown.h"

#include <QPushButton>
#include <QSpinBox>
#include <QtTest>

// The count entry, as a dialog and as a pop-up: what each button gives, and its range.
class TestCountEnter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void answers_data();
    void answers();

private:
    // Answers the window: "" leaves it by Escape, "type:N" types N and takes it with "Ok",
    // any other text is the name of the button to press.
    static void answer(QWidget *window, const QString &action);
};

void TestCountEnter::answer(QWidget *window, const QString &action)
{
    auto *spin = window->findChild<QSpinBox *>(QStringLiteral("spin"));
    if (action.isEmpty()) {
        QTest::keyClick(spin, Qt::Key_Escape);
    } else if (action.startsWith(QLatin1String("type:"))) {
        spin->selectAll();
        QTest::keyClicks(spin, action.mid(5));
        window->findChild<QPushButton *>(QStringLiteral("btnOk"))->click();
    } else {
        window->findChild<QPushButton *>(action)->click();
    }
}

void TestCountEnter::answers_data()
{
    QTest::addColumn<bool>("popup");
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("action");
    QTest::addColumn<int>("result");

    for (const bool popup : { false, true }) {
        const char *form = popup ? "popup" : "dialog";
        QTest::addRow("%s: 3", form) << popup << 7 << "btn3" << 3;
        QTest::addRow("%s: typed and ok", form) << popup << 7 << "type:42" << 42;
        QTest::addRow("%s: escape keeps the value", form) << popup << 7 << "" << 7;
    }
    // The range starts at one.
    QTest::newRow("zero") << false << 0 << "btnOk" << 1;
    QTest::newRow("past the top") << false << 10000 << "btnOk" << 9999;
}

void TestCountEnter::answers()
{
    QFETCH(bool, popup);
    QFETCH(int, value);
    QFETCH(QString, action);

    if (popup) {
        CountEnterPopup window;
        whenShown<CountEnterPopup>([action](CountEnterPopup *shown) { answer(shown, action); });
        QTEST(window.exec(QPoint(20, 30), value, QStringLiteral("pcs")), "result");
    } else {
        CountEnterDialog dialog(QStringLiteral("Count"));
        whenShown<CountEnterDialog>([action](CountEnterDialog *shown) { answer(shown, action); });
        QTEST(dialog.exec(value, QStringLiteral("pcs")), "result");
    }
}

QTEST_MAIN(TestCountEnter)
#include "testcountenter.moc"
