#include "edit/customlistdialog.h"

#include "support/whenshown.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QtTest>

// The list editor: its captions, which buttons it enables, how it sorts, moves and removes,
// and the ticks of its choice form.
class TestCustomListDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void captions_data();
    void captions();
    void enabling_data();
    void enabling();
    void sort_data();
    void sort();
    void sortKeepsTheOrderOfTies();
    void newItemStaysEmpty();
    void newItemOfChoiceFormIsUnticked();
    void typingChangesTheCurrentItem();
    void remove_data();
    void remove();
    void upAndDown();
    void clickTogglesTheTick();
    void choicesStartTicked();
    void cancelStillHandsBackTheItems();

private:
    static QTreeWidget *list(const CustomListDialog &dialog);
    static bool enabled(const CustomListDialog &dialog, const char *name);
    static void setCurrent(CustomListDialog &dialog, int index);
    static QStringList ticks(const CustomListDialog &dialog);
};

QTreeWidget *TestCustomListDialog::list(const CustomListDialog &dialog)
{
    return dialog.findChild<QTreeWidget *>(QStringLiteral("list"));
}

bool TestCustomListDialog::enabled(const CustomListDialog &dialog, const char *name)
{
    const auto *widget = dialog.findChild<QWidget *>(QString::fromLatin1(name));
    return widget && widget->isEnabled();
}

void TestCustomListDialog::setCurrent(CustomListDialog &dialog, int index)
{
    QTreeWidget *tree = list(dialog);
    tree->setCurrentItem(index < 0 ? nullptr : tree->topLevelItem(index));
}

QStringList TestCustomListDialog::ticks(const CustomListDialog &dialog)
{
    QStringList marks;
    const QTreeWidget *tree = list(dialog);
    for (int i = 0; i < tree->topLevelItemCount(); ++i)
        marks << tree->topLevelItem(i)->text(1);
    return marks;
}

void TestCustomListDialog::captions_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("label");

    QTest::newRow("both parts") << "Colour|Colours"
                                << "Edit Colour"
                                << "Colours: ";
    QTest::newRow("field title twice") << "Town|Town"
                                       << "Edit Town"
                                       << "Town: ";
    QTest::newRow("no bar") << "Town"
                            << "Edit Town"
                            << "Town: ";
}

void TestCustomListDialog::captions()
{
    QFETCH(QString, title);
    QFETCH(QString, caption);
    QFETCH(QString, label);

    CustomListDialog dialog(QStringList(), title, QStringLiteral("document"));
    QCOMPARE(dialog.windowTitle(), caption);
    QCOMPARE(dialog.findChild<QLabel *>(QStringLiteral("caption"))->text(), label);
    QCOMPARE(
        dialog.findChild<QPushButton *>(QStringLiteral("btnSort"))->text(), QStringLiteral("Sort"));
    QCOMPARE(
        dialog.findChild<QLabel *>(QStringLiteral("textLabel"))->text(), QStringLiteral("Text:"));
}

void TestCustomListDialog::enabling_data()
{
    QTest::addColumn<int>("current");
    QTest::addColumn<bool>("up");
    QTest::addColumn<bool>("down");
    QTest::addColumn<bool>("others");

    QTest::newRow("none") << -1 << false << false << false;
    QTest::newRow("first") << 0 << false << true << true;
    QTest::newRow("middle") << 1 << true << true << true;
    QTest::newRow("last") << 2 << true << false << true;
}

void TestCustomListDialog::enabling()
{
    QFETCH(int, current);
    QFETCH(bool, up);
    QFETCH(bool, down);
    QFETCH(bool, others);

    CustomListDialog dialog({ QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c") },
        QStringLiteral("T|T"), QStringLiteral("document"));
    setCurrent(dialog, 1);
    setCurrent(dialog, current);
    QCOMPARE(enabled(dialog, "btnUp"), up);
    QCOMPARE(enabled(dialog, "btnDown"), down);
    QCOMPARE(enabled(dialog, "btnRemove"), others);
    QCOMPARE(enabled(dialog, "btnSort"), others);
    QCOMPARE(enabled(dialog, "text"), others);
    QCOMPARE(enabled(dialog, "btnNew"), true);
}

void TestCustomListDialog::sort_data()
{
    QTest::addColumn<QStringList>("items");
    QTest::addColumn<QStringList>("sorted");

    QTest::newRow("words") << QStringList { "pear", "banana", "apple" }
                           << QStringList { "apple", "banana", "pear" };
    QTest::newRow("capitals first")
        << QStringList { "apple", "Apple", "banana" } << QStringList { "Apple", "apple", "banana" };
    QTest::newRow("empty item first")
        << QStringList { "b", "", "a" } << QStringList { "", "a", "b" };
    QTest::newRow("digits as text")
        << QStringList { "10", "9", "100" } << QStringList { "10", "100", "9" };
}

void TestCustomListDialog::sort()
{
    QFETCH(QStringList, items);
    QFETCH(QStringList, sorted);

    CustomListDialog dialog(items, QStringLiteral("T|T"), QStringLiteral("document"));
    setCurrent(dialog, 0);
    const QString current = dialog.currentText();
    dialog.sort();
    QCOMPARE(dialog.items(), sorted);
    QCOMPARE(dialog.currentText(), current);
    // The buttons follow the current item to its new place.
    const int place = int(sorted.indexOf(current));
    QCOMPARE(enabled(dialog, "btnUp"), place > 0);
    QCOMPARE(enabled(dialog, "btnDown"), place < sorted.size() - 1);
}

void TestCustomListDialog::sortKeepsTheOrderOfTies()
{
    CustomListDialog dialog({ QStringLiteral("b"), QStringLiteral("a"), QStringLiteral("a") },
        QStringLiteral("T|T"), QStringList { QStringLiteral("a") });
    QCOMPARE(ticks(dialog), (QStringList { "0", "1", "1" }));
    // Untick the second "a", so that the two can be told apart.
    QTreeWidgetItem *second = list(dialog)->topLevelItem(2);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QTest::mouseClick(list(dialog)->viewport(), Qt::LeftButton, {},
        list(dialog)->visualItemRect(second).center());
    QCOMPARE(ticks(dialog), (QStringList { "0", "1", "0" }));

    dialog.sort();
    QCOMPARE(dialog.items(), (QStringList { "a", "a", "b" }));
    QCOMPARE(ticks(dialog), (QStringList { "1", "0", "0" }));
    QCOMPARE(dialog.choices(), QStringList { "a" });
}

void TestCustomListDialog::newItemStaysEmpty()
{
    CustomListDialog dialog(
        { QStringLiteral("a") }, QStringLiteral("T|T"), QStringLiteral("document"));
    dialog.doNew();
    QCOMPARE(dialog.items(), (QStringList { "a", "" }));
    QVERIFY(dialog.currentText().isEmpty());
    QVERIFY(enabled(dialog, "btnUp"));
    QVERIFY(!enabled(dialog, "btnDown"));
    dialog.accept();
    QCOMPARE(dialog.items(), (QStringList { "a", "" }));
}

void TestCustomListDialog::newItemOfChoiceFormIsUnticked()
{
    CustomListDialog dialog({ QStringLiteral("a") }, QStringLiteral("T|T"), QStringList { "a" });
    dialog.doNew();
    QCOMPARE(ticks(dialog), (QStringList { "1", "0" }));
    QCOMPARE(dialog.choices(), QStringList { "a" });
}

void TestCustomListDialog::typingChangesTheCurrentItem()
{
    CustomListDialog dialog({ QStringLiteral("a"), QStringLiteral("b") }, QStringLiteral("T|T"),
        QStringLiteral("document"));
    setCurrent(dialog, 1);
    auto *text = dialog.findChild<QLineEdit *>(QStringLiteral("text"));
    QCOMPARE(text->text(), QStringLiteral("b"));
    QTest::keyClicks(text, QStringLiteral("ee"));
    QCOMPARE(dialog.items(), (QStringList { "a", "bee" }));
    setCurrent(dialog, 0);
    QCOMPARE(text->text(), QStringLiteral("a"));
    QCOMPARE(dialog.items(), (QStringList { "a", "bee" }));
}

void TestCustomListDialog::remove_data()
{
    QTest::addColumn<QStringList>("items");
    QTest::addColumn<int>("current");
    QTest::addColumn<QStringList>("left");
    QTest::addColumn<QString>("next");

    QTest::newRow("first") << QStringList { "a", "b", "c" } << 0 << QStringList { "b", "c" } << "b";
    QTest::newRow("middle") << QStringList { "a", "b", "c" } << 1 << QStringList { "a", "c" }
                            << "c";
    QTest::newRow("last") << QStringList { "a", "b", "c" } << 2 << QStringList { "a", "b" } << "b";
    QTest::newRow("only") << QStringList { "a" } << 0 << QStringList() << QString();
}

void TestCustomListDialog::remove()
{
    QFETCH(QStringList, items);
    QFETCH(int, current);
    QFETCH(QStringList, left);
    QFETCH(QString, next);

    CustomListDialog dialog(items, QStringLiteral("T|T"), QStringLiteral("document"));
    setCurrent(dialog, current);
    dialog.doRemove();
    QCOMPARE(dialog.items(), left);
    QCOMPARE(dialog.currentText(), next);
    QCOMPARE(dialog.currentText().isNull(), next.isNull());
    QCOMPARE(enabled(dialog, "btnRemove"), !next.isNull());
}

void TestCustomListDialog::upAndDown()
{
    CustomListDialog dialog({ QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c") },
        QStringLiteral("T|T"), QStringList { QStringLiteral("c") });
    setCurrent(dialog, 2);
    dialog.doUp();
    QCOMPARE(dialog.items(), (QStringList { "a", "c", "b" }));
    dialog.doUp();
    QCOMPARE(dialog.items(), (QStringList { "c", "a", "b" }));
    QVERIFY(!enabled(dialog, "btnUp"));
    dialog.doUp();
    QCOMPARE(dialog.items(), (QStringList { "c", "a", "b" }));
    dialog.doDown();
    QCOMPARE(dialog.items(), (QStringList { "a", "c", "b" }));
    QCOMPARE(dialog.currentText(), QStringLiteral("c"));
    // The tick travels with its item.
    QCOMPARE(ticks(dialog), (QStringList { "0", "1", "0" }));
}

void TestCustomListDialog::clickTogglesTheTick()
{
    CustomListDialog dialog(
        { QStringLiteral("a"), QStringLiteral("b") }, QStringLiteral("T|T"), QStringList());
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QTreeWidget *tree = list(dialog);
    const QPoint onB = tree->visualItemRect(tree->topLevelItem(1)).center();
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, onB);
    QCOMPARE(dialog.choices(), QStringList { "b" });
    QCOMPARE(dialog.currentText(), QStringLiteral("b"));
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, onB);
    QCOMPARE(dialog.choices(), QStringList());
}

void TestCustomListDialog::choicesStartTicked()
{
    CustomListDialog dialog({ QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c") },
        QStringLiteral("T|T"), QStringList { QStringLiteral("c"), QStringLiteral("a"), "x" });
    QCOMPARE(dialog.choices(), (QStringList { "a", "c" }));
    QCOMPARE(ticks(dialog), (QStringList { "1", "0", "1" }));
}

void TestCustomListDialog::cancelStillHandsBackTheItems()
{
    CustomListDialog dialog(
        { QStringLiteral("a") }, QStringLiteral("T|T"), QStringLiteral("document"));
    whenShown<CustomListDialog>([](CustomListDialog *shown) {
        shown->findChild<QPushButton *>(QStringLiteral("btnNew"))->click();
        QTest::keyClicks(
            shown->findChild<QLineEdit *>(QStringLiteral("text")), QStringLiteral("z"));
        shown->findChild<QPushButton *>(QStringLiteral("btnCancel"))->click();
    });
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
    QCOMPARE(dialog.items(), (QStringList { "a", "z" }));
    QCOMPARE(dialog.currentText(), QStringLiteral("z"));
}

QTEST_MAIN(TestCustomListDialog)
#include "testcustomlistdialog.moc"
