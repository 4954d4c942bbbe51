#include "edit/customlistdialog.h"

#include <QTreeWidget>
#include <QtTest>

// The list editor: which buttons it enables, how it sorts, moves and removes, and the ticks
// of its choice form.
class TestCustomListDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void enabling_data();
    void enabling();
    void sort_data();
    void sort();
    void remove_data();
    void remove();
    void upAndDownWithTicks();

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

void TestCustomListDialog::enabling_data()
{
    QTest::addColumn<int>("current");
    QTest::addColumn<bool>("up");
    QTest::addColumn<bool>("down");
    QTest::addColumn<bool>("others");

    QTest::newRow("none") << -1 << false << false << false;
    QTest::newRow("first") << 0 << false << true << true;
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

void TestCustomListDialog::remove_data()
{
    QTest::addColumn<QStringList>("items");
    QTest::addColumn<int>("current");
    QTest::addColumn<QStringList>("left");
    QTest::addColumn<QString>("next");

    QTest::newRow("first") << QStringList { "a", "b", "c" } << 0 << QStringList { "b", "c" } << "b";
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

// Ticked from the choices it is given, unknown ones dropped; the tick travels with its item.
void TestCustomListDialog::upAndDownWithTicks()
{
    CustomListDialog dialog({ QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c") },
        QStringLiteral("T|T"), QStringList { QStringLiteral("c"), QStringLiteral("a"), "x" });
    QCOMPARE(dialog.choices(), (QStringList { "a", "c" }));
    QCOMPARE(ticks(dialog), (QStringList { "1", "0", "1" }));
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
    QCOMPARE(ticks(dialog), (QStringList { "1", "1", "0" }));
}

QTEST_MAIN(TestCustomListDialog)
#include "testcustomlistdialog.moc"
