#include "calc/formulatranslation.h"

#include <QtTest>

// The two forms of a formula: titles for the user, numbers for the card.
class TestFormulaTranslation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void translate_data();
    void translate();
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

// "show" turns a stored formula into titles, "store" turns typed text into numbers.
void row(const char *name, const char *direction, const char *from, const char *to)
{
    QTest::newRow(name) << QString(direction) << QString(from) << QString(to);
}
} // namespace

void TestFormulaTranslation::translate_data()
{
    QTest::addColumn<QString>("direction");
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    row("show plain", "show", "[F0]+[F1]", "[a]+[b]");
    row("show lower f, bangs kept", "show", "[f1!]*[F0!!]", "[b!]*[a!!]");
    row("show any type", "show", "[F4]+[F2]", "[e]+[c]");
    row("show past the list as written", "show", "[F10]+[F99999999999]", "[F10]+[F99999999999]");
    row("show no reference", "show", "[G1]+[F]+[F1x]", "[G1]+[F]+[F1x]");
    row("show bracketed title", "show", "[F6]", "[x]y]");
    row("store drops line feeds", "store", "[a]\n+\n[b]", "[F0]+[F1]");
    row("store previous record", "store", "[b!]-[b]", "[F1!]-[F1]");
    row("store repeats, first duplicate wins", "store", "[a]+[a]+[a!]", "[F0]+[F0]+[F0!]");
    row("store leaves count and increment", "store", "[c]+[d]", "[c]+[d]");
    row("store leaves string", "store", "[e]", "[e]");
    row("store bracketed title", "store", "[x]y]+1", "[F6]+1");
    row("store case sensitive", "store", "[A]+[a!!]", "[A]+[a!!]");
    row("store past the list as written", "store", "[F10]", "[F10]");
    // Fields 7 to 9 are titled "F8", "F9" and "F7": their titles turn into each other for ever.
    row("store cycling titles stop", "store", "[F8]", "[F8]");
}

void TestFormulaTranslation::translate()
{
    QFETCH(QString, direction);
    QFETCH(QString, from);
    const QList<FieldDef> fields = { field("a", FieldDef::Integer), field("b", FieldDef::Double),
        field("c", FieldDef::Count), field("d", FieldDef::Increment), field("e", FieldDef::String),
        field("a", FieldDef::Double), field("x]y", FieldDef::Integer),
        field("F8", FieldDef::Integer), field("F9", FieldDef::Integer),
        field("F7", FieldDef::Integer) };
    if (direction == QLatin1String("show"))
        QTEST(FormulaTranslation::display(from, fields), "to");
    else
        QTEST(FormulaTranslation::stored(from, fields), "to");
}

QTEST_GUILESS_MAIN(TestFormulaTranslation)
#include "testformulatranslation.moc"
