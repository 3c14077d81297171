// The list view as a member of a dialog: what the object does, and what the dialog's handlers answer.
#include "tests/framework/host_window.h"
#include "tests/framework/test_resource.h"

namespace {

constexpr int kList = 300;

class ListDialog : public CDialog {
    DECLARE_MESSAGE_MAP()

public:
    void DoDataExchange(CDataExchange* exchange) override { DDX_Control(exchange, kList, m_list); }
    void OnDraw(NMHDR*, LRESULT* result) {
        ++m_drawn;
        *result = CDRF_SKIPDEFAULT;
    }
    void OnBeginEdit(NMHDR*, LRESULT* result) {
        m_list.GetEditControl()->LimitText(7);
        *result = m_refuses;
    }
    void OnEndEdit(NMHDR* header, LRESULT* result) {
        m_typed = reinterpret_cast<NMLVDISPINFOA*>(header)->item.pszText;
        *result = TRUE;
    }

    CListCtrl m_list;
    std::string m_typed;
    int m_drawn = 0;
    BOOL m_refuses = FALSE;
};
BEGIN_MESSAGE_MAP(ListDialog, CDialog)
ON_NOTIFY(NM_CUSTOMDRAW, kList, &ListDialog::OnDraw)
ON_NOTIFY(LVN_BEGINLABELEDITA, kList, &ListDialog::OnBeginEdit)
ON_NOTIFY(LVN_ENDLABELEDITA, kList, &ListDialog::OnEndEdit)
END_MESSAGE_MAP()

class ListControl : public HostWindow {
protected:
    ListControl() {
        m_dialog.Create(IDD_FIELDS, CWnd::FromHandle(m_host));
        CreateWindowExA(0, WC_LISTVIEWA, "", WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SINGLESEL | LVS_EDITLABELS, 0, 0,
                        200, 100, m_dialog.m_hWnd, reinterpret_cast<HMENU>(INT_PTR{kList}), nullptr, nullptr);
        EXPECT_EQ(CWnd::FromHandle(::GetDlgItem(m_dialog.m_hWnd, kList))->GetRuntimeClass(), RUNTIME_CLASS(CListCtrl));
        EXPECT_TRUE(m_dialog.UpdateData(FALSE));
        m_dialog.ShowWindow(SW_SHOW);
        m_list.SetExtendedStyle(LVS_EX_CHECKBOXES);
        m_list.InsertColumn(0, "Namn", LVCFMT_LEFT, 80, 0);
        m_list.InsertColumn(1, "Nummer", LVCFMT_LEFT, 60, 1);
        for (const char* text : {"b", "a", "c"}) {
            const int item = m_list.InsertItem(m_list.GetItemCount(), text);
            m_list.SetItemText(item, 1, "1");
            m_list.SetItemData(item, static_cast<DWORD_PTR>(*text));
        }
    }
    ~ListControl() override { m_dialog.DestroyWindow(); }

    ListDialog m_dialog;
    CListCtrl& m_list = m_dialog.m_list;
};

TEST_F(ListControl, KeepsWhatItIsGivenThroughASort) {
    m_list.SetCheck(2);
    m_list.SetItemState(0, LVIS_SELECTED, LVIS_SELECTED);
    EXPECT_TRUE(m_list.SortItems([](LPARAM a, LPARAM b, LPARAM) -> int { return static_cast<int>(a - b); }, 0));
    EXPECT_EQ(m_list.GetItemText(0, 0), CString("a"));
    EXPECT_EQ(m_list.GetItemData(2), DWORD_PTR{'c'});
    EXPECT_EQ(m_list.GetNextItem(-1, LVNI_SELECTED), 1);
    EXPECT_TRUE(m_list.GetCheck(2));
    const CString longText('x', 300);
    EXPECT_TRUE(m_list.SetItemText(1, 1, longText));
    EXPECT_EQ(m_list.GetItemText(1, 1), longText);
    EXPECT_EQ(m_list.GetItemText(9, 0), CString());
}

TEST_F(ListControl, LetsTheDialogDrawAndAnswerForEdits) {
    m_list.RedrawWindow();
    EXPECT_EQ(m_dialog.m_drawn, 1) << "the list is drawn, and by its answer none of the rows";
    CEdit* edit = m_list.EditLabel(1);
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(edit->GetLimitText(), 7U);
    edit->SetWindowText("Pump");
    m_list.SetFocus();
    EXPECT_EQ(m_dialog.m_typed, "Pump");
    EXPECT_EQ(m_list.GetItemText(1, 0), CString("Pump"));
    m_dialog.m_refuses = TRUE;
    EXPECT_EQ(m_list.EditLabel(1), nullptr);
    EXPECT_EQ(m_list.GetEditControl(), nullptr);
}

}  // namespace
