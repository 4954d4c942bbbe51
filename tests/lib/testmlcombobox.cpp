#include "lib/qt/mlcombobox.h"

#include <QLineEdit>
#include <QtTest>

// The combo box: choosing an entry by its text, editable or not.
class TestMLComboBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void setCurrentItemText_data();
    void setCurrentItemText();
    void typingAddsNoEntry();
};

void TestMLComboBox::setCurrentItemText_data()
{
    QTest::addColumn<bool>("editable");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("found");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("shown");

    QTest::newRow("entry, editable") << true << "Blue" << true << 1 << "Blue";
    QTest::newRow("case matters") << false << "blue" << false << 0 << "Red";
    QTest::newRow("unknown, fixed") << false << "Pink" << false << 0 << "Red";
    QTest::newRow("unknown, editable") << true << "Pink" << false << 0 << "Pink";
}

void TestMLComboBox::setCurrentItemText()
{
    QFETCH(bool, editable);
    QFETCH(QString, text);

    MLComboBox box(editable);
    for (const char *colour : { "Red", "Blue", "Green" })
        box.addIconItem(QStringLiteral("color"), QString::fromLatin1(colour));
    QTEST(box.setCurrentItemText(text), "found");
    QTEST(box.currentIndex(), "index");
    QTEST(box.currentText(), "shown");
    QCOMPARE(box.count(), 3);
}

void TestMLComboBox::typingAddsNoEntry()
{
    MLComboBox box(true);
    box.addIconItem(QStringLiteral("color"), QStringLiteral("Red"));
    box.show();
    box.lineEdit()->clear();
    QTest::keyClicks(box.lineEdit(), QStringLiteral("Teal"));
    QTest::keyClick(box.lineEdit(), Qt::Key_Return);
    QCOMPARE(box.count(), 1);
    QCOMPARE(box.currentText(), QStringLiteral("Teal"));
}

QTEST_MAIN(TestMLComboBox)
#include "testmlcombobox.moc"
