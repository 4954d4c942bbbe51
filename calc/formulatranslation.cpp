#include "calc/formulatranslation.h"

#include "calc/formulaevaluator.h"

#include <QRegularExpression>
#include <QSet>

QString FormulaTranslation::display(const QString &formula, const QList<FieldDef> &fields)
{
    static const QRegularExpression reference(QStringLiteral("\\[[Ff](\\d+)(!*)\\]"));
    QString result;
    qsizetype done = 0;
    auto match = reference.globalMatch(formula);
    while (match.hasNext()) {
        const QRegularExpressionMatch found = match.next();
        bool ok = false;
        const int number = found.captured(1).toInt(&ok);
        result += formula.mid(done, found.capturedStart() - done);
        if (ok && number < fields.size())
            result += QLatin1Char('[') + fields.at(number).title + found.captured(2)
                + QLatin1Char(']');
        else
            result += found.captured();
        done = found.capturedEnd();
    }
    return result + formula.mid(done);
}

QString FormulaTranslation::stored(const QString &text, const QList<FieldDef> &fields)
{
    QString result = text;
    result.remove(QLatin1Char('\n'));
    for (int pass = 0; pass < maxPasses && translateOnce(result, fields); ++pass) { }
    return result;
}

bool FormulaTranslation::translateOnce(QString &text, const QList<FieldDef> &fields)
{
    const QString before = text;
    QSet<QString> taken;
    for (int i = 0; i < fields.size(); ++i) {
        const FieldDef &field = fields.at(i);
        if (field.type != FieldDef::Integer && field.type != FieldDef::Double)
            continue;
        // Of two fields with one title the first takes every reference.
        if (taken.contains(field.title))
            continue;
        taken.insert(field.title);
        const QString plain = QLatin1Char('[') + field.title + QLatin1Char(']');
        qsizetype at = text.indexOf(plain);
        if (at >= 0) {
            text.replace(at, plain.size(), QStringLiteral("[F%1]").arg(i));
            continue;
        }
        const QString previous = QLatin1Char('[') + field.title + QStringLiteral("!]");
        at = text.indexOf(previous);
        if (at >= 0)
            text.replace(at, previous.size(), QStringLiteral("[F%1!]").arg(i));
    }
    return text != before;
}

double FormulaTranslation::evaluate(const QString &text, const QList<FieldDef> &fields,
    const DataRecord *record, const DataRecord *previous, bool *ok)
{
    FormulaEvaluator evaluator;
    return evaluator.evaluate(stored(text, fields), ok, record, previous);
}
