// A host that has nothing but what is installed. Its user types and presses OK; then both values are in its store.
#include <tavrikconfig.h>
#include <windows.h>

#include <commctrl.h>

#include <cstdio>
#include <cstring>
#ifndef _WIN32
#include <tavrikdisplay.h>
#endif

#include "typing_user.h"

namespace {

bool HasSetting(const CMdbRecord* record, const char* key, const char* value, int changed) {
    return record != nullptr && std::strcmp(record->GetField(CMdbRecord::kKeyTag), key) == 0 &&
           std::strcmp(record->GetField(CMdbRecord::kValueTag), value) == 0 && record->IsChanged() == changed;
}

}  // namespace

int main() {
#ifndef _WIN32
    if (TavrikDisplayInit(TAVRIK_DISPLAY_MEMORY) == 0) {
        return 3;
    }
#endif
    CMdb store;
    store.AddRecord(
        "\1X-COORD\0\2"
        "1\0");
    const int withoutStore = Tavrikconfig(nullptr, kCaption, nullptr, 0, 0, 0);
    SetTimer(nullptr, 0, 50, TypeAndPressOk);
    const int accepted = Tavrikconfig(nullptr, kCaption, &store, 0, 0, 0);
    const bool isStored = HasSetting(store.GetRecord(1), "X-COORD", kTypedX, 1) &&
                          HasSetting(store.GetRecord(2), "Y-COORD", kTypedY, 0) && store.GetRecord(3) == nullptr;
    std::printf("without a store %d, accepted %d, stored %d\n", withoutStore, accepted, isStored ? 1 : 0);
    return withoutStore == 0 && accepted == 1 && isStored ? 0 : 1;
}
