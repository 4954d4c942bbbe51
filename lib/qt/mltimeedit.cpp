#include "lib/qt/mltimeedit.h"

#include "platform/datetimesettings.h"

MLTimeEdit::MLTimeEdit(QWidget *parent)
    : QTimeEdit(parent)
{
    applySettings();
    connect(
        DateTimeSettings::instance(), &DateTimeSettings::changed, this, &MLTimeEdit::applySettings);
}

QString MLTimeEdit::systemDisplayFormat()
{
    return DateTimeSettings::instance()->ampm() ? QStringLiteral("hh:mm AP")
                                                : QStringLiteral("HH:mm");
}

void MLTimeEdit::applySettings()
{
    setDisplayFormat(systemDisplayFormat());
}
