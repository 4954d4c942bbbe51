#include "card/datarecord.h"
#include "card/fielddef.h"
#include "reminders/reminder.h"
#include "views/filtercondition.h"

#include <QTest>

class TestFilterCondition : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textMatches_data();
    void textMatches();
    void acceptByType_data();
    void acceptByType();
    void allTextFields_data();
    void allTextFields();
    void fieldPastTheSchemaIsAnEmptyText();
    void operatorLabels_data();
    void operatorLabels();
    void labelsOfAllTextFields();
};

Q_DECLARE_METATYPE(FilterCondition)

namespace
{
using Op = FilterCondition;

FieldDef fieldOf(int type)
{
    FieldDef field;
    field.title = FieldDef::typeName(type);
    field.type = type;
    return field;
}

// A record without a card, sized to the given schema.
std::unique_ptr<DataRecord> recordFor(const QList<FieldDef> &fields)
{
    auto record = std::make_unique<DataRecord>(nullptr);
    record->restructure({}, {}, fields);
    return record;
}

// Puts value into slot i by the field's type; an invalid value leaves the slot unset. For
// Memo, Reminder and Image it sets the record's own member or presence.
void store(DataRecord &record, int i, int type, const QVariant &value)
{
    if (!value.isValid())
        return;
    switch (type) {
    case FieldDef::Memo:
        record.setMemo(value.toString());
        break;
    case FieldDef::Reminder:
        if (value.toBool())
            record.setReminder(new Reminder);
        break;
    case FieldDef::Image:
        if (value.toBool())
            record.setImage(QStringLiteral("picture.png"));
        break;
    case FieldDef::Double:
        record.setDoubleValue(i, value.toDouble());
        break;
    case FieldDef::Date:
        record.setDateValue(i, value.toDate());
        break;
    case FieldDef::Time:
        record.setTimeValue(i, value.toTime());
        break;
    case FieldDef::DateTime:
        record.setDateTimeValue(i, value.toDateTime());
        break;
    default:
        if (FieldDef::family(type) == FieldDef::NumberFamily)
            record.setIntValue(i, value.toInt());
        else
            record.setStringValue(i, value.toString());
    }
}

FilterCondition textCondition(int field, int op, const QString &text)
{
    FilterCondition condition;
    condition.field = field;
    condition.op = op;
    condition.text = text;
    return condition;
}

FilterCondition numberCondition(int op, int number)
{
    FilterCondition condition;
    condition.field = 0;
    condition.op = op;
    condition.number = number;
    return condition;
}

FilterCondition realCondition(int op, double real)
{
    FilterCondition condition;
    condition.field = 0;
    condition.op = op;
    condition.real = real;
    return condition;
}

FilterCondition momentCondition(int op, const QDate &date, const QTime &time)
{
    FilterCondition condition;
    condition.field = 0;
    condition.op = op;
    condition.date = date;
    condition.time = time;
    return condition;
}

const QDate day(2004, 3, 7);
const QTime noon(12, 0, 0);
} // namespace

void TestFilterCondition::textMatches_data()
{
    QTest::addColumn<int>("op");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("expected");

    QTest::newRow("contains ignores case") << int(Op::Contains) << "ABC"
                                           << "b" << true;
    QTest::newRow("contains misses") << int(Op::Contains) << "ABC"
                                     << "d" << false;
    QTest::newRow("contains nothing in anything") << int(Op::Contains) << "abc"
                                                  << "" << true;
    QTest::newRow("contains nothing in null") << int(Op::Contains) << QString() << "" << true;
    QTest::newRow("is exactly") << int(Op::IsExactly) << "abc"
                                << "abc" << true;
    QTest::newRow("is exactly keeps case") << int(Op::IsExactly) << "abc"
                                           << "ABC" << false;
    QTest::newRow("is exactly null and empty") << int(Op::IsExactly) << QString() << "" << true;
    QTest::newRow("doesn't contain") << int(Op::DoesNotContain) << "abc"
                                     << "x" << true;
    QTest::newRow("doesn't contain ignores case") << int(Op::DoesNotContain) << "abc"
                                                  << "B" << false;
    QTest::newRow("doesn't contain nothing") << int(Op::DoesNotContain) << "abc"
                                             << "" << false;
    QTest::newRow("is empty on null") << int(Op::IsEmpty) << QString() << "x" << true;
    QTest::newRow("is empty on blank") << int(Op::IsEmpty) << " "
                                       << "" << false;
    QTest::newRow("is not empty") << int(Op::IsNotEmpty) << "a"
                                  << "" << true;
    QTest::newRow("is not empty on null") << int(Op::IsNotEmpty) << QString() << "" << false;
    QTest::newRow("starts with ignores case") << int(Op::StartsWith) << "Hello"
                                              << "hE" << true;
    QTest::newRow("starts with misses") << int(Op::StartsWith) << "Hello"
                                        << "ello" << false;
    QTest::newRow("starts with longer text") << int(Op::StartsWith) << "He"
                                             << "Hello" << false;
    QTest::newRow("null starts with nothing") << int(Op::StartsWith) << QString() << "" << true;
    QTest::newRow("ends with") << int(Op::EndsWith) << "xab"
                               << "ab" << true;
    QTest::newRow("ends with ignores case") << int(Op::EndsWith) << "xAB"
                                            << "ab" << true;
    QTest::newRow("ends with sees first occurrence only") << int(Op::EndsWith) << "abab"
                                                          << "ab" << false;
    QTest::newRow("ends with misses") << int(Op::EndsWith) << "abx"
                                      << "ab" << false;
    QTest::newRow("ends with nothing only when empty") << int(Op::EndsWith) << "abc"
                                                       << "" << false;
    QTest::newRow("empty ends with nothing") << int(Op::EndsWith) << ""
                                             << "" << true;
    QTest::newRow("unknown code") << 7 << "abc"
                                  << "abc" << false;
    QTest::newRow("negative code") << -1 << "abc"
                                   << "abc" << false;
}

void TestFilterCondition::textMatches()
{
    QFETCH(int, op);
    QFETCH(QString, value);
    QFETCH(QString, text);
    QFETCH(bool, expected);
    QCOMPARE(FilterCondition::textMatches(op, value, text), expected);
}

// One field of the given type in slot 0, holding stored (invalid: unset).
void TestFilterCondition::acceptByType_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<FilterCondition>("condition");
    QTest::addColumn<bool>("expected");

    const QVariant unset;
    const auto text = [](int op, const QString &t) { return textCondition(0, op, t); };

    QTest::newRow("string contains")
        << int(FieldDef::String) << QVariant("Paris") << text(Op::Contains, "ari") << true;
    QTest::newRow("text is exactly")
        << int(FieldDef::Text) << QVariant("Paris") << text(Op::IsExactly, "paris") << false;
    QTest::newRow("list starts with")
        << int(FieldDef::List) << QVariant("Green") << text(Op::StartsWith, "gr") << true;
    QTest::newRow("unset string is empty")
        << int(FieldDef::String) << unset << text(Op::IsEmpty, QString()) << true;
    QTest::newRow("unset string doesn't contain")
        << int(FieldDef::String) << unset << text(Op::DoesNotContain, "a") << true;
    QTest::newRow("memo contains")
        << int(FieldDef::Memo) << QVariant("Call Anna") << text(Op::Contains, "anna") << true;
    QTest::newRow("memo absent is empty")
        << int(FieldDef::Memo) << unset << text(Op::IsEmpty, QString()) << true;

    QTest::newRow("multi-list one part is exactly")
        << int(FieldDef::MultiList) << QVariant("red\ngreen\n") << text(Op::IsExactly, "green")
        << true;
    QTest::newRow("multi-list whole value is not a part")
        << int(FieldDef::MultiList) << QVariant("red\ngreen") << text(Op::IsExactly, "red\ngreen")
        << false;
    QTest::newRow("multi-list doesn't contain passes on one part")
        << int(FieldDef::MultiList) << QVariant("red\ngreen") << text(Op::DoesNotContain, "red")
        << true;
    QTest::newRow("multi-list ends with per part")
        << int(FieldDef::MultiList) << QVariant("xab\nabab") << text(Op::EndsWith, "ab") << true;
    QTest::newRow("empty multi-list is not empty")
        << int(FieldDef::MultiList) << QVariant("") << text(Op::IsEmpty, QString()) << false;
    QTest::newRow("unset multi-list is not empty")
        << int(FieldDef::MultiList) << unset << text(Op::IsEmpty, QString()) << false;
    QTest::newRow("multi-list of separators has no parts")
        << int(FieldDef::MultiList) << QVariant("\n\n") << text(Op::Contains, QString()) << false;

    const int integerTypes[] = { FieldDef::Integer, FieldDef::Count, FieldDef::Increment };
    for (int type : integerTypes) {
        const QByteArray name = FieldDef::typeName(type).toUtf8();
        const QVariant five(5);
        QTest::newRow(name + " equals") << type << five << numberCondition(Op::Equals, 5) << true;
        QTest::newRow(name + " equals misses")
            << type << five << numberCondition(Op::Equals, 4) << false;
        QTest::newRow(name + " not equal to")
            << type << five << numberCondition(Op::NotEqualTo, 4) << true;
        QTest::newRow(name + " at most on equal")
            << type << five << numberCondition(Op::AtMost, 5) << true;
        QTest::newRow(name + " at most misses")
            << type << five << numberCondition(Op::AtMost, 4) << false;
        QTest::newRow(name + " at least on equal")
            << type << five << numberCondition(Op::AtLeast, 5) << true;
        QTest::newRow(name + " at least misses")
            << type << five << numberCondition(Op::AtLeast, 6) << false;
        QTest::newRow(name + " more than on equal")
            << type << five << numberCondition(Op::MoreThan, 5) << false;
        QTest::newRow(name + " more than")
            << type << five << numberCondition(Op::MoreThan, 4) << true;
        QTest::newRow(name + " less than on equal")
            << type << five << numberCondition(Op::LessThan, 5) << false;
        QTest::newRow(name + " less than")
            << type << five << numberCondition(Op::LessThan, 6) << true;
        QTest::newRow(name + " unset equals 0")
            << type << unset << numberCondition(Op::Equals, 0) << true;
        QTest::newRow(name + " unknown code") << type << five << numberCondition(6, 5) << false;
    }
    QTest::newRow("integer compares the whole part")
        << int(FieldDef::Integer) << QVariant(-3) << numberCondition(Op::LessThan, 0) << true;

    QTest::newRow("double equals")
        << int(FieldDef::Double) << QVariant(2.5) << realCondition(Op::Equals, 2.5) << true;
    QTest::newRow("double not equal to")
        << int(FieldDef::Double) << QVariant(2.5) << realCondition(Op::NotEqualTo, 2.25) << true;
    QTest::newRow("double at most")
        << int(FieldDef::Double) << QVariant(2.5) << realCondition(Op::AtMost, 2.4) << false;
    QTest::newRow("double at least")
        << int(FieldDef::Double) << QVariant(2.5) << realCondition(Op::AtLeast, 2.5) << true;
    QTest::newRow("double more than")
        << int(FieldDef::Double) << QVariant(2.5) << realCondition(Op::MoreThan, 2.4) << true;
    QTest::newRow("double less than")
        << int(FieldDef::Double) << QVariant(-1.5) << realCondition(Op::LessThan, -1.0) << true;
    QTest::newRow("unset double equals 0")
        << int(FieldDef::Double) << unset << realCondition(Op::Equals, 0.0) << true;

    const QVariant onDay(day);
    QTest::newRow("date on") << int(FieldDef::Date) << onDay
                             << momentCondition(Op::On, day, QTime()) << true;
    QTest::newRow("date on misses") << int(FieldDef::Date) << onDay
                                    << momentCondition(Op::On, day.addDays(1), QTime()) << false;
    QTest::newRow("date on or after on the day")
        << int(FieldDef::Date) << onDay << momentCondition(Op::OnOrAfter, day, QTime()) << true;
    QTest::newRow("date on or after misses")
        << int(FieldDef::Date) << onDay << momentCondition(Op::OnOrAfter, day.addDays(1), QTime())
        << false;
    QTest::newRow("date on or before on the day")
        << int(FieldDef::Date) << onDay << momentCondition(Op::OnOrBefore, day, QTime()) << true;
    QTest::newRow("date on or before misses")
        << int(FieldDef::Date) << onDay << momentCondition(Op::OnOrBefore, day.addDays(-1), QTime())
        << false;
    QTest::newRow("unset date is before any")
        << int(FieldDef::Date) << unset << momentCondition(Op::OnOrBefore, day, QTime()) << true;
    QTest::newRow("unset date is not after any")
        << int(FieldDef::Date) << unset << momentCondition(Op::OnOrAfter, day, QTime()) << false;
    QTest::newRow("date unknown code")
        << int(FieldDef::Date) << onDay << momentCondition(3, day, QTime()) << false;

    const QVariant atNoon(noon);
    QTest::newRow("time on") << int(FieldDef::Time) << atNoon
                             << momentCondition(Op::On, QDate(), noon) << true;
    QTest::newRow("time on or after")
        << int(FieldDef::Time) << atNoon << momentCondition(Op::OnOrAfter, QDate(), noon.addSecs(1))
        << false;
    QTest::newRow("time on or before")
        << int(FieldDef::Time) << atNoon
        << momentCondition(Op::OnOrBefore, QDate(), noon.addSecs(1)) << true;
    QTest::newRow("time ignores the date member")
        << int(FieldDef::Time) << atNoon << momentCondition(Op::On, day, noon) << true;

    const QVariant moment(QDateTime(day, noon));
    QTest::newRow("date-time on") << int(FieldDef::DateTime) << moment
                                  << momentCondition(Op::On, day, noon) << true;
    QTest::newRow("date-time on counts seconds")
        << int(FieldDef::DateTime) << moment << momentCondition(Op::On, day, noon.addSecs(1))
        << false;
    QTest::newRow("date-time on or after, earlier day later hour")
        << int(FieldDef::DateTime) << moment
        << momentCondition(Op::OnOrAfter, day.addDays(-1), QTime(23, 0)) << true;
    QTest::newRow("date-time on or before, same day later second")
        << int(FieldDef::DateTime) << moment
        << momentCondition(Op::OnOrBefore, day, noon.addSecs(1)) << true;
    QTest::newRow("date-time on or before, same day earlier second")
        << int(FieldDef::DateTime) << moment
        << momentCondition(Op::OnOrBefore, day, noon.addSecs(-1)) << false;

    for (int type : { int(FieldDef::Reminder), int(FieldDef::Image) }) {
        const QByteArray name = FieldDef::typeName(type).toUtf8();
        QTest::newRow(name + " yes, present")
            << type << QVariant(true) << numberCondition(0, Op::Yes) << true;
        QTest::newRow(name + " yes, absent")
            << type << unset << numberCondition(0, Op::Yes) << false;
        QTest::newRow(name + " no, absent") << type << unset << numberCondition(0, Op::No) << true;
        QTest::newRow(name + " no, present")
            << type << QVariant(true) << numberCondition(0, Op::No) << false;
        QTest::newRow(name + " any other answer means no")
            << type << unset << numberCondition(0, 7) << true;
    }

    const int boolean = FieldDef::Bool;
    QTest::newRow("bool equals yes on 1")
        << boolean << QVariant(1) << numberCondition(Op::Equals, Op::Yes) << true;
    QTest::newRow("bool equals yes on 2")
        << boolean << QVariant(2) << numberCondition(Op::Equals, Op::Yes) << false;
    QTest::newRow("bool equals no on 2")
        << boolean << QVariant(2) << numberCondition(Op::Equals, Op::No) << true;
    QTest::newRow("bool equals no on unset")
        << boolean << unset << numberCondition(Op::Equals, Op::No) << true;
    QTest::newRow("bool not equal to yes on 0")
        << boolean << QVariant(0) << numberCondition(Op::NotEqualTo, Op::Yes) << true;
    QTest::newRow("bool not equal to yes on 1")
        << boolean << QVariant(1) << numberCondition(Op::NotEqualTo, Op::Yes) << false;
    QTest::newRow("bool any other code is not equal")
        << boolean << QVariant(1) << numberCondition(5, Op::No) << true;

    QTest::newRow("unknown field type fails")
        << 99 << QVariant("x") << text(Op::Contains, QString()) << false;
}

void TestFilterCondition::acceptByType()
{
    QFETCH(int, type);
    QFETCH(QVariant, stored);
    QFETCH(FilterCondition, condition);
    QFETCH(bool, expected);

    const QList<FieldDef> fields { fieldOf(type) };
    auto record = recordFor(fields);
    store(*record, 0, type, stored);
    QCOMPARE(condition.accept(*record, fields), expected);
}

// A schema with every type; the text fields hold the given values, the others hold a text
// that would match if they were looked at.
void TestFilterCondition::allTextFields_data()
{
    QTest::addColumn<QStringList>("texts"); // String, Text, List, MultiList, Memo
    QTest::addColumn<int>("op");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("expected");

    const QStringList none { QString(), QString(), QString(), QString(), QString() };
    QTest::newRow("contains in string")
        << QStringList { "Xylo", "", "", "", "" } << int(Op::Contains) << "xy" << true;
    QTest::newRow("contains in text")
        << QStringList { "", "a xylophone", "", "", "" } << int(Op::Contains) << "XY" << true;
    QTest::newRow("contains in list")
        << QStringList { "", "", "xy", "", "" } << int(Op::Contains) << "xy" << true;
    QTest::newRow("contains in multi-list")
        << QStringList { "", "", "", "a\nxy", "" } << int(Op::Contains) << "xy" << true;
    QTest::newRow("contains in memo")
        << QStringList { "", "", "", "", "about xy" } << int(Op::Contains) << "xy" << true;
    QTest::newRow("other types are not looked at") << none << int(Op::Contains) << "42" << false;
    QTest::newRow("doesn't contain: one field lacks it")
        << QStringList { "x", "x", "x", "x", "" } << int(Op::DoesNotContain) << "x" << true;
    QTest::newRow("doesn't contain: every field has it")
        << QStringList { "x", "x", "x", "x", "x" } << int(Op::DoesNotContain) << "x" << false;
    QTest::newRow("is exactly on the whole multi-list")
        << QStringList { "", "", "", "a\nb", "" } << int(Op::IsExactly) << "a\nb" << true;
    QTest::newRow("is empty: one empty field suffices")
        << QStringList { "a", "b", "c", "d", "" } << int(Op::IsEmpty) << "" << true;
    QTest::newRow("is not empty on nothing") << none << int(Op::IsNotEmpty) << "" << false;
}

void TestFilterCondition::allTextFields()
{
    QFETCH(QStringList, texts);
    QFETCH(int, op);
    QFETCH(QString, text);
    QFETCH(bool, expected);

    QList<FieldDef> fields;
    for (int type = 0; type < FieldDef::TypeCount; ++type)
        fields.append(fieldOf(type));
    auto record = recordFor(fields);
    record->setStringValue(FieldDef::String, texts.at(0));
    record->setStringValue(FieldDef::Text, texts.at(1));
    record->setStringValue(FieldDef::List, texts.at(2));
    record->setStringValue(FieldDef::MultiList, texts.at(3));
    record->setMemo(texts.at(4));
    record->setIntValue(FieldDef::Integer, 42);
    record->setIntValue(FieldDef::Count, 42);
    record->setDoubleValue(FieldDef::Double, 42);
    record->setImage(QStringLiteral("42.png"));

    const FilterCondition condition = textCondition(FilterCondition::AllTextFields, op, text);
    QCOMPARE(condition.accept(*record, fields), expected);
}

void TestFilterCondition::fieldPastTheSchemaIsAnEmptyText()
{
    const QList<FieldDef> fields { fieldOf(FieldDef::String) };
    auto record = recordFor(fields);
    record->setStringValue(0, QStringLiteral("abc"));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("field 3 is not one"));
    QVERIFY(textCondition(3, Op::IsEmpty, QString()).accept(*record, fields));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("field -4 is not one"));
    QVERIFY(!textCondition(-4, Op::Contains, QStringLiteral("a")).accept(*record, fields));
}

void TestFilterCondition::operatorLabels_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QStringList>("labels");

    const QStringList text { "contains", "is (exactly)", "doesn't contain", "is empty",
        "is not empty", "starts with", "ends with" };
    const QStringList number { "equals", "not equal to", "is at most", "is at least",
        "is more than", "is less than" };
    const QStringList moment { "on", "on or after", "on or before" };
    const QList<std::pair<int, QStringList>> rows {
        { FieldDef::String, text },
        { FieldDef::Integer, number },
        { FieldDef::Double, number },
        { FieldDef::Date, moment },
        { FieldDef::Time, moment },
        { FieldDef::DateTime, moment },
        { FieldDef::Text, text },
        { FieldDef::Memo, text },
        { FieldDef::Reminder, { "have reminder" } },
        { FieldDef::List, text },
        { FieldDef::Bool, { "equals", "not equal to" } },
        { FieldDef::Count, number },
        { FieldDef::Image, { "have image" } },
        { FieldDef::MultiList, text },
        { FieldDef::Increment, number },
        { -1, {} },
        { FieldDef::TypeCount, {} },
    };
    for (const auto &[type, labels] : rows)
        QTest::newRow(qPrintable(QString::number(type))) << type << labels;
}

void TestFilterCondition::operatorLabels()
{
    QFETCH(int, type);
    QFETCH(QStringList, labels);
    QCOMPARE(FilterCondition::operatorLabels(type), labels);
    QCOMPARE(FilterCondition::operatorLabel(type, int(labels.size()) - 1),
        labels.value(labels.size() - 1));
    QCOMPARE(FilterCondition::operatorLabel(type, int(labels.size())), QString());
}

void TestFilterCondition::labelsOfAllTextFields()
{
    const QList<FieldDef> fields { fieldOf(FieldDef::Bool) };
    QCOMPARE(FilterCondition::allTextFieldsTitle(), QStringLiteral("All Text Fields"));
    QCOMPARE(FilterCondition::operatorLabelsFor(FilterCondition::AllTextFields, fields),
        FilterCondition::operatorLabels(FieldDef::String));
    QCOMPARE(FilterCondition::operatorLabelsFor(0, fields),
        FilterCondition::operatorLabels(FieldDef::Bool));
    QCOMPARE(FilterCondition::operatorLabelsFor(1, fields), QStringList());
}

QTEST_GUILESS_MAIN(TestFilterCondition)
#include "testfiltercondition.moc"
