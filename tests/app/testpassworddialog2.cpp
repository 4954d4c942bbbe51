#include "app/passworddialog2.h"
#include "app/resourceicons.h"
#include "modaldriver.h"
#include "store/dbmanager.h"
#include "store/dbrecord.h"
#include "support/testhome.h"

#include <QApplication>
#include <QTest>

class TestPasswordDialog2 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void authorize_data();
    void authorize();
};

namespace
{
// Three available cards: "Locked" (password "one"), "Open" (none), "Other" (password "two"),
// and an unavailable "Away" with no password.
struct Cards {
    Cards()
        : list(false)
    {
        add("Locked", "one", true);
        add("Open", "", true);
        add("Other", "two", true);
        add("Away", "", false);
    }
    void add(const char *title, const char *password, bool available)
    {
        auto *record = new DBRecord(&list);
        record->setTitle(QString::fromUtf8(title));
        record->setPassword(QString::fromUtf8(password));
        record->setPath(QStringLiteral("/nowhere/%1.card").arg(record->title()));
        list.add(record);
        list.setAvailable(record, available);
    }
    DBRecord *byTitle(const QString &title) const { return list.findByTitle(title); }

    TestHome home;
    DBManager list;
};
} // namespace

void TestPasswordDialog2::initTestCase()
{
    qApp->setObjectName(QStringLiteral("norvika"));
    ResourceIcons::reset();
}

void TestPasswordDialog2::authorize_data()
{
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QString>("result"); // title, or empty for null
    QTest::addColumn<bool>("cancelled");

    QTest::newRow("unlocked, no question") << "Open" << QStringList {} << "Open" << false;
    QTest::newRow("right") << "Locked" << QStringList { "p1=one btnOk" } << "Locked" << false;
    QTest::newRow("wrong") << "Locked" << QStringList { "p1=two btnOk" } << "" << false;
    QTest::newRow("back to the chooser")
        << "Locked" << QStringList { "p1=one btnCards" } << "" << true;
    QTest::newRow("switch to a locked card")
        << "Locked" << QStringList { "p1=one cards#2 p1=two btnOk" } << "Other" << false;
    QTest::newRow("switch, first card's password")
        << "Locked" << QStringList { "cards#2 p1=one btnOk" } << "" << false;
}

void TestPasswordDialog2::authorize()
{
    QFETCH(QString, asked);
    QFETCH(QStringList, steps);
    QFETCH(bool, cancelled);
    Cards cards;
    bool wasCancelled = !cancelled;
    ModalDriver driver(steps);
    const DBRecord *chosen
        = PasswordDialog2::authorize(&cards.list, cards.byTitle(asked), wasCancelled);
    QCOMPARE(driver.remaining(), 0);
    QCOMPARE(driver.seen().size(), steps.size());
    QTEST(chosen ? chosen->title() : QString(), "result");
    QCOMPARE(wasCancelled, cancelled);
}

QTEST_MAIN(TestPasswordDialog2)
#include "testpassworddialog2.moc"
