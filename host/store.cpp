// Walks the store's records by its public face alone.

#include "host/store.h"

#include <new>

namespace host {
namespace {

// A record without the field, which no settings record is, reads as empty.
std::string FieldOf(const CMdbRecord& record, int tag) {
    const char* text = record.GetField(tag);
    return text != nullptr ? text : "";
}

}  // namespace

void AppendSetting(CMdb& store, const Setting& setting) {
    std::string bytes;
    bytes += static_cast<char>(CMdbRecord::kKeyTag);
    bytes.append(setting.key).push_back('\0');
    bytes += static_cast<char>(CMdbRecord::kValueTag);
    bytes.append(setting.value).push_back('\0');
    if (store.AddRecord(bytes.c_str()) == 0) {
        throw std::bad_alloc();
    }
}

std::vector<Setting> ReadSettings(const CMdb& store) {
    std::vector<Setting> settings;
    for (const CMdbRecord* record = store.GetFirst(); record != nullptr; record = record->GetNext()) {
        settings.push_back({FieldOf(*record, CMdbRecord::kKeyTag), FieldOf(*record, CMdbRecord::kValueTag)});
    }
    return settings;
}

void ScenarioStore::Append(const std::string& key, const std::string& value) {
    AppendSetting(m_store, {key, value});
}

void ScenarioStore::Clear() {
    m_store.RemoveAll();
}

const CMdbRecord* ScenarioStore::FindRecord(const std::string& key) const {
    const CMdbRecord* record = m_store.GetFirst();
    while (record != nullptr && FieldOf(*record, CMdbRecord::kKeyTag) != key) {
        record = record->GetNext();
    }
    return record;
}

std::optional<std::string> ScenarioStore::Find(const std::string& key) const {
    const CMdbRecord* record = FindRecord(key);
    if (record == nullptr) {
        return std::nullopt;
    }
    return FieldOf(*record, CMdbRecord::kValueTag);
}

std::optional<bool> ScenarioStore::IsChanged(const std::string& key) const {
    const CMdbRecord* record = FindRecord(key);
    if (record == nullptr) {
        return std::nullopt;
    }
    return record->IsChanged() != 0;
}

int ScenarioStore::Count() const {
    int count = 0;
    for (const CMdbRecord* record = m_store.GetFirst(); record != nullptr; record = record->GetNext()) {
        ++count;
    }
    return count;
}

std::string ScenarioStore::Snapshot() const {
    std::string bytes;
    for (const CMdbRecord* record = m_store.GetFirst(); record != nullptr; record = record->GetNext()) {
        bytes.append(record->GetData() != nullptr ? record->GetData() : "", record->GetSize());
        bytes += record->IsChanged() != 0 ? '1' : '0';
    }
    return bytes;
}

}  // namespace host
