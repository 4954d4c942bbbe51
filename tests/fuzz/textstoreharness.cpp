// The text record store: the bytes are loaded as the extended card list, whose entries are
// whole text records, and as the device list, whose header names the card files.
#include "fuzzinput.h"

#include "store/dbmanager.h"

namespace
{
void load(bool extended, const uint8_t *data, size_t size)
{
    DBManager list(extended);
    list.setReadOnly(true);
    FuzzInput::write(list.fullPath(), data, size);
    list.load();
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    load(true, data, size);
    load(false, data, size);
    return 0;
}
