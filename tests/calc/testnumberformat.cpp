#include "calc/numberformat.h"

#include <QTest>

#include <limits>

class TestNumberFormat : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void format_data();
    void format();
};

void TestNumberFormat::format_data()
{
    const double inf = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    QTest::addColumn<QString>("code");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("expected");

    QTest::newRow("empty code, six digits") << "" << 3.14159265 << "3.14159";
    QTest::newRow("empty code, large") << "" << 1234567.0 << "1.23457e+06";
    QTest::newRow("empty code, infinity") << "" << inf << "inf";
    QTest::newRow("prefix only") << "Sum: " << 2.5 << "Sum: 2.5";

    QTest::newRow("two decimals") << "0.00" << 3.14159 << "3.14";
    QTest::newRow("negative rounded to zero keeps its sign") << "0.00" << -0.001 << "-0.00";
    QTest::newRow("negative zero is not negative") << "0.0" << -0.0 << "0.0";
    QTest::newRow("zero padding") << "000" << 7.0 << "007";
    QTest::newRow("hash shows the zero digit") << "#" << 0.0 << "0";
    QTest::newRow("rounded to the pattern") << "#" << 2.4 << "2";
    QTest::newRow("wider than the pattern") << "00" << 12345.0 << "12345";

    QTest::newRow("thousands") << "#,###.00" << 1234567.5 << "1,234,567.50";
    QTest::newRow("thousands, negative") << "#,###" << -1234.0 << "-1,234";
    QTest::newRow("padding zeros are grouped") << "0,000" << 7.0 << "0,007";
    QTest::newRow("zero after hash is the separator") << "$#,##0" << 1234.0 << "$10234";
    QTest::newRow("any character separates") << "0x0" << 12345.0 << "12x345";

    QTest::newRow("plus sign, negative") << "+0" << -5.0 << "-5";
    QTest::newRow("minus sign, negative") << "-0" << -5.0 << "-5";
    QTest::newRow("minus sign with blanks, positive") << "-?" << 3.0 << " 3";
    QTest::newRow("minus sign with blanks, negative") << "-?" << -3.0 << "-3";
    QTest::newRow("last minus of the prefix") << "a-b-0" << 3.0 << "a-b3";
    QTest::newRow("plus in a prefix with text") << "x+ 0.0" << -1.5 << "x- 1.5";

    QTest::newRow("blanks line up signs") << "?.??" << 1.5 << " 1.5 ";
    QTest::newRow("blank width") << "???" << 7.0 << "   7";
    QTest::newRow("blank width with separator") << "?,???" << 5.0 << "     5";
    QTest::newRow("blank fraction, all zeros") << "0.??" << 3.0 << "3.  ";

    QTest::newRow("hash fraction drops zeros") << "#.##" << 1.5 << "1.5";
    QTest::newRow("point stays without digits") << "#.##" << 12.0 << "12.";
    QTest::newRow("point stays, rounded away") << "#.##" << 0.004 << "0.";
    QTest::newRow("zero fraction keeps zeros") << "0.0#" << 1.5 << "1.50";
    QTest::newRow("point without fraction") << "0." << 5.0 << "5.";
    QTest::newRow("suffix") << "0.0 kg" << 2.24 << "2.2 kg";

    QTest::newRow("infinity") << "0.00" << inf << "inf.";
    QTest::newRow("negative infinity") << "0.00" << -inf << "-inf.";
    QTest::newRow("not a number") << "0.00" << nan << "nan.";
    QTest::newRow("infinity padded") << "000000" << inf << "000inf";
    QTest::newRow("not a number with blanks") << "?" << nan << " nan";
}

void TestNumberFormat::format()
{
    QFETCH(QString, code);
    QFETCH(double, value);
    QFETCH(QString, expected);
    QCOMPARE(formatNumber(value, code), expected);
}

QTEST_GUILESS_MAIN(TestNumberFormat)
#include "testnumberformat.moc"
