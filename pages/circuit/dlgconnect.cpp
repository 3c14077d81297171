// The page "Förbind".
#include "pages/circuit/dlgconnect.h"

#include <algorithm>
#include <cstring>

#include "core/colour_swatch.h"
#include "core/numbers.h"
#include "core/palette.h"
#include "core/pixels.h"
#include "core/setting_keys.h"
#include "core/store/settings.h"
#include "resources/resource.h"

namespace {

constexpr LPCSTR kDefaultColourKey = "WHCOLCDEF";
constexpr LPCSTR kFirstColumnKey = "WH1COLUMN";
constexpr LPCSTR kSortKey = "WHSORT";
constexpr LPCSTR kPartMarkingKey = "WHFBTYPE";
constexpr LPCSTR kRowDistanceKey = "WHYDELTA";
constexpr LPCSTR kCableCharsKey = "WHCNL";
constexpr LPCSTR kSheetRefKey = "WHEXTSREF";
constexpr LPCSTR kNumberOffsetKey = "NUMBER_OFFSET";

// The drawing mode in which parts are marked in a way of its own.
constexpr LPCSTR kModeWithOwnMarking = "1";
constexpr int kOwnMarking = 1;
constexpr int kLastPartMarking = 4;

constexpr float kDefaultDistance = 9.9F;
// Of a distance that is typed.
constexpr int kDistanceLength = 9;
// What a distance of the profile file begins with when it has none.
constexpr char kNoDistance[] = "X";
constexpr size_t kProfileTextRoom = 32;

constexpr int kDefaultCableChars = 10;
constexpr int kFewestCableChars = 8;
constexpr int kMostCableChars = 15;

// In characters of the list's font.
constexpr int kCommentWidth = 15;
constexpr int kColourWidth = 8;
// The heading begins behind the check boxes.
constexpr char kHeadingIndent[] = "    ";

struct MarkingButton {
    UINT button;
    int marking;
};

constexpr MarkingButton kMarkingButtons[] = {{IDC_MARKING_STANDARD, 0},
                                             {IDC_MARKING_POTENTIAL, 2},
                                             {IDC_MARKING_ZERO_NUMBER, 3},
                                             {IDC_MARKING_POTENTIAL_ZERO_NUMBER, 4}};

constexpr PageRows kRows = {};

bool IsPartMarking(int number) {
    return number >= 0 && number <= kLastPartMarking;
}

bool IsCableChars(int number) {
    return number >= kFewestCableChars && number <= kMostCableChars;
}

// A list would follow any other order into other memory.
bool IsColumnOrder(const std::array<int, kCommentColumns>& order) {
    return order == std::array{kCommentColumn, kColourColumn} || order == std::array{kColourColumn, kCommentColumn};
}

// The average of the font or, when it names none, three fifths of its height, which is negative. The fonts of finer
// screens are a little smaller than in proportion; what is no text in a column needs its part all the same.
int CharacterWidth(CWnd& window) {
    LOGFONTA font{};
    ::GetObjectA(reinterpret_cast<HGDIOBJ>(window.SendMessage(WM_GETFONT)), sizeof font, &font);
    constexpr int kUsualWidth = 6;
    const CClientDC context(&window);
    const int ofFont = font.lfWidth != 0 ? font.lfWidth : -font.lfHeight * 3 / 5;
    return std::max(ofFont, ScaledPixels(context, kUsualWidth));
}

template <typename Notification>
const Notification& As(const NMHDR* header) {
    return *reinterpret_cast<const Notification*>(header);
}

// Most users have no profile file, and each key asked for is a file that is looked for.
bool HasProfile() {
    char sections[4] = "";
    return GetPrivateProfileStringA(nullptr, nullptr, "", sections, sizeof sections, kConnectProfile) != 0;
}

}  // namespace

IMPLEMENT_DYNAMIC(dlgconnect, CPropertyPage)

BEGIN_MESSAGE_MAP(dlgconnect, CSettingsPage)
ON_NOTIFY(NM_CUSTOMDRAW, IDC_COMMENT_LIST, &dlgconnect::OnCommentCustomDraw)
ON_NOTIFY(NM_CLICK, IDC_COMMENT_LIST, &dlgconnect::OnCommentClick)
ON_NOTIFY(NM_DBLCLK, IDC_COMMENT_LIST, &dlgconnect::OnCommentDoubleClick)
ON_NOTIFY(LVN_ITEMCHANGED, IDC_COMMENT_LIST, &dlgconnect::OnCommentChanged)
ON_NOTIFY(LVN_BEGINLABELEDITA, IDC_COMMENT_LIST, &dlgconnect::OnBeginCommentEdit)
ON_NOTIFY(LVN_ENDLABELEDITA, IDC_COMMENT_LIST, &dlgconnect::OnEndCommentEdit)
ON_NOTIFY(LVN_COLUMNCLICK, IDC_COMMENT_LIST, &dlgconnect::OnCommentColumnClick)
ON_BN_CLICKED(IDC_COMMENT_LEGEND, &dlgconnect::OnLegendClicked)
END_MESSAGE_MAP()

dlgconnect::dlgconnect() : CSettingsPage(IDD_CONNECTION, kRows) {}

dlgconnect::~dlgconnect() = default;

int dlgconnect::LoadSettings(const CMdb* store) {
    m_commentNames.SetDefaults();
    m_nDefaultCommentColour = kFirstCommentColour;
    m_fRowDistance = kDefaultDistance;
    m_fNumberOffset = kDefaultDistance;
    m_nPartMarking = 0;
    m_nCableChars = kDefaultCableChars;
    m_bShowSheetRef = 0;
    ReadProfile();
    const SettingLookup settings(m_pWorkSettings, store);
    ReadSettings(settings);
    const LPCSTR mode = settings.Find(kKeyDrwMode);
    if (mode != nullptr && std::strcmp(mode, kModeWithOwnMarking) == 0) {
        m_nPartMarking = kOwnMarking;
    }
    return 1;
}

void dlgconnect::ReadProfile() {
    if (!HasProfile()) {
        return;
    }
    const auto number = [](LPCSTR key, int fallback) {
        return static_cast<int>(GetPrivateProfileIntA(kConnectSection, key, fallback, kConnectProfile));
    };
    const int marking = number("FBTYP", m_nPartMarking);
    m_nPartMarking = IsPartMarking(marking) ? marking : m_nPartMarking;
    std::array<char, kProfileTextRoom> distance{};
    GetPrivateProfileStringA(kConnectSection, "YDELTA", kNoDistance, distance.data(), kProfileTextRoom,
                             kConnectProfile);
    if (distance.front() != kNoDistance[0]) {
        m_fRowDistance = static_cast<float>(LeadingNumber(distance.data()));
    }
    m_commentNames.ReadProfile();
    m_nDefaultCommentColour = static_cast<BYTE>(number("CDEF", m_nDefaultCommentColour));
    const int cableChars = number("CNL", m_nCableChars);
    m_nCableChars = IsCableChars(cableChars) ? cableChars : m_nCableChars;
}

void dlgconnect::ReadSettings(const SettingLookup& settings) {
    const auto number = [&settings](LPCSTR key, int fallback) {
        const LPCSTR value = settings.Find(key);
        return value != nullptr ? LeadingInteger(value) : fallback;
    };
    const auto distance = [&settings](LPCSTR key, float fallback) {
        const LPCSTR value = settings.Find(key);
        return value != nullptr ? static_cast<float>(LeadingNumber(value)) : fallback;
    };
    m_commentNames.ReadSettings(settings);
    m_nDefaultCommentColour = static_cast<BYTE>(number(kDefaultColourKey, m_nDefaultCommentColour));
    if (settings.Find(kFirstColumnKey) != nullptr) {
        const int first = number(kFirstColumnKey, kColourColumn);
        g_commentColumnOrder = {first, first != kColourColumn ? kColourColumn : kCommentColumn};
    }
    g_commentSort = number(kSortKey, g_commentSort);
    const int marking = number(kPartMarkingKey, m_nPartMarking);
    m_nPartMarking = IsPartMarking(marking) ? marking : m_nPartMarking;
    m_fRowDistance = distance(kRowDistanceKey, m_fRowDistance);
    const int cableChars = number(kCableCharsKey, m_nCableChars);
    m_nCableChars = IsCableChars(cableChars) ? cableChars : m_nCableChars;
    m_bShowSheetRef = number(kSheetRefKey, m_bShowSheetRef);
    m_fNumberOffset = distance(kNumberOffsetKey, m_fNumberOffset);
}

void dlgconnect::DoDataExchange(CDataExchange* exchange) {
    CSettingsPage::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_COMMENT_LIST, m_comments);
    DDX_Check(exchange, IDC_COMMENT_LEGEND, m_bLegend);
    DDX_Text(exchange, IDC_ROW_DISTANCE, m_fRowDistanceShown);
    DDX_Text(exchange, IDC_NUMBER_OFFSET, m_fNumberOffsetShown);
}

BOOL dlgconnect::OnInitDialog() {
    const BOOL result = CSettingsPage::OnInitDialog();
    ShowPartMarking();
    m_origColumnOrder = g_commentColumnOrder;
    m_nOrigSort = g_commentSort;
    m_nOrigDefaultCommentColour = m_nDefaultCommentColour;
    m_origCommentNames = m_commentNames;
    FillCommentList();
    m_fRowDistanceShown = m_fRowDistance;
    m_fNumberOffsetShown = m_fNumberOffset;
    for (const UINT field : {IDC_ROW_DISTANCE, IDC_NUMBER_OFFSET}) {
        SendDlgItemMessage(static_cast<int>(field), EM_LIMITTEXT, kDistanceLength);
    }
    CheckDlgButton(IDC_SHOW_SHEET_REFERENCE, static_cast<UINT>(m_bShowSheetRef));
    FillCableChars();
    m_bEditable = GetSheet()->m_bEditable;
    m_bLegend = 1;
    ShowMembers();
    if (const int column = TakeCommentSort(); column >= 0) {
        m_comments.SortItems(&CompareCommentRows, static_cast<DWORD_PTR>(column));
    }
    return result;
}

void dlgconnect::ShowPartMarking() {
    UINT checked = IDC_MARKING_STANDARD;
    for (const auto& [button, marking] : kMarkingButtons) {
        if (marking == m_nPartMarking) {
            checked = button;
        }
        RequireDlgItem(button).EnableWindow(m_nPartMarking != kOwnMarking);
    }
    CheckRadioButton(IDC_MARKING_STANDARD, IDC_MARKING_POTENTIAL_ZERO_NUMBER, static_cast<int>(checked));
}

void dlgconnect::FillCableChars() {
    auto& list = static_cast<CComboBox&>(RequireDlgItem(IDC_CABLE_CHARACTERS));
    for (int characters = kFewestCableChars; characters <= kMostCableChars; ++characters) {
        CString entry;
        entry.Format("%d", characters);
        list.AddString(entry);
    }
    list.SetCurSel(m_nCableChars - kFewestCableChars);
}

void dlgconnect::FillCommentList() {
    CString comments;
    CString colour;
    comments.LoadString(IDS_COMMENTS);
    colour.LoadString(IDS_COLOUR);
    m_swatch.DeleteObject();
    m_swatch.LoadBitmap(IDB_SWATCH);
    const int width = CharacterWidth(m_comments);
    m_comments.InsertColumn(kCommentColumn, kHeadingIndent + comments, LVCFMT_LEFT, kCommentWidth * width);
    m_comments.InsertColumn(kColourColumn, colour, LVCFMT_LEFT, kColourWidth * width, kColourColumn);
    m_comments.SetRedraw(FALSE);
    m_comments.DeleteAllItems();
    m_comments.SetExtendedStyle(LVS_EX_CHECKBOXES | LVS_EX_HEADERDRAGDROP);
    for (int number = kFirstCommentColour; number <= kLastCommentColour; ++number) {
        const int row = number - kFirstCommentColour;
        CommentRow& texts = m_commentRows[static_cast<size_t>(number)];
        texts[kCommentColumn] = m_commentNames.Get(number);
        texts[kColourColumn].Format("%3d", number);
        m_comments.InsertItem(row, texts[kCommentColumn]);
        m_comments.SetItemText(row, kColourColumn, texts[kColourColumn]);
        m_comments.SetItemData(row, reinterpret_cast<DWORD_PTR>(&texts));
    }
    if (IsColumnOrder(g_commentColumnOrder)) {
        m_comments.SetColumnOrderArray(kCommentColumns, g_commentColumnOrder.data());
    }
    ShowDefaultColour();
    m_comments.SetRedraw(TRUE);
}

// The fields of a sheet that is not editable stay enabled here, unlike on other pages; nothing is stored of them.
BOOL dlgconnect::OnSetActive() {
    return ActivatePage();
}

BOOL dlgconnect::OnKillActive() {
    m_comments.GetColumnOrderArray(g_commentColumnOrder.data(), kCommentColumns);
    return CSettingsPage::OnKillActive();
}

// Compares with the values at the creation of the window but for the part marking, so applying again writes again.
BOOL dlgconnect::OnApply() {
    ApplyPartMarking();
    ApplyDistance(IDC_ROW_DISTANCE, m_fRowDistance, kRowDistanceKey);
    ApplyDistance(IDC_NUMBER_OFFSET, m_fNumberOffset, kNumberOffsetKey);
    if (!m_commentNames.WriteChanged(m_origCommentNames, m_pWorkSettings)) {
        AfxFailModal(AfxFailure::OutOfMemory);
    }
    if (m_nDefaultCommentColour != m_nOrigDefaultCommentColour) {
        WriteNumber(kDefaultColourKey, m_nDefaultCommentColour);
    }
    if (g_commentColumnOrder.front() != m_origColumnOrder.front()) {
        WriteNumber(kFirstColumnKey, g_commentColumnOrder.front());
    }
    if (g_commentSort != m_nOrigSort) {
        WriteNumber(kSortKey, g_commentSort);
    }
    const auto sheetRef = static_cast<int>(IsDlgButtonChecked(IDC_SHOW_SHEET_REFERENCE));
    if (sheetRef != m_bShowSheetRef) {
        WriteNumber(kSheetRefKey, sheetRef);
    }
    const int selected = static_cast<CComboBox&>(RequireDlgItem(IDC_CABLE_CHARACTERS)).GetCurSel();
    if (selected >= 0 && selected + kFewestCableChars != m_nCableChars) {
        WriteNumber(kCableCharsKey, selected + kFewestCableChars);
    }
    return ApplyPage();
}

void dlgconnect::ApplyPartMarking() {
    if (m_nPartMarking == kOwnMarking) {
        return;
    }
    for (const auto& [button, marking] : kMarkingButtons) {
        if (IsDlgButtonChecked(static_cast<int>(button)) != BST_UNCHECKED && marking != m_nPartMarking) {
            m_nPartMarking = marking;
            WriteNumber(kPartMarkingKey, marking);
            return;
        }
    }
}

// Stores the text of a field when it is another positive number than before.
void dlgconnect::ApplyDistance(UINT control, float former, LPCSTR key) {
    CString text;
    GetDlgItemText(static_cast<int>(control), text);
    text = text.Left(kDistanceLength);
    const auto distance = static_cast<float>(LeadingNumber(text));
    if (distance > 0.0F && distance != former) {
        Write(key, text);
    }
}

void dlgconnect::WriteNumber(LPCSTR key, int number) {
    CString value;
    value.Format("%d", number);
    Write(key, value);
}

void dlgconnect::Write(LPCSTR key, LPCSTR value) {
    if (WriteSetting(m_pWorkSettings, key, value) == 0) {
        AfxFailModal(AfxFailure::OutOfMemory);
    }
}

void dlgconnect::OnCommentCustomDraw(NMHDR* header, LRESULT* result) {
    const auto& draw = As<NMLVCUSTOMDRAW>(header);
    *result = CDRF_DODEFAULT;
    switch (draw.nmcd.dwDrawStage) {
        case CDDS_PREPAINT:
            *result = CDRF_NOTIFYITEMDRAW;
            break;
        case CDDS_ITEMPREPAINT:
            *result = CDRF_NOTIFYSUBITEMDRAW;
            break;
        case CDDS_ITEMPREPAINT | CDDS_SUBITEM:
            if (draw.iSubItem == kColourColumn) {
                DrawColourCell(draw);
                *result = CDRF_SKIPDEFAULT;
            }
            break;
        default:
            break;
    }
}

void dlgconnect::DrawColourCell(const NMLVCUSTOMDRAW& draw) {
    constexpr int kTextLeft = 20;
    constexpr int kTextTop = 3;
    const int row = static_cast<int>(draw.nmcd.dwItemSpec);
    CRect cell;
    m_comments.GetSubItemRect(row, kColourColumn, LVIR_LABEL, cell);
    const CString number = m_comments.GetItemText(row, kColourColumn);
    CDC& context = *CDC::FromHandle(draw.nmcd.hdc);
    // The list clips nothing to a column that the user has made narrow, and may have chosen a selected row's colours.
    const int saved = ::SaveDC(context);
    ::IntersectClipRect(context, cell.left, cell.top, cell.right, cell.bottom + kTextTop);
    DrawItemSwatch(m_swatch, context, cell, GetAciColor(LeadingInteger(number)));
    context.SetTextColor(GetSysColor(COLOR_WINDOWTEXT));
    context.SetBkColor(GetSysColor(COLOR_WINDOW));
    context.TextOut(cell.left + ScaledPixels(context, kTextLeft), cell.top + kTextTop, "(" + number + ") ");
    ::RestoreDC(context, saved);
}

bool dlgconnect::IsOnCheckBox(const NMITEMACTIVATE& click) const {
    RECT bounds{};
    RECT label{};
    m_comments.GetItemRect(click.iItem, &bounds, LVIR_BOUNDS);
    m_comments.GetItemRect(click.iItem, &label, LVIR_LABEL);
    return click.ptAction.x > bounds.left && click.ptAction.x < label.left;
}

int dlgconnect::ColourOfRow(int row) const {
    const auto* texts = reinterpret_cast<const CommentRow*>(m_comments.GetItemData(row));
    if (texts == nullptr) {
        AfxThrowWindowGoneException();
    }
    return LeadingInteger((*texts)[kColourColumn]);
}

void dlgconnect::PickDefaultColour(int row) {
    m_nDefaultCommentColour = static_cast<BYTE>(ColourOfRow(row));
    ShowDefaultColour();
}

// Ticks the row of the default colour, and no other.
void dlgconnect::ShowDefaultColour() {
    m_bShowingDefault = true;
    for (int row = 0; row < m_comments.GetItemCount(); ++row) {
        const BOOL isDefault = ColourOfRow(row) == m_nDefaultCommentColour;
        if (m_comments.GetCheck(row) != isDefault) {
            m_comments.SetCheck(row, isDefault);
        }
    }
    m_bShowingDefault = false;
}

void dlgconnect::OnCommentClick(NMHDR* header, LRESULT* result) {
    const auto& click = As<NMITEMACTIVATE>(header);
    *result = 0;
    FinishCommentEdit();
    if (click.iItem >= 0 && click.iSubItem == kCommentColumn && IsOnCheckBox(click)) {
        PickDefaultColour(click.iItem);
    }
}

void dlgconnect::OnCommentDoubleClick(NMHDR* header, LRESULT* result) {
    const auto& click = As<NMITEMACTIVATE>(header);
    *result = 0;
    if (click.iItem < 0 || click.iSubItem != kCommentColumn) {
        return;
    }
    if (IsOnCheckBox(click)) {
        PickDefaultColour(click.iItem);
    } else {
        m_comments.EditLabel(click.iItem);
    }
}

// The list itself toggles the box of a row, before or after it tells of a click, and for the space bar without a click.
// Whichever row that is becomes the default, so that one row is ticked and only one.
void dlgconnect::OnCommentChanged(NMHDR* header, LRESULT* result) {
    const auto& change = As<NMLISTVIEW>(header);
    *result = 0;
    const bool hadBox = (change.uOldState & LVIS_STATEIMAGEMASK) != 0;
    if (!m_bShowingDefault && hadBox && ((change.uOldState ^ change.uNewState) & LVIS_STATEIMAGEMASK) != 0) {
        PickDefaultColour(change.iItem);
    }
}

void dlgconnect::OnBeginCommentEdit(NMHDR* /*header*/, LRESULT* result) {
    *result = FALSE;
    if (CEdit* edit = m_comments.GetEditControl()) {
        edit->SetLimitText(kCommentLength);
    }
}

BOOL dlgconnect::PreTranslateMessage(MSG* message) {
    m_bEscape = message->message == WM_KEYDOWN && message->wParam == VK_ESCAPE;
    return CSettingsPage::PreTranslateMessage(message);
}

// A list may give no text, as for a name that is given up, for one that has been emptied.
bool dlgconnect::IsNameEmptied() const {
    const CEdit* edit = m_comments.GetEditControl();
    return !m_bEscape && edit != nullptr && edit->GetWindowTextLength() == 0;
}

void dlgconnect::OnEndCommentEdit(NMHDR* header, LRESULT* result) {
    const LVITEMA& item = As<NMLVDISPINFOA>(header).item;
    *result = FALSE;
    if (item.pszText == nullptr && !IsNameEmptied()) {
        return;
    }
    const int colour = ColourOfRow(item.iItem);
    m_commentNames.Set(colour, item.pszText != nullptr ? item.pszText : "");
    m_commentRows[static_cast<size_t>(colour)][kCommentColumn] = m_commentNames.Get(colour);
    m_comments.SetItemText(item.iItem, kCommentColumn, m_commentNames.Get(colour));
}

// Not every list ends the edit on a click on a box or a heading. A name that is being edited belongs to its row, not to
// the one that will stand in its place.
void dlgconnect::FinishCommentEdit() {
    if (m_comments.GetEditControl() != nullptr) {
        m_comments.SetFocus();
    }
}

void dlgconnect::OnCommentColumnClick(NMHDR* header, LRESULT* result) {
    const int column = As<NMLISTVIEW>(header).iSubItem;
    *result = 0;
    FinishCommentEdit();
    TurnCommentSort(column);
    m_comments.SortItems(&CompareCommentRows, static_cast<DWORD_PTR>(column));
    const int selected = m_comments.GetNextItem(-1, LVNI_SELECTED);
    if (selected >= 0) {
        m_comments.EnsureVisible(selected, FALSE);
    }
}

// The box only explains the tick of the list. What is typed in the distances is put back with it.
void dlgconnect::OnLegendClicked() {
    m_bLegend = 1;
    ShowMembers();
}
