// The open-file dialog under its classic names.
#include <filesystem>

#include "tests/framework/host_window.h"

namespace {

TEST_F(HostWindow, FileDialogGivesPathAndNameAndTheFocusBack) {
    const std::string folder = std::filesystem::temp_directory_path().string();
    HWND field =
        ::CreateWindowExA(0, "Edit", "", WS_CHILD | WS_VISIBLE, 0, 0, 50, 20, m_host, nullptr, nullptr, nullptr);
    for (const int button : {IDOK, IDCANCEL}) {
        CFileDialog dialog(TRUE, "rds", "mall", OFN_HIDEREADONLY | OFN_NOCHANGEDIR, "Mallar|*.rds||",
                           CWnd::FromHandle(field));
        dialog.m_ofn.lpstrInitialDir = folder.c_str();
        dialog.m_ofn.lpstrTitle = "V\xE4lj";
        ::SetFocus(field);
        RunInLoop({[&] {
            const HWND window = ::FindWindowA("#32770", "V\xE4lj");
            EXPECT_FALSE(::IsWindowEnabled(m_host));
            EXPECT_EQ(::GetWindow(window, GW_OWNER), m_host);
            ::PostMessageA(window, WM_COMMAND, static_cast<WPARAM>(button), 0);
        }});
        EXPECT_EQ(dialog.DoModal(), button);
        EXPECT_TRUE(::IsWindowEnabled(m_host));
        EXPECT_EQ(::GetFocus(), field);
        if (button == IDOK) {
            EXPECT_EQ(dialog.GetPathName(), (folder + "/mall.rds").c_str());
            EXPECT_EQ(dialog.GetFileName(), "mall.rds");
        }
    }
}

}  // namespace
