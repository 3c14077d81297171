// Settings are told apart by their key and their number among the records of that key: positions are no good once
// someone else has put in a line.

#include "host/document.h"

#include <map>
#include <optional>
#include <utility>

#include "host/files.h"

namespace host {
namespace {

constexpr int kMaxAttempts = 10;

using Name = std::pair<std::string, size_t>;

struct Change {
    Name name;
    std::optional<std::string> oldValue;  // nothing for a setting that was not there
    std::string newValue;
};

std::map<Name, size_t> PositionsOf(const std::vector<Setting>& settings) {
    std::map<std::string, size_t> counts;
    std::map<Name, size_t> positions;
    for (size_t i = 0; i < settings.size(); ++i) {
        const std::string& key = settings[i].key;
        positions.emplace(Name{key, counts[key]++}, i);
    }
    return positions;
}

std::vector<Change> ChangesBetween(const std::vector<Setting>& before, const std::vector<Setting>& after) {
    const std::map<Name, size_t> positions = PositionsOf(before);
    std::map<std::string, size_t> counts;
    std::vector<Change> changes;
    for (const Setting& setting : after) {
        Change change{{setting.key, counts[setting.key]++}, std::nullopt, setting.value};
        const auto found = positions.find(change.name);
        if (found != positions.end()) {
            change.oldValue = before[found->second].value;
        }
        if (change.oldValue != change.newValue) {
            changes.push_back(std::move(change));
        }
    }
    return changes;
}

// Values of someone else's that this run's changes replace.
std::string DescribeReplaced(const std::vector<Setting>& before, const std::vector<Setting>& after,
                             const std::vector<Setting>& others) {
    const std::map<Name, size_t> positions = PositionsOf(others);
    std::string lines;
    for (const Change& change : ChangesBetween(before, after)) {
        const auto found = positions.find(change.name);
        if (found == positions.end()) {
            continue;
        }
        const std::string& value = others[found->second].value;
        if (value != change.oldValue && value != change.newValue) {
            lines += "replaced " + EscapeValue(change.name.first) + ": \"" + EscapeValue(value) +
                     "\", which someone else had set\n";
        }
    }
    return lines;
}

}  // namespace

std::vector<Setting> MergeSettings(const std::vector<Setting>& before, const std::vector<Setting>& after,
                                   std::vector<Setting> others) {
    if (others == before) {
        return after;
    }
    const std::map<Name, size_t> positions = PositionsOf(others);
    for (const Change& change : ChangesBetween(before, after)) {
        const auto found = positions.find(change.name);
        if (found != positions.end()) {
            others[found->second].value = change.newValue;
        } else {
            others.push_back({change.name.first, change.newValue});
        }
    }
    return others;
}

std::string DescribeChanges(const std::vector<Setting>& before, const std::vector<Setting>& after) {
    std::string lines;
    for (const Change& change : ChangesBetween(before, after)) {
        lines += (change.oldValue ? "changed " : "added ") + EscapeValue(change.name.first) + ": ";
        if (change.oldValue) {
            lines += "\"" + EscapeValue(*change.oldValue) + "\" -> ";
        }
        lines += "\"" + EscapeValue(change.newValue) + "\"\n";
    }
    return lines;
}

Document::Document(std::string fileName)
    : m_strFileName(std::move(fileName)),
      m_strBytes(ReadWholeFile(m_strFileName)),
      m_settings(SettingsFile(m_strFileName, m_strBytes).Settings()) {}

std::string Document::MergeInto(const std::string& fileBytes, const std::vector<Setting>& settings) const {
    SettingsFile file(m_strFileName, fileBytes);
    file.SetSettings(MergeSettings(m_settings, settings, file.Settings()));
    return file.Bytes();
}

std::string Document::SaveNow(const std::vector<Setting>& settings) {
    // Someone else may change the file again while the new content is made ready.
    for (int attempt = 0; attempt < kMaxAttempts; ++attempt) {
        const std::string present = ReadWholeFile(m_strFileName);
        std::string merged = MergeInto(present, settings);
        if (!ExchangeWholeFile(m_strFileName, present, merged)) {
            continue;
        }
        std::string said;
        if (present != m_strBytes) {
            const SettingsFile others(m_strFileName, present);
            said = m_strFileName + " was changed by someone else meanwhile: those changes stay, these are added\n" +
                   DescribeReplaced(m_settings, settings, others.Settings());
        }
        m_strBytes = std::move(merged);
        m_settings = settings;
        return said;
    }
    throw FileError(m_strFileName + ": cannot be written: someone else keeps changing it");
}

std::string Document::Rescue(const std::vector<Setting>& settings) const {
    if (const auto name = KeepUnsaved(m_strFileName, MergeInto(m_strBytes, settings))) {
        return "; the changed settings are in " + *name;
    }
    std::string lines = "; no other file can be written either, not saved:\n" + DescribeChanges(m_settings, settings);
    lines.pop_back();
    return lines;
}

std::string Document::Save(const std::vector<Setting>& settings) {
    try {
        return SaveNow(settings);
    } catch (const std::exception& error) {
        throw FileError(error.what() + Rescue(settings));
    }
}

}  // namespace host
