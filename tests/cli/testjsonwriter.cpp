#include "cli/jsonwriter.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

#include <limits>

class TestJsonWriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numbers_data();
    void numbers();
    void strings_data();
    void strings();
};

void TestJsonWriter::numbers_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("integer") << 3.0 << "3";
    QTest::newRow("third reads back") << 1.0 / 3.0 << "0.3333333333333333";
    QTest::newRow("negative zero") << -0.0 << "-0";
    QTest::newRow("nan") << std::numeric_limits<double>::quiet_NaN() << "nan";
    QTest::newRow("inf") << std::numeric_limits<double>::infinity() << "inf";
}

void TestJsonWriter::numbers()
{
    QFETCH(double, value);
    QFETCH(QString, text);
    QCOMPARE(JsonWriter::numberText(value), text);
    if (std::isfinite(value))
        QCOMPARE(text.toDouble(), value);
}

void TestJsonWriter::strings_data()
{
    QTest::addColumn<QString>("value");
    QTest::newRow("quotes and backslash") << QStringLiteral("a\"b\\c");
    QTest::newRow("control characters") << QStringLiteral("tab\there\nline\x01");
    QTest::newRow("non-Latin and a surrogate pair") << QStringLiteral("Ærø ключ 鍵 😀");
}

void TestJsonWriter::strings()
{
    QFETCH(QString, value);
    JsonWriter w;
    w.beginArray();
    w.value(value);
    w.endArray();
    const QJsonArray a = QJsonDocument::fromJson(w.result()).array();
    QCOMPARE(a.size(), 1);
    QCOMPARE(a.at(0).toString(), value);
}

QTEST_GUILESS_MAIN(TestJsonWriter)
#include "testjsonwriter.moc"
