#include "exchange/csvformat.h"

#include <QCoreApplication>

namespace
{
const QString delimiterCharacters = QStringLiteral("\t ;,!:-|/");
} // namespace

QString CsvFormat::delimiterFor(int index, bool other, const QString &typed)
{
    QString delimiter = other                              ? typed
        : index >= 0 && index < delimiterCharacters.size() ? QString(delimiterCharacters.at(index))
                                                           : QString();
    return delimiter.isEmpty() ? QStringLiteral(" ") : delimiter;
}

QStringList CsvFormat::delimiterNames()
{
    return { QStringLiteral("tab"), QStringLiteral("space"), QStringLiteral("semicolon"),
        QStringLiteral("comma"), QStringLiteral("bang"), QStringLiteral("colon"),
        QStringLiteral("hyphen"), QStringLiteral("pipe"), QStringLiteral("slash") };
}

QStringList CsvFormat::delimiterTitles()
{
    const char *const titles[] = { QT_TRANSLATE_NOOP("CsvFormat", "Tab"),
        QT_TRANSLATE_NOOP("CsvFormat", "Space"), QT_TRANSLATE_NOOP("CsvFormat", "Semicolon"),
        QT_TRANSLATE_NOOP("CsvFormat", "Comma"), QT_TRANSLATE_NOOP("CsvFormat", "Bang"),
        QT_TRANSLATE_NOOP("CsvFormat", "Colon"), QT_TRANSLATE_NOOP("CsvFormat", "Hyphen"),
        QT_TRANSLATE_NOOP("CsvFormat", "Pipe"), QT_TRANSLATE_NOOP("CsvFormat", "Slash") };
    QStringList list;
    for (const char *title : titles)
        list << QCoreApplication::translate("CsvFormat", title);
    return list;
}
