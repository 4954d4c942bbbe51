#ifndef MOBILEDBIMPORTKIND_H
#define MOBILEDBIMPORTKIND_H

#include "cli/importkind.h"

// "import mobiledb FILE": no options of its own.
class MobileDBImportKind : public ImportKind
{
public:
    QString name() const override { return QStringLiteral("mobiledb"); }
    QString synopsis() const override { return QString(); }
    bool check(const ArgumentParser &arguments, QString *message) const override;
    bool import(const QString &file, const ArgumentParser &arguments, CardImportTarget *target,
        QString *message) const override;
};

#endif
