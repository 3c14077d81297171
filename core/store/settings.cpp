// Key operations on a store of settings records.
#include "core/store/settings.h"

#include <cstring>
#include <memory>
#include <new>

namespace {

constexpr char kPlaceholderValue[] = "x";

struct Field {
    int tag;
    const char* text;
};

// Appends the record  tag text NUL tag text NUL NUL.  Returns 0 when memory ran out.
int AppendRecord(CMdb* store, const Field& first, const Field& second) {
    const std::size_t firstSize = std::strlen(first.text) + 2;
    const std::size_t secondSize = std::strlen(second.text) + 2;
    const std::unique_ptr<char[]> bytes(new (std::nothrow) char[firstSize + secondSize + 1]);
    if (bytes == nullptr) {
        return 0;
    }
    char* out = bytes.get();
    *out++ = static_cast<char>(first.tag);
    std::memcpy(out, first.text, firstSize - 1);
    out += firstSize - 1;
    *out++ = static_cast<char>(second.tag);
    std::memcpy(out, second.text, secondSize - 1);
    out[secondSize - 1] = '\0';
    return store->AddRecord(bytes.get());
}

bool IsSetting(const CMdbRecord& record, const char* key) {
    const char* recordKey = record.GetField(CMdbRecord::kKeyTag);
    return recordKey != nullptr && std::strcmp(recordKey, key) == 0 &&
           record.GetField(CMdbRecord::kValueTag) != nullptr;
}

}  // namespace

int FindSetting(const CMdb* store, const char* key, CMdbRecord*& record) {
    int index = 1;
    for (record = store->GetFirst(); record != nullptr; record = record->GetNext(), ++index) {
        if (IsSetting(*record, key)) {
            return index;
        }
    }
    return 0;
}

void SetSetting(CMdb* store, const char* key, const char* value) {
    CMdbRecord* record = nullptr;
    if (FindSetting(store, key, record) != 0) {
        record->SetField(CMdbRecord::kValueTag, value);
    } else {
        AppendRecord(store, {CMdbRecord::kKeyTag, key}, {CMdbRecord::kValueTag, value});
    }
}

void MergeSettingRecords(const CMdb* from, CMdb* to) {
    for (const CMdbRecord* source = from->GetFirst(); source != nullptr; source = source->GetNext()) {
        const char* key = source->GetField(CMdbRecord::kKeyTag);
        const char* value = source->GetField(CMdbRecord::kValueTag);
        if (key == nullptr || value == nullptr) {
            continue;
        }
        CMdbRecord* target = nullptr;
        if (FindSetting(to, key, target) == 0) {
            AppendRecord(to, {CMdbRecord::kKeyTag, key}, {CMdbRecord::kValueTag, value});
        } else if (target->SetField(CMdbRecord::kValueTag, value) != nullptr) {
            target->SetChanged(1);
        }
    }
}

CMdbRecord* FindSettingRecord(const CMdb* store, const char* key) {
    if (store == nullptr || key == nullptr || *key == '\0') {
        return nullptr;
    }
    CMdbRecord* record = nullptr;
    FindSetting(store, key, record);
    return record;
}

int WriteSetting(CMdb* store, const char* key, const char* value) {
    if (store == nullptr || key == nullptr || value == nullptr) {
        return 0;
    }
    if (CMdbRecord* record = FindSettingRecord(store, key)) {
        return record->SetField(CMdbRecord::kValueTag, value) != nullptr ? 1 : 0;
    }
    const Field keyField{CMdbRecord::kKeyTag, key};
    if (*key == '\0') {
        AppendRecord(store, keyField, {CMdbRecord::kValueTag, kPlaceholderValue});
        return 0;
    }
    // A new record is a placeholder whose value is then set, so a value longer than the placeholder stands first.
    // The bytes are laid out at once, which leaves no placeholder behind when memory runs out.
    const Field valueField{CMdbRecord::kValueTag, value};
    return std::strlen(value) <= std::strlen(kPlaceholderValue) ? AppendRecord(store, keyField, valueField)
                                                                : AppendRecord(store, valueField, keyField);
}
