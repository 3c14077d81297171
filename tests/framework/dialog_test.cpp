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

}  // namespace
