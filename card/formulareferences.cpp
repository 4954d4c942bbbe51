#include "card/formulareferences.h"

#include <QRegularExpression>

namespace
{

const QRegularExpression &referencePattern()
{
    static const QRegularExpression pattern(QStringLiteral("\\[[Ff](\\d+[!]*)\\]"));
    return pattern;
}

// The number of a reference's capture, with its "!" marks taken off.
int referencedField(QString capture, bool *previous)
{
    *previous = capture.endsWith(u'!');
    while (capture.endsWith(u'!'))
        capture.chop(1);
    bool ok = false;
    const int field = capture.toInt(&ok);
    return ok ? field : -1;
}

} // namespace

QString FormulaReferences::renumber(const QString &formula, const QList<int> &map)
{
    QString text = formula;
    qsizetype from = 0;
    for (;;) {
        const QRegularExpressionMatch match = referencePattern().match(text, from);
        if (!match.hasMatch())
            return text;
        bool previous = false;
        const int field = referencedField(match.captured(1), &previous);
        const int moved = field >= 0 && field < map.size() ? map.at(field) : -1;
        if (moved == -1)
            return QString();
        const QString replacement
            = previous ? QStringLiteral("[F%1!]").arg(moved) : QStringLiteral("[F%1]").arg(moved);
        text.replace(match.capturedStart(), match.capturedLength(), replacement);
        // Go on behind the new text, so that a shorter number cannot hide the next one.
        from = match.capturedStart() + replacement.size();
    }
}

QList<int> FormulaReferences::dependencies(const QString &formula, bool *usesPrevious)
{
    QList<int> fields;
    QRegularExpressionMatchIterator it = referencePattern().globalMatch(formula);
    while (it.hasNext()) {
        bool previous = false;
        const int field = referencedField(it.next().captured(1), &previous);
        if (previous)
            *usesPrevious = true;
        else if (field >= 0)
            fields.append(field);
    }
    return fields;
}
