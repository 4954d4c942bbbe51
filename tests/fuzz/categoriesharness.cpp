// The category store: the bytes are the shared "mrlCategory" file, loaded as the categories
// dialog loads it, then looked up by title as the selector does.
#include "fuzzinput.h"

#include "reminders/categorymanager.h"
#include "reminders/categoryrecord.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    CategoryManager store;
    store.setReadOnly(true);
    FuzzInput::write(store.fullPath(), data, size);
    store.load();
    for (const PIMRecord *record : store.view())
        store.find(static_cast<const CategoryRecord *>(record)->title());
    return 0;
}
