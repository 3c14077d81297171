// The names of the connection comments.
#include "pages/circuit/comment_names.h"

#include <algorithm>
#include <bitset>
#include <charconv>
#include <cstring>
#include <string_view>

namespace {

constexpr int kValueField = 2;

// What stands before the colour's number: in the profile file's key, in its default name, in the settings' key.
constexpr std::string_view kProfileKey = "C";
constexpr std::string_view kDefaultName = "c";
constexpr std::string_view kSettingKey = "WHCOLC";

using Key = std::array<char, 16>;

Key KeyOf(std::string_view prefix, int colour) {
    Key key{};
    char* const number = std::copy(prefix.begin(), prefix.end(), key.begin());
    std::to_chars(number, key.end() - 1, colour);
    return key;
}

// The colour that a key of the settings is about; 0 for any other key.
int ColourOf(std::string_view key) {
    int colour = 0;
    if (key.starts_with(kSettingKey)) {
        std::from_chars(key.data() + kSettingKey.size(), key.data() + key.size(), colour);
    }
    const bool isComment = colour >= kFirstCommentColour && colour <= kLastCommentColour;
    return isComment && key == KeyOf(kSettingKey, colour).data() ? colour : 0;
}

}  // namespace

LPCSTR SettingLookup::Find(LPCSTR key) const {
    for (const CMdb* store : {m_first, m_second}) {
        if (const CMdbRecord* record = FindSettingRecord(store, key)) {
            return record->GetField(kValueField);
        }
    }
    return nullptr;
}

void CommentNames::SetDefaults() {
    for (int colour = 0; colour <= kLastCommentColour; ++colour) {
        Set(colour, KeyOf(kDefaultName, colour).data());
    }
}

void CommentNames::ReadProfile() {
    for (int colour = kFirstCommentColour; colour <= kLastCommentColour; ++colour) {
        Name name{};
        GetPrivateProfileStringA(kConnectSection, KeyOf(kProfileKey, colour).data(), Get(colour), name.data(),
                                 static_cast<DWORD>(name.size()), kConnectProfile);
        Set(colour, name.data());
    }
}

// Goes through the stores once: asking for each name would go through them 255 times.
void CommentNames::ReadSettings(const SettingLookup& settings) {
    settings.VisitLastStoreFirst([this](const CMdb& store) {
        std::bitset<kLastCommentColour + 1> seen;
        for (const CMdbRecord* record = store.GetFirst(); record != nullptr; record = record->GetNext()) {
            const LPCSTR key = record->GetField(CMdbRecord::kKeyTag);
            const LPCSTR name = record->GetField(CMdbRecord::kValueTag);
            const int colour = key != nullptr && name != nullptr ? ColourOf(key) : 0;
            // Of several records with a key the first one counts.
            if (colour != 0 && !seen[static_cast<size_t>(colour)]) {
                seen.set(static_cast<size_t>(colour));
                Set(colour, name);
            }
        }
    });
}

BOOL CommentNames::WriteChanged(const CommentNames& original, CMdb* store) const {
    for (int colour = kFirstCommentColour; colour <= kLastCommentColour; ++colour) {
        if (std::strcmp(Get(colour), original.Get(colour)) != 0 &&
            WriteSetting(store, KeyOf(kSettingKey, colour).data(), Get(colour)) == 0) {
            return FALSE;
        }
    }
    return TRUE;
}

void CommentNames::Set(int colour, LPCSTR name) {
    Name& stored = m_names[static_cast<size_t>(colour)];
    stored.fill('\0');
    std::copy_n(name, std::min(std::strlen(name), size_t{kCommentLength}), stored.begin());
}
