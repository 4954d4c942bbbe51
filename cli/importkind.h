#ifndef IMPORTKIND_H
#define IMPORTKIND_H

#include <QString>
#include <QStringList>

class ArgumentParser;
class CardImportTarget;

// One kind of file that "import" reads: "import KIND FILE [options]". A kind names its own
// options; the command declares them all and refuses those of another kind. To add a kind,
// derive from this and append it in ImportCommand's constructor.
class ImportKind
{
public:
    virtual ~ImportKind() = default;

    virtual QString name() const = 0;
    virtual QString synopsis() const = 0; // its options, for the usage line
    virtual QStringList flags() const { return {}; }
    virtual QStringList valueOptions() const { return {}; }

    // Checks the kind's options; false with a message for a wrong command line.
    virtual bool check(const ArgumentParser &arguments, QString *message) const = 0;
    // Makes the card through target; false with the message to print when FILE is refused.
    virtual bool import(const QString &file, const ArgumentParser &arguments,
        CardImportTarget *target, QString *message) const = 0;
};

#endif
