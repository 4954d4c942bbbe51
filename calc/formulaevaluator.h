#ifndef FORMULAEVALUATOR_H
#define FORMULAEVALUATOR_H

#include <QHash>
#include <QString>

class DataRecord;
class QRegularExpression;

// Evaluates the formula of a calculated field straight from its text, with no parse step:
// sums of products of factors, where a factor is a signed factor, a bracketed sum, a
// number, a field reference "[F<n>]" ("[F<n>!]" in the previous record) or a call of
// sin, cos, tan, arcsin, arccos, arctan, abs, sqrt or atan(y, x).
//
// The reader keeps the looseness that stored formulas depend on: trailing text is ignored,
// a reference is not checked for its form, a call steps over its "(" and "," unseen, and a
// search from position -1 starts again at the last character. What it adds is a bound:
// a text that would keep it turning for ever (one ending in a binary operator, such as
// "1+"), or nests deeper than maxDepth, stops and fails with the value 0.
class FormulaEvaluator
{
public:
    static constexpr int maxDepth = 1000;

    FormulaEvaluator();

    // A null record or previous reads 0 for each of its references. *ok, if given, tells
    // whether every factor could be read.
    double evaluate(
        const QString &formula, bool *ok, const DataRecord *record, const DataRecord *previous);

private:
    enum Function { Sin, Cos, Tan, ArcSin, ArcCos, ArcTan, Abs, Sqrt, Atan };

    double expression();
    double term();
    double factor();
    double readFactor();
    bool readNumber(double *value);
    bool readReference(double *value);
    int readFunctionName();
    double call(int function);
    double closeGroup(double value);
    double fail();

    qsizetype skip(const QRegularExpression &scanner) const;
    qsizetype stretchEnd(const QRegularExpression &stop) const;
    QChar charAtPosition() const;
    double fieldValue(QStringView token) const;
    bool takeOperator(qsizetype *lastTaken);
    double abort();

    const DataRecord *m_record = nullptr;
    const DataRecord *m_previous = nullptr;
    bool m_failed = false;
    QString m_text;
    qsizetype m_position = 0;
    QHash<QString, int> m_functions;

    // The bound on the work of one evaluation.
    bool m_aborted = false;
    int m_depth = 0;
    qsizetype m_steps = 0;
    qsizetype m_stepLimit = 0;
};

#endif
