// The open-file dialog under its classic names.
#include <dlgs.h>

#include <filesystem>

#include "tests/framework/host_window.h"

namespace {

HWND OpenDialog() {
    return ::FindWindowA("#32770", "V\xE4lj");
}

void Answer(int button) {
    ::PostMessageA(OpenDialog(), WM_COMMAND, static_cast<WPARAM>(button), 0);
}

class FileDialogs : public HostWindow {
protected:
    FileDialogs() {
        m_dialog.m_ofn.lpstrInitialDir = m_folder.c_str();
        m_dialog.m_ofn.lpstrTitle = "V\xE4lj";
    }

    const std::string m_folder = std::filesystem::temp_directory_path().string();
    CFileDialog m_dialog{TRUE,
                         "rds",
                         "mall",
                         OFN_HIDEREADONLY | OFN_NOCHANGEDIR,
                         "Mallar (*.rds)|*.rds|Alla|*.*||",
                         CWnd::FromHandle(m_host)};
};

TEST_F(FileDialogs, OkGivesPathAndName) {
    RunInLoop({[this] {
        EXPECT_FALSE(::IsWindowEnabled(m_host));
        EXPECT_EQ(::GetWindow(OpenDialog(), GW_OWNER), m_host);
        EXPECT_EQ(::SendDlgItemMessageA(OpenDialog(), cmb1, CB_GETCOUNT, 0, 0), 2);
        Answer(IDOK);
    }});
    EXPECT_EQ(m_dialog.DoModal(), IDOK);
    EXPECT_TRUE(::IsWindowEnabled(m_host));
    EXPECT_EQ(m_dialog.GetPathName(), (m_folder + "/mall.rds").c_str());
    EXPECT_EQ(m_dialog.GetFileName(), "mall.rds");
}

TEST_F(FileDialogs, CancelGivesTheFocusBack) {
    HWND field =
        ::CreateWindowExA(0, "Edit", "", WS_CHILD | WS_VISIBLE, 0, 0, 50, 20, m_host, nullptr, nullptr, nullptr);
    ::SetFocus(field);
    RunInLoop({[] { Answer(IDCANCEL); }});
    EXPECT_EQ(m_dialog.DoModal(), IDCANCEL);
    EXPECT_TRUE(::IsWindowEnabled(m_host));
    EXPECT_EQ(::GetFocus(), field);
}

}  // namespace
