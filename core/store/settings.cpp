// Key operations on a store of settings records.
#include "core/store/settings.h"

#include <cstring>
#include <memory>
#include <new>
#include <utility>

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

struct Setting {
    const char* key;
    const char* value;

    Field KeyField() const { return {CMdbRecord::kKeyTag, key}; }
    Field ValueField() const { return {CMdbRecord::kValueTag, value}; }
};

// Visits the records that have a key and a value.
template <typename Visit>
void ForEachSetting(const CMdb* store, Visit visit) {
    for (const CMdbRecord* record = store->GetFirst(); record != nullptr; record = record->GetNext()) {
        const Setting setting = {record->GetField(CMdbRecord::kKeyTag), record->GetField(CMdbRecord::kValueTag)};
        if (setting.key != nullptr && setting.value != nullptr) {
            visit(setting);
        }
    }
}

bool IsSetting(const CMdbRecord& record, const char* key) {
    // Every setting that a page loads goes through the whole store, and most records end at their first characters.
    const char* bytes = record.GetData();
    if (bytes != nullptr && bytes[0] == CMdbRecord::kKeyTag && bytes[1] != *key) {
        return false;
    }
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

int SetSetting(CMdb* store, const char* key, const char* value) {
    CMdbRecord* record = nullptr;
    if (FindSetting(store, key, record) != 0) {
        return record->SetField(CMdbRecord::kValueTag, value) != nullptr ? 1 : 0;
    }
    return AppendRecord(store, {CMdbRecord::kKeyTag, key}, {CMdbRecord::kValueTag, value});
}

int MergeSettingRecords(const CMdb* from, CMdb* to) {
    int isComplete = 1;
    ForEachSetting(from, [&](const Setting& setting) {
        CMdbRecord* target = nullptr;
        if (FindSetting(to, setting.key, target) == 0) {
            isComplete &= AppendRecord(to, setting.KeyField(), setting.ValueField());
        } else if (target->SetField(CMdbRecord::kValueTag, setting.value) != nullptr) {
            target->SetChanged(1);
        } else {
            isComplete = 0;
        }
    });
    return isComplete;
}

// Everything that takes memory is made aside: what is appended, and a copy of each record that grows, whose buffer then
// changes places with that of the record.
class CPreparedMerge {
public:
    bool Prepare(const CMdb* from, CMdb* to) {
        bool isComplete = true;
        ForEachSetting(from, [&](const Setting& setting) {
            CMdbRecord* target = nullptr;
            FindSetting(to, setting.key, target);
            if (target == nullptr) {
                isComplete = isComplete && AppendRecord(&m_appended, setting.KeyField(), setting.ValueField()) != 0;
            } else if (Grows(*target, setting)) {
                isComplete = isComplete && m_grown.AddRecord(target->GetData()) != 0 &&
                             m_grown.m_pTail->SetField(CMdbRecord::kValueTag, setting.value) != nullptr;
            }
        });
        return isComplete;
    }

    void Commit(const CMdb* from, CMdb* to) {
        CMdbRecord* grown = m_grown.m_pHead;
        ForEachSetting(from, [&](const Setting& setting) {
            CMdbRecord* target = nullptr;
            FindSetting(to, setting.key, target);
            if (target == nullptr) {
                return;
            }
            if (grown != nullptr && Grows(*target, setting)) {
                std::swap(target->m_pData, grown->m_pData);
                grown = grown->m_pNext;
            } else {
                target->SetField(CMdbRecord::kValueTag, setting.value);
            }
            target->SetChanged(1);
        });
        Append(to);
    }

private:
    static bool Grows(const CMdbRecord& target, const Setting& setting) {
        return std::strlen(setting.value) > std::strlen(target.GetField(CMdbRecord::kValueTag));
    }

    void Append(CMdb* to) {
        CMdbRecord* first = std::exchange(m_appended.m_pHead, nullptr);
        if (first == nullptr) {
            return;
        }
        (to->m_pHead == nullptr ? to->m_pHead : to->m_pTail->m_pNext) = first;
        to->m_pTail = m_appended.m_pTail;
    }

    CMdb m_grown;
    CMdb m_appended;
};

int CommitSettingRecords(const CMdb* from, CMdb* to) {
    CPreparedMerge merge;
    if (!merge.Prepare(from, to)) {
        return 0;
    }
    merge.Commit(from, to);
    return 1;
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
