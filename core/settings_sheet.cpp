// The sheet's operations on settings.
#include "core/settings_sheet.h"

#include <algorithm>
#include <climits>
#include <cstring>

#include "core/setting_keys.h"
#include "core/store/settings.h"

namespace {

struct MirroredSetting {
    LPCSTR key;
    int CSettingsSheet::*number;
};

constexpr MirroredSetting kMirroredSettings[] = {
    {kKeyDrwMode, &CSettingsSheet::m_nDrwMode},
    {kKeyBetPrefix, &CSettingsSheet::m_nBetPrefix},
    {kKeyCoordBet, &CSettingsSheet::m_nCoordBet},
};

// The leading integer of a text, as atoi reads it; one that does not fit counts as the nearest that does, where atoi
// differs from system to system.
int LeadingInteger(LPCSTR text) {
    text += std::strspn(text, " \t\n\v\f\r");
    const bool negative = *text == '-';
    if (*text == '+' || *text == '-') {
        ++text;
    }
    long long number = 0;
    for (; *text >= '0' && *text <= '9' && number <= INT_MAX; ++text) {
        number = number * 10 + (*text - '0');
    }
    const int magnitude = static_cast<int>(std::min<long long>(number, INT_MAX));
    return negative ? -magnitude : magnitude;
}

}  // namespace

BOOL CSettingsSheet::PreTranslateMessage(MSG* message) {
    ++m_nInput;
    return CPropertySheet::PreTranslateMessage(message);
}

int CSettingsSheet::GetSetting(const CMdb* store, LPCSTR key, CString& value) {
    CMdbRecord* record = nullptr;
    const int index = FindSetting(store, key, record);
    if (index != 0) {
        value = record->GetField(CMdbRecord::kValueTag);
    }
    return index;
}

CString CSettingsSheet::GetSettingText(const CMdb* store, LPCSTR key) {
    CString value;
    GetSetting(store, key, value);
    return value;
}

int CSettingsSheet::GetSettingNumber(const CMdb* store, LPCSTR key) {
    return LeadingInteger(GetSettingText(store, key));
}

void CSettingsSheet::PutSetting(CMdb* store, LPCSTR key, LPCSTR value) {
    for (const MirroredSetting& mirrored : kMirroredSettings) {
        if (std::strcmp(key, mirrored.key) == 0) {
            this->*mirrored.number = LeadingInteger(value);
        }
    }
    SetSetting(store, key, value);
}

void CSettingsSheet::MergeSettings(const CMdb* from, CMdb* to) {
    if (m_bEditable != 0) {
        MergeSettingRecords(from, to);
    }
}
