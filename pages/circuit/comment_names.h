// The names of the connection comments, one for each colour number, and where the connection page's values come from:
// the workstation's profile file, which the settings override.
#pragma once

#include <array>

#include "core/store/settings.h"
#include "framework/framework.h"

inline constexpr char kConnectProfile[] = "NORVASTI.INI";
inline constexpr char kConnectSection[] = "WIREHAND";

// Settings of two stores, of which the first one that has a key decides.
class SettingLookup {
public:
    // Either may be null.
    SettingLookup(const CMdb* first, const CMdb* second) : m_first(first), m_second(second) {}

    // The value, which belongs to its store; null when the key is missing.
    LPCSTR Find(LPCSTR key) const;

    // Visits the stores that there are so that what the later visit finds is what counts.
    template <typename Visit>
    void VisitLastStoreFirst(Visit visit) const {
        for (const CMdb* store : {m_second, m_first}) {
            if (store != nullptr) {
                visit(*store);
            }
        }
    }

private:
    const CMdb* m_first;
    const CMdb* m_second;
};

inline constexpr int kFirstCommentColour = 1;
inline constexpr int kLastCommentColour = 255;
inline constexpr int kCommentLength = 7;

class CommentNames {
public:
    // "c" and the number.
    void SetDefaults();
    // What the profile file has.
    void ReadProfile();
    // What the settings have.
    void ReadSettings(const SettingLookup& settings);
    // Stores the names that differ from those of another set. FALSE when memory ran out.
    BOOL WriteChanged(const CommentNames& original, CMdb* store) const;

    // Of a colour from 0 to 255.
    LPCSTR Get(int colour) const { return m_names[static_cast<size_t>(colour)].data(); }
    // A longer name is cut off.
    void Set(int colour, LPCSTR name);

private:
    using Name = std::array<char, kCommentLength + 1>;

    std::array<Name, kLastCommentColour + 1> m_names{};
};
