// The page "Blanketter".
#include "pages/project/form.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "core/field_messages.h"
#include "core/numbers.h"
#include "pages/project/autotext.h"
#include "pages/project/dates.h"
#include "pages/project/form_file.h"
#include "resources/resource.h"

struct CForm::GridField {
    UINT control;
    // The name of the grid's column, and the sheet size of its row.
    UINT column;
    LPCSTR size;
    LPCSTR key;
    CString CForm::*member;
    // The text that is emptied when the key is missing.
    CString CForm::*missing = member;
};

struct CForm::AutoText {
    LPCSTR key;
    UINT checkBox;
    UINT changeButton;
    UINT preview;
    // Disabled when the page is shown with the text off; disabled and enabled as the user switches it.
    std::span<const UINT> controls;
    std::span<const UINT> switched;
    CString CForm::*stored;
    Placement CForm::*placement;
    // What the dialog is told, and whether the page is its parent. The others are shown in the order given.
    int mode;
    int CForm::*format;
    Placement CForm::*others[2];
    bool isChildOfPage;
    // Whether a changed placement tells the sheet of a modification.
    SheetNotice notice;
};

namespace {

// The value of host mode in which drawings get automatic texts, and forms of the size A1.
constexpr int kHostModeWithAutoTexts = 1;

constexpr LPCSTR kFormSizeKey = "FORM_SIZE";

// In the order of loading. Two are crossed: the A4 fields empty the A3 text when their key is missing. The A3 key,
// which is read next, sets it anyway.
constexpr CForm::GridField kGrid[] = {
    {IDC_HEAD_A4, IDS_TITLE_BLOCK, "A4", "NVST_HEAD4", &CForm::m_strHeadA4, &CForm::m_strHeadA3},
    {IDC_HEAD_A3, IDS_TITLE_BLOCK, "A3", "NVST_HEAD3", &CForm::m_strHeadA3},
    {IDC_HEAD_A2, IDS_TITLE_BLOCK, "A2", "NVST_HEAD2", &CForm::m_strHeadA2},
    {IDC_HEAD_A1, IDS_TITLE_BLOCK, "A1", "NVST_HEAD1", &CForm::m_strHeadA1},
    {IDC_FORM_A4, IDS_FORM, "A4", "NVST_FORM4", &CForm::m_strFormA4, &CForm::m_strFormA3},
    {IDC_FORM_A3, IDS_FORM, "A3", "NVST_FORM3", &CForm::m_strFormA3},
    {IDC_FORM_A2, IDS_FORM, "A2", "NVST_FORM2", &CForm::m_strFormA2},
    {IDC_FORM_A1, IDS_FORM, "A1", "NVST_FORM1", &CForm::m_strFormA1},
    {IDC_RULER_A4, IDS_RULER, "A4", "NVST_SCL4", &CForm::m_strSclA4},
    {IDC_RULER_A3, IDS_RULER, "A3", "NVST_SCL3", &CForm::m_strSclA3},
    {IDC_RULER_A2, IDS_RULER, "A2", "NVST_SCL2", &CForm::m_strSclA2},
    {IDC_RULER_A1, IDS_RULER, "A1", "NVST_SCL1", &CForm::m_strSclA1},
    {IDC_REVISION_A4, IDS_REVISION_NOTE, "A4", "NVST_REV4", &CForm::m_strRevA4},
    {IDC_REVISION_A3, IDS_REVISION_NOTE, "A3", "NVST_REV3", &CForm::m_strRevA3},
    {IDC_REVISION_A2, IDS_REVISION_NOTE, "A2", "NVST_REV2", &CForm::m_strRevA2},
    {IDC_REVISION_A1, IDS_REVISION_NOTE, "A1", "NVST_REV1", &CForm::m_strRevA1},
};

// File names are recorded as they are typed, and nothing is checked.
constexpr auto kTexts = [] {
    std::array<TextRow, std::size(kGrid)> rows{};
    std::transform(std::begin(kGrid), std::end(kGrid), rows.begin(), [](const CForm::GridField& field) {
        return TextRow{.control = field.control,
                       .key = field.key,
                       .member = PageMember(field.member),
                       .lastEdit = LastEdit::LeftAlone};
    });
    return rows;
}();

// The buttons do not undo a click in a sheet that is not editable; what they record then is never merged.
constexpr UINT kPathButtons[] = {IDC_NAME_FILE, IDC_NAME_FULL_PATH};
constexpr ChoiceRow kChoices[] = {{.key = "DWG_PATH",
                                   .step = 1,
                                   .buttons = kPathButtons,
                                   .member = PageMember(&CForm::m_nDwgPath),
                                   .readOnlyClick = ReadOnlyClick::Recorded}};

constexpr PageRows kRows = {kTexts, {}, kChoices};

constexpr UINT kDateControls[] = {IDC_DATE_CHANGE};
constexpr UINT kDateSwitched[] = {IDC_DATE_TODAY, IDC_DATE_CHANGE};
constexpr UINT kTimeControls[] = {IDC_TIME_CHANGE};
constexpr UINT kNameControls[] = {IDC_NAME_CHANGE, IDC_NAME_FILE, IDC_NAME_FULL_PATH};

enum { kDateText, kTimeText, kNameText };

// In the order in which they are shown and drawn.
constexpr CForm::AutoText kAutoTexts[] = {
    {"AUTO_DATE",
     IDC_DATE_ON,
     IDC_DATE_CHANGE,
     IDC_DATE_PREVIEW,
     kDateControls,
     kDateSwitched,
     &CForm::m_strAutoDate,
     &CForm::m_date,
     CAutoText::kDate,
     &CForm::m_nDateFormat,
     {&CForm::m_time, &CForm::m_name},
     false,
     SheetNotice::Modified},
    {"AUTO_TIME",
     IDC_TIME_ON,
     IDC_TIME_CHANGE,
     IDC_TIME_PREVIEW,
     kTimeControls,
     kTimeControls,
     &CForm::m_strAutoTime,
     &CForm::m_time,
     CAutoText::kTime,
     nullptr,
     {&CForm::m_date, &CForm::m_name},
     false,
     SheetNotice::None},
    {"DWG_TEXT",
     IDC_NAME_ON,
     IDC_NAME_CHANGE,
     IDC_NAME_PREVIEW,
     kNameControls,
     kNameControls,
     &CForm::m_strDwgText,
     &CForm::m_name,
     CAutoText::kDrawingName,
     &CForm::m_nNameFormat,
     {&CForm::m_time, &CForm::m_date},
     true,
     SheetNotice::Modified},
};

const CForm::AutoText& AutoTextOf(UINT CForm::AutoText::*control, UINT id) {
    return *std::find_if(std::begin(kAutoTexts), std::end(kAutoTexts),
                         [=](const CForm::AutoText& text) { return text.*control == id; });
}

const CForm::AutoText& AutoTextOf(Placement CForm::*placement) {
    return *std::find_if(std::begin(kAutoTexts), std::end(kAutoTexts),
                         [=](const CForm::AutoText& text) { return text.placement == placement; });
}

const CForm::GridField* FieldOf(UINT control) {
    const auto field = std::find_if(std::begin(kGrid), std::end(kGrid),
                                    [=](const CForm::GridField& row) { return row.control == control; });
    return field != std::end(kGrid) ? field : nullptr;
}

// Sheet sizes by their position in the list, as the page is shown and as the user picks one. A1 and A3 change places
// between the two, on purpose.
constexpr SIZE kShownSizes[] = {{840, 560}, {560, 420}, {420, 280}, {280, 210}};
constexpr SIZE kPickedSizes[] = {{420, 280}, {560, 420}, {840, 560}, {280, 210}};

// Another position leaves the size as it is.
void TakeSize(std::span<const SIZE> sizes, int position, SIZE& size) {
    if (position >= 0 && position < static_cast<int>(sizes.size())) {
        size = sizes[static_cast<size_t>(position)];
    }
}

// What only drawings with automatic texts have.
constexpr UINT kAutoTextControls[] = {
    IDC_ROW_A1_LABEL, IDC_HEAD_A1,     IDC_FORM_A1,      IDC_RULER_A1,        IDC_REVISION_A1, IDC_AUTO_GROUP,
    IDC_NAME_GROUP,   IDC_NAME_ON,     IDC_NAME_CHANGE,  IDC_NAME_PREVIEW,    IDC_NAME_FILE,   IDC_NAME_FULL_PATH,
    IDC_DATE_GROUP,   IDC_DATE_ON,     IDC_DATE_CHANGE,  IDC_DATE_PREVIEW,    IDC_DATE_TODAY,  IDC_TIME_GROUP,
    IDC_TIME_ON,      IDC_TIME_CHANGE, IDC_TIME_PREVIEW, IDC_FORM_SIZE_LABEL, IDC_FORM_SIZE};

// The edge at which the text starts.
void FillEdgeBar(CDC& context, const Marker& marker, CBrush* brush) {
    context.FillRect(&marker.bar, brush);
}

constexpr UINT kFirstField = IDC_FORM_A4;
constexpr UINT kLastField = IDC_REVISION_A1;

}  // namespace

IMPLEMENT_DYNAMIC(CForm, CPropertyPage)

BEGIN_MESSAGE_MAP(CForm, CSettingsPage)
ON_CONTROL_RANGE(EN_SETFOCUS, kFirstField, kLastField, &CForm::OnFieldFocus)
ON_CONTROL_RANGE(EN_CHANGE, kFirstField, kLastField, &CForm::OnFieldChange)
ON_BN_CLICKED(IDC_BROWSE_FORM, &CForm::OnBrowse)
ON_CONTROL_RANGE(BN_CLICKED, IDC_DATE_ON, IDC_DATE_ON, &CForm::OnSwitched)
ON_CONTROL_RANGE(BN_CLICKED, IDC_TIME_ON, IDC_TIME_ON, &CForm::OnSwitched)
ON_CONTROL_RANGE(BN_CLICKED, IDC_NAME_ON, IDC_NAME_ON, &CForm::OnSwitched)
ON_CONTROL_RANGE(BN_CLICKED, IDC_TIME_CHANGE, IDC_NAME_CHANGE, &CForm::OnChangePlacement)
ON_CBN_SELENDOK(IDC_FORM_SIZE, &CForm::OnSizePicked)
ON_WM_PAINT()
END_MESSAGE_MAP()

CForm::CForm() : CSettingsPage(IDD_FORMS, kRows) {
    m_time.y = 40;
    m_name.y = 80;
}

CForm::~CForm() = default;

int CForm::LoadSettings(const CMdb* store) {
    m_nDateFormat = CSettingsSheet::GetSettingNumber(store, "DATEFORMAT");
    for (const AutoText& text : kAutoTexts) {
        this->*text.stored = CSettingsSheet::GetSettingText(store, text.key);
    }
    m_nDwgPath = CSettingsSheet::GetSettingNumber(store, kChoices[0].key);
    m_nFormSize = CSettingsSheet::GetSettingNumber(store, kFormSizeKey);
    for (const GridField& field : kGrid) {
        if (CSettingsSheet::GetSetting(store, field.key, this->*field.member) == 0) {
            (this->*field.missing).Empty();
        }
    }
    m_strUserLib = CSettingsSheet::GetSettingText(store, "USERLIB");
    return 1;
}

// The page never tells the sheet that it is modified: the flag stays 0. Its changes are merged all the same.
BOOL CForm::OnSetActive() {
    m_bModifyAllowed = 0;
    for (const AutoText& text : kAutoTexts) {
        ShowAutoText(text);
    }
    static_cast<CComboBox&>(RequireDlgItem(IDC_FORM_SIZE)).SetCurSel(m_nFormSize);
    TakeSize(kShownSizes, m_nFormSize, m_sheetSize);
    ShowMembers();
    DisableFieldsWhenReadOnly();
    if (GetSheet()->m_nHostMode != kHostModeWithAutoTexts) {
        HideControls(kAutoTextControls);
    }
    return ActivatePage();
}

// Boxes are only ever checked here. The placement is read from the stored text again, so one that was changed in the
// dialog since is forgotten here, though it stays recorded.
void CForm::ShowAutoText(const AutoText& text) {
    Placement& placement = this->*text.placement;
    if ((this->*text.stored).IsEmpty()) {
        EnableControls(text.controls, FALSE);
    } else {
        CheckDlgButton(static_cast<int>(text.checkBox), BST_CHECKED);
        if (text.mode == CAutoText::kDate) {
            UpdateDateText();
        }
        ParsePlacement(this->*text.stored, placement);
    }
    SetPlacementAngle(placement.angle, placement);
}

void CForm::OnFieldFocus(UINT edit) {
    if (const GridField* field = FieldOf(edit)) {
        m_browsed = field;
    }
}

// A field counts as changed even in a sheet that is not editable, and the sheet is not told.
void CForm::OnFieldChange(UINT edit) {
    if (const GridField* field = FieldOf(edit)) {
        MarkChanged(kTexts[static_cast<size_t>(field - kGrid)]);
    }
}

// The name picked is recorded when its field is left.
void CForm::OnBrowse() {
    if (m_browsed == nullptr || GetSheet()->m_bEditable == 0) {
        return;
    }
    const CString title = LoadText(m_browsed->column) + " " + m_browsed->size;
    const bool picked = PickFormFile(title, m_strUserLib, this->*m_browsed->member) == IDOK;
    if (m_hWnd == nullptr) {
        return;
    }
    if (picked) {
        OnFieldChange(m_browsed->control);
    }
    RequireDlgItem(m_browsed->control).SetFocus();
    ShowMembers();
}

void CForm::OnSwitched(UINT checkBox) {
    const AutoText& text = AutoTextOf(&AutoText::checkBox, checkBox);
    if (!ReadMembers()) {
        return;
    }
    const bool isOn = IsDlgButtonChecked(static_cast<int>(checkBox)) == BST_CHECKED;
    EnableControls(text.switched, isOn);
    this->*text.stored = isOn ? PlacementText(this->*text.placement) : CString();
    RecordChange(text.key, this->*text.stored);
    if (text.mode == CAutoText::kDate) {
        UpdateDateText();
    }
    RedrawPage();
    SetModifiedByUser();
}

void CForm::OnChangePlacement(UINT button) {
    const AutoText& text = AutoTextOf(&AutoText::changeButton, button);
    CAutoText dialog(text.isChildOfPage ? this : nullptr);
    dialog.m_nMode = text.mode;
    dialog.m_sheetSize = m_sheetSize;
    dialog.m_placement = this->*text.placement;
    if (text.format != nullptr) {
        dialog.m_nFormat = this->*text.format;
    }
    for (size_t i = 0; i < std::size(text.others); ++i) {
        dialog.m_others[i] = this->*text.others[i];
        if (IsDlgButtonChecked(static_cast<int>(AutoTextOf(text.others[i]).checkBox)) != BST_CHECKED) {
            dialog.m_others[i].height = 0.0;
        }
    }
    const bool isAnswered = dialog.DoModal() == IDOK;
    if (m_hWnd == nullptr) {
        return;
    }
    if (isAnswered) {
        if (text.format != nullptr) {
            this->*text.format = dialog.m_nFormat;
        }
        TakePlacement(text, dialog.m_placement);
    }
    RedrawPage();
}

void CForm::TakePlacement(const AutoText& text, const Placement& answer) {
    Placement& placement = this->*text.placement;
    const int angle = AngleFromIndex(answer.orientation, placement.angle);
    placement = answer;
    placement.angle = angle;
    SetPlacementAngle(angle, placement);
    if (text.mode == CAutoText::kDate) {
        CString format;
        format.Format("%d", m_nDateFormat);
        RecordChange("DATEFORMAT", format);
    }
    // The text that the next activation reads stays as it is.
    RecordChange(text.key, PlacementText(placement));
    if (text.notice == SheetNotice::Modified) {
        SetModifiedByUser();
    }
    if (text.mode == CAutoText::kDate) {
        UpdateDateText();
    }
}

void CForm::UpdateDateText() {
    const bool isShown = !m_strAutoDate.IsEmpty() && m_nDateFormat >= 0 && m_nDateFormat < kDateFormats;
    SetDlgItemText(IDC_DATE_TODAY, isShown ? TodayText(kPageDateFormats[m_nDateFormat]) : CString());
}

void CForm::OnSizePicked() {
    if (!ReadMembers()) {
        return;
    }
    m_nFormSize = static_cast<CComboBox&>(RequireDlgItem(IDC_FORM_SIZE)).GetCurSel();
    CString position;
    position.Format("%d", m_nFormSize);
    RecordChange(kFormSizeKey, position);
    SetModifiedByUser();
    TakeSize(kPickedSizes, m_nFormSize, m_sheetSize);
    RedrawPage();
}

void CForm::OnPaint() {
    CPaintDC context(this);
    if (GetSheet()->m_nHostMode == kHostModeWithAutoTexts) {
        DrawPlacementPreviews(context);
    }
}

// The previews' frames are controls; the markers are drawn into them, or drawn over where the text is off.
void CForm::DrawPlacementPreviews(CDC& context) {
    constexpr int kBarThickness = 2;
    CBrush black(RGB(0, 0, 0));
    CBrush* erasing = CBrush::FromHandle(::GetSysColorBrush(COLOR_MENU));
    for (const AutoText& text : kAutoTexts) {
        RECT frame{};
        RequireDlgItem(text.preview).GetWindowRect(&frame);
        ScreenToClient(&frame);
        Marker marker{};
        if (PlaceMarker(frame, m_sheetSize, this->*text.placement, kBarThickness, marker)) {
            CBrush* brush = IsDlgButtonChecked(static_cast<int>(text.checkBox)) == BST_CHECKED ? &black : erasing;
            context.FrameRect(&marker.box, brush);
            FillEdgeBar(context, marker, brush);
        }
    }
}

void CForm::RedrawPage() {
    Invalidate(TRUE);
    UpdateWindow();
}

void CForm::EnableControls(std::span<const UINT> controls, BOOL enable) {
    for (const UINT control : controls) {
        RequireDlgItem(control).EnableWindow(enable);
    }
}

// The sheet's modified state is left as it is.
BOOL CForm::OnApply() {
    if (!CommitFocusedField() || !ReadMembers()) {
        return FALSE;
    }
    MergeChanges();
    return ApplyPage();
}
