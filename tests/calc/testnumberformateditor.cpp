#include "calc/numberformateditor.h"

#include "calc/numberformat.h"
#include "platform/config.h"
#include "store/mrlpim.h"
#include "support/testhome.h"

#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

// What the number format editor adds to the shared format editor: the example number and
// the list it starts from; and, for every format editor, the list kept however it closes.
class TestNumberFormatEditor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qputenv("NORVIKA_SHARE", QFile::encodeName(m_share.path())); }
    void previewAndExample_data();
    void previewAndExample();
    void listFromSystemDefaultsKept_data();
    void listFromSystemDefaultsKept();

private:
    QTemporaryDir m_share;
};

void TestNumberFormatEditor::previewAndExample_data()
{
    QTest::addColumn<QString>("number");
    QTest::addColumn<QString>("code");
    const auto row = [](const char *name, const char *number, const char *code) {
        QTest::newRow(name) << QString(number) << QString(code);
    };
    row("grouped", "1234.5678", "#,##0.00");
    row("sign", "-3.5", "+0.0");
    row("junk example reads 0", "abc", "0.00");
    row("odd code", "12", "]]]...%%%###");
    row("huge", "1e308", "#,##0");
}

void TestNumberFormatEditor::previewAndExample()
{
    QFETCH(QString, number);
    QFETCH(QString, code);
    TestHome home;
    NumberFormatEditor editor(QString(), "Price");
    QCOMPARE(editor.windowTitle(), QStringLiteral("Number Format Editor [Price]"));
    auto *example = editor.findChild<QLineEdit *>("number");
    editor.show();
    QTest::keyClicks(editor.findChild<QLineEdit *>("edit"), code);
    example->selectAll();
    QTest::keyClicks(example, number);
    QCOMPARE(editor.findChild<QLabel *>("example")->text(), formatNumber(number.toDouble(), code));
    Config config(qApp->objectName());
    config.setGroup("Options");
    QCOMPARE(config.readEntry("numberformat"), number);
}

void TestNumberFormatEditor::listFromSystemDefaultsKept_data()
{
    QTest::addColumn<QString>("way");
    QTest::newRow("ok") << "btnOk";
    QTest::newRow("cancel") << "btnCancel";
    QTest::newRow("escape") << "";
}

void TestNumberFormatEditor::listFromSystemDefaultsKept()
{
    TestHome home;
    QDir().mkpath(m_share.filePath("etc/norvika"));
    QFile system(m_share.filePath("etc/norvika/numberformat"));
    QVERIFY(system.open(QIODevice::WriteOnly));
    system.write("0.0\n#,##0");
    system.close();

    NumberFormatEditor editor("#,##0", "x");
    editor.show();
    QCOMPARE(editor.findChild<QListWidget *>("list")->currentRow(), 1);
    QTest::keyClicks(editor.findChild<QLineEdit *>("edit"), ".00");
    QTest::mouseClick(editor.findChild<QPushButton *>("btnAdd"), Qt::LeftButton);
    QFETCH(QString, way);
    if (way.isEmpty())
        QTest::keyClick(&editor, Qt::Key_Escape);
    else
        QTest::mouseClick(editor.findChild<QPushButton *>(way), Qt::LeftButton);
    QVERIFY(!editor.isVisible());
    QCOMPARE(MRLPIM::loadDataList("numberformat"), QStringList({ "0.0", "#,##0", "#,##0.00" }));
}

QTEST_MAIN(TestNumberFormatEditor)
#include "testnumberformateditor.moc"
