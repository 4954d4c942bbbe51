#include "exchange/importcsvdialog.h"

#include "card/datamanager.h"
#include "card/datarecord.h"
#include "exchange/importcsvdialog2.h"
#include "exchange/importcsvdialog3.h"
#include "store/dbmanager.h"
#include "support/testhome.h"
#include "support/whenshown.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>
#include <QtTest>

// The text import wizard as a user goes through it: the three steps by their buttons and
// keys, the card it makes, and the ways out that make none.
class TestImportCSVDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void threeSteps();
    void waysOutMakeNoCard_data();
    void waysOutMakeNoCard();

private:
    static QString writeText(const TestHome &home, const QByteArray &bytes);
};

QString TestImportCSVDialog::writeText(const TestHome &home, const QByteArray &bytes)
{
    QFile file(home.file("people.csv"));
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
    return file.fileName();
}

namespace
{
// Answers a step once its pass over the file is done: a pass processes events, and an
// answer run from inside it would hold it up.
template <class T> void whenReady(const std::function<void(T *)> &answer)
{
    whenShown<T>(
        [answer](T *step) { QTimer::singleShot(200, step, [answer, step] { answer(step); }); });
}

// Step 1 as filled in for every case: comma delimited, first row of titles.
void fillStep1(ImportCSVDialog *step1)
{
    QVERIFY(QTest::qWaitFor(
        [step1] { return step1->findChild<QTreeWidget *>("list")->topLevelItemCount() > 0; }));
    step1->findChild<QComboBox *>("delimiter")->setCurrentIndex(3);
    auto *titles = step1->findChild<QCheckBox *>("fl1");
    QTest::mouseClick(titles, Qt::LeftButton, {}, QPoint(5, titles->height() / 2));
}

void waitForRows(ImportCSVDialog2 *step2)
{
    // Finish is enabled once the pass over the rows has counted the columns.
    QVERIFY(
        QTest::qWaitFor([step2] { return step2->findChild<QPushButton *>("btnOk")->isEnabled(); }));
}
} // namespace

void TestImportCSVDialog::threeSteps()
{
    TestHome home;
    const QString path = writeText(home, "Name,Count\r\nAnn,\"1,200\"\nBob,2,extra\n");
    DBManager list(false);
    list.load();
    whenReady<ImportCSVDialog>([](ImportCSVDialog *step1) {
        fillStep1(step1);
        whenReady<ImportCSVDialog2>([](ImportCSVDialog2 *step2) {
            waitForRows(step2);
            auto *header = step2->findChild<QTreeWidget *>("list")->header();
            QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                QPoint(header->sectionViewportPosition(1) + 5, header->height() / 2));
            auto *type = step2->findChild<QComboBox *>("type");
            type->setFocus();
            QTest::keyClick(type, Qt::Key_Down); // Integer
            QTest::mouseClick(step2->findChild<QPushButton *>("btnOk"), Qt::LeftButton);
        });
        QTest::mouseClick(step1->findChild<QPushButton *>("btnNext"), Qt::LeftButton);
    });
    int count = 0;
    QString cardPath;
    QVERIFY(ImportCSVDialog::importFile(&list, path, nullptr, nullptr, &count, &cardPath));
    QCOMPARE(count, 2);
    QCOMPARE(cardPath, QDir(home.documents()).filePath("people.card"));
    QVERIFY(list.findByPath(cardPath));

    DataManager card(cardPath);
    QVERIFY(card.load());
    QCOMPARE(card.description(), QStringLiteral("Text/CSV file imported Card [people.csv]"));
    QCOMPARE(card.fieldCount(), 3);
    QCOMPARE(card.field(1).title, QStringLiteral("Count"));
    QCOMPARE(card.field(1).type, int(FieldDef::Integer));
    QCOMPARE(card.field(2).title, QStringLiteral("Field 3"));
    const auto *ann = static_cast<const DataRecord *>(card.records().at(0));
    QCOMPARE(ann->stringValue(0), QStringLiteral("Ann"));
    QCOMPARE(ann->intValue(1), 0); // "1,200" without a thousands separator fails to convert
    const auto *bob = static_cast<const DataRecord *>(card.records().at(1));
    QCOMPARE(bob->intValue(1), 2);
    QCOMPARE(bob->stringValue(2), QStringLiteral("extra"));
}

void TestImportCSVDialog::waysOutMakeNoCard_data()
{
    QTest::addColumn<QString>("way");
    QTest::newRow("Cancel in step 1") << "cancel1";
    QTest::newRow("Escape in step 1") << "escape1";
    QTest::newRow("Cancel in step 2") << "cancel2";
    QTest::newRow("Back, then Cancel in step 1") << "back";
}

void TestImportCSVDialog::waysOutMakeNoCard()
{
    QFETCH(QString, way);

    TestHome home;
    const QString path = writeText(home, "a,b\nc,d\n");
    DBManager list(false);
    list.load();
    whenReady<ImportCSVDialog>([way](ImportCSVDialog *step1) {
        fillStep1(step1);
        if (way == "cancel1")
            return QTest::mouseClick(step1->findChild<QPushButton *>("btnCancel"), Qt::LeftButton);
        if (way == "escape1")
            return QTest::keyClick(step1, Qt::Key_Escape);
        whenReady<ImportCSVDialog2>([way, step1](ImportCSVDialog2 *step2) {
            waitForRows(step2);
            if (way == "cancel2")
                return QTest::mouseClick(
                    step2->findChild<QPushButton *>("btnCancel"), Qt::LeftButton);
            QTest::mouseClick(step2->findChild<QPushButton *>("btnBack"), Qt::LeftButton);
            QTimer::singleShot(50, step1, [step1] {
                QTest::mouseClick(step1->findChild<QPushButton *>("btnCancel"), Qt::LeftButton);
            });
        });
        QTest::mouseClick(step1->findChild<QPushButton *>("btnNext"), Qt::LeftButton);
    });
    int count = 0;
    QString cardPath;
    QVERIFY(!ImportCSVDialog::importFile(&list, path, nullptr, nullptr, &count, &cardPath));
    QCOMPARE(count, 0);
    QCOMPARE(QDir(home.documents()).entryList({ "*.card*" }), QStringList());
    QCOMPARE(list.count(), 0);
}

QTEST_MAIN(TestImportCSVDialog)
#include "testimportcsvdialog.moc"
