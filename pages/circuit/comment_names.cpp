// The names of the connection comments.
#include "pages/circuit/comment_names.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace {

constexpr int kValueField = 2;

// The profile file's key of a colour, and its default name; the settings' key.
constexpr char kProfileKey[] = "C%d";
constexpr char kDefaultName[] = "c%d";
constexpr char kSettingKey[] = "WHCOLC%d";

using Key = std::array<char, 16>;

Key KeyOf(const char* format, int colour) {
    Key key{};
    std::snprintf(key.data(), key.size(), format, colour);
    return key;
}

// Most users have no profile file, and each key asked for is a file that is looked for.
bool HasProfile() {
    char sections[4] = "";
    return GetPrivateProfileStringA(nullptr, nullptr, "", sections, sizeof sections, kConnectProfile) != 0;
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
    if (!HasProfile()) {
        return;
    }
    for (int colour = kFirstCommentColour; colour <= kLastCommentColour; ++colour) {
        Name name{};
        GetPrivateProfileStringA(kConnectSection, KeyOf(kProfileKey, colour).data(), Get(colour), name.data(),
                                 static_cast<DWORD>(name.size()), kConnectProfile);
        Set(colour, name.data());
    }
}

void CommentNames::ReadSettings(const SettingLookup& settings) {
    for (int colour = kFirstCommentColour; colour <= kLastCommentColour; ++colour) {
        if (LPCSTR name = settings.Find(KeyOf(kSettingKey, colour).data())) {
            Set(colour, name);
        }
    }
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
