#include "cli/mobiledbimportkind.h"

#include "exchange/mobiledbimporter.h"

bool MobileDBImportKind::check(const ArgumentParser &, QString *) const
{
    return true;
}

bool MobileDBImportKind::import(
    const QString &file, const ArgumentParser &, CardImportTarget *target, QString *message) const
{
    MobileDBImporter importer(target);
    if (importer.import(file))
        return true;
    *message = importer.errorString();
    return false;
}
