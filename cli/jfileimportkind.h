#ifndef JFILEIMPORTKIND_H
#define JFILEIMPORTKIND_H

#include "cli/importkind.h"

// "import jfile FILE [--formula|--value] [--date-format FMT]".
class JFileImportKind : public ImportKind
{
public:
    QString name() const override { return QStringLiteral("jfile"); }
    QString synopsis() const override
    {
        return QStringLiteral("[--formula|--value] [--date-format FMT]");
    }
    QStringList flags() const override;
    QStringList valueOptions() const override;
    bool check(const ArgumentParser &arguments, QString *message) const override;
    bool import(const QString &file, const ArgumentParser &arguments, CardImportTarget *target,
        QString *message) const override;
};

#endif
