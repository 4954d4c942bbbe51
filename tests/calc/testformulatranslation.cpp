#include "calc/formulatranslation.h"

#include <QtTest>

// The two forms of a formula: titles for the user, numbers for the card.
class TestFormulaTranslation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void display_data();
    void display();
    void stored_data();
    void stored();
    void cyclingTitlesStop();
};

namespace
{
FieldDef field(const QString &title, int type)
{
    FieldDef def;
    def.title = title;
    def.type = type;
    return def;
}

// 0 a Integer, 1 b Double, 2 c Count, 3 d Increment, 4 e String, 5 a Double (a duplicate),
// 6 "x]y" Integer.
QList<FieldDef> sampleFields()
{
    return { field("a", FieldDef::Integer), field("b", FieldDef::Double),
        field("c", FieldDef::Count), field("d", FieldDef::Increment), field("e", FieldDef::String),
        field("a", FieldDef::Double), field("x]y", FieldDef::Integer) };
}
} // namespace

void TestFormulaTranslation::display_data()
{
    QTest::addColumn<QString>("formula");
    QTest::addColumn<QString>("expected");
    QTest::newRow("plain") << "[F0]+[F1]"
                           << "[a]+[b]";
    QTest::newRow("lower f and bangs kept") << "[f1!]*[F0!!]"
                                            << "[b!]*[a!!]";
    QTest::newRow("any type shows its title") << "[F4]+[F2]"
                                              << "[e]+[c]";
    QTest::newRow("past the list stays") << "[F7]+[F99999999999]"
                                         << "[F7]+[F99999999999]";
    QTest::newRow("not a reference") << "[G1]+[F]+[F1x]"
                                     << "[G1]+[F]+[F1x]";
    QTest::newRow("bracketed title") << "[F6]"
                                     << "[x]y]";
}

void TestFormulaTranslation::display()
{
    QFETCH(QString, formula);
    QTEST(FormulaTranslation::display(formula, sampleFields()), "expected");
}

void TestFormulaTranslation::stored_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("line feeds dropped") << "[a]\n+\n[b]"
                                        << "[F0]+[F1]";
    QTest::newRow("previous record") << "[b!]-[b]"
                                     << "[F1!]-[F1]";
    QTest::newRow("repeats until stable") << "[a]+[a]+[a!]"
                                          << "[F0]+[F0]+[F0!]";
    QTest::newRow("count and increment stay titles") << "[c]+[d]"
                                                     << "[c]+[d]";
    QTest::newRow("string field stays") << "[e]"
                                        << "[e]";
    QTest::newRow("duplicate: first wins") << "[a]*2"
                                           << "[F0]*2";
    QTest::newRow("bracketed title is plain text") << "[x]y]+1"
                                                   << "[F6]+1";
    QTest::newRow("case sensitive") << "[A]"
                                    << "[A]";
    QTest::newRow("two bangs not translated") << "[a!!]"
                                              << "[a!!]";
    QTest::newRow("round trip of a past-the-list number") << "[F7]"
                                                          << "[F7]";
}

void TestFormulaTranslation::stored()
{
    QFETCH(QString, text);
    QTEST(FormulaTranslation::stored(text, sampleFields()), "expected");
}

// Field 0 titled "F1" and field 1 titled "F0" would trade places for ever.
void TestFormulaTranslation::cyclingTitlesStop()
{
    const QList<FieldDef> fields
        = { field("F1", FieldDef::Integer), field("F0", FieldDef::Integer) };
    const QString result = FormulaTranslation::stored(QStringLiteral("[F1]"), fields);
    QVERIFY(result == QLatin1String("[F1]") || result == QLatin1String("[F0]"));
}

QTEST_GUILESS_MAIN(TestFormulaTranslation)
#include "testformulatranslation.moc"
