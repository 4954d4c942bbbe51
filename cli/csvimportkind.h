#ifndef CSVIMPORTKIND_H
#define CSVIMPORTKIND_H

#include "cli/importkind.h"
#include "exchange/csvcolumn.h"

#include <QList>

// "import csv FILE [options]": the three steps of the text wizard in one run. The options
// are checked before the file is read; only a column past the file's last is found later.
class CsvImportKind : public ImportKind
{
public:
    QString name() const override { return QStringLiteral("csv"); }
    QString synopsis() const override;
    QStringList flags() const override;
    QStringList valueOptions() const override;
    bool check(const ArgumentParser &arguments, QString *message) const override;
    bool import(const QString &file, const ArgumentParser &arguments, CardImportTarget *target,
        QString *message) const override;

private:
    // Applies the per-column options. With grow, a column named past the list's end is
    // added instead of refused, which is how check() sees the options without a file.
    bool applyColumnOptions(const ArgumentParser &arguments, QList<CsvColumn> *columns, bool grow,
        QString *error) const;
};

#endif
