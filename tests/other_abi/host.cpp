// A host as the platform's usual compiler builds it. It links by the C++ name, has store classes of its own, and frees
// what the library appended. The exit status says which step failed.
#include "window_api.h"

#include "tests/packages/consumer/typing_user.h"

class CMdbRecord {
public:
    char* bytes;
    CMdbRecord* next;
    int changed;
};

class CMdb {
public:
    CMdbRecord* last;
    CMdbRecord* first;
};

int Tavrikconfig(HWND parent, const char* caption, CMdb* hostStore, int designationOption, int optionalPages,
                 int hostMode);

namespace {

template <SIZE_T size>
CMdbRecord* MakeRecord(const char (&bytes)[size]) {
    auto* record = static_cast<CMdbRecord*>(malloc(sizeof(CMdbRecord)));
    *record = {static_cast<char*>(malloc(size)), nullptr, 0};
    memcpy(record->bytes, bytes, size);
    return record;
}

// The literal's NUL is the record's.
template <SIZE_T size>
bool Holds(const CMdbRecord& record, const char (&bytes)[size]) {
    return memcmp(record.bytes, bytes, size) == 0;
}

// A library that knows of other sizes writes over what stands around the store.
struct GuardedStore {
    UINT_PTR before = 4711;
    CMdb store{nullptr, nullptr};
    UINT_PTR after = 4712;
};

UINT RunHost() {
    GuardedStore guarded;
    CMdb& store = guarded.store;
    if (Tavrikconfig(nullptr, kCaption, nullptr, 0, 0, 0) != 0) {
        return 1;
    }
    store.first = store.last = MakeRecord(
        "\1X-COORD\0\2"
        "1\0");
    SetTimer(nullptr, 0, 50, TypeAndPressOk);
    if (Tavrikconfig(nullptr, kCaption, &store, 0, 0, 0) != 1) {
        return 2;
    }
    // The value has grown, so it has come to stand before the key, in a buffer of the library's.
    if (!Holds(*store.first,
               "\2"
               "12.5\0\1X-COORD\0") ||
        store.first->changed != 1) {
        return 3;
    }
    CMdbRecord* appended = store.first->next;
    if (appended == nullptr || appended != store.last || appended->next != nullptr || appended->changed != 0) {
        return 4;
    }
    if (!Holds(*appended,
               "\1Y-COORD\0\2"
               "265\0")) {
        return 5;
    }
    if (guarded.before != 4711 || guarded.after != 4712) {
        return 6;
    }
    while (CMdbRecord* record = store.first) {
        store.first = record->next;
        free(record->bytes);
        free(record);
    }
    return 0;
}

}  // namespace

// There is no run time library that would call main.
extern "C" void Start() {
    ExitProcess(RunHost());
}
