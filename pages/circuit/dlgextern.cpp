// The page "Yttre / Montage".
#include "pages/circuit/dlgextern.h"

#include "core/assembly_height.h"
#include "core/numbers.h"
#include "core/setting_keys.h"
#include "resources/resource.h"

namespace {

// The value of host mode in which the drawing has no assemblies to set.
constexpr int kHostModeWithoutAssembly = 3;

constexpr LPCSTR kBalloonKey = "CABLE_BALLOON_H";
constexpr LPCSTR kPartKey = "BROKEN_PART";
constexpr LPCSTR kAutoKey = "AUTO_BET";
constexpr LPCSTR kHeightKey = "TERMINAL_HEIGHT";
constexpr LPCSTR kWidthKey = "TERMINAL_WIDTH";
constexpr LPCSTR kXHorKey = "TERM_X_HOR";
constexpr LPCSTR kYHorKey = "TERM_Y_HOR";
constexpr LPCSTR kXVerKey = "TERM_X_VER";
constexpr LPCSTR kYVerKey = "TERM_Y_VER";
constexpr LPCSTR kScaleKey = "ASSMBLY_SCALE";

constexpr double kMissingScale = 1.0;
constexpr double kMinimumScale = 1.0;
constexpr double kMaximumScale = 100000.0;

// Readers of the older key take this height for invisible; what is larger is seen.
constexpr LPCSTR kInvisibleHeight = "0.0001";
constexpr double kLargestInvisibleHeight = 0.001;

constexpr size_t kStartPointLength = 4;

int CheckTerminalEdit(CSettingsPage& page, CString& text, CWnd* refocus, CWnd& /*field*/) {
    return page.GetSheet()->CheckRequiredField(text, refocus);
}

constexpr TextRow TerminalRow(UINT control, LPCSTR key, CString CSettingsPage::*member, size_t maxLength = 0) {
    return {.control = control,
            .key = key,
            .member = member,
            .check = CheckTerminalEdit,
            .maxLength = maxLength,
            .lastEdit = LastEdit::OnlyTested};
}

// In the order of the data exchange. The keys in _HOR belong to the vertical start point and those in _VER to the
// horizontal one. The crossing is deliberate.
constexpr TextRow kTexts[] = {
    TerminalRow(IDC_TERMINAL_X_HOR, kXHorKey, PageMember(&dlgextern::m_strTermXHor), kStartPointLength),
    TerminalRow(IDC_TERMINAL_Y_VER, kYVerKey, PageMember(&dlgextern::m_strTermYVer), kStartPointLength),
    TerminalRow(IDC_TERMINAL_X_VER, kXVerKey, PageMember(&dlgextern::m_strTermXVer), kStartPointLength),
    TerminalRow(IDC_TERMINAL_Y_HOR, kYHorKey, PageMember(&dlgextern::m_strTermYHor), kStartPointLength),
    TerminalRow(IDC_TERMINAL_BOX_HEIGHT, kHeightKey, PageMember(&dlgextern::m_strTermHeight)),
    TerminalRow(IDC_TERMINAL_BOX_WIDTH, kWidthKey, PageMember(&dlgextern::m_strTermWidth)),
    // The transfer alone checks the scale.
    {.control = IDC_ASSEMBLY_SCALE,
     .key = kScaleKey,
     .member = PageMember(&dlgextern::m_strAssemblyScale),
     .exchange = &dlgextern::ExchangeScale,
     .lastEdit = LastEdit::LeftAlone,
     .failedTransfer = FailedTransfer::Refuses},
};

constexpr CheckRow kChecks[] = {
    {IDC_AUTO_DESIGNATION, kAutoKey, PageMember(&dlgextern::m_bAutoBet), ReadOnlyClick::Recorded},
};

constexpr UINT kBalloonButtons[] = {IDC_BALLOON_HORIZONTAL, IDC_BALLOON_VERTICAL};
constexpr UINT kPartButtons[] = {IDC_PART_ABOVE, IDC_PART_BREAKING};

// The balloon's key asks whether it is horizontal, which is the first button.
constexpr ChoiceRow kChoices[] = {
    {kBalloonKey, 1, kBalloonButtons, PageMember(&dlgextern::m_nBalloonDir), IDC_BALLOON_PREVIEW,
     ReadOnlyClick::Recorded, Counted::FromLast},
    {kPartKey, 1, kPartButtons, PageMember(&dlgextern::m_nPartMarking), IDC_PART_PREVIEW, ReadOnlyClick::Recorded},
};

constexpr PageRows kRows = {kTexts, kChecks, kChoices};

constexpr UINT kAssemblyBlock[] = {IDC_ASSEMBLY_GROUP,    IDC_AUTO_DESIGNATION,    IDC_ASSEMBLY_SCALE_LABEL,
                                   IDC_ASSEMBLY_SCALE,    IDC_DESIGNATION_GROUP,   IDC_DESIGNATION_VISIBLE,
                                   IDC_TEXT_HEIGHT_LABEL, IDC_ASSEMBLY_TEXT_HEIGHT};

// Bitmaps by the direction of the wires and the choice.
constexpr UINT kBalloonBitmaps[2][2] = {{IDB_BALLOON_HORIZONTAL, IDB_BALLOON_VERTICAL},
                                        {IDB_BALLOON_HORIZONTAL_WIRE_VER, IDB_BALLOON_VERTICAL_WIRE_VER}};
constexpr UINT kPartBitmaps[2][2] = {{IDB_PART_ABOVE, IDB_PART_BREAKING},
                                     {IDB_PART_ABOVE_WIRE_VER, IDB_PART_BREAKING_WIRE_VER}};

// Reads the settings through one text, in which a key that is missing leaves the value of the last one found.
class SharedTextReader {
public:
    explicit SharedTextReader(const CMdb* store) : m_store(store) {}

    bool Find(LPCSTR key) { return CSettingsSheet::GetSetting(m_store, key, m_text) != 0; }
    const CString& Shared() const { return m_text; }
    CString Text(LPCSTR key) { return Find(key) ? m_text : CString(); }
    int Number(LPCSTR key) { return Find(key) ? CSettingsSheet::GetSettingNumber(m_store, key) : 0; }
    // Where neither key is found, the value of whichever was found last.
    CString CarriedText(LPCSTR key, LPCSTR fallback) {
        if (!Find(key)) {
            Find(fallback);
        }
        return m_text;
    }

private:
    const CMdb* m_store;
    CString m_text;
};

}  // namespace

IMPLEMENT_DYNAMIC(dlgextern, CPropertyPage)

BEGIN_MESSAGE_MAP(dlgextern, CSettingsPage)
ON_BN_CLICKED(IDC_DESIGNATION_VISIBLE, &dlgextern::OnVisibleClicked)
END_MESSAGE_MAP()

dlgextern::dlgextern() : CSettingsPage(IDD_EXTERNAL, kRows) {}

dlgextern::~dlgextern() = default;

// The order of the lookups decides what start points that are missing take over.
int dlgextern::LoadSettings(const CMdb* store) {
    SharedTextReader reader(store);
    m_bVerticalWires = 0;
    m_nBalloonDir = reader.Number(kBalloonKey) != 0 ? 0 : 1;
    m_nPartMarking = reader.Number(kPartKey);
    m_bAutoBet = reader.Number(kAutoKey);
    m_strTermHeight = reader.Text(kHeightKey);
    if (reader.Find(kWidthKey)) {
        m_strTermWidth = reader.Shared();
    } else {
        // A height without its width is of no use.
        m_strTermHeight.Empty();
    }
    m_strTermXHor = reader.Text(kXHorKey);
    m_strTermYHor = reader.CarriedText(kYHorKey, kKeyStartY);
    m_strTermXVer = reader.CarriedText(kXVerKey, kKeyStartX);
    m_strTermYVer = reader.Text(kYVerKey);
    LoadAssembly(store);
    return 1;
}

void dlgextern::LoadAssembly(const CMdb* store) {
    CString text;
    m_dAssemblyScale = CSettingsSheet::GetSetting(store, kScaleKey, text) != 0 ? LeadingNumber(text) : kMissingScale;
    g_assemblyHeightKeyFound = CSettingsSheet::GetSetting(store, kKeyAssemblyHeight, m_strAssemblyTextHeight) != 0;
    if (g_assemblyHeightKeyFound == 0) {
        m_strAssemblyTextHeight = CSettingsSheet::GetSettingText(store, kKeyAssemblyHeightOld);
    } else if (CSettingsSheet::GetSetting(store, kKeyAssemblyTextVisible, text) != 0) {
        m_bTextVisible = text == "0" ? 0 : 1;
    }
}

void dlgextern::DoDataExchange(CDataExchange* exchange) {
    CSettingsPage::DoDataExchange(exchange);
    DDX_Text(exchange, IDC_ASSEMBLY_TEXT_HEIGHT, m_strAssemblyTextHeight);
}

// Hidden, it is not read: nobody could mend a wrong one, and the page could not be left.
void dlgextern::ExchangeScale(CDataExchange* exchange, int id, CString& recorded) {
    if (exchange->m_bSaveAndValidate &&
        (exchange->m_pDlgWnd->RequireDlgItem(static_cast<UINT>(id)).GetStyle() & WS_VISIBLE) == 0) {
        return;
    }
    double& scale = static_cast<dlgextern*>(exchange->m_pDlgWnd)->m_dAssemblyScale;
    DDX_Text(exchange, id, scale);
    DDV_MinMaxDouble(exchange, scale, kMinimumScale, kMaximumScale);
    recorded = OneDecimal(scale);
}

// In a sheet that is not editable the fields stay enabled here, unlike on other pages; nothing is recorded of them.
BOOL dlgextern::OnSetActive() {
    // What is shown now is not the user's doing.
    m_bModifyAllowed = 0;
    VisibleBox().SetCheck(AreDesignationsVisible() ? BST_CHECKED : BST_UNCHECKED);
    m_strAssemblyTextHeight = g_assemblyTextHeight;
    ShowMembers();
    TakeModifyFlag();
    if (GetSheet()->m_nHostMode == kHostModeWithoutAssembly) {
        HideControls(kAssemblyBlock);
    }
    return ActivatePage();
}

bool dlgextern::AreDesignationsVisible() const {
    if (g_assemblyHeightKeyFound != 0) {
        return m_bTextVisible != 0;
    }
    return LeadingNumber(m_strAssemblyTextHeight) > kLargestInvisibleHeight;
}

CButton& dlgextern::VisibleBox() const {
    return static_cast<CButton&>(RequireDlgItem(IDC_DESIGNATION_VISIBLE));
}

// A field that was refused as the press on a tab took its focus is not asked again, but the page is left behind as by a
// forced check: nothing here notes another field, so the checks that follow know of it.
BOOL dlgextern::OnKillActive() {
    if (IsRefused()) {
        m_leaveCheck.m_pLastEditControl = nullptr;
        m_leaveCheck.m_bFieldCheckOk = 1;
    }
    return CSettingsPage::OnKillActive();
}

// Neither is the focused field asked to commit first, nor do changes that follow go unnoticed by the sheet.
BOOL dlgextern::OnApply() {
    if (!ReadMembers()) {
        return FALSE;
    }
    MergeChanges();
    SetModified(FALSE);
    return ApplyPage();
}

UINT dlgextern::PreviewBitmap(UINT control) const {
    const int wires = m_bVerticalWires == 0 ? 0 : 1;
    switch (control) {
        case IDC_BALLOON_PREVIEW:
            return kBalloonBitmaps[wires][m_nBalloonDir == 0 ? 0 : 1];
        case IDC_PART_PREVIEW:
            return kPartBitmaps[wires][m_nPartMarking == 0 ? 0 : 1];
        case IDC_VERTICAL_ROW_PREVIEW:
            return IDB_VERTICAL_ROW;
        case IDC_HORIZONTAL_ROW_PREVIEW:
            return IDB_HORIZONTAL_ROW;
        default:
            return 0;
    }
}

// Visibility has a key of its own beside the preferred height, so that one is created where it is missing. Readers of
// the older height see an invisible one from then on; nothing restores it.
void dlgextern::OnVisibleClicked() {
    if (g_assemblyHeightKeyFound == 0) {
        CString height;
        GetDlgItemText(IDC_ASSEMBLY_TEXT_HEIGHT, height);
        RecordChange(kKeyAssemblyHeight, height);
        g_assemblyHeightKeyFound = 1;
    }
    const bool visible = VisibleBox().GetCheck() != BST_UNCHECKED;
    RecordChange(kKeyAssemblyTextVisible, visible ? "1" : "0");
    if (!visible) {
        RecordChange(kKeyAssemblyHeightOld, kInvisibleHeight);
    }
    SetModifiedByUser();
}
