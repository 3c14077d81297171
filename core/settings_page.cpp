// The common behaviour of the pages.
#include "core/settings_page.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "core/preview.h"

namespace {

// The window class names of the controls that take text.
constexpr LPCSTR kFieldClasses[] = {"ComboBox", "Edit"};

bool IsField(HWND window) {
    char name[16] = {};
    GetClassNameA(window, name, sizeof name);
    return std::any_of(std::begin(kFieldClasses), std::end(kFieldClasses),
                       [&name](LPCSTR fieldClass) { return std::strcmp(name, fieldClass) == 0; });
}

// The row of a control; null for a control of another kind.
template <typename Row>
const Row* FindRow(std::span<const Row> rows, UINT control) {
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const Row& row) { return row.control == control; });
    return found != rows.end() ? &*found : nullptr;
}

// Numbers of controls that rows may name; those below belong to the system's buttons.
constexpr UINT kFirstControl = 1000;
constexpr UINT kLastControl = 0xFFFF;

}  // namespace

BEGIN_MESSAGE_MAP(CSettingsPage, CPropertyPage)
ON_CONTROL_RANGE(EN_CHANGE, kFirstControl, kLastControl, &CSettingsPage::OnTextChange)
ON_CONTROL_RANGE(EN_KILLFOCUS, kFirstControl, kLastControl, &CSettingsPage::OnTextKillFocus)
ON_CONTROL_RANGE(CBN_EDITCHANGE, kFirstControl, kLastControl, &CSettingsPage::OnTextChange)
ON_CONTROL_RANGE(CBN_KILLFOCUS, kFirstControl, kLastControl, &CSettingsPage::OnTextKillFocus)
ON_CONTROL_RANGE(CBN_DROPDOWN, kFirstControl, kLastControl, &CSettingsPage::OnListOpened)
ON_CONTROL_RANGE(CBN_CLOSEUP, kFirstControl, kLastControl, &CSettingsPage::OnListClosed)
ON_CONTROL_RANGE(CBN_SELENDOK, kFirstControl, kLastControl, &CSettingsPage::OnPick)
ON_CONTROL_RANGE(CBN_SELENDCANCEL, kFirstControl, kLastControl, &CSettingsPage::OnPickCancelled)
ON_CONTROL_RANGE(BN_CLICKED, kFirstControl, kLastControl, &CSettingsPage::OnButtonClicked)
ON_WM_DRAWITEM()
END_MESSAGE_MAP()

CSettingsPage::CSettingsPage(UINT templateId, const PageRows& rows)
    : CPropertyPage(templateId), m_rows(rows), m_textStates(rows.texts.size()) {}

int CSettingsPage::LoadSettings(const CMdb* store) {
    for (const TextRow& row : m_rows.texts) {
        this->*row.member = CSettingsSheet::GetSettingText(store, row.key);
    }
    for (const ChoiceRow& row : m_rows.choices) {
        this->*row.member = CSettingsSheet::GetSettingNumber(store, row.key) / row.step;
    }
    for (const CheckRow& row : m_rows.checks) {
        const int number = CSettingsSheet::GetSettingNumber(store, row.key);
        this->*row.member = row.loaded != nullptr ? row.loaded(number) : number;
    }
    return 1;
}

// The window's object is used again when a sheet runs again.
void CSettingsPage::PreSubclassWindow() {
    m_leaveCheck.Begin();
    std::fill(m_textStates.begin(), m_textStates.end(), TextState{});
    CPropertyPage::PreSubclassWindow();
}

void CSettingsPage::DoDataExchange(CDataExchange* exchange) {
    CPropertyPage::DoDataExchange(exchange);
    ExchangeChoices(exchange);
    ExchangeChecks(exchange);
    ExchangeTexts(exchange);
}

void CSettingsPage::ExchangeTexts(CDataExchange* exchange) {
    for (const TextRow& row : m_rows.texts) {
        if (row.exchange == nullptr) {
            continue;
        }
        row.exchange(exchange, static_cast<int>(row.control), this->*row.member);
        if (row.maxLength != 0) {
            DDV_MaxChars(exchange, this->*row.member, static_cast<int>(row.maxLength));
        }
    }
}

void CSettingsPage::ExchangeChecks(CDataExchange* exchange) {
    for (const CheckRow& row : m_rows.checks) {
        DDX_Check(exchange, static_cast<int>(row.control), this->*row.member);
    }
}

void CSettingsPage::ExchangeChoices(CDataExchange* exchange) {
    for (const ChoiceRow& row : m_rows.choices) {
        DDX_Radio(exchange, static_cast<int>(row.buttons.front()), this->*row.member);
    }
}

BOOL CSettingsPage::OnSetActive() {
    ShowMembers();
    TakeModifyFlag();
    DisableFieldsWhenReadOnly();
    return ActivatePage();
}

// One box for one leaving. A tab that is clicked takes the focus before it asks to leave the page, so the field may
// have been refused already by the same press; and what the field's handler has just refused is not to be prompted for
// again by the transfer that would follow here.
BOOL CSettingsPage::OnKillActive() {
    const BOOL mayLeave = !IsRefused() && m_leaveCheck.MayLeave() && !IsRefused() && CheckUncheckedFields();
    m_nRefusedInput = 0;
    EndForcedCheck();
    return mayLeave && CPropertyPage::OnKillActive();
}

// Where the focus was on no field, nothing has noted one. The next field to be refused would be taken for one that a
// forced check refuses: it would not get the focus back, and what is left after it would go unchecked.
void CSettingsPage::EndForcedCheck() {
    const bool notesFields = std::any_of(m_rows.texts.begin(), m_rows.texts.end(),
                                         [](const TextRow& row) { return row.lastEdit == LastEdit::Noted; });
    if (notesFields && m_leaveCheck.m_pLastEditControl == nullptr) {
        m_leaveCheck.m_pLastEditControl = this;
    }
}

// A user who goes to the button that cancels, and then presses OK after all, means what the field shows.
BOOL CSettingsPage::CheckUncheckedFields() {
    for (const TextRow& row : m_rows.texts) {
        if (!StateOf(row).m_bUnchecked) {
            continue;
        }
        ::SetFocus(HandleOf(row.control));
        if (!m_leaveCheck.MayLeave() || IsRefused()) {
            return FALSE;
        }
    }
    return TRUE;
}

BOOL CSettingsPage::OnApply() {
    if (!CommitFocusedField() || !ReadMembers()) {
        return FALSE;
    }
    MergeChanges();
    ClearModified();
    return ApplyPage();
}

void CSettingsPage::OnReset() {
    m_leaveCheck.Cancel();
    CPropertyPage::OnReset();
}

CSettingsSheet* CSettingsPage::GetSheet() const {
    // Only a window that is tied to its object is a sheet.
    auto* sheet = dynamic_cast<CSettingsSheet*>(FromHandlePermanent(::GetParent(m_hWnd)));
    if (sheet == nullptr) {
        AfxThrowWindowGoneException();
    }
    return sheet;
}

BOOL CSettingsPage::ReadMembers() {
    m_bTransferFailed = !UpdateData(TRUE);
    if (m_bTransferFailed && m_hWnd != nullptr) {
        m_nRefusedInput = GetSheet()->m_nInput;
    }
    return m_hWnd != nullptr;
}

BOOL CSettingsPage::IsRefused() const {
    return m_nRefusedInput == GetSheet()->m_nInput;
}

void CSettingsPage::DisableFieldsWhenReadOnly() {
    if (GetSheet()->m_bEditable != 0) {
        return;
    }
    for (CWnd* child = GetTopWindow(); child != nullptr; child = child->GetNextWindow()) {
        if (IsField(child->m_hWnd)) {
            child->ModifyStyle(0, WS_DISABLED);
        }
    }
}

void CSettingsPage::HideControls(std::span<const UINT> controls) {
    for (const UINT control : controls) {
        RequireDlgItem(control).ShowWindow(SW_HIDE);
    }
}

void CSettingsPage::MergeChanges() {
    GetSheet()->MergeSettings(&m_changes, &GetSheet()->m_workSettings);
}

void CSettingsPage::ClearModified() {
    m_bModifyAllowed = 0;
    SetModified(FALSE);
}

BOOL CSettingsPage::BeginClick(ReadOnlyClick readOnlyClick) {
    if (readOnlyClick == ReadOnlyClick::Undone && GetSheet()->m_bEditable == 0) {
        ShowMembers();
        return FALSE;
    }
    return ReadMembers();
}

void CSettingsPage::OnTextChange(UINT control) {
    if (const TextRow* row = FindRow(m_rows.texts, control)) {
        PickAsTyping(*row);
    }
}

void CSettingsPage::OnTextKillFocus(UINT control) {
    if (const TextRow* row = FindRow(m_rows.texts, control)) {
        CommitText(*row);
    }
}

// The changed flag stays set after a commit: from the first change on the field is committed whenever it is left.
void CSettingsPage::CommitText(const TextRow& row) {
    CWnd& field = RequireDlgItem(row.control);
    TextState& state = StateOf(row);
    if (state.m_bChanged != 0) {
        state.m_bUnchecked = m_leaveCheck.IsCheckPostponed();
        if (m_leaveCheck.IsCancelPending() == 0) {
            CheckAndRecord(row, field);
        }
    }
    if (row.lastEdit == LastEdit::Noted) {
        m_leaveCheck.m_pLastEditControl = &field;
    }
}

void CSettingsPage::CheckAndRecord(const TextRow& row, CWnd& field) {
    CFieldCheck check(m_leaveCheck, &field, row.lastEdit);
    if (!ReadMembers() || (m_bTransferFailed && row.failedTransfer == FailedTransfer::Refuses)) {
        return;
    }
    CString& text = this->*row.member;
    if (row.exchange == nullptr) {
        field.GetWindowText(text);
    }
    const BOOL accepted = row.check == nullptr || row.check(*this, text, check.Refocus(), field) != 0;
    if (m_hWnd == nullptr) {
        return;
    }
    if (accepted) {
        check.Pass();
        RecordChange(row.key, text);
    } else {
        m_nRefusedInput = GetSheet()->m_nInput;
    }
}

int CSettingsPage::CheckPlainText(CSettingsPage& page, CString& text, CWnd* refocus, CWnd& /*field*/) {
    return page.GetSheet()->CheckTextField(text, refocus, "\"", 0);
}

void CSettingsPage::PickAsTyping(const TextRow& row) {
    SetModifiedByUser();
    StateOf(row).m_bChanged = m_bModifyAllowed;
}

void CSettingsPage::PickShownText(const TextRow& row) {
    if (!ReadMembers()) {
        return;
    }
    CString text;
    GetDlgItemText(static_cast<int>(row.control), text);
    RecordChange(row.key, text);
    PickAsTyping(row);
}

void CSettingsPage::PickEntry(const TextRow& row) {
    RecordEntry(row);
}

BOOL CSettingsPage::RecordEntry(const TextRow& row) {
    if (!ReadMembers()) {
        return FALSE;
    }
    const auto& combo = static_cast<CComboBox&>(RequireDlgItem(row.control));
    const int entry = combo.GetCurSel();
    if (entry < 0) {
        return FALSE;
    }
    CString text;
    combo.GetLBText(entry, text);
    RecordChange(row.key, text);
    SetModifiedByUser();
    return TRUE;
}

void CSettingsPage::OnListOpened(UINT control) {
    m_openedList.OnOpened(HandleOf(control));
}

void CSettingsPage::OnListClosed(UINT control) {
    m_openedList.OnClosed(HandleOf(control));
}

void CSettingsPage::OnPick(UINT control) {
    m_openedList.OnConfirmed(HandleOf(control));
    if (const TextRow* row = FindRow(m_rows.texts, control)) {
        (this->*row->pick)(*row);
    }
}

void CSettingsPage::OnPickCancelled(UINT control) {
    m_openedList.OnCancelled(HandleOf(control));
}

void CSettingsPage::OnButtonClicked(UINT control) {
    if (const CheckRow* row = FindRow(m_rows.checks, control)) {
        if (BeginClick(row->readOnlyClick)) {
            RecordChange(row->key, this->*row->member != 0 ? row->checked : row->unchecked);
            OnRecorded(control);
            if (row->notice == SheetNotice::Modified) {
                SetModifiedByUser();
            }
        }
        return;
    }
    for (const ChoiceRow& row : m_rows.choices) {
        const auto clicked = std::find(row.buttons.begin(), row.buttons.end(), control);
        if (clicked != row.buttons.end() && BeginClick(row.readOnlyClick)) {
            RedrawControl(row.preview);
            CString value;
            value.Format("%d", row.StoredNumber(static_cast<size_t>(clicked - row.buttons.begin())));
            RecordChange(row.key, value);
            OnRecorded(row.buttons.front());
            SetModifiedByUser();
        }
    }
}

void CSettingsPage::OnDrawItem(int control, LPDRAWITEMSTRUCT item) {
    CBitmap bitmap;
    const UINT bitmapId = PreviewBitmap(static_cast<UINT>(control));
    if (bitmapId != 0 && bitmap.LoadBitmap(bitmapId)) {
        DrawCentredBitmap(*item, bitmap);
    }
}

void CSettingsPage::ShowText(UINT control) {
    SetDlgItemText(static_cast<int>(control), this->*FindRow(m_rows.texts, control)->member);
}

void CSettingsPage::SelectOrAdd(UINT control, LPCSTR text) {
    auto& combo = static_cast<CComboBox&>(RequireDlgItem(control));
    int entry = combo.FindString(0, text);
    if (entry < 0) {
        entry = combo.AddString(text);
    }
    combo.SetCurSel(entry);
}

void CSettingsPage::RedrawControl(UINT id) {
    if (CWnd* control = GetDlgItem(static_cast<int>(id))) {
        control->Invalidate(TRUE);
        control->UpdateWindow();
    }
}

void CSettingsPage::SetDisabledBit(UINT id, BOOL disabled) {
    RequireDlgItem(id).ModifyStyle(disabled ? 0 : WS_DISABLED, disabled ? WS_DISABLED : 0);
}
