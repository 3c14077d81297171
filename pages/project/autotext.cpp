// The dialog of an automatic text's placement.
#include "pages/project/autotext.h"

#include <algorithm>
#include <iterator>

#include "core/field_messages.h"
#include "core/numbers.h"
#include "pages/project/dates.h"
#include "resources/resource.h"

struct CAutoText::Axis {
    UINT edit;
    UINT slider;
    CString CAutoText::*text;
    int Placement::*value;
    LONG SIZE::*extent;
    // The vertical slider has its 0 at the top, and the sheet at the bottom.
    bool isUpward;
};

constexpr CAutoText::Axis CAutoText::kAxes[2] = {
    {IDC_TEXT_X, IDC_SLIDER_X, &CAutoText::m_strX, &Placement::x, &SIZE::cx, false},
    {IDC_TEXT_Y, IDC_SLIDER_Y, &CAutoText::m_strY, &Placement::y, &SIZE::cy, true},
};

namespace {

// The sliders keep their usual range.
constexpr int kWholeSlider = 100;
constexpr int kBarThickness = 3;
constexpr int kMaxCoordinateLength = 4;

struct ModeLook {
    int mode;
    UINT captionId;
    bool hasFormats;
};

constexpr ModeLook kModeLooks[] = {
    {CAutoText::kDate, IDS_AUTO_DATE, true},
    {CAutoText::kTime, IDS_AUTO_TIME, false},
    {CAutoText::kDrawingName, IDS_AUTO_DRAWING_NAME, false},
};

struct MarkerControls {
    UINT box;
    UINT bar;
};

constexpr MarkerControls kOtherMarkers[] = {{IDC_FIRST_OTHER_BOX, IDC_FIRST_OTHER_BAR},
                                            {IDC_SECOND_OTHER_BOX, IDC_SECOND_OTHER_BAR}};

void Move(CWnd& control, const RECT& place) {
    control.SetWindowPos(nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                         SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
}

void Repaint(CWnd& control) {
    control.Invalidate(TRUE);
    control.UpdateWindow();
}

}  // namespace

IMPLEMENT_DYNAMIC(CAutoText, CDialog)

BEGIN_MESSAGE_MAP(CAutoText, CDialog)
ON_CONTROL_RANGE(EN_KILLFOCUS, IDC_TEXT_X, IDC_TEXT_Y, &CAutoText::OnCoordinateKillFocus)
ON_CBN_KILLFOCUS(IDC_TEXT_HEIGHT, &CAutoText::OnHeightKillFocus)
ON_CBN_SELENDOK(IDC_TEXT_HEIGHT, &CAutoText::OnHeightPicked)
ON_CBN_DROPDOWN(IDC_TEXT_HEIGHT, &CAutoText::OnHeightListOpened)
ON_CBN_CLOSEUP(IDC_TEXT_HEIGHT, &CAutoText::OnHeightListClosed)
ON_CBN_SELENDCANCEL(IDC_TEXT_HEIGHT, &CAutoText::OnHeightPickCancelled)
ON_CBN_SELENDOK(IDC_TEXT_ANGLE, &CAutoText::OnAnglePicked)
ON_CBN_SELENDOK(IDC_DATE_FORMAT, &CAutoText::OnFormatPicked)
ON_NOTIFY_RANGE(NM_RELEASEDCAPTURE, IDC_SLIDER_X, IDC_SLIDER_Y, &CAutoText::OnSliderReleased)
ON_WM_HSCROLL()
ON_WM_VSCROLL()
ON_MESSAGE(WM_MOUSEACTIVATE, &CAutoText::OnMouseActivate)
ON_WM_PAINT()
END_MESSAGE_MAP()

CAutoText::CAutoText(CWnd* parent) : CDialog(IDD_AUTO_TEXT, parent) {}

void CAutoText::DoDataExchange(CDataExchange* exchange) {
    CDialog::DoDataExchange(exchange);
    for (const Axis& axis : kAxes) {
        DDX_Text(exchange, static_cast<int>(axis.edit), this->*axis.text);
        DDV_MaxChars(exchange, this->*axis.text, kMaxCoordinateLength);
    }
}

BOOL CAutoText::OnInitDialog() {
    CDialog::OnInitDialog();
    Combo(IDC_TEXT_ANGLE).SetCurSel(m_placement.orientation);
    Control(IDC_TEXT_HEIGHT).SetWindowText(FixedText(m_placement.height, 1));
    UpdateOrientation();
    for (const Axis& axis : kAxes) {
        (this->*axis.text).Format("%d", m_placement.*axis.value);
    }
    SyncSliders();
    MoveOtherMarkers();
    MoveEditedMarker();
    ShowMode();
    UpdateData(FALSE);
    m_bInitialised = true;
    m_leaveCheck.m_pLastEditControl = &Control(IDC_TEXT_HEIGHT);
    return TRUE;
}

// The formats are shown as today's date in each.
void CAutoText::ShowMode() {
    CComboBox& formats = Combo(IDC_DATE_FORMAT);
    formats.ResetContent();
    const auto look = std::find_if(std::begin(kModeLooks), std::end(kModeLooks),
                                   [this](const ModeLook& row) { return row.mode == m_nMode; });
    if (look == std::end(kModeLooks)) {
        return;
    }
    SetWindowText(LoadText(look->captionId));
    if (look->hasFormats) {
        for (LPCSTR format : kOfferedDateFormats) {
            formats.AddString(TodayText(format));
        }
        formats.SetCurSel(m_nFormat);
    } else {
        formats.EnableWindow(FALSE);
        Control(IDC_DATE_FORMAT_LABEL).EnableWindow(FALSE);
    }
}

void CAutoText::SyncSliders() {
    if (!HasSheet()) {
        return;
    }
    for (const Axis& axis : kAxes) {
        const long long extent = m_sheetSize.*axis.extent;
        const int value = m_placement.*axis.value;
        const long long position = (axis.isUpward ? extent - value : value) * kWholeSlider / extent;
        Slider(axis.slider).SetPos(static_cast<int>(std::clamp<long long>(position, 0, kWholeSlider)));
    }
}

void CAutoText::MoveMarker(UINT box, UINT bar, const Placement& placement) {
    RECT frame{};
    Control(IDC_SHEET_FRAME).GetWindowRect(&frame);
    ScreenToClient(&frame);
    Marker marker{};
    if (PlaceMarker(frame, m_sheetSize, placement, kBarThickness, marker)) {
        Move(Control(box), marker.box);
        Move(Control(bar), marker.bar);
        // The box is hollow and has no ground of its own: within it, the dialog has to cover where the marker stood.
        InvalidateRect(&marker.box, TRUE);
        UpdateWindow();
        // On top of the markers that it may overlap.
        Repaint(Control(box));
        Repaint(Control(bar));
    }
}

void CAutoText::MoveEditedMarker() {
    MoveMarker(IDC_EDITED_BOX, IDC_EDITED_BAR, m_placement);
}

void CAutoText::MoveOtherMarkers() {
    for (size_t i = 0; i < std::size(kOtherMarkers); ++i) {
        SetRotation(m_others[i].orientation, m_others[i].rotation);
        MoveMarker(kOtherMarkers[i].box, kOtherMarkers[i].bar, m_others[i]);
    }
}

bool CAutoText::IsToBeChecked(UINT field) {
    if (m_leaveCheck.IsCheckPostponed()) {
        m_nSkipped = field;
        return false;
    }
    if (m_nSkipped == field) {
        m_nSkipped = 0;
    }
    return m_leaveCheck.IsCancelPending() == 0;
}

// An empty field takes the focus back even when its check was forced.
void CAutoText::OnCoordinateKillFocus(UINT id) {
    const Axis& axis = kAxes[id == IDC_TEXT_X ? 0 : 1];
    CWnd& edit = Control(id);
    if (IsToBeChecked(id)) {
        CFieldCheck check(m_leaveCheck, &edit, LastEdit::Noted);
        // A text that is too long was prompted for, and stays refused.
        if (UpdateData(TRUE)) {
            const CString& text = this->*axis.text;
            if (text.IsEmpty()) {
                ReportFieldError(this, LoadText(IDS_TEXT_EMPTY), IDS_FAULTY_TEXT_FIELD, &edit);
            } else {
                check.Pass();
                m_placement.*axis.value = LeadingInteger(text);
                SyncSliders();
                MoveEditedMarker();
            }
        }
    }
    m_leaveCheck.m_pLastEditControl = &edit;
}

// The entry that is selected counts rather than the text of the field, which may be on its way to it. The first entry
// counts as none.
CString CAutoText::HeightText() const {
    constexpr int kMaxHeightLength = 512;
    const CComboBox& heights = Combo(IDC_TEXT_HEIGHT);
    CString text;
    if (const int selection = heights.GetCurSel(); selection > 0) {
        heights.GetLBText(selection, text);
        return text;
    }
    heights.GetWindowText(text);
    return text.Left(kMaxHeightLength);
}

void CAutoText::OnHeightKillFocus() {
    CWnd& heights = Control(IDC_TEXT_HEIGHT);
    if (IsToBeChecked(IDC_TEXT_HEIGHT)) {
        CFieldCheck check(m_leaveCheck, &heights, LastEdit::Noted);
        const CString text = HeightText();
        CWnd* parent = GetParent();
        if (CheckNumber(parent != nullptr ? parent : this, text, check.Refocus()) != 0) {
            check.Pass();
            m_placement.height = LeadingNumber(text);
            MoveEditedMarker();
        }
    }
    m_leaveCheck.m_pLastEditControl = &heights;
}

void CAutoText::OnHeightPicked() {
    CComboBox& heights = Combo(IDC_TEXT_HEIGHT);
    m_openedList.OnConfirmed(heights.m_hWnd);
    const int entry = heights.GetCurSel();
    if (entry < 0) {
        return;  // The list was confirmed without one, and the field keeps its text.
    }
    CString text;
    heights.GetLBText(entry, text);
    m_placement.height = LeadingNumber(text);
    MoveEditedMarker();
}

void CAutoText::OnHeightListOpened() {
    m_openedList.OnOpened(Control(IDC_TEXT_HEIGHT).m_hWnd);
}

void CAutoText::OnHeightListClosed() {
    m_openedList.OnClosed(Control(IDC_TEXT_HEIGHT).m_hWnd);
}

void CAutoText::OnHeightPickCancelled() {
    m_openedList.OnCancelled(Control(IDC_TEXT_HEIGHT).m_hWnd);
}

void CAutoText::OnAnglePicked() {
    m_placement.orientation = Combo(IDC_TEXT_ANGLE).GetCurSel();
    UpdateOrientation();
    MoveEditedMarker();
}

void CAutoText::OnFormatPicked() {
    m_nFormat = Combo(IDC_DATE_FORMAT).GetCurSel();
}

void CAutoText::TakeSlider(const Axis& axis) {
    if (!m_bInitialised || !HasSheet()) {
        return;
    }
    const int extent = static_cast<int>(m_sheetSize.*axis.extent);
    const int distance = Slider(axis.slider).GetPos() * extent / kWholeSlider;
    m_placement.*axis.value = axis.isUpward ? extent - distance : distance;
    (this->*axis.text).Format("%d", m_placement.*axis.value);
    UpdateData(FALSE);
    MoveEditedMarker();
}

void CAutoText::OnSliderReleased(UINT slider, NMHDR* /*header*/, LRESULT* result) {
    TakeSlider(kAxes[slider == IDC_SLIDER_X ? 0 : 1]);
    *result = 0;
}

void CAutoText::OnHScroll(UINT code, UINT position, CScrollBar* scrollBar) {
    TakeSlider(kAxes[0]);
    CDialog::OnHScroll(code, position, scrollBar);
}

void CAutoText::OnVScroll(UINT code, UINT position, CScrollBar* scrollBar) {
    TakeSlider(kAxes[1]);
    CDialog::OnVScroll(code, position, scrollBar);
}

// The box about a wrong height is the parent's, so the system leaves this dialog enabled. A click here must not bring
// the dialog in front of that box, nor close it behind the box's back.
LRESULT CAutoText::OnMouseActivate(WPARAM /*wParam*/, LPARAM /*lParam*/) {
    return m_leaveCheck.IsChecking() ? MA_NOACTIVATEANDEAT : Default();
}

// The frame and the markers are controls, which draw themselves.
void CAutoText::OnPaint() {
    const CPaintDC context(this);
}

// A user who goes to the button that cancels, and then presses OK after all, means what the field shows.
BOOL CAutoText::MayClose() {
    if (!m_leaveCheck.MayLeave()) {
        return FALSE;
    }
    if (m_nSkipped == 0) {
        return TRUE;
    }
    Control(m_nSkipped).SetFocus();
    return m_leaveCheck.MayLeave();
}

void CAutoText::OnOK() {
    if (!m_leaveCheck.IsChecking() && MayClose()) {
        CDialog::OnOK();
    }
}

void CAutoText::OnCancel() {
    if (m_leaveCheck.IsChecking()) {
        return;
    }
    m_leaveCheck.Cancel();
    CDialog::OnCancel();
}
