// Modal dialogs, and what comes of an exception in a handler of a window.
#include <new>
#include <stdexcept>

#include "resources/resource.h"
#include "tests/framework/host_window.h"

namespace {

class ModalDialog : public CDialog {
public:
    explicit ModalDialog(CWnd* parent) : CDialog(IDD_AUTO_TEXT, parent) {}

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

    bool m_endAtOnce = false;
    bool m_failAtOnce = false;
};

class Dialogs : public HostWindow {
protected:
    ModalDialog m_dialog{CWnd::FromHandle(m_host)};
};

TEST_F(Dialogs, QuitEndsTheLoopAndIsLeftForTheOneOutside) {
    m_boxes.WhenIdle([] { ::PostQuitMessage(4); });
    EXPECT_EQ(m_dialog.DoModal(), -1);
    MSG message{};
    EXPECT_TRUE(::PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, WPARAM{4});
}

TEST_F(Dialogs, InitialisationMayEndItOrFail) {
    m_dialog.m_endAtOnce = true;
    EXPECT_EQ(m_dialog.DoModal(), 7);
    m_dialog.m_failAtOnce = true;
    EXPECT_EQ(m_dialog.DoModal(), -1);
    EXPECT_EQ(BoxTexts().size(), 1u);
    EXPECT_EQ(m_dialog.m_hWnd, nullptr);
    constexpr UINT kMissing = 999;
    EXPECT_EQ(CDialog(kMissing).DoModal(), -1);
    EXPECT_TRUE(::IsWindowEnabled(m_host));
}

class Window : public CWnd {
    DECLARE_MESSAGE_MAP()

public:
    LRESULT OnOwnMessage(WPARAM wParam, LPARAM lParam) { return static_cast<LRESULT>(wParam) + lParam; }
    LRESULT OnThrow(WPARAM, LPARAM) { throw std::runtime_error("trasig"); }
};
BEGIN_MESSAGE_MAP(Window, CWnd)
ON_MESSAGE(WM_USER + 1, &Window::OnOwnMessage)
ON_MESSAGE(WM_USER + 2, &Window::OnThrow)
END_MESSAGE_MAP()

using Windows = HostWindow;

TEST_F(Windows, ReportAnExceptionAndHaveOneObjectUntilItIsGivenBack) {
    Window window;
    window.SubclassWindow(m_host);
    EXPECT_EQ(window.SendMessage(WM_USER + 2), 0);
    EXPECT_EQ(BoxTexts(), Texts({"Internt fel. (trasig)"}));
    EXPECT_EQ(window.SendMessage(WM_USER + 1, 40, 2), 42);
    EXPECT_FALSE(Window().SubclassWindow(m_host));
    EXPECT_EQ(window.UnsubclassWindow(), m_host);
    EXPECT_EQ(::SendMessageA(m_host, WM_USER + 1, 40, 2), 0);
    EXPECT_EQ(CWnd::FromHandlePermanent(m_host), nullptr);
}

}  // namespace
