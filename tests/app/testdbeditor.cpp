#include "app/dbeditor.h"
#include "app/resourceicons.h"
#include "card/datamanager.h"
#include "modaldriver.h"
#include "platform/config.h"
#include "store/dbmanager.h"
#include "store/dbrecord.h"
#include "support/testhome.h"

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>

class TestDBEditor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void titleChecks_data();
    void titleChecks();
    void applyCopiesValues_data();
    void applyCopiesValues();
    void lock_data();
    void lock();
};

namespace
{
QString makeCard(const QString &path)
{
    DataManager card(path);
    card.forceSave();
    return path;
}

QString defaultPathSetting()
{
    Config config(QStringLiteral("norvika"));
    config.setGroup(QStringLiteral("CardOptions"));
    return config.readEntry(QStringLiteral("defaultPath"));
}

// A listed card "Old" in the documents folder, described and locked.
struct Listed {
    Listed()
        : list(false)
    {
        list.load();
        record = new DBRecord(&list);
        record->setTitle(QStringLiteral("Old"));
        record->setDescription(QStringLiteral("two\nlines"));
        record->setIcon(QStringLiteral("7"));
        record->setPassword(QStringLiteral("pw"));
        record->setPath(home.documents() + QStringLiteral("/Old.card"));
        list.createCard(record);
    }

    TestHome home;
    DBManager list;
    DBRecord *record;
};
} // namespace

void TestDBEditor::initTestCase()
{
    qApp->setObjectName(QStringLiteral("norvika"));
    ResourceIcons::reset();
}

void TestDBEditor::titleChecks_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("folder"); // relative to the documents folder
    QTest::addColumn<QString>("refusal"); // empty when the dialog accepts

    QTest::newRow("new name") << "New" << QString() << QString();
    QTest::newRow("empty") << QString() << QString() << "Card Title cannot be empty.";
    QTest::newRow("another card's name") << "Other" << QString() << "Card already exists.";
    QTest::newRow("same title, other folder") << "Old" << QStringLiteral("sub") << QString();
}

void TestDBEditor::titleChecks()
{
    QFETCH(QString, title);
    QFETCH(QString, folder);
    QFETCH(QString, refusal);
    Listed listed;
    const QString docs = listed.home.documents();
    QDir().mkpath(docs + QStringLiteral("/sub"));
    makeCard(docs + QStringLiteral("/Other.card"));
    makeCard(docs + QStringLiteral("/sub/Old.card"));
    makeCard(docs + QStringLiteral("/sub/Other.card"));

    const QString edit = QStringLiteral("title=%1 path=%2/%3 btnOk").arg(title, docs, folder);
    QStringList steps { edit };
    QStringList seen { QStringLiteral("Card's Details") };
    if (!refusal.isEmpty()) {
        steps << QStringLiteral("button1") << QStringLiteral("btnCancel");
        seen << QStringLiteral("Invalid Card Title ... | ") + refusal
             << QStringLiteral("Card's Details");
    }
    DBEditor editor(&listed.list);
    ModalDriver driver(steps);
    const int result = editor.prepare(listed.record);
    QCOMPARE(driver.seen(), seen);
    QCOMPARE(result, int(refusal.isEmpty() ? QDialog::Accepted : QDialog::Rejected));
}

void TestDBEditor::applyCopiesValues_data()
{
    QTest::addColumn<bool>("listed");
    QTest::newRow("new card") << false;
    QTest::newRow("listed card") << true;
}

void TestDBEditor::applyCopiesValues()
{
    QFETCH(bool, listed);
    Listed cards;
    const QString docs = cards.home.documents();
    QDir().mkpath(docs + QStringLiteral("/sub"));
    DBRecord fresh(&cards.list);
    DBRecord *record = listed ? cards.record : &fresh;

    DBEditor editor(&cards.list);
    QString nextFolder;
    ModalDriver driver(QList<ModalDriver::Step> {
        [&](QWidget *dialog) {
            ModalDriver::type(dialog, "title", QStringLiteral("Renamed"));
            ModalDriver::type(dialog, "path", docs + QStringLiteral("/sub/"));
            dialog->findChild<QPlainTextEdit *>("memo")->setPlainText(QStringLiteral("new text"));
            ModalDriver::click(dialog, "btnOk");
        },
        [&](QWidget *dialog) {
            nextFolder = dialog->findChild<QLineEdit *>("path")->text();
            ModalDriver::click(dialog, "btnCancel");
        } });
    QCOMPARE(editor.prepare(record), int(QDialog::Accepted));
    editor.apply(record);
    QCOMPARE(record->title(), QStringLiteral("Renamed"));
    QCOMPARE(record->path(), docs + QStringLiteral("/sub/Renamed.card"));
    QCOMPARE(record->description(), QStringLiteral("new text"));
    QCOMPARE(record->icon(), listed ? QStringLiteral("7") : QStringLiteral("12"));
    // Only a new card's folder becomes the default, where the next new card starts.
    QCOMPARE(defaultPathSetting(), listed ? QString() : docs + QStringLiteral("/sub"));
    if (!listed) {
        DBRecord next(&cards.list);
        DBEditor(&cards.list).prepare(&next);
        QCOMPARE(nextFolder, docs + QStringLiteral("/sub"));
    }
}

void TestDBEditor::lock_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QString>("after");

    QTest::newRow("untouched") << "pw" << QStringList { "btnOk" } << "pw";
    QTest::newRow("new password") << "pw" << QStringList { "lock btnOk", "p1=Neu p2=Neu btnOk" }
                                  << "Neu";
    QTest::newRow("mismatch asks again")
        << "" << QStringList { "lock btnOk", "p1=a p2=b btnOk", "button1", "p1=c p2=c btnOk" }
        << "c";
}

void TestDBEditor::lock()
{
    QFETCH(QString, before);
    QFETCH(QStringList, steps);
    Listed listed;
    listed.record->setPassword(before);
    DBEditor editor(&listed.list);
    ModalDriver driver(steps);
    QCOMPARE(editor.prepare(listed.record), int(QDialog::Accepted));
    QCOMPARE(driver.remaining(), 0);
    editor.apply(listed.record);
    QTEST(listed.record->password(), "after");
}

QTEST_MAIN(TestDBEditor)
#include "testdbeditor.moc"
