// The page "Projektbeskrivning".
#include "pages/project/dlgprojdef.h"

#include <cstring>
#include <iterator>

#include "core/field_messages.h"
#include "pages/project/file_pickers.h"
#include "pages/project/first_line.h"
#include "resources/resource.h"

// The entries of the attribute list, one copy for the library; filled by each loading. Longer texts are cut off.
static char g_attributeChoices[4][8];

namespace {

constexpr LPCSTR kReportTemplatesKey = "RDS_DEF";
constexpr LPCSTR kDatabaseKey = "TDS_DEF";
constexpr LPCSTR kDatabasePrefixKey = "DATABASEPREFIX";

// Characters of a database file's first line that are its prefix.
constexpr int kPrefixLength = 4;

struct AttributeChoice {
    LPCSTR key;
    LPCSTR missing;
};

constexpr AttributeChoice kAttributeChoices[] = {
    {"ACLTSHF1", "C2"}, {"ACLTSHF2", "D3"}, {"ACLTSHF3", "D4"}, {"ACLTSHF4", "D12"}};

// In the order of the data exchange. The list is last: a stored attribute that is too long fails each transfer, and the
// texts before it are read and recorded all the same.
constexpr TextRow kTexts[] = {
    {IDC_DRAWN_BY, "TITLE_B5", PageMember(&dlgprojdef::m_strTitleB5), CSettingsPage::CheckPlainText},
    {IDC_DRAWING_NUMBER, "TITLE_B2", PageMember(&dlgprojdef::m_strTitleB2), CSettingsPage::CheckPlainText},
    {IDC_JOB_NUMBER, "TITLE_B1", PageMember(&dlgprojdef::m_strTitleB1), CSettingsPage::CheckPlainText},
    {IDC_DESCRIPTION_1, "TITLE_A3", PageMember(&dlgprojdef::m_strTitleA3), CSettingsPage::CheckPlainText},
    {IDC_DESCRIPTION_2, "TITLE_A4", PageMember(&dlgprojdef::m_strTitleA4), CSettingsPage::CheckPlainText},
    {IDC_DESCRIPTION_3, "TITLE_A5", PageMember(&dlgprojdef::m_strTitleA5), CSettingsPage::CheckPlainText},
    {IDC_PROJECT_NAME, "PROJ_NAME", PageMember(&dlgprojdef::m_strProjName), CSettingsPage::CheckPlainText},
    {IDC_REPORT_HEADER_1, "TITLE_A1", PageMember(&dlgprojdef::m_strTitleA1), CSettingsPage::CheckPlainText},
    {IDC_REPORT_HEADER_2, "TITLE_A2", PageMember(&dlgprojdef::m_strTitleA2), CSettingsPage::CheckPlainText},
    {IDC_REPORT_TEMPLATES, kReportTemplatesKey, PageMember(&dlgprojdef::m_strRdsDef), CSettingsPage::CheckPlainText},
    {IDC_DATABASE, kDatabaseKey, PageMember(&dlgprojdef::m_strTdsDef), CSettingsPage::CheckPlainText},
    {IDC_DESIGNED_BY, "TITLE_B4", PageMember(&dlgprojdef::m_strTitleB4), CSettingsPage::CheckPlainText},
    {IDC_PROJECT_DATE, "TITLE_B3", PageMember(&dlgprojdef::m_strTitleB3), CSettingsPage::CheckPlainText},
    {IDC_SHEET_ATTRIBUTE, "COMMENT_TAG", PageMember(&dlgprojdef::m_strCommentTag), CSettingsPage::CheckPlainText,
     &DDX_CBString, 100, &CSettingsPage::PickAsTyping},
};

constexpr PageRows kRows = {kTexts, {}, {}};

// Texts that are shown by name when the page is activated, which counts as a change of each: from the second showing on
// they are checked and recorded when they are left.
constexpr UINT kDescriptions[] = {IDC_PROJECT_NAME,  IDC_REPORT_HEADER_1, IDC_REPORT_HEADER_2, IDC_DESCRIPTION_1,
                                  IDC_DESCRIPTION_2, IDC_DESCRIPTION_3,   IDC_JOB_NUMBER,      IDC_DRAWING_NUMBER,
                                  IDC_PROJECT_DATE,  IDC_DESIGNED_BY,     IDC_DRAWN_BY};

// What only a project has.
constexpr UINT kFileControls[] = {
    IDC_PATHS_GROUP,     IDC_BROWSE_REPORT_TEMPLATE, IDC_BROWSE_DATABASE, IDC_REPORT_TEMPLATES,
    IDC_DATABASE,        IDC_STANDARD_LABEL,         IDC_FILE_LABEL,      IDC_PREFIX_LABEL,
    IDC_DATABASE_PREFIX, IDC_DATABASE_FILE};
constexpr UINT kHeaderControls[] = {IDC_REPORT_HEADER_GROUP, IDC_REPORT_HEADER_1, IDC_REPORT_HEADER_2};
constexpr UINT kNameControls[] = {IDC_PROJECT_LABEL, IDC_PROJECT_NAME};

}  // namespace

IMPLEMENT_DYNAMIC(dlgprojdef, CPropertyPage)

BEGIN_MESSAGE_MAP(dlgprojdef, CSettingsPage)
ON_BN_CLICKED(IDC_BROWSE_REPORT_TEMPLATE, &dlgprojdef::OnBrowseReportTemplate)
ON_BN_CLICKED(IDC_BROWSE_DATABASE, &dlgprojdef::OnBrowseDatabase)
END_MESSAGE_MAP()

dlgprojdef::dlgprojdef() : CSettingsPage(IDD_PROJECT, kRows) {}

dlgprojdef::~dlgprojdef() = default;

int dlgprojdef::LoadSettings(const CMdb* store) {
    for (size_t i = 0; i < std::size(kAttributeChoices); ++i) {
        CString choice = kAttributeChoices[i].missing;
        CSettingsSheet::GetSetting(store, kAttributeChoices[i].key, choice);
        std::strncpy(g_attributeChoices[i], choice, sizeof g_attributeChoices[i] - 1);
    }
    m_strPwd = CSettingsSheet::GetSettingText(store, "PWD");
    m_strDbPrefix = CSettingsSheet::GetSettingText(store, kDatabasePrefixKey);
    return CSettingsPage::LoadSettings(store);
}

void dlgprojdef::DoDataExchange(CDataExchange* exchange) {
    DDX_Text(exchange, IDC_JOB_NUMBER_LABEL, m_strJobNoLabel);
    DDX_Text(exchange, IDC_DATABASE_FILE, m_strDbFileName);
    DDX_Text(exchange, IDC_DATABASE_PREFIX, m_strDbPrefix);
    CSettingsPage::DoDataExchange(exchange);
}

BOOL dlgprojdef::OnSetActive() {
    m_strJobNoLabel = LoadText(IDS_JOB_NUMBER);
    ApplyProjectMode();
    ShowDescriptions();
    FillAttributeList();
    ShowMembers();
    TakeModifyFlag();
    DisableFieldsWhenReadOnly();
    return ActivatePage();
}

// Outside project mode the fields that cannot be edited are emptied; nothing is recorded, so the host keeps their
// values.
void dlgprojdef::ApplyProjectMode() {
    const BOOL isProject = m_bOptionalPages != 0;
    for (const UINT control : kFileControls) {
        SetDisabledBit(control, !isProject);
    }
    if (isProject) {
        ShowPath(IDC_REPORT_TEMPLATES, m_strRdsDef);
        ShowPath(IDC_DATABASE, m_strTdsDef);
        SetDlgItemText(IDC_DATABASE_PREFIX, m_strDbPrefix);
        SetDlgItemText(IDC_DATABASE_FILE, m_strDbFileName);
    } else {
        HideControls(kNameControls);
        for (const UINT control : kNameControls) {
            SetDisabledBit(control, TRUE);
        }
        for (const UINT control : kHeaderControls) {
            SetDisabledBit(control, TRUE);
        }
        for (CString* text :
             {&m_strRdsDef, &m_strTdsDef, &m_strDbPrefix, &m_strDbFileName, &m_strTitleA1, &m_strTitleA2}) {
            text->Empty();
        }
        for (const UINT edit : {IDC_REPORT_TEMPLATES, IDC_DATABASE, IDC_REPORT_HEADER_1, IDC_REPORT_HEADER_2}) {
            SetReadOnly(edit, TRUE);
        }
    }
    for (const UINT control : kFileControls) {
        RedrawControl(control);
    }
}

void dlgprojdef::ShowDescriptions() {
    for (const UINT control : kDescriptions) {
        ShowText(control);
    }
}

// The template's entries are replaced at each showing, since the host chooses them.
void dlgprojdef::FillAttributeList() {
    auto& combo = static_cast<CComboBox&>(RequireDlgItem(IDC_SHEET_ATTRIBUTE));
    combo.ResetContent();
    for (LPCSTR choice : g_attributeChoices) {
        combo.AddString(choice);
    }
    SelectOrAdd(IDC_SHEET_ATTRIBUTE, m_strCommentTag);
}

void dlgprojdef::SetReadOnly(UINT edit, BOOL readOnly) {
    static_cast<CEdit&>(RequireDlgItem(edit)).SetReadOnly(readOnly);
}

void dlgprojdef::ShowPath(UINT id, LPCSTR path) {
    auto& edit = static_cast<CEdit&>(RequireDlgItem(id));
    edit.SetWindowText(path);
    edit.SetReadOnly(FALSE);
    const int end = edit.LineLength();
    edit.SetSel(end, end);
}

void dlgprojdef::WinHelp(DWORD_PTR data, UINT command) {
    m_nIdleFirst = m_nIdleSecond;
    CSettingsPage::WinHelp(data, command);
}

// The focused field is not asked to commit first: with OK the page has just been left, and that asked.
BOOL dlgprojdef::OnApply() {
    if (!ReadMembers()) {
        return FALSE;
    }
    m_nIdleFirst = m_nIdleSecond;
    MergeChanges();
    ClearModified();
    return ApplyPage();
}

void dlgprojdef::OnBrowseDatabase() {
    PickedFile file;
    if (GetSheet()->m_bEditable == 0 || !PickDatabase(*this, file)) {
        return;
    }
    // The file marked supplies name and prefix even when all files of its folder are meant.
    m_strTdsDef = AreAllFilesMeant() ? file.Folder() + "*" : file.path;
    ShowPath(IDC_DATABASE, m_strTdsDef);
    RecordChange(kDatabaseKey, m_strTdsDef);
    m_strDbFileName = file.Name();
    CString prefix;
    if (ReadFirstLine(file.path, kPrefixLength, prefix)) {
        m_strDbPrefix = prefix;
        RecordChange(kDatabasePrefixKey, m_strDbPrefix);
        ShowMembers();
    }
}

void dlgprojdef::OnBrowseReportTemplate() {
    PickedFile file;
    if (GetSheet()->m_bEditable == 0 || !PickReportTemplate(*this, file)) {
        return;
    }
    m_strRdsDef = file.Folder();
    ShowPath(IDC_REPORT_TEMPLATES, m_strRdsDef);
    RecordChange(kReportTemplatesKey, m_strRdsDef);
}
