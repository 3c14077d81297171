// The page "Allmänt".
#include "pages/circuit/dlgcircuit.h"

#include <cstring>

#include "core/field_messages.h"
#include "core/setting_keys.h"
#include "resources/resource.h"

namespace {

// The value of host mode in which the drawing has no cables to set.
constexpr int kHostModeWithoutCables = 3;

// The position of the first character that is neither a digit nor a point, -1 when there is none.
int FindInvalidNumberChar(LPCSTR text) {
    const size_t valid = std::strspn(text, "0123456789.");
    return text[valid] == '\0' ? -1 : static_cast<int>(valid);
}

// Digits and points in any number, which is less than the sheet's check of numbers asks for. A wrong character takes
// the focus back even when the check was forced.
int CheckNumberEdit(CSettingsPage& page, CString& text, CWnd* refocus, CWnd& edit) {
    if (page.GetSheet()->CheckTextField(text, refocus, "\"", 1) == 0) {
        return 0;
    }
    const int invalid = FindInvalidNumberChar(text);
    if (invalid < 0) {
        return 1;
    }
    ReportFieldError(&page, InvalidCharacterMessage(text[invalid]), IDS_FAULTY_TEXT_FIELD, &edit);
    SelectWholeText(&edit);
    return 0;
}

// The keys in _VER belong to the horizontal phase lines and those in _HOR to the vertical ones. The crossing is
// deliberate.
constexpr TextRow kTexts[] = {
    {IDC_CROSS_DISTANCE, "CROSS_DIST", PageMember(&dlgcircuit::m_strCrossDistance), CheckNumberEdit},
    {IDC_START_X, kKeyStartX, PageMember(&dlgcircuit::m_strStartX), CheckNumberEdit},
    {IDC_START_Y, kKeyStartY, PageMember(&dlgcircuit::m_strStartY), CheckNumberEdit},
    {IDC_PHASE_DISTANCE_HOR, "PHASE_DIST_HOR", PageMember(&dlgcircuit::m_strPhaseDistanceHor), CheckNumberEdit},
    {IDC_PHASE_LENGTH_HOR, "PHASE_LENGTH_HOR", PageMember(&dlgcircuit::m_strPhaseLengthHor), CheckNumberEdit},
    {IDC_PHASE_DISTANCE_VER, "PHASE_DIST_VER", PageMember(&dlgcircuit::m_strPhaseDistanceVer), CheckNumberEdit},
    {IDC_PHASE_LENGTH_VER, "PHASE_LENGTH_VER", PageMember(&dlgcircuit::m_strPhaseLengthVer), CheckNumberEdit},
    // The field still shows the old text when a pick is confirmed; the text picked is recorded when the box is left.
    {.control = IDC_SYMBOL_STANDARD,
     .key = "CCT_DIR",
     .member = PageMember(&dlgcircuit::m_strSymbolStandard),
     .exchange = nullptr,
     .pick = &CSettingsPage::PickShownText},
};

constexpr CheckRow kChecks[] = {
    {IDC_FUNCTION_ORIENTED, kKeyDrwMode, PageMember(&dlgcircuit::m_bDrwMode)},
    {IDC_COUNT_UP_DESIGNATIONS, "STR_INCR", PageMember(&dlgcircuit::m_bStrIncr)},
    {IDC_CAPITAL_DESIGNATIONS, "BET_CAPITALS", PageMember(&dlgcircuit::m_bBetCapitals)},
};

constexpr UINT kMarkingButtons[] = {IDC_MARKING_A1_A2, IDC_MARKING_A2_A1};
constexpr UINT kLabelButtons[] = {IDC_CABLE_BALLOON, IDC_CABLE_TEXT1, IDC_CABLE_TEXT2};
constexpr UINT kCoreButtons[] = {IDC_CORE_ARROW, IDC_CORE_SLASH};

constexpr ChoiceRow kChoices[] = {
    {"A2-A1", 1, kMarkingButtons, PageMember(&dlgcircuit::m_nMarkingOrder), IDC_MARKING_PREVIEW},
    {"CCT_CAB_BALLOON", 2, kLabelButtons, PageMember(&dlgcircuit::m_nCableLabel), IDC_CABLE_PREVIEW},
    {"CCT_CAB_CORE", 4, kCoreButtons, PageMember(&dlgcircuit::m_nCoreMark), IDC_CABLE_PREVIEW},
};

constexpr PageRows kRows = {kTexts, kChecks, kChoices};

constexpr UINT kCableGroup[] = {IDC_CORE_ARROW,  IDC_CORE_SLASH,  IDC_CABLE_BALLOON, IDC_CABLE_TEXT1,
                                IDC_CABLE_TEXT2, IDC_CABLE_GROUP, IDC_CABLE_PREVIEW};

// Bitmaps by the shown index and, for the marking order, the language.
constexpr UINT kMarkingBitmaps[2][2] = {{IDB_MARKING_A1_A2, IDB_MARKING_A1_A2_GB},
                                        {IDB_MARKING_A2_A1, IDB_MARKING_A2_A1_GB}};
constexpr UINT kCableBitmaps[2][3] = {{IDB_ARROW_BALLOON, IDB_ARROW_TEXT1, IDB_ARROW_TEXT2},
                                      {IDB_SLASH_BALLOON, IDB_SLASH_TEXT1, IDB_SLASH_TEXT2}};

}  // namespace

IMPLEMENT_DYNAMIC(dlgcircuit, CPropertyPage)

dlgcircuit::dlgcircuit() : CSettingsPage(IDD_GENERAL, kRows) {}

dlgcircuit::~dlgcircuit() = default;

BOOL dlgcircuit::OnSetActive() {
    SelectSymbolStandard();
    ShowMembers();
    UpdateExclusiveBoxes();
    ChooseLanguage();
    TakeModifyFlag();
    DisableFieldsWhenReadOnly();
    if (GetSheet()->m_nHostMode == kHostModeWithoutCables) {
        HideControls(kCableGroup);
    }
    return ActivatePage();
}

void dlgcircuit::SelectSymbolStandard() {
    auto& combo = static_cast<CComboBox&>(RequireDlgItem(IDC_SYMBOL_STANDARD));
    if (m_strSymbolStandard.IsEmpty() && combo.GetLBTextLen(0) == 0) {
        // The blank entry of an earlier activation, first in the sorted list. A search for nothing does not find it,
        // and each activation would add one more.
        combo.SetCurSel(0);
    } else {
        SelectOrAdd(IDC_SYMBOL_STANDARD, m_strSymbolStandard);
    }
}

// Function-oriented drawing and counted designations exclude each other: each one checked disables the other's box, and
// the designation options of the cross-reference page exclude the first.
void dlgcircuit::UpdateExclusiveBoxes() {
    const CSettingsSheet* sheet = GetSheet();
    const bool functionOriented =
        sheet->m_nDesignationOption != 0 && m_bStrIncr == 0 && sheet->m_nBetPrefix == 0 && sheet->m_nCoordBet == 0;
    SetDisabledBit(IDC_COUNT_UP_DESIGNATIONS, m_bDrwMode != 0);
    SetDisabledBit(IDC_FUNCTION_ORIENTED, !functionOriented);
}

void dlgcircuit::ChooseLanguage() {
    m_bLanguageGB = LoadText(IDS_LANGUAGE) == "GB" ? 1 : 0;
}

void dlgcircuit::OnRecorded(UINT control) {
    if (control == IDC_CAPITAL_DESIGNATIONS) {
        RedrawControl(control);
    } else if (control == IDC_FUNCTION_ORIENTED || control == IDC_COUNT_UP_DESIGNATIONS) {
        UpdateExclusiveBoxes();
        RedrawControl(control == IDC_FUNCTION_ORIENTED ? IDC_COUNT_UP_DESIGNATIONS : IDC_FUNCTION_ORIENTED);
    }
}

UINT dlgcircuit::PreviewBitmap(UINT control) const {
    if (control == IDC_MARKING_PREVIEW) {
        return kMarkingBitmaps[m_nMarkingOrder == 0 ? 0 : 1][m_bLanguageGB == 0 ? 0 : 1];
    }
    const bool shown =
        control == IDC_CABLE_PREVIEW && m_nCoreMark >= 0 && m_nCoreMark < 2 && m_nCableLabel >= 0 && m_nCableLabel < 3;
    return shown ? kCableBitmaps[m_nCoreMark][m_nCableLabel] : 0;
}
