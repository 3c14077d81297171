// The host's side of the store that it shares with the component.
#pragma once

#include <vector>

#include "automation/player.h"
#include "host/settings_file.h"
#include "include/tavrikconfig.h"

namespace host {

// Appends a settings record. Throws std::bad_alloc when memory runs out.
void AppendSetting(CMdb& store, const Setting& setting);

// All settings records, in order.
std::vector<Setting> ReadSettings(const CMdb& store);

// The store as scenarios see it.
class ScenarioStore : public automation::StoreAccess {
public:
    explicit ScenarioStore(CMdb& store) : m_store(store) {}
    void Append(const std::string& key, const std::string& value) override;
    void Clear() override;
    std::optional<std::string> Find(const std::string& key) const override;
    std::optional<bool> IsChanged(const std::string& key) const override;
    int Count() const override;
    std::string Snapshot() const override;

private:
    const CMdbRecord* FindRecord(const std::string& key) const;

    CMdb& m_store;
};

}  // namespace host
