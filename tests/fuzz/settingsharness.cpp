// The settings files: the bytes are a settings file, read when the object is made; every
// group and entry it names is then read back in each of the typed forms.
#include "fuzzinput.h"

#include "platform/config.h"

#include <QFile>
#include <QRegularExpression>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString path = FuzzInput::write(QStringLiteral("settings.conf"), data, size);
    Config config(path, Config::File);
    // The names are taken from the bytes themselves, so entries the reader kept are read.
    static const QRegularExpression name(QStringLiteral("[\\[\\n]([^\\]=\\n]{0,40})"));
    const QString text = QString::fromUtf8(FuzzInput::bytes(data, size));
    auto match = name.globalMatch(text);
    for (int i = 0; i < 64 && match.hasNext(); ++i) {
        const QString key = match.next().captured(1).trimmed();
        config.setGroup(key);
        config.readEntry(key);
        config.readNumEntry(key);
        config.readBoolEntry(key);
        config.readListEntry(key, QLatin1Char(','));
    }
    return 0;
}
