// The page "Allmänt".
#include "pages/circuit/dlgcircuit.h"

#include <algorithm>
#include <cstring>
#include <span>

#include "core/field_messages.h"
#include "core/preview.h"
#include "core/setting_keys.h"
#include "resources/resource.h"

namespace {

constexpr LPCSTR kSymbolStandardKey = "CCT_DIR";
constexpr LPCSTR kStrIncrKey = "STR_INCR";
constexpr LPCSTR kBetCapitalsKey = "BET_CAPITALS";

// The value of host mode in which the drawing has no cables to set.
constexpr int kHostModeWithoutCables = 3;

struct FieldRow {
    UINT control;
    LPCSTR key;
};

// The keys in _VER belong to the horizontal phase lines and those in _HOR to the vertical ones. Every drawing made so
// far relies on this crossing.
constexpr FieldRow kFieldRows[] = {
    {IDC_CROSS_DISTANCE, "CROSS_DIST"},
    {IDC_START_X, "X-COORD"},
    {IDC_START_Y, "Y-COORD"},
    {IDC_PHASE_DISTANCE_HOR, "PHASE_DIST_HOR"},
    {IDC_PHASE_LENGTH_HOR, "PHASE_LENGTH_HOR"},
    {IDC_PHASE_DISTANCE_VER, "PHASE_DIST_VER"},
    {IDC_PHASE_LENGTH_VER, "PHASE_LENGTH_VER"},
};

struct ChoiceRow {
    LPCSTR key;
    int step;                       // The stored value is the button's index times this.
    std::span<const UINT> buttons;  // The first is the one that the exchange names.
    int dlgcircuit::*member;
    UINT preview;
};

constexpr UINT kMarkingButtons[] = {IDC_MARKING_A1_A2, IDC_MARKING_A2_A1};
constexpr UINT kLabelButtons[] = {IDC_CABLE_BALLOON, IDC_CABLE_TEXT1, IDC_CABLE_TEXT2};
constexpr UINT kCoreButtons[] = {IDC_CORE_ARROW, IDC_CORE_SLASH};

constexpr ChoiceRow kChoiceRows[] = {
    {"A2-A1", 1, kMarkingButtons, &dlgcircuit::m_nMarkingOrder, IDC_MARKING_PREVIEW},
    {"CCT_CAB_BALLOON", 2, kLabelButtons, &dlgcircuit::m_nCableLabel, IDC_CABLE_PREVIEW},
    {"CCT_CAB_CORE", 4, kCoreButtons, &dlgcircuit::m_nCoreMark, IDC_CABLE_PREVIEW},
};

// The message map names controls by ranges of their numbers.
static_assert(IDC_PHASE_LENGTH_VER - IDC_PHASE_LENGTH_HOR == 1 && IDC_PHASE_DISTANCE_HOR - IDC_CROSS_DISTANCE == 3);
static_assert(IDC_CABLE_BALLOON - IDC_MARKING_A1_A2 == 6);

constexpr UINT kCableGroup[] = {IDC_CORE_ARROW,  IDC_CORE_SLASH,  IDC_CABLE_BALLOON, IDC_CABLE_TEXT1,
                                IDC_CABLE_TEXT2, IDC_CABLE_GROUP, IDC_CABLE_PREVIEW};

// Bitmaps by the shown index and, for the marking order, the language.
constexpr UINT kMarkingBitmaps[2][2] = {{IDB_MARKING_A1_A2, IDB_MARKING_A1_A2_GB},
                                        {IDB_MARKING_A2_A1, IDB_MARKING_A2_A1_GB}};
constexpr UINT kCableBitmaps[2][3] = {{IDB_ARROW_BALLOON, IDB_ARROW_TEXT1, IDB_ARROW_TEXT2},
                                      {IDB_SLASH_BALLOON, IDB_SLASH_TEXT1, IDB_SLASH_TEXT2}};

// The position of the first character that is neither a digit nor a point, -1 when there is none.
int FindInvalidNumberChar(LPCSTR text) {
    const size_t valid = std::strspn(text, "0123456789.");
    return text[valid] == '\0' ? -1 : static_cast<int>(valid);
}

}  // namespace

IMPLEMENT_DYNAMIC(dlgcircuit, CPropertyPage)

BEGIN_MESSAGE_MAP(dlgcircuit, CPropertyPage)
ON_CONTROL_RANGE(BN_CLICKED, IDC_MARKING_A1_A2, IDC_CABLE_BALLOON, &dlgcircuit::OnChoiceClicked)
ON_WM_DRAWITEM()
ON_CONTROL_RANGE(EN_KILLFOCUS, IDC_PHASE_LENGTH_HOR, IDC_PHASE_LENGTH_VER, &dlgcircuit::OnFieldKillFocus)
ON_CONTROL_RANGE(EN_KILLFOCUS, IDC_PHASE_DISTANCE_VER, IDC_PHASE_DISTANCE_VER, &dlgcircuit::OnFieldKillFocus)
ON_CONTROL_RANGE(EN_KILLFOCUS, IDC_CROSS_DISTANCE, IDC_PHASE_DISTANCE_HOR, &dlgcircuit::OnFieldKillFocus)
ON_CONTROL_RANGE(EN_CHANGE, IDC_PHASE_LENGTH_HOR, IDC_PHASE_LENGTH_VER, &dlgcircuit::OnFieldChange)
ON_CONTROL_RANGE(EN_CHANGE, IDC_PHASE_DISTANCE_VER, IDC_PHASE_DISTANCE_VER, &dlgcircuit::OnFieldChange)
ON_CONTROL_RANGE(EN_CHANGE, IDC_CROSS_DISTANCE, IDC_PHASE_DISTANCE_HOR, &dlgcircuit::OnFieldChange)
ON_BN_CLICKED(IDC_COUNT_UP_DESIGNATIONS, &dlgcircuit::OnStrIncrClicked)
ON_BN_CLICKED(IDC_FUNCTION_ORIENTED, &dlgcircuit::OnDrwModeClicked)
ON_CBN_EDITCHANGE(IDC_SYMBOL_STANDARD, &dlgcircuit::OnSymbolStandardEditChange)
ON_CBN_KILLFOCUS(IDC_SYMBOL_STANDARD, &dlgcircuit::OnSymbolStandardKillFocus)
ON_CBN_SELENDOK(IDC_SYMBOL_STANDARD, &dlgcircuit::OnSymbolStandardSelEndOk)
ON_BN_CLICKED(IDC_CAPITAL_DESIGNATIONS, &dlgcircuit::OnBetCapitalsClicked)
END_MESSAGE_MAP()

dlgcircuit::dlgcircuit() : CSettingsPage(IDD_GENERAL) {}

dlgcircuit::~dlgcircuit() = default;

int dlgcircuit::LoadSettings(const CMdb* store) {
    for (size_t i = 0; i < kFieldCount; ++i) {
        m_fields[i].m_strText = CSettingsSheet::GetSettingText(store, kFieldRows[i].key);
    }
    for (const ChoiceRow& row : kChoiceRows) {
        this->*row.member = CSettingsSheet::GetSettingNumber(store, row.key) / row.step;
    }
    m_strSymbolStandard = CSettingsSheet::GetSettingText(store, kSymbolStandardKey);
    m_bLanguageGB = 1;
    m_bDrwMode = CSettingsSheet::GetSettingNumber(store, kKeyDrwMode);
    m_bStrIncr = CSettingsSheet::GetSettingNumber(store, kStrIncrKey);
    m_bBetCapitals = CSettingsSheet::GetSettingNumber(store, kBetCapitalsKey);
    return 1;
}

void dlgcircuit::DoDataExchange(CDataExchange* exchange) {
    CSettingsPage::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_SYMBOL_STANDARD, m_comboSymbolStandard);
    DDX_Control(exchange, IDC_MARKING_PREVIEW, m_previewMarking);
    DDX_Control(exchange, IDC_CABLE_PREVIEW, m_previewCable);
    for (const ChoiceRow& row : kChoiceRows) {
        DDX_Radio(exchange, static_cast<int>(row.buttons.front()), this->*row.member);
    }
    DDX_Check(exchange, IDC_FUNCTION_ORIENTED, m_bDrwMode);
    DDX_Check(exchange, IDC_COUNT_UP_DESIGNATIONS, m_bStrIncr);
    DDX_Check(exchange, IDC_CAPITAL_DESIGNATIONS, m_bBetCapitals);
    for (size_t i = 0; i < kFieldCount; ++i) {
        DDX_Text(exchange, static_cast<int>(kFieldRows[i].control), m_fields[i].m_strText);
    }
}

void dlgcircuit::OnShowing() {
    int item = m_comboSymbolStandard.FindString(0, m_strSymbolStandard);
    if (m_strSymbolStandard.IsEmpty() && m_comboSymbolStandard.GetLBTextLen(0) == 0) {
        // A search for nothing finds nothing, so the blank entry of an earlier activation is taken up here.
        item = 0;
    }
    if (item < 0) {
        item = m_comboSymbolStandard.AddString(m_strSymbolStandard);
    }
    m_comboSymbolStandard.SetCurSel(item);
}

void dlgcircuit::OnShown() {
    UpdateExclusiveBoxes();
    m_strLanguage.LoadString(IDS_LANGUAGE);
    m_bLanguageGB = m_strLanguage == "GB" ? 1 : 0;
    if (GetSheet()->m_nHostMode == kHostModeWithoutCables) {
        for (const UINT control : kCableGroup) {
            GetDlgItem(static_cast<int>(control))->ShowWindow(SW_HIDE);
        }
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

void dlgcircuit::RecordCheck(LPCSTR key, int checked, UINT redrawnControl) {
    UpdateExclusiveBoxes();
    RecordChange(key, checked != 0 ? "1" : "0");
    RedrawControl(redrawnControl);
    SetModifiedByUser();
}

void dlgcircuit::OnStrIncrClicked() {
    if (BeginChange()) {
        RecordCheck(kStrIncrKey, m_bStrIncr, IDC_FUNCTION_ORIENTED);
    }
}

void dlgcircuit::OnDrwModeClicked() {
    if (BeginChange()) {
        RecordCheck(kKeyDrwMode, m_bDrwMode, IDC_COUNT_UP_DESIGNATIONS);
    }
}

void dlgcircuit::OnBetCapitalsClicked() {
    if (BeginChange()) {
        RecordCheck(kBetCapitalsKey, m_bBetCapitals, IDC_CAPITAL_DESIGNATIONS);
    }
}

void dlgcircuit::OnChoiceClicked(UINT id) {
    if (!BeginChange()) {
        return;
    }
    for (const ChoiceRow& row : kChoiceRows) {
        const auto clicked = std::find(row.buttons.begin(), row.buttons.end(), id);
        if (clicked == row.buttons.end()) {
            continue;
        }
        RedrawControl(row.preview);
        CString value;
        value.Format("%d", static_cast<int>(clicked - row.buttons.begin()) * row.step);
        RecordChange(row.key, value);
        SetModifiedByUser();
    }
}

size_t dlgcircuit::FieldIndex(UINT id) {
    size_t index = 0;
    while (index < kFieldCount && kFieldRows[index].control != id) {
        ++index;
    }
    return index;
}

void dlgcircuit::OnFieldChange(UINT id) {
    SetModifiedByUser();
    m_fields.at(FieldIndex(id)).m_bChanged = m_bModifyAllowed;
}

void dlgcircuit::OnFieldKillFocus(UINT id) {
    const size_t index = FieldIndex(id);
    Field& field = m_fields.at(index);
    CommitNumberEdit(field.m_bChanged, kFieldRows[index].key, field.m_strText, GetDlgItem(static_cast<int>(id)), 1);
}

// The changed flag stays set after a commit: from the first change on the field is committed whenever it is left.
void dlgcircuit::CommitNumberEdit(int changed, LPCSTR key, CString& text, CWnd* control, int required) {
    if (IsCancelPending() == 0 && changed != 0) {
        const FieldCheck check(*this);
        UpdateData(TRUE);
        if (m_pLastEditControl != nullptr) {
            m_pLastEditControl = control;
        } else {
            m_bFieldCheckOk = 0;
        }
        if (GetSheet()->CheckTextField(text, m_pLastEditControl, "\"", required) != 0) {
            const int invalid = FindInvalidNumberChar(text);
            if (invalid < 0) {
                m_bFieldCheckOk = 1;
                RecordChange(key, text);
            } else {
                ReportFieldError(this, InvalidCharacterMessage(text[invalid]), IDS_FAULTY_TEXT_FIELD, control);
                SelectWholeText(control);
            }
        }
    }
    m_pLastEditControl = control;
}

void dlgcircuit::OnSymbolStandardEditChange() {
    SetModifiedByUser();
    m_bSymbolStandardChanged = m_bModifyAllowed;
}

// The edit field still shows the old text at this moment; the text picked is recorded when the focus leaves the box.
void dlgcircuit::OnSymbolStandardSelEndOk() {
    UpdateData(TRUE);
    CString text;
    m_comboSymbolStandard.GetWindowText(text);
    RecordChange(kSymbolStandardKey, text);
    SetModifiedByUser();
    m_bSymbolStandardChanged = m_bModifyAllowed;
}

void dlgcircuit::OnSymbolStandardKillFocus() {
    UpdateData(TRUE);
    if (m_bSymbolStandardChanged != 0) {
        m_comboSymbolStandard.GetWindowText(m_strSymbolStandard);
        RecordChange(kSymbolStandardKey, m_strSymbolStandard);
    }
}

UINT dlgcircuit::PreviewBitmap(int control) const {
    if (control == IDC_MARKING_PREVIEW) {
        return kMarkingBitmaps[m_nMarkingOrder == 0 ? 0 : 1][m_bLanguageGB == 0 ? 0 : 1];
    }
    const bool shown =
        control == IDC_CABLE_PREVIEW && m_nCoreMark >= 0 && m_nCoreMark < 2 && m_nCableLabel >= 0 && m_nCableLabel < 3;
    return shown ? kCableBitmaps[m_nCoreMark][m_nCableLabel] : 0;
}

void dlgcircuit::OnDrawItem(int id, LPDRAWITEMSTRUCT item) {
    CBitmap bitmap;
    const UINT bitmapId = PreviewBitmap(id);
    if (bitmapId == 0 || !bitmap.LoadBitmap(bitmapId)) {
        return;
    }
    DrawCentredBitmap(*item, bitmap);
}
