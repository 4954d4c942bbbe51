#include "cli/formatcommand.h"

#include "calc/datetimeformat.h"
#include "calc/numberformat.h"
#include "cli/argumentparser.h"

#include <QDateTime>
#include <QTextStream>

int FormatCommand::run(const ArgumentParser &arguments)
{
    const QString kind = arguments.positional().at(0);
    const QString code = arguments.positional().at(1);
    const QString value = arguments.positional().at(2);
    if (kind == QLatin1String("number")) {
        bool ok = false;
        const double number = value.toDouble(&ok);
        if (!ok)
            return usageError(QStringLiteral("not a number: %1").arg(value));
        out() << formatNumber(number, code) << '\n';
        return Success;
    }
    if (kind == QLatin1String("datetime")) {
        const QDateTime dateTime =
            QDateTime::fromString(value, QStringLiteral("yyyy-MM-ddTHH:mm:ss"));
        if (!dateTime.isValid())
            return usageError(QStringLiteral("not a date-time of the form YYYY-MM-DDThh:mm:ss: %1")
                                  .arg(value));
        out() << formatDateTime(dateTime, code) << '\n';
        return Success;
    }
    return usageError(QStringLiteral("format what: number or datetime, not %1").arg(kind));
}
