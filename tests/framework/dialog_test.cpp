// Dialogs from resources: modal running, owners.
#include <new>

#include "tests/framework/host_window.h"
#include "tests/framework/test_resource.h"

namespace {

class ModalDialog : public CDialog {
public:
    explicit ModalDialog(CWnd* parent) : CDialog(IDD_FIELDS, parent) {}

    void DoDataExchange(CDataExchange* exchange) override { DDX_Text(exchange, IDC_TEXT, m_number); }
    BOOL OnInitDialog() override {
        CDialog::OnInitDialog();
        if (m_failAtOnce) {
            throw std::bad_alloc();
        }
        if (m_endAtOnce) {
            EndDialog(7);
        }
        return TRUE;
    }

    int m_number = 5;
    bool m_endAtOnce = false;
    bool m_failAtOnce = false;
};

class Dialogs : public HostWindow {
protected:
    ModalDialog m_dialog{CWnd::FromHandle(m_host)};
};

TEST_F(Dialogs, OkReadsTheMembersAndEndsWithOne) {
    RunInLoop({[&] {
                   EXPECT_FALSE(::IsWindowEnabled(m_host));
                   EXPECT_EQ(::GetWindow(m_dialog.m_hWnd, GW_OWNER), m_host);
                   m_dialog.SetDlgItemText(IDC_TEXT, "x");
                   m_dialog.SendDlgItemMessage(IDOK, BM_CLICK);
               },
               [&] {
                   EXPECT_TRUE(m_dialog.IsWindowVisible());
                   EXPECT_EQ(BoxTexts(), Texts({"Ange ett heltal."}));
                   m_dialog.SetDlgItemText(IDC_TEXT, "8");
                   m_dialog.SendDlgItemMessage(IDOK, BM_CLICK);
               }});
    EXPECT_EQ(m_dialog.DoModal(), IDOK);
    EXPECT_EQ(m_dialog.m_number, 8);
    EXPECT_EQ(m_dialog.m_hWnd, nullptr);
    EXPECT_TRUE(::IsWindowEnabled(m_host));
    EXPECT_EQ(::GetActiveWindow(), m_host);
}

TEST_F(Dialogs, QuitEndsTheLoopAndIsLeftForTheOneOutside) {
    RunInLoop({[] { ::PostQuitMessage(4); }});
    EXPECT_EQ(m_dialog.DoModal(), -1);
    MSG message{};
    EXPECT_TRUE(::PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, WPARAM{4});
}

TEST_F(Dialogs, InitialisationMayEndItAndMissingTemplateFails) {
    m_dialog.m_endAtOnce = true;
    EXPECT_EQ(m_dialog.DoModal(), 7);
    EXPECT_EQ(CDialog(IDD_MISSING).DoModal(), -1);
    EXPECT_TRUE(::IsWindowEnabled(m_host));
}

TEST_F(Dialogs, FailingInitialisationIsReportedAndEndsIt) {
    m_dialog.m_failAtOnce = true;
    EXPECT_EQ(m_dialog.DoModal(), -1);
    EXPECT_EQ(BoxTexts().size(), 1u);
    EXPECT_EQ(m_dialog.m_hWnd, nullptr);
    EXPECT_TRUE(::IsWindowEnabled(m_host));
}

TEST_F(Dialogs, InnerDialogWithoutParentIsOwnedByTheFrontOne) {
    ModalDialog inner(nullptr);
    RunInLoop({[&] { EXPECT_EQ(inner.DoModal(), IDCANCEL); },
               [&] {
                   EXPECT_EQ(::GetWindow(inner.m_hWnd, GW_OWNER), m_dialog.m_hWnd);
                   EXPECT_FALSE(m_dialog.IsWindowEnabled());
                   inner.EndDialog(IDCANCEL);
               },
               [&] {
                   EXPECT_TRUE(m_dialog.IsWindowEnabled());
                   EXPECT_FALSE(::IsWindowEnabled(m_host));
                   m_dialog.EndDialog(3);
               }});
    EXPECT_EQ(m_dialog.DoModal(), 3);
    EXPECT_TRUE(::IsWindowEnabled(m_host));
}

}  // namespace
