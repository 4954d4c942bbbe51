// The binary card: the bytes are loaded as a whole card and as the header the card list
// reads. Saving is off, so a damaged input is never written back or kept aside.
#include "fuzzinput.h"

#include "card/datamanager.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString path = FuzzInput::write(QStringLiteral("input.card"), data, size);
    for (const bool headerOnly : { false, true }) {
        DataManager card(path, false, headerOnly);
        card.setReadOnly(true);
        card.load();
    }
    return 0;
}
