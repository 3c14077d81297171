// The sheet's operations on settings.
#include "core/settings_sheet.h"

#include <cstring>

#include "core/numbers.h"
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
    if (SetSetting(store, key, value) == 0) {
        AfxFailModal(AfxFailure::OutOfMemory);
    }
}

void CSettingsSheet::MergeSettings(const CMdb* from, CMdb* to) {
    if (m_bEditable != 0 && MergeSettingRecords(from, to) == 0) {
        AfxFailModal(AfxFailure::OutOfMemory);
    }
}

BOOL CSettingsSheet::CommitSettings() {
    return m_bEditable == 0 || CommitSettingRecords(&m_workSettings, m_pHostSettings) != 0;
}
