// The sheet's operations on settings.
#include "core/settings_sheet.h"

#include <cstdlib>
#include <cstring>

#include "core/store/settings.h"

namespace {

struct MirroredSetting {
    LPCSTR key;
    int CSettingsSheet::*number;
};

constexpr MirroredSetting kMirroredSettings[] = {
    {"DRW_MODE", &CSettingsSheet::m_nDrwMode},
    {"BET_PREFIX", &CSettingsSheet::m_nBetPrefix},
    {"COORD_BET", &CSettingsSheet::m_nCoordBet},
};

}  // namespace

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
    return std::atoi(GetSettingText(store, key));
}

void CSettingsSheet::PutSetting(CMdb* store, LPCSTR key, LPCSTR value) {
    for (const MirroredSetting& mirrored : kMirroredSettings) {
        if (std::strcmp(key, mirrored.key) == 0) {
            this->*mirrored.number = std::atoi(value);
        }
    }
    SetSetting(store, key, value);
}

void CSettingsSheet::MergeSettings(const CMdb* from, CMdb* to) {
    if (m_bEditable != 0) {
        MergeSettingRecords(from, to);
    }
}
