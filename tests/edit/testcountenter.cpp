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
    void dialog_data();
    void dialog();
    void popup_data();
    void popup();
    void rangeStartsAtOne_data();
    void rangeStartsAtOne();

private:
    // Answers the window: "" leaves it by Escape, "type:N" types N and takes it with "Ok",
    // any other text is the name of the button to press.
    static void answer(QWidget *window, const QString &action);
    static void addRows();
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

void TestCountEnter::addRows()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<int>("result");

    QTest::newRow("3") << "btn3" << 3;
    QTest::newRow("typed and ok") << "type:42" << 42;
    QTest::newRow("escape keeps the value") << "" << 7;
}

void TestCountEnter::dialog_data()
{
    addRows();
}

void TestCountEnter::dialog()
{
    QFETCH(QString, action);
    QFETCH(int, result);

    CountEnterDialog dialog(QStringLiteral("Count"));
    whenShown<CountEnterDialog>([action](CountEnterDialog *shown) { answer(shown, action); });
    QCOMPARE(dialog.exec(7, QStringLiteral("pcs")), result);
}

void TestCountEnter::popup_data()
{
    addRows();
}

void TestCountEnter::popup()
{
    QFETCH(QString, action);
    QFETCH(int, result);

    CountEnterPopup popup;
    whenShown<CountEnterPopup>([action](CountEnterPopup *shown) { answer(shown, action); });
    QCOMPARE(popup.exec(QPoint(20, 30), 7, QStringLiteral("pcs")), result);
}

void TestCountEnter::rangeStartsAtOne_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("result");

    QTest::newRow("zero") << 0 << 1;
    QTest::newRow("past the top") << 10000 << 9999;
}

void TestCountEnter::rangeStartsAtOne()
{
    QFETCH(int, value);
    QFETCH(int, result);

    CountEnterDialog dialog(QStringLiteral("Count"));
    whenShown<CountEnterDialog>([](CountEnterDialog *shown) {
        shown->findChild<QPushButton *>(QStringLiteral("btnOk"))->click();
    });
    QCOMPARE(dialog.exec(value, QString()), result);
}

QTEST_MAIN(TestCountEnter)
#include "testcountenter.moc"
