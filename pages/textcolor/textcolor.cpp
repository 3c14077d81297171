// The page "Texter/Färger".
#include "pages/textcolor/textcolor.h"

#include <algorithm>

#include "core/assembly_height.h"
#include "core/setting_keys.h"
#include "pages/textcolor/colour_list.h"
#include "resources/resource.h"

namespace {

// The assembly text height by which designations are hidden.
constexpr char kHiddenHeight[] = "0.0001";

constexpr CheckRow kChecks[] = {
    {IDC_AUTOMATIC_TEXTS, "COLOR_INTERACT", PageMember(&CTextColor::m_colorInteract), ReadOnlyClick::Recorded,
     SheetNotice::None, "1", "0", [](int number) { return number != 0 ? 1 : 0; }},
};

// A stored number and the position that shows it do not always agree in a full list: a picked "by block" is stored as 0
// and shown as "by layer", a picked "by layer" is stored as 256 and shown as nothing, and 255 is shown as "by layer".
// That is on purpose; numbers from 1 to 254 come back as they were.
int FullListPosition(int number) {
    const int position = std::clamp(number, -2, kFullListItems) + 1;
    return position == 256 ? 1 : position;
}
int FullListNumber(int position) {
    if (position >= 2) {
        return position - 1;
    }
    return position == 0 ? 0 : 256;
}

int PaletteListPosition(int number) {
    return std::clamp(number, 0, kPaletteListItems + 1) - 1;
}
int PaletteListNumber(int position) {
    return position + 1;
}

struct ColourList {
    UINT control;
    LPCSTR key;
    int CTextColor::*position;
    int items;
    // A position that the list does not have selects nothing.
    int (*positionOf)(int number);
    int (*numberAt)(int position);
};

constexpr ColourList kColourLists[] = {
    {IDC_ATTRIBUTE_COLOUR, "ATTR_COLOUR", &CTextColor::m_attrColour, kFullListItems, FullListPosition, FullListNumber},
    {IDC_DESIGNATION_COLOUR, "BET_COLOUR", &CTextColor::m_betColour, kFullListItems, FullListPosition, FullListNumber},
    {IDC_LINE_COLOUR, "100_COLOUR", &CTextColor::m_lineColour, kPaletteListItems, PaletteListPosition,
     PaletteListNumber},
};

}  // namespace

// Heights that are picked are not checked.
constexpr TextRow CTextColor::kTexts[] = {
    // The older of its two keys; the other follows.
    {IDC_ASSEMBLY_HEIGHT, kKeyAssemblyHeightOld, PageMember(&CTextColor::m_assemblyHgt), CheckHeight, &DDX_CBString, 0,
     static_cast<TextRow::Pick>(&CTextColor::PickAssemblyHeight)},
    {IDC_TERMINAL_NUMBER_HEIGHT, "TERM_TERMHGT", PageMember(&CTextColor::m_termTermHgt), CheckHeight, &DDX_CBString, 0,
     &CSettingsPage::PickEntry},
    {IDC_TERMINAL_HEIGHT, "TERM_BET1HGT", PageMember(&CTextColor::m_termBet1Hgt), CheckHeight, &DDX_CBString, 0,
     &CSettingsPage::PickEntry},
    {IDC_OUTLET_HEIGHT, "CCT_TERMHGT", PageMember(&CTextColor::m_cctTermHgt), CheckHeight, &DDX_CBString, 0,
     &CSettingsPage::PickEntry},
    {IDC_OUTER_TERMINAL_HEIGHT, "TERMINAL_TERMHGT", PageMember(&CTextColor::m_terminalTermHgt), CheckHeight,
     &DDX_CBString, 0, &CSettingsPage::PickEntry},
    {IDC_DESIGNATION_HEIGHT, "BET_HGT", PageMember(&CTextColor::m_betHgt), CheckHeight, &DDX_CBString, 0,
     &CSettingsPage::PickEntry},
    {IDC_SIGNAL_HEIGHT, "SIGNAL_BET1HGT", PageMember(&CTextColor::m_signalBet1Hgt), CheckHeight, &DDX_CBString, 0,
     &CSettingsPage::PickEntry},
};

constexpr PageRows CTextColor::kRows = {kTexts, kChecks, {}};

IMPLEMENT_DYNCREATE(CTextColor, CPropertyPage)

BEGIN_MESSAGE_MAP(CTextColor, CSettingsPage)
ON_WM_DRAWITEM()
ON_CONTROL_RANGE(CBN_SELENDOK, IDC_ATTRIBUTE_COLOUR, IDC_LINE_COLOUR, &CTextColor::OnColourPicked)
ON_CBN_KILLFOCUS(IDC_ASSEMBLY_HEIGHT, &CTextColor::OnAssemblyHeightKillFocus)
END_MESSAGE_MAP()

CTextColor::CTextColor() : CSettingsPage(IDD_TEXTS_AND_COLOURS, kRows) {}

CTextColor::~CTextColor() = default;

int CTextColor::LoadSettings(const CMdb* store) {
    for (const ColourList& list : kColourLists) {
        CString number;
        const bool found = CSettingsSheet::GetSetting(store, list.key, number) != 0;
        this->*list.position = found ? list.positionOf(CSettingsSheet::GetSettingNumber(store, list.key)) : 0;
    }
    CSettingsPage::LoadSettings(store);
    g_assemblyHeightKeyFound = CSettingsSheet::GetSetting(store, kKeyAssemblyHeight, m_assemblyHgt) != 0 ? 1 : 0;
    SetAssemblyTextHeight(m_assemblyHgt);
    return 1;
}

void CTextColor::DoDataExchange(CDataExchange* exchange) {
    for (const ColourList& list : kColourLists) {
        DDX_CBIndex(exchange, static_cast<int>(list.control), this->*list.position);
    }
    CSettingsPage::DoDataExchange(exchange);
}

// The fields of a read-only sheet stay enabled here, so that the lists can be looked through.
BOOL CTextColor::OnSetActive() {
    m_bModifyAllowed = 0;
    LoadColourBitmaps(AfxGetResourceHandle());
    for (const ColourList& list : kColourLists) {
        auto& combo = static_cast<CComboBox&>(RequireDlgItem(list.control));
        FillColourList(combo, list.items);
        FitColourField(combo);
        combo.SetCurSel(this->*list.position);
    }
    TakeModifyFlag();
    CheckDlgButton(IDC_AUTOMATIC_TEXTS, static_cast<UINT>(m_colorInteract));
    return ActivatePage();
}

int CTextColor::CheckHeight(CSettingsPage& page, CString& text, CWnd* refocus, CWnd& /*field*/) {
    return page.GetSheet()->CheckNumberField(text, refocus);
}

BOOL CTextColor::CommitHeightField(UINT control) {
    OnTextKillFocus(control);
    return m_hWnd != nullptr;
}

// Both keys always have the same text, so that readers of either see the same height. What the page has recorded
// counts, not what the field shows: a field that is left before its height was ever recorded empties the height.
void CTextColor::OnAssemblyHeightKillFocus() {
    if (!CommitHeightField(IDC_ASSEMBLY_HEIGHT)) {
        return;
    }
    const CString height = CSettingsSheet::GetSettingText(&m_changes, kKeyAssemblyHeightOld);
    RecordChange(kKeyAssemblyHeight, height);
    SetAssemblyTextHeight(height);
    if (height == kHiddenHeight) {
        RecordChange(kKeyAssemblyTextVisible, "0");
    }
}

void CTextColor::PickAssemblyHeight(const TextRow& row) {
    if (!RecordEntry(row)) {
        return;
    }
    const CString height = CSettingsSheet::GetSettingText(&m_changes, row.key);
    RecordChange(kKeyAssemblyHeight, height);
    SetAssemblyTextHeight(height);
}

void CTextColor::OnColourPicked(UINT control) {
    OnPick(control);
    if (!ReadMembers()) {
        return;
    }
    const auto list = std::find_if(std::begin(kColourLists), std::end(kColourLists),
                                   [control](const ColourList& row) { return row.control == control; });
    CString number;
    number.Format("%d", list->numberAt(this->*list->position));
    RecordChange(list->key, number);
    SetModifiedByUser();
}

void CTextColor::OnDrawItem(int /*control*/, LPDRAWITEMSTRUCT item) {
    DrawColourItem(*item);
}
