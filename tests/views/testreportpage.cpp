#include "support/testhome.h"

#include "card/datamanager.h"
#include "card/datarecord.h"
#include "platform/config.h"
#include "views/reportpage.h"
#include "views/reportsettings.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QTest>

namespace
{
FieldDef field(int type, const QString &title = QStringLiteral("F"), const QString &format = {})
{
    FieldDef def;
    def.title = title;
    def.type = type;
    def.format = format;
    return def;
}

// A device at the screen's resolution on which the page is measured and painted.
QImage device(int width = 10, int height = 10)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.setDotsPerMeterX(3780);
    image.setDotsPerMeterY(3780);
    return image;
}

QFont testFont()
{
    QFont font = QGuiApplication::font();
    font.setPixelSize(12);
    return font;
}
} // namespace

class TestReportPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void valueText_data();
    void valueText();
    void settingsRead_data();
    void settingsRead();
    void columns_data();
    void columns();
    void pageHeight_data();
    void pageHeight();
    void images_data();
    void images();
    void lines_data();
    void lines();
    void noRecordIsOnePixel();
};

void TestReportPage::initTestCase()
{
    qApp->setObjectName(QStringLiteral("norvika"));
}

void TestReportPage::valueText_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("expected");
    using F = FieldDef;
    const auto row = [](const char *name, int type, const char *format, const QVariant &value,
                         const QString &expected) {
        QTest::newRow(name) << type << QString::fromLatin1(format) << value << expected;
    };
    row("string keeps line breaks", F::String, "", "a\nb", "a\nb");
    row("multilist keeps lines", F::MultiList, "", "a\nb", "a\nb");
    row("integer by format", F::Integer, "000", 7.0, "007");
    row("time by format on today", F::Time, "YYYY hh:mm", QTime(13, 5),
        QString::number(QDate::currentDate().year()) + " 13:05");
    row("reminder none", F::Reminder, "", QVariant(), "");
    row("bool zero", F::Bool, "", 0.0, "No");
    row("bool non-zero", F::Bool, "", -3.0, "Yes");
}

void TestReportPage::valueText()
{
    QFETCH(int, type);
    QFETCH(QString, format);
    QFETCH(QVariant, value);
    QFETCH(QString, expected);
    TestHome home;
    DataManager card(home.file(QStringLiteral("report.card")));
    card.setFields({ field(type, QStringLiteral("F"), format) }, true);
    DataRecord record(&card);
    if (value.typeId() == QMetaType::QString)
        record.setStringValue(0, value.toString());
    else if (value.typeId() == QMetaType::Double)
        record.setDoubleValue(0, value.toDouble());
    else if (value.typeId() == QMetaType::QTime)
        record.setTimeValue(0, value.toTime());
    QCOMPARE(ReportPage::valueText(record, 0, card.field(0)), expected);
}

void TestReportPage::settingsRead_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("member");
    QTest::addColumn<QVariant>("expected");
    const auto row = [](const char *name, const char *key, const char *stored, const char *member,
                         const QVariant &expected) {
        QTest::newRow(name) << QString::fromLatin1(key) << QString::fromLatin1(stored)
                            << QString::fromLatin1(member) << expected;
    };
    row("background default", "", "", "c5", QColor(Qt::white));
    row("line default", "", "", "c3", QColor("#d0d0d0"));
    row("label align default", "", "", "a1", 2);
    row("stored label colour", "c1", "#112233", "c1", QColor("#112233"));
    row("garbage background", "c5", "no colour", "c5", QColor(Qt::white));
    row("garbage value colour", "c2", "#zz", "c2", QColor(Qt::darkBlue));
    row("empty line means none", "c3", "", "c3", QColor());
    row("garbage separator means none", "c4", "bogus", "c4", QColor());
    row("stored centre", "a1", "36", "a1", 36);
    row("garbage alignment", "a2", "left", "a2", 1);
    row("unknown alignment", "a1", "77", "a1", 2);
}

void TestReportPage::settingsRead()
{
    QFETCH(QString, key);
    QFETCH(QString, stored);
    QFETCH(QString, member);
    QFETCH(QVariant, expected);
    TestHome home;
    if (!key.isEmpty()) {
        Config config(qApp->objectName());
        config.setGroup(QStringLiteral("reportcolors"));
        config.writeEntry(key, stored);
    }
    const ReportSettings settings = ReportSettings::read();
    const QMap<QString, QVariant> members { { "c1", settings.labelColor },
        { "c2", settings.valueColor }, { "c3", settings.lineColor },
        { "c4", settings.separatorColor }, { "c5", settings.background },
        { "a1", settings.labelAlign }, { "a2", settings.valueAlign } };
    QCOMPARE(members.value(member), expected);
    // What is read is what is written back, an invalid line as the empty string.
    settings.write();
    QCOMPARE(ReportSettings::read(), settings);
}

void TestReportPage::columns_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("atThird");
    // A word that cannot wrap is wider than any value column.
    const QString longText(200, QLatin1Char('x'));
    QTest::newRow("short value: a third") << 300 << "N"
                                          << "x" << true;
    QTest::newRow("long label: a third") << 300 << "An extremely long label that has to wrap"
                                         << "x" << true;
    QTest::newRow("long value: the widest label") << 600 << "Name" << longText << false;
    QTest::newRow("narrow page") << 60 << "Name" << longText << true;
}

// The label column is never wider than a third, so the values keep two thirds less 25.
void TestReportPage::columns()
{
    QFETCH(int, width);
    QFETCH(QString, title);
    QFETCH(QString, value);
    QFETCH(bool, atThird);
    TestHome home;
    DataManager card(home.file(QStringLiteral("report.card")));
    card.setFields({ field(FieldDef::String, title) }, true);
    DataRecord record(&card);
    record.setStringValue(0, value);
    QImage image = device();
    ReportPage page;
    page.layout(&record, card.fields(), width, testFont(), &image);

    const int labelWidth = QFontMetrics(testFont(), &image).horizontalAdvance(title + ':');
    QCOMPARE(page.labelColumn(), atThird ? width / 3 : labelWidth);
    QCOMPARE(page.valueColumn(), width - (page.labelColumn() + 25));
    QCOMPARE(page.valueX(), page.labelColumn() + 19);
    QVERIFY(page.valueColumn() >= width - width / 3 - 25);
}

void TestReportPage::pageHeight_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("labelWraps");
    const QString name = QStringLiteral("Name");
    QTest::newRow("one line") << name << QStringLiteral("Ann") << false;
    QTest::newRow("value wraps") << name << QStringLiteral("word ").repeated(80) << false;
    QTest::newRow("value with line breaks") << name << QStringLiteral("a\nb\nc") << false;
    QTest::newRow("label wraps") << QStringLiteral("A label far too long for a third of the page")
                                 << QStringLiteral("x") << true;
}

// One row: its value's height and the half-line gap, 12 for the margins; a label that wraps
// taller grows the page, though the row keeps its height (one line's label adds the 1).
void TestReportPage::pageHeight()
{
    QFETCH(QString, title);
    QFETCH(QString, value);
    QFETCH(bool, labelWraps);
    TestHome home;
    DataManager card(home.file(QStringLiteral("report.card")));
    card.setFields({ field(FieldDef::String, title) }, true);
    DataRecord record(&card);
    record.setStringValue(0, value);
    QImage image = device();
    ReportPage page;
    page.layout(&record, card.fields(), 300, testFont(), &image);

    const QFontMetrics metrics(testFont(), &image);
    const int line = metrics.lineSpacing();
    const ReportPage::Row &row = page.rows().at(0);
    QVERIFY(row.height >= line + line / 2);
    QCOMPARE(row.labelHeight > line, labelWraps);
    const int excess = std::max(0, row.labelHeight + 1 + page.gap() - row.height);
    QCOMPARE(page.height(), row.height + 12 + excess);
    QCOMPARE(excess > 1, labelWraps);
}

void TestReportPage::images_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("broken");
    QTest::addColumn<QSize>("shown");
    // At 300 pixels the value column is 175 wide; heights are cut, not rounded.
    QTest::newRow("wider is scaled") << QSize(1000, 501) << false << QSize(175, 87);
    QTest::newRow("narrower keeps its size") << QSize(40, 30) << false << QSize(40, 30);
    QTest::newRow("missing file") << QSize() << false << QSize(0, 0);
    QTest::newRow("undecodable file") << QSize(40, 30) << true << QSize(0, 0);
    QTest::newRow("tall picture under the cap") << QSize(20, 300000) << false << QSize(16, 250827);
}

void TestReportPage::images()
{
    QFETCH(QSize, size);
    QFETCH(bool, broken);
    QFETCH(QSize, shown);
    TestHome home;
    const QString path = home.file(QStringLiteral("picture.png"));
    if (size.isValid()) {
        QImage picture(size, QImage::Format_RGB32);
        picture.fill(Qt::red);
        QVERIFY(picture.save(path));
        if (broken)
            QVERIFY(QFile::resize(path, 30));
    }
    DataManager card(home.file(QStringLiteral("report.card")));
    card.setFields({ field(FieldDef::Image, QStringLiteral("Photo")) }, true);
    DataRecord record(&card);
    record.setImage(path);
    QImage image = device();
    ReportPage page;
    page.layout(&record, card.fields(), 300, testFont(), &image);

    const ReportPage::Row &row = page.rows().at(0);
    QCOMPARE(row.picture.size(), shown);
    QVERIFY(qint64(row.picture.width()) * row.picture.height() <= ReportPage::maxImagePixels);
    const int line = QFontMetrics(testFont(), &image).lineSpacing();
    QCOMPARE(row.height, std::max(shown.height(), line) + page.gap());
}

void TestReportPage::lines_data()
{
    QTest::addColumn<QColor>("lineColor");
    QTest::addColumn<QColor>("separatorColor");
    QTest::newRow("both") << QColor(Qt::red) << QColor(Qt::green);
    QTest::newRow("no lines") << QColor() << QColor(Qt::green);
    QTest::newRow("no separator") << QColor(Qt::red) << QColor();
}

// Lines run under each row from 6 to W - 12, the separator at labelCol + 13.
void TestReportPage::lines()
{
    QFETCH(QColor, lineColor);
    QFETCH(QColor, separatorColor);
    TestHome home;
    DataManager card(home.file(QStringLiteral("report.card")));
    card.setFields({ field(FieldDef::String, QStringLiteral("A")) }, true);
    DataRecord record(&card);
    ReportSettings settings;
    settings.lineColor = lineColor;
    settings.separatorColor = separatorColor;
    settings.background = Qt::white;
    QImage image = device();
    ReportPage page;
    page.setSettings(settings);
    page.layout(&record, card.fields(), 300, testFont(), &image);
    QImage painted = device(300, page.height());
    QPainter painter(&painted);
    page.paint(painter);
    painter.end();

    const int lineY = 6 + page.paintedHeight(0) - page.gap() + page.gap() / 2;
    const QColor white(Qt::white);
    QCOMPARE(painted.pixelColor(250, lineY), lineColor.isValid() ? lineColor : white);
    QCOMPARE(painted.pixelColor(300 - 11, lineY), white);
    QCOMPARE(painted.pixelColor(page.labelColumn() + 13, 6),
        separatorColor.isValid() ? separatorColor : white);
}

void TestReportPage::noRecordIsOnePixel()
{
    QImage image = device();
    ReportPage page;
    page.layout(nullptr, { field(FieldDef::String) }, 300, testFont(), &image);
    QCOMPARE(page.height(), 1);
    QVERIFY(page.rows().isEmpty());
}

QTEST_MAIN(TestReportPage)
#include "testreportpage.moc"
