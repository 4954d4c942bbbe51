#include "edit/textcodecselector.h"

#include <QTextCodec>
#include <QtTest>

// The codec selector: "Plain Text" first, then the toolkit's codecs, each entry the codec
// that its index names.
class TestTextCodecSelector : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void entriesMatchTheIndexes();
    void codecsAreDistinctAndInNameOrder();
    void setCodecName_data();
    void setCodecName();
};

void TestTextCodecSelector::entriesMatchTheIndexes()
{
    TextCodecSelector selector;
    QCOMPARE(selector.count(), TextCodecSelector::codecs().size() + 1);
    for (int i = 1; i < selector.count(); ++i)
        QCOMPARE(
            selector.itemText(i), QString::fromLatin1(TextCodecSelector::codecForIndex(i)->name()));
    QCOMPARE(selector.codec(), nullptr);
    QCOMPARE(selector.codecName(), QStringLiteral("Plain Text"));
}

void TestTextCodecSelector::codecsAreDistinctAndInNameOrder()
{
    const QList<QTextCodec *> codecs = TextCodecSelector::codecs();
    QStringList names;
    for (QTextCodec *codec : codecs)
        names << QString::fromLatin1(codec->name());
    QStringList sorted = names;
    std::sort(sorted.begin(), sorted.end(),
        [](const QString &a, const QString &b) { return a.compare(b, Qt::CaseInsensitive) < 0; });
    QCOMPARE(names, sorted);
    QCOMPARE(QSet<QTextCodec *>(codecs.begin(), codecs.end()).size(), codecs.size());
}

void TestTextCodecSelector::setCodecName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("found");
    QTest::addColumn<QString>("chosen");

    QTest::newRow("alias") << "latin1" << true << "ISO-8859-1";
    QTest::newRow("plain text") << "Plain Text" << true << "Plain Text";
    QTest::newRow("unknown") << "no-such-codec" << false << "UTF-8";
}

void TestTextCodecSelector::setCodecName()
{
    QFETCH(QString, name);
    QFETCH(bool, found);
    QFETCH(QString, chosen);

    TextCodecSelector selector;
    QVERIFY(selector.setCodecName(QStringLiteral("UTF-8")));
    QCOMPARE(selector.setCodecName(name), found);
    QCOMPARE(selector.codecName(), chosen);
    QCOMPARE(selector.codec(), TextCodecSelector::codecForIndex(selector.currentIndex()));
}

QTEST_MAIN(TestTextCodecSelector)
#include "testtextcodecselector.moc"
