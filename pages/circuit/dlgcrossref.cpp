// The page "Pro".
#include "pages/circuit/dlgcrossref.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "core/field_messages.h"
#include "core/letters.h"
#include "core/setting_keys.h"
#include "pages/circuit/reference_format.h"
#include "resources/resource.h"

namespace {

// The value of host mode in which the format is not to be chosen.
constexpr int kHostModeWithoutFormat = 3;

constexpr LPCSTR kFormatKey = "XREF_FORMAT";

// Posted by a pick: when all of it has been told, the system shows the entry in its box, wherever its character went.
constexpr UINT kShowFormatMessage = WM_APP;

constexpr TextRow kTexts[] = {
    {IDC_CONTINUED_TAG, "CONT_TAG", PageMember(&dlgcrossref::m_strContTag), CSettingsPage::CheckPlainText},
    {IDC_CROSS_PREFIX, "CROSS_PREFIX", PageMember(&dlgcrossref::m_strCrossPrefix), CSettingsPage::CheckPlainText},
    {IDC_AUTO_BET_FORMAT, "AUTO_BET_FORMAT", PageMember(&dlgcrossref::m_strAutoBetFormat),
     CSettingsPage::CheckPlainText},
};

// The switches of other parts say nothing to the sheet. That of automatic cross-references is recorded even in a sheet
// that is not editable, from which nothing is merged.
constexpr CheckRow kChecks[] = {
    {IDC_SIGNAL_ONLY, "SIGNAL_ONLY", PageMember(&dlgcrossref::m_bSignalOnly)},
    {IDC_SHEET_SIGNAL, "SHEETSIGNAL", PageMember(&dlgcrossref::m_bSheetSignal)},
    {IDC_SIGNAL_TYPE, "SIGNALTYPE", PageMember(&dlgcrossref::m_bSignalType)},
    {IDC_BET_PREFIX, kKeyBetPrefix, PageMember(&dlgcrossref::m_bBetPrefix), ReadOnlyClick::Undone, SheetNotice::None},
    {IDC_CONNECT_ACTIVE, "NORV_LEVEL", PageMember(&dlgcrossref::m_bConnectActive), ReadOnlyClick::Undone,
     SheetNotice::None, "3", "2", [](int number) { return number == 3 ? 1 : 0; }},
    {IDC_INTER_ACTIVE, "INTER_ACTIVE", PageMember(&dlgcrossref::m_bInterActive), ReadOnlyClick::Recorded,
     SheetNotice::None, "1", "0", [](int number) { return number != 0 ? 1 : 0; }},
    {IDC_COORD_BET, kKeyCoordBet, PageMember(&dlgcrossref::m_bCoordBet), ReadOnlyClick::Undone, SheetNotice::None},
};

constexpr UINT kTableButtons[] = {IDC_MIRROR_PICTURE, IDC_MIRROR_TABLE, IDC_MIRROR_CROSS};

constexpr ChoiceRow kChoices[] = {
    {"TBL_TYPE", 1, kTableButtons, PageMember(&dlgcrossref::m_nTblType), IDC_MIRROR_PREVIEW},
};

constexpr PageRows kRows = {kTexts, kChecks, kChoices};

// From the left to the right.
constexpr UINT kFormatBoxes[] = {IDC_FORMAT_1, IDC_FORMAT_2, IDC_FORMAT_3, IDC_FORMAT_4, IDC_FORMAT_5, IDC_FORMAT_6};
static_assert(std::size(kFormatBoxes) == kShownFormatLength);
constexpr int kFirstBox = 0;
constexpr int kLastBox = kShownFormatLength - 1;

int PositionOf(UINT box) {
    return static_cast<int>(std::find(std::begin(kFormatBoxes), std::end(kFormatBoxes), box) -
                            std::begin(kFormatBoxes));
}

constexpr UINT kFormatGroup[] = {IDC_FORMAT_GROUP, IDC_FORMAT_LABEL, IDC_FORMAT_1, IDC_FORMAT_2,
                                 IDC_FORMAT_3,     IDC_FORMAT_4,     IDC_FORMAT_5, IDC_FORMAT_6};

// Bitmaps by the shown index and the direction of the lines.
constexpr UINT kMirrorBitmaps[3][2] = {{IDB_MIRROR_PICTURE_VER, IDB_MIRROR_PICTURE_HOR},
                                       {IDB_MIRROR_TABLE_VER, IDB_MIRROR_TABLE_HOR},
                                       {IDB_MIRROR_CROSS_VER, IDB_MIRROR_CROSS_HOR}};

// The letters that mean a part of a reference: sheet, column and row. Other letters, and digits, are none.
constexpr char kParts[] = "PCR";

bool IsRefusedChar(char character) {
    const bool isDigit = character >= '0' && character <= '9';
    return (isDigit || IsLetter(character)) && std::strchr(kParts, character) == nullptr;
}

}  // namespace

IMPLEMENT_DYNAMIC(dlgcrossref, CPropertyPage)

BEGIN_MESSAGE_MAP(dlgcrossref, CSettingsPage)
ON_EN_KILLFOCUS(IDC_CROSS_PREFIX, &dlgcrossref::OnPrefixKillFocus)
ON_CONTROL_RANGE(CBN_SELENDOK, IDC_FORMAT_6, IDC_FORMAT_1, &dlgcrossref::OnFormatPicked)
ON_CONTROL_RANGE(CBN_EDITUPDATE, IDC_FORMAT_6, IDC_FORMAT_1, &dlgcrossref::ApplyTypedFormatChar)
ON_MESSAGE(kShowFormatMessage, &dlgcrossref::OnShowFormat)
END_MESSAGE_MAP()

dlgcrossref::dlgcrossref() : CSettingsPage(IDD_CROSS_REFERENCE, kRows) {}

dlgcrossref::~dlgcrossref() = default;

int dlgcrossref::LoadSettings(const CMdb* store) {
    CSettingsPage::LoadSettings(store);
    m_strXrefFormat = ShownFormat(CSettingsSheet::GetSettingText(store, kFormatKey));
    m_bDrwAngleZero = CSettingsSheet::GetSettingNumber(store, "DRW_ANGLE_H") == 0 ? 1 : 0;
    return 1;
}

void dlgcrossref::DoDataExchange(CDataExchange* exchange) {
    DDX_Text(exchange, IDC_XREF_EXAMPLE, m_strXrefPreview);
    DDX_Text(exchange, IDC_SIGNAL_EXAMPLE, m_strSignalPreview);
    CSettingsPage::DoDataExchange(exchange);
}

// The table is offered only to a project that uses it already.
BOOL dlgcrossref::OnInitDialog() {
    const BOOL result = CSettingsPage::OnInitDialog();
    if (m_nTblType != 1) {
        RequireDlgItem(IDC_MIRROR_TABLE).ModifyStyle(WS_VISIBLE, 0);
    }
    return result;
}

BOOL dlgcrossref::OnSetActive() {
    m_strLanguage = LoadText(IDS_LANGUAGE);
    RefreshFormat();
    TakeModifyFlag();
    const CSettingsSheet* sheet = GetSheet();
    const bool areAllowed = sheet->m_nDesignationOption != 0 && sheet->m_nDrwMode == 0;
    SetDisabledBit(IDC_BET_PREFIX, !areAllowed || sheet->m_nCoordBet != 0);
    SetDisabledBit(IDC_COORD_BET, !areAllowed || sheet->m_nBetPrefix != 0);
    DisableFieldsWhenReadOnly();
    CheckDlgButton(IDC_INTER_ACTIVE, static_cast<UINT>(m_bInterActive));
    if (sheet->m_nHostMode == kHostModeWithoutFormat) {
        HideControls(kFormatGroup);
    }
    return ActivatePage();
}

void dlgcrossref::BuildExamples() {
    m_strXrefPreview = m_bSignalOnly != 0 ? m_strXrefFormat : m_strCrossPrefix + m_strXrefFormat;
    m_strSignalPreview = m_strCrossPrefix + (m_bSheetSignal != 0 ? m_strXrefFormat : CString("P"));
}

void dlgcrossref::RefreshFormat() {
    BuildExamples();
    ShowMembers();
    if (m_bFormatChanged) {
        RecordChange(kFormatKey, StoredFormat(m_strXrefFormat));
        SetModifiedByUser();
        m_bFormatChanged = false;
    }
    ShowFormat();
}

// What lies beyond the boxes is not shown.
void dlgcrossref::ShowFormat() {
    for (int i = 0; i < kShownFormatLength; ++i) {
        AfxSetWindowText(RequireDlgItem(kFormatBoxes[i]).m_hWnd, m_strXrefFormat.Mid(i, 1));
    }
}

// The examples follow the prefix.
void dlgcrossref::OnPrefixKillFocus() {
    const bool isSkipped = m_leaveCheck.IsCancelPending() != 0;
    OnTextKillFocus(IDC_CROSS_PREFIX);
    if (!isSkipped && m_hWnd != nullptr && !IsRefused()) {
        RefreshFormat();
    }
}

// A pick in the first box of an empty format is lost; in the others it goes to the first free box. That of the last box
// is shown but not recorded before another change of the format records it.
void dlgcrossref::OnFormatPicked(UINT id) {
    OnPick(id);
    if (!ReadMembers()) {
        return;
    }
    const auto& box = static_cast<CComboBox&>(RequireDlgItem(id));
    const int selection = box.GetCurSel();
    if (selection < 0) {
        return;  // The list was confirmed without an entry.
    }
    CString entry;
    box.GetLBText(selection, entry);
    const int position = PositionOf(id);
    if (position != kFirstBox || !m_strXrefFormat.IsEmpty()) {
        m_strXrefFormat = WithFormatChar(m_strXrefFormat, position, entry[0]);
    }
    if (position != kLastBox) {
        m_bFormatChanged = true;
    }
    RefreshFormat();
    PostMessage(kShowFormatMessage);
}

LRESULT dlgcrossref::OnShowFormat(WPARAM /*wParam*/, LPARAM /*lParam*/) {
    ShowFormat();
    return 0;
}

void dlgcrossref::ApplyTypedFormatChar(UINT box) {
    CString text;
    GetDlgItemText(static_cast<int>(box), text);
    const int position = PositionOf(box);
    if (text.IsEmpty()) {
        m_strXrefFormat = WithoutFormatChar(m_strXrefFormat, position);
        ChangeFormatByTyping(box);
    } else if (IsRefusedChar(text[0])) {
        RejectTypedChar(box, position);
    } else if (text[0] == ' ') {
        m_strXrefFormat = WithFormatBlank(m_strXrefFormat, position);
        ChangeFormatByTyping(box);
    } else {
        m_strXrefFormat = WithFormatChar(m_strXrefFormat, position, text[0]);
        HWND next = ::GetNextDlgTabItem(m_hWnd, RequireDlgItem(box).m_hWnd, FALSE);
        ChangeFormatByTyping(box);
        ::SetFocus(next);
        SelectFirstChar(static_cast<UINT>(::GetDlgCtrlID(next)));
    }
}

void dlgcrossref::RejectTypedChar(UINT id, int position) {
    ReportFieldError(this, LoadText(IDS_ONLY_P_C_R), IDS_REFERENCE_FORMAT, nullptr);
    if (m_hWnd != nullptr) {
        SetDlgItemText(static_cast<int>(id), m_strXrefFormat.Mid(position, 1));
        SelectFirstChar(id);
    }
}

void dlgcrossref::ChangeFormatByTyping(UINT box) {
    SetModifiedByUser();
    m_bFormatChanged = true;
    RefreshFormat();
    SelectFirstChar(box);
}

void dlgcrossref::SelectFirstChar(UINT id) {
    CWnd* control = GetDlgItem(static_cast<int>(id));
    if (auto* box = DYNAMIC_DOWNCAST(CComboBox, control)) {
        box->SetEditSel(0, 1);
    } else if (auto* edit = DYNAMIC_DOWNCAST(CEdit, control)) {
        edit->SetSel(0, 1);
    }
}

void dlgcrossref::OnRecorded(UINT control) {
    switch (control) {
        case IDC_SIGNAL_ONLY:
        case IDC_SHEET_SIGNAL:
        case IDC_SIGNAL_TYPE:
            RefreshFormat();
            break;
        case IDC_BET_PREFIX:
            EnableOption(IDC_COORD_BET, m_bBetPrefix);
            break;
        case IDC_COORD_BET:
            EnableOption(IDC_BET_PREFIX, m_bCoordBet);
            break;
        case IDC_CONNECT_ACTIVE:
            GetSheet()->ShowConnectionPage(m_bConnectActive != 0);
            break;
        default:
            break;
    }
}

// The two designation options exclude each other.
void dlgcrossref::EnableOption(UINT option, int excluding) {
    SetDisabledBit(option, GetSheet()->m_nDesignationOption == 0 || excluding != 0);
    RedrawControl(option);
}

UINT dlgcrossref::PreviewBitmap(UINT control) const {
    const bool isShown =
        control == IDC_MIRROR_PREVIEW && m_nTblType >= 0 && m_nTblType < static_cast<int>(std::size(kMirrorBitmaps));
    return isShown ? kMirrorBitmaps[m_nTblType][m_bDrwAngleZero != 0 ? 1 : 0] : 0;
}

// The focused field is not asked to commit first: with OK the page has just been left, and that asked.
BOOL dlgcrossref::OnApply() {
    if (!ReadMembers()) {
        return FALSE;
    }
    MergeChanges();
    ClearModified();
    return ApplyPage();
}
