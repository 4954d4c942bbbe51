#include "card/datarecord.h"
#include "card/fielddef.h"
#include "reminders/reminder.h"
#include "views/filtercondition.h"

#include <QTest>

class TestFilterCondition : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void acceptByType_data();
    void acceptByType();
    void allTextFields_data();
    void allTextFields();
    void fieldPastTheSchemaIsAnEmptyText();
};

Q_DECLARE_METATYPE(FilterCondition)

namespace
{
using Op = FilterCondition;
using F = FieldDef;

FieldDef fieldOf(int type)
{
    FieldDef field;
    field.title = F::typeName(type);
    field.type = type;
    return field;
}

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
    if (type == F::Memo)
        record.setMemo(value.toString());
    else if (type == F::Reminder)
        record.setReminder(new Reminder);
    else if (type == F::Image)
        record.setImage(QStringLiteral("picture.png"));
    else if (type == F::Double)
        record.setDoubleValue(i, value.toDouble());
    else if (type == F::Date)
        record.setDateValue(i, value.toDate());
    else if (type == F::Time)
        record.setTimeValue(i, value.toTime());
    else if (type == F::DateTime)
        record.setDateTimeValue(i, value.toDateTime());
    else if (F::family(type) == F::NumberFamily)
        record.setIntValue(i, value.toInt());
    else
        record.setStringValue(i, value.toString());
}

// A condition on field 0 whose operand goes into the member its type belongs to.
FilterCondition condition(int op, const QVariant &operand, int field = 0)
{
    FilterCondition c;
    c.field = field;
    c.op = op;
    switch (operand.typeId()) {
    case QMetaType::Int:
        c.number = operand.toInt();
        break;
    case QMetaType::Double:
        c.real = operand.toDouble();
        break;
    case QMetaType::QDate:
        c.date = operand.toDate();
        break;
    case QMetaType::QTime:
        c.time = operand.toTime();
        break;
    case QMetaType::QDateTime:
        c.date = operand.toDateTime().date();
        c.time = operand.toDateTime().time();
        break;
    default:
        c.text = operand.toString();
    }
    return c;
}
} // namespace

// One field of the given type in slot 0, holding stored (invalid: unset).
void TestFilterCondition::acceptByType_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<FilterCondition>("condition");
    QTest::addColumn<bool>("expected");
    const auto row = [](const QByteArray &name, int type, const QVariant &stored, int op,
                         const QVariant &operand, bool expected) {
        QTest::newRow(name.constData()) << type << stored << condition(op, operand) << expected;
    };
    const QVariant unset;
    const QString null;

    row("string contains", F::String, "Paris", Op::Contains, "ari", true);
    row("contains ignores case", F::String, "ABC", Op::Contains, "b", true);
    row("unset contains nothing", F::String, unset, Op::Contains, "", true);
    row("unset is exactly nothing", F::String, unset, Op::IsExactly, "", true);
    row("doesn't contain ignores case", F::String, "abc", Op::DoesNotContain, "B", false);
    row("doesn't contain nothing", F::String, "abc", Op::DoesNotContain, "", false);
    row("blank is not empty", F::String, " ", Op::IsEmpty, null, false);
    row("unset is not 'not empty'", F::String, unset, Op::IsNotEmpty, null, false);
    row("starts with longer text", F::String, "He", Op::StartsWith, "Hello", false);
    row("unset starts with nothing", F::String, unset, Op::StartsWith, "", true);
    row("ends with ignores case", F::String, "xAB", Op::EndsWith, "ab", true);
    row("ends with sees first occurrence only", F::String, "abab", Op::EndsWith, "ab", false);
    row("ends with nothing only when empty", F::String, "abc", Op::EndsWith, "", false);
    row("empty ends with nothing", F::String, "", Op::EndsWith, "", true);
    row("unknown text code", F::String, "abc", 7, "abc", false);
    row("text is exactly", F::Text, "Paris", Op::IsExactly, "paris", false);
    row("list starts with", F::List, "Green", Op::StartsWith, "gr", true);
    row("unset string is empty", F::String, unset, Op::IsEmpty, null, true);
    row("unset string doesn't contain", F::String, unset, Op::DoesNotContain, "a", true);
    row("memo contains", F::Memo, "Call Anna", Op::Contains, "anna", true);
    row("memo absent is empty", F::Memo, unset, Op::IsEmpty, null, true);
    row("multi-list one part is exactly", F::MultiList, "red\ngreen\n", Op::IsExactly, "green",
        true);
    row("multi-list whole value is not a part", F::MultiList, "red\ngreen", Op::IsExactly,
        "red\ngreen", false);
    row("multi-list doesn't contain passes on one part", F::MultiList, "red\ngreen",
        Op::DoesNotContain, "red", true);
    row("multi-list ends with per part", F::MultiList, "xab\nabab", Op::EndsWith, "ab", true);
    row("empty multi-list is not empty", F::MultiList, "", Op::IsEmpty, null, false);
    row("unset multi-list is not empty", F::MultiList, unset, Op::IsEmpty, null, false);
    row("multi-list of separators has no parts", F::MultiList, "\n\n", Op::Contains, null, false);

    for (int type : { F::Integer, F::Count, F::Increment }) {
        const QByteArray name = F::typeName(type).toUtf8();
        const struct {
            const char *name;
            int op, operand;
            bool expected;
        } rows[] = { { " equals", Op::Equals, 5, true }, { " equals misses", Op::Equals, 4, false },
            { " not equal to", Op::NotEqualTo, 4, true },
            { " at most on equal", Op::AtMost, 5, true },
            { " at most misses", Op::AtMost, 4, false },
            { " at least on equal", Op::AtLeast, 5, true },
            { " at least misses", Op::AtLeast, 6, false },
            { " more than on equal", Op::MoreThan, 5, false },
            { " more than", Op::MoreThan, 4, true },
            { " less than on equal", Op::LessThan, 5, false },
            { " less than", Op::LessThan, 6, true }, { " unknown code", 6, 5, false } };
        for (const auto &r : rows)
            row(name + r.name, type, 5, r.op, r.operand, r.expected);
        row(name + " unset equals 0", type, unset, Op::Equals, 0, true);
    }
    row("integer compares the whole part", F::Integer, -3, Op::LessThan, 0, true);

    row("double equals", F::Double, 2.5, Op::Equals, 2.5, true);
    row("double at most", F::Double, 2.5, Op::AtMost, 2.4, false);
    row("double more than", F::Double, 2.5, Op::MoreThan, 2.4, true);
    row("double less than", F::Double, -1.5, Op::LessThan, -1.0, true);
    row("unset double equals 0", F::Double, unset, Op::Equals, 0.0, true);

    const QDate day(2004, 3, 7);
    const QTime noon(12, 0, 0);
    row("date on", F::Date, day, Op::On, day, true);
    row("date on misses", F::Date, day, Op::On, day.addDays(1), false);
    row("date on or after misses", F::Date, day, Op::OnOrAfter, day.addDays(1), false);
    row("date on or before on the day", F::Date, day, Op::OnOrBefore, day, true);
    row("unset date is before any", F::Date, unset, Op::OnOrBefore, day, true);
    row("unset date is not after any", F::Date, unset, Op::OnOrAfter, day, false);
    row("date unknown code", F::Date, day, 3, day, false);
    row("time on", F::Time, noon, Op::On, noon, true);
    row("time on or before", F::Time, noon, Op::OnOrBefore, noon.addSecs(1), true);
    row("time ignores the date member", F::Time, noon, Op::On, QDateTime(day, noon), true);
    const QDateTime moment(day, noon);
    row("date-time on", F::DateTime, moment, Op::On, moment, true);
    row("date-time on counts seconds", F::DateTime, moment, Op::On, moment.addSecs(1), false);
    row("date-time on or after, earlier day later hour", F::DateTime, moment, Op::OnOrAfter,
        QDateTime(day.addDays(-1), QTime(23, 0)), true);
    row("date-time on or before, same day later second", F::DateTime, moment, Op::OnOrBefore,
        moment.addSecs(1), true);
    row("date-time on or before, same day earlier second", F::DateTime, moment, Op::OnOrBefore,
        moment.addSecs(-1), false);

    // Reminder and Image keep their answer in number, under the operator code 0.
    for (int type : { F::Reminder, F::Image }) {
        const QByteArray name = F::typeName(type).toUtf8();
        row(name + " yes, present", type, true, 0, int(Op::Yes), true);
        row(name + " yes, absent", type, unset, 0, int(Op::Yes), false);
        row(name + " no, absent", type, unset, 0, int(Op::No), true);
        row(name + " no, present", type, true, 0, int(Op::No), false);
        row(name + " any other answer means no", type, unset, 0, 7, true);
    }
    row("bool equals yes on 1", F::Bool, 1, Op::Equals, int(Op::Yes), true);
    row("bool equals no on 2", F::Bool, 2, Op::Equals, int(Op::No), true);
    row("bool equals no on unset", F::Bool, unset, Op::Equals, int(Op::No), true);
    row("bool not equal to yes on 0", F::Bool, 0, Op::NotEqualTo, int(Op::Yes), true);
    row("bool any other code is not equal", F::Bool, 1, 5, int(Op::No), true);
    row("unknown field type fails", 99, "x", Op::Contains, null, false);
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
    const QStringList none(5, QString());
    const auto only = [](int i, const QString &text) {
        QStringList texts(5, QString());
        texts[i] = text;
        return texts;
    };
    QTest::newRow("contains in memo") << only(4, "about xy") << int(Op::Contains) << "xy" << true;
    QTest::newRow("other types are not looked at") << none << int(Op::Contains) << "42" << false;
    QTest::newRow("doesn't contain: one field lacks it")
        << QStringList { "x", "x", "x", "x", "" } << int(Op::DoesNotContain) << "x" << true;
    QTest::newRow("doesn't contain: every field has it")
        << QStringList(5, "x") << int(Op::DoesNotContain) << "x" << false;
    QTest::newRow("is exactly on the whole multi-list")
        << only(3, "a\nb") << int(Op::IsExactly) << "a\nb" << true;
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
    for (int type = 0; type < F::TypeCount; ++type)
        fields.append(fieldOf(type));
    auto record = recordFor(fields);
    const int textTypes[] = { F::String, F::Text, F::List, F::MultiList };
    for (int i = 0; i < 4; ++i)
        record->setStringValue(textTypes[i], texts.at(i));
    record->setMemo(texts.at(4));
    record->setIntValue(F::Integer, 42);
    record->setIntValue(F::Count, 42);
    record->setDoubleValue(F::Double, 42);
    record->setImage(QStringLiteral("42.png"));
    QCOMPARE(condition(op, text, Op::AllTextFields).accept(*record, fields), expected);
}

void TestFilterCondition::fieldPastTheSchemaIsAnEmptyText()
{
    const QList<FieldDef> fields { fieldOf(F::String) };
    auto record = recordFor(fields);
    record->setStringValue(0, QStringLiteral("abc"));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("field 3 is not one"));
    QVERIFY(condition(Op::IsEmpty, QString(), 3).accept(*record, fields));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("field -4 is not one"));
    QVERIFY(!condition(Op::Contains, QStringLiteral("a"), -4).accept(*record, fields));
}

QTEST_GUILESS_MAIN(TestFilterCondition)
#include "testfiltercondition.moc"
