#include "views/reportsettings.h"

#include "platform/config.h"

#include <QCoreApplication>

namespace
{
const QString group = QStringLiteral("reportcolors");

QColor readColor(const Config &config, const char *key, const QColor &fallback)
{
    const QColor color(config.readEntry(QLatin1String(key)));
    return color.isValid() ? color : fallback;
}

// A line colour that is stored but not a colour name (the empty string among them)
// switches its line off; only a missing entry falls back to the default.
QColor readLineColor(const Config &config, const char *key, const QColor &fallback)
{
    if (!config.hasKey(QLatin1String(key)))
        return fallback;
    return QColor(config.readEntry(QLatin1String(key)));
}

int readAlign(const Config &config, const char *key, int fallback)
{
    bool ok = false;
    const int value = config.readEntry(QLatin1String(key)).toInt(&ok);
    const bool known = value == ReportSettings::alignRight || value == ReportSettings::alignLeft
        || value == ReportSettings::alignCenter;
    return ok && known ? value : fallback;
}

QString lineColorName(const QColor &color)
{
    return color.isValid() ? color.name() : QString();
}
} // namespace

ReportSettings::ReportSettings()
    : background(Qt::white)
    , labelColor(QStringLiteral("#303030"))
    , lineColor(QStringLiteral("#d0d0d0"))
    , separatorColor(QStringLiteral("#d0d0d0"))
    , valueColor(Qt::darkBlue)
    , labelAlign(alignRight)
    , valueAlign(alignLeft)
{
}

ReportSettings ReportSettings::read()
{
    const ReportSettings defaults;
    Config config(QCoreApplication::instance()->objectName());
    config.setGroup(group);
    ReportSettings settings;
    settings.background = readColor(config, "c5", defaults.background);
    settings.labelColor = readColor(config, "c1", defaults.labelColor);
    settings.lineColor = readLineColor(config, "c3", defaults.lineColor);
    settings.separatorColor = readLineColor(config, "c4", defaults.separatorColor);
    settings.valueColor = readColor(config, "c2", defaults.valueColor);
    settings.labelAlign = readAlign(config, "a1", defaults.labelAlign);
    settings.valueAlign = readAlign(config, "a2", defaults.valueAlign);
    return settings;
}

void ReportSettings::write() const
{
    Config config(QCoreApplication::instance()->objectName());
    config.setGroup(group);
    config.writeEntry(QStringLiteral("c1"), labelColor.name());
    config.writeEntry(QStringLiteral("c2"), valueColor.name());
    config.writeEntry(QStringLiteral("c3"), lineColorName(lineColor));
    config.writeEntry(QStringLiteral("c4"), lineColorName(separatorColor));
    config.writeEntry(QStringLiteral("c5"), background.name());
    config.writeEntry(QStringLiteral("a1"), labelAlign);
    config.writeEntry(QStringLiteral("a2"), valueAlign);
}
