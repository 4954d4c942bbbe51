#ifndef CSVFORMAT_H
#define CSVFORMAT_H

#include <QString>
#include <QStringList>

// How a delimited text file is laid out: the delimiter between values and the qualifier
// around them. The delimiter choices are the same in the import wizard, the export dialog
// and the command line, in this order.
class CsvFormat
{
public:
    QString delimiter = QStringLiteral("\t");
    QString qualifier = QStringLiteral("\"");

    // The delimiter of a choice: one character of "\t ;,!:-|/", or the typed text when
    // other is set. An empty result is a blank.
    static QString delimiterFor(int index, bool other, const QString &typed);
    // The names of the choices for the command line: "tab", "space", "semicolon", ...
    static QStringList delimiterNames();
    // The translated names the dialogs show: "Tab", "Space", "Semicolon", ...
    static QStringList delimiterTitles();
};

#endif
