#ifndef CSVCOMMANDOPTIONS_H
#define CSVCOMMANDOPTIONS_H

#include <QString>

class ArgumentParser;
class CsvFormat;
class QTextCodec;

// The options that import csv and export share: the delimiter, the qualifier, the codec
// and the multiline separator, named after the choices of the dialogs.
class CsvCommandOptions
{
public:
    static void declare(ArgumentParser &parser);
    // False with a message when a name is not one of the choices.
    static bool readFormat(const ArgumentParser &arguments, CsvFormat *format, QString *error);
    // fallback names the codec used without --codec; an empty one means the local 8-bit
    // conversion (a null codec).
    static bool readCodec(const ArgumentParser &arguments, const QString &fallback,
        QTextCodec **codec, QString *error);
    // "newline" is a line feed, "space" a blank, anything else itself.
    static QString separator(const QString &name);
};

#endif
