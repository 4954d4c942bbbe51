#include "app/dbdialog.h"
#include "app/resourceicons.h"
#include "card/datamanager.h"
#include "modaldriver.h"
#include "store/dbmanager.h"
#include "store/dbrecord.h"
#include "support/testhome.h"

#include <QApplication>
#include <QFile>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

// The card chooser: what its buttons allow for the current entry and what it gives back.
class TestDBDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void enablingFollowsAvailability_data();
    void enablingFollowsAvailability();
    void nothingSelected();
    void selectMode();
    void keys_data();
    void keys();
    void arrowsMoveAndOpenFollows();
};

namespace
{
// Cards "Here" (described) and "Gone" (its file removed after listing) in the documents.
struct Listed {
    Listed()
        : list(false)
    {
        list.load();
        for (const QString &title : { QStringLiteral("Here"), QStringLiteral("Gone") }) {
            DataManager card(path(title));
            card.setDescription(title + QStringLiteral(" notes"));
            card.forceSave();
            list.addCard(path(title));
        }
        QFile::remove(path(QStringLiteral("Gone")));
    }
    QString path(const QString &title) const
    {
        return home.documents() + QLatin1Char('/') + title + QStringLiteral(".card");
    }

    TestHome home;
    DBManager list;
};

bool enabled(const QDialog &dialog, const char *name)
{
    return dialog.findChild<QPushButton *>(QString::fromLatin1(name))->isEnabled();
}

QList<QAction *> menuItems(const QDialog &dialog, const char *menu)
{
    QList<QAction *> items;
    for (QAction *item : dialog.findChild<QMenu *>(QString::fromLatin1(menu))->actions()) {
        if (!item->isSeparator())
            items << item;
    }
    return items;
}
} // namespace

void TestDBDialog::initTestCase()
{
    qApp->setObjectName(QStringLiteral("norvika"));
    ResourceIcons::reset();
}

void TestDBDialog::enablingFollowsAvailability_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<bool>("available");

    QTest::newRow("available") << "Here" << true;
    QTest::newRow("file removed") << "Gone" << false;
}

void TestDBDialog::enablingFollowsAvailability()
{
    QFETCH(QString, title);
    QFETCH(bool, available);
    Listed listed;
    DBDialog dialog(&listed.list, listed.path(title));
    DBRecord *entry = listed.list.findByPath(listed.path(title));
    QCOMPARE(listed.list.isAvailable(entry), available);
    QCOMPARE(enabled(dialog, "btnEdit"), available);
    QCOMPARE(enabled(dialog, "btnDup"), available);
    QCOMPARE(enabled(dialog, "btnSelect"), available);
    QCOMPARE(menuItems(dialog, "removeMenu").at(1)->isEnabled(), available);
    QVERIFY(enabled(dialog, "btnRemove"));
    // The description as last read from the card file, which is kept while the file is away.
    QCOMPARE(dialog.findChild<QPlainTextEdit *>("memo")->toPlainText(),
        title + QStringLiteral(" notes"));
    QCOMPARE(dialog.selectedPath().isNull(), !available);
}

void TestDBDialog::nothingSelected()
{
    TestHome home;
    DBManager list(false);
    list.load();
    DBDialog dialog(&list, QString());
    for (const char *name : { "btnRemove", "btnEdit", "btnDup", "btnSelect" })
        QVERIFY2(!enabled(dialog, name), name);
    QVERIFY(enabled(dialog, "btnNew"));
    QVERIFY(dialog.selectedPath().isNull());
}

void TestDBDialog::selectMode()
{
    Listed listed;
    DBDialog dialog(&listed.list, listed.path(QStringLiteral("Here")));
    dialog.selectMode(listed.path(QStringLiteral("Here")));
    QVERIFY(!enabled(dialog, "btnSelect"));
    QVERIFY(dialog.selectedPath().isNull());
}

void TestDBDialog::keys_data()
{
    QTest::addColumn<QString>("input"); // "Open", "Return", "double click", "Delete"
    QTest::addColumn<int>("answer"); // to the question: -1 none, 0 no, 1 yes
    QTest::addColumn<int>("result"); // -1: the chooser stays
    QTest::addColumn<int>("listed");

    QTest::newRow("Open takes the first available card") << "Open" << -1 << 1 << 2;
    QTest::newRow("Return opens it") << "Return" << -1 << 1 << 2;
    QTest::newRow("a double click opens it") << "double click" << -1 << 1 << 2;
    QTest::newRow("Delete, yes: out of the list") << "Delete" << 1 << -1 << 1;
    QTest::newRow("Delete, no: kept") << "Delete" << 0 << -1 << 2;
}

void TestDBDialog::keys()
{
    QFETCH(QString, input);
    QFETCH(int, answer);
    QFETCH(int, result);
    Listed cards;
    DBDialog dialog(&cards.list, QString());
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    auto *list = dialog.findChild<QTreeWidget *>(QStringLiteral("db"));
    QCOMPARE(dialog.selectedPath(), cards.path(QStringLiteral("Here")));
    ModalDriver driver(answer < 0 ? QStringList() : QStringList { answer ? "button1" : "button2" });
    if (input == "Open") {
        QTest::mouseClick(dialog.findChild<QPushButton *>("btnSelect"), Qt::LeftButton);
    } else if (input == "Return") {
        QTest::keyClick(list, Qt::Key_Return);
    } else if (input == "Delete") {
        QTest::keyClick(list, Qt::Key_Delete);
    } else {
        const QPoint cell = list->visualItemRect(list->currentItem()).center();
        // What a window system sends: a click, then the second press as a double click.
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, cell);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, cell);
    }
    QCOMPARE(driver.remaining(), 0);
    QCOMPARE(dialog.isVisible() ? -1 : dialog.result(), result);
    QTEST(int(cards.list.count()), "listed");
    if (result == QDialog::Accepted)
        QCOMPARE(dialog.selectedPath(), cards.path(QStringLiteral("Here")));
}

// Up and Down move the current row; "Open" follows the card under it.
void TestDBDialog::arrowsMoveAndOpenFollows()
{
    Listed cards;
    DBDialog dialog(&cards.list, QString());
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    auto *list = dialog.findChild<QTreeWidget *>(QStringLiteral("db"));
    QTest::keyClick(list, Qt::Key_Home);
    const QTreeWidgetItem *first = list->currentItem();
    const bool firstOpens = enabled(dialog, "btnSelect");
    QCOMPARE(firstOpens, !dialog.selectedPath().isNull());
    QTest::keyClick(list, Qt::Key_Down);
    QVERIFY(list->currentItem() != first);
    // One card of the two is gone: the other opens.
    QCOMPARE(enabled(dialog, "btnSelect"), !firstOpens);
    QCOMPARE(enabled(dialog, "btnSelect"), !dialog.selectedPath().isNull());
}

QTEST_MAIN(TestDBDialog)
#include "testdbdialog.moc"
