#include "app/mrldialog.h"
#include "exchange/importcsvdialog.h"
#include "exchange/importcsvdialog2.h"
#include "exchange/importdialog.h"
#include "platform/config.h"
#include "store/dbmanager.h"
#include "support/testhome.h"
#include "support/whenshown.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTest>

// The import dialog as a user drives it: the source decides which files show and which
// choices are open, Import asks Continue or Close, a refused file leaves the list alone.
class TestImportDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sourceDecidesFiles_data();
    void sourceDecidesFiles();
    void continueThenClose();
    void refusedFileShowsMessage();
    void textFileRunsWizard();
    void optionsKept();
};

namespace
{
void copySamples(const TestHome &home, const QStringList &names)
{
    for (const QString &name : names)
        QFile::copy(
            TestHome::dataFile(QStringLiteral("palm/") + name), home.documents() + u'/' + name);
}

void answerNext(const char *button)
{
    whenShown<MRLDialog>([button](MRLDialog *box) {
        QTest::mouseClick(
            box->findChild<QPushButton *>(QString::fromLatin1(button)), Qt::LeftButton);
    });
}

int listed()
{
    DBManager list(false);
    list.load();
    return int(list.records().size());
}
} // namespace

void TestImportDialog::sourceDecidesFiles_data()
{
    QTest::addColumn<int>("downs");
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<bool>("jfileChoices");
    QTest::newRow("MobileDB") << 0 << QStringList { "mobiledb-good.pdb" } << false;
    // Type "JfD5" with creator "JFi4" does not show.
    QTest::newRow("JFile") << 1 << QStringList { "jfile-good.pdb" } << true;
    QTest::newRow("Text/CSV") << 2 << QStringList() << false;
}

void TestImportDialog::sourceDecidesFiles()
{
    QFETCH(int, downs);
    TestHome home;
    copySamples(home, { "mobiledb-good.pdb", "jfile-good.pdb", "jfile-other-creator.pdb" });
    DBManager list(false);
    ImportDialog dialog(&list);
    dialog.show();
    auto *sources = dialog.findChild<QComboBox *>(QStringLiteral("sources"));
    sources->setFocus();
    for (int i = 0; i < downs; ++i)
        QTest::keyClick(sources, Qt::Key_Down);
    QStringList names;
    for (const QString &path : dialog.listedPaths())
        names.append(QFileInfo(path).fileName());
    QTEST(names, "files");
    QTEST(dialog.findChild<QComboBox *>(QStringLiteral("dateFormat"))->isEnabled(), "jfileChoices");
    QTEST(dialog.findChild<QComboBox *>(QStringLiteral("calcFields"))->isEnabled(), "jfileChoices");
    QCOMPARE(dialog.findChild<QPushButton *>(QStringLiteral("btnImport"))->isEnabled(),
        !names.isEmpty());
}

void TestImportDialog::continueThenClose()
{
    TestHome home;
    copySamples(home, { "mobiledb-good.pdb" });
    DBManager list(false);
    ImportDialog dialog(&list);
    dialog.show();
    auto *import = dialog.findChild<QPushButton *>(QStringLiteral("btnImport"));
    answerNext("button1");
    QTest::mouseClick(import, Qt::LeftButton);
    QVERIFY(dialog.isVisible());
    QCOMPARE(dialog.importedPath(), home.documents() + QStringLiteral("/Garden.card"));
    answerNext("button2");
    QTest::mouseClick(import, Qt::LeftButton);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
    QCOMPARE(dialog.importedPath(), home.documents() + QStringLiteral("/Garden_Copy_1.card"));
    QCOMPARE(listed(), 2);
}

void TestImportDialog::refusedFileShowsMessage()
{
    TestHome home;
    copySamples(home, { "jfile-51-fields.pdb" });
    DBManager list(false);
    ImportDialog dialog(&list, home.documents() + QStringLiteral("/jfile-51-fields.pdb"));
    dialog.show();
    auto message = std::make_shared<QString>();
    whenShown<MRLDialog>([message](MRLDialog *box) {
        *message = box->findChild<QLabel *>(QStringLiteral("text"))->text();
        QTest::keyClick(box, Qt::Key_Return);
    });
    QTest::keyClick(&dialog, Qt::Key_Return);
    QCOMPARE(*message, QStringLiteral("Import failed.\nWrong JFile 5.x file format."));
    QVERIFY(dialog.isVisible());
    QCOMPARE(listed(), 0);
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QVERIFY(!dialog.isVisible());
}

// The wizard's steps are pressed through with their defaults (tab delimited), then the
// common question closes the dialog.
void TestImportDialog::textFileRunsWizard()
{
    TestHome home;
    QFile text(home.documents() + QStringLiteral("/people.csv"));
    QVERIFY(text.open(QIODevice::WriteOnly));
    text.write("Ann\t1\nBob\t2\n");
    text.close();
    DBManager list(false);
    ImportDialog dialog(&list, text.fileName());
    dialog.show();
    whenShown<ImportCSVDialog>([](ImportCSVDialog *step1) {
        QTimer::singleShot(200, step1, [step1] {
            whenShown<ImportCSVDialog2>([](ImportCSVDialog2 *step2) {
                // Answered once its pass over the rows is done, not from inside it.
                QTimer::singleShot(200, step2, [step2] {
                    auto *finish = step2->findChild<QPushButton *>(QStringLiteral("btnOk"));
                    QVERIFY(QTest::qWaitFor([finish] { return finish->isEnabled(); }));
                    answerNext("button2");
                    QTest::mouseClick(finish, Qt::LeftButton);
                });
            });
            QTest::mouseClick(
                step1->findChild<QPushButton *>(QStringLiteral("btnNext")), Qt::LeftButton);
        });
    });
    QTest::mouseClick(dialog.findChild<QPushButton *>(QStringLiteral("btnImport")), Qt::LeftButton);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.importedPath(), home.documents() + QStringLiteral("/people.card"));
    QCOMPARE(listed(), 1);
}

void TestImportDialog::optionsKept()
{
    TestHome home;
    DBManager list(false);
    {
        ImportDialog dialog(&list);
        dialog.show();
        auto *sources = dialog.findChild<QComboBox *>(QStringLiteral("sources"));
        sources->setFocus();
        QTest::keyClick(sources, Qt::Key_Down);
        auto *calc = dialog.findChild<QComboBox *>(QStringLiteral("calcFields"));
        calc->setFocus();
        QTest::keyClick(calc, Qt::Key_Down);
        dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Close)->click();
    }
    Config config(QStringLiteral("norvika"));
    config.setGroup(QStringLiteral("ImportOptions"));
    QCOMPARE(config.readNumEntry(QStringLiteral("sources"), 0), 1);
    QCOMPARE(config.readNumEntry(QStringLiteral("calcFields"), 0), 1);
    ImportDialog again(&list);
    QVERIFY(again.findChild<QComboBox *>(QStringLiteral("dateFormat"))->isEnabled());
}

QTEST_MAIN(TestImportDialog)
#include "testimportdialog.moc"
