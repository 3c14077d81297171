// The open-file dialog where the traces that are compared with Windows do not reach: this system's paths and names,
// Swedish texts, the list of files, offered names, the layout.
#include "platform/files/file_list.h"

#include <windows.h>

#include <cderr.h>
#include <commdlg.h>
#include <dlgs.h>

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

namespace {

using Step = std::function<void(HWND dialog)>;

std::vector<Step> steps;

std::string textOf(HWND window) {
    std::array<char, 400> text{};
    GetWindowTextA(window, text.data(), static_cast<int>(text.size()));
    return text.data();
}

// Each step runs when the window in front, the dialog or a box above it, has dealt with the one before.
void CALLBACK onTimer(HWND, UINT, UINT_PTR timer, DWORD) {
    HWND front = GetActiveWindow();
    if (front == nullptr || !IsWindowVisible(front)) {
        return;
    }
    if (steps.empty()) {
        KillTimer(nullptr, timer);
        PostMessageA(front, WM_COMMAND, IDCANCEL, 0);
        return;
    }
    const Step step = steps.front();
    steps.erase(steps.begin());
    step(front);
}

Step type(const std::string& text) {
    return [text](HWND dialog) {
        SetFocus(GetDlgItem(dialog, edt1));
        SendDlgItemMessageA(dialog, edt1, EM_SETSEL, 0, -1);
        for (const char character : text) {
            PostMessageA(GetFocus(), WM_CHAR, static_cast<unsigned char>(character), 1);
        }
    };
}

Step press(UINT key) {
    return [key](HWND) { PostMessageA(GetFocus(), WM_KEYDOWN, key, 1); };
}

Step toList() {
    return [](HWND dialog) { SetFocus(GetDlgItem(dialog, lst1)); };
}

const Step kOk = [](HWND dialog) { PostMessageA(GetDlgItem(dialog, IDOK), BM_CLICK, 0, 0); };

platform::FileList& listOf(HWND dialog) {
    return platform::FileList::of(GetDlgItem(dialog, lst1));
}

std::string selectedName(HWND dialog) {
    const platform::FolderEntry* entry = listOf(dialog).selected();
    return entry != nullptr ? entry->shown : "";
}

HWND offeredNames() {
    HWND found = nullptr;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM param) {
            std::array<char, 20> name{};
            GetClassNameA(window, name.data(), static_cast<int>(name.size()));
            if (name.data() == std::string("ComboLBox") && IsWindowVisible(window)) {
                *reinterpret_cast<HWND*>(param) = window;
            }
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

class OpenFileTest : public testing::Test {
protected:
    OpenFileTest() {
        std::filesystem::create_directories(root_ / "\xC3\xB6mapp");
        std::filesystem::create_directories(root_ / "amapp");
        // The last one's name is in Greek.
        for (const char* name : {"alfa.tds", "beta.tds", "bit.tds", "\xC3\xB6mapp/inre.tds", "\xCE\xA9.tds"}) {
            std::ofstream(root_ / name) << "T1";
        }
        ofn_.lStructSize = sizeof ofn_;
        ofn_.lpstrFile = file_.data();
        ofn_.nMaxFile = static_cast<DWORD>(file_.size());
        ofn_.lpstrFilter = "Databasfiler\0*.tds\0";
        ofn_.lpstrInitialDir = folder_.c_str();
        ofn_.Flags = OFN_EXPLORER | OFN_NOCHANGEDIR;
    }
    ~OpenFileTest() override { std::filesystem::remove_all(root_); }

    BOOL run(std::vector<Step> script) {
        steps = std::move(script);
        SetTimer(nullptr, 0, 10, onTimer);
        const BOOL result = GetOpenFileNameA(&ofn_);
        EXPECT_TRUE(steps.empty());
        return result;
    }
    // A step that expects a message box with the text and accepts it.
    static Step answer(const std::string& expected) {
        return [expected](HWND box) {
            EXPECT_EQ(textOf(GetDlgItem(box, 0xFFFF)), expected);
            press(VK_RETURN)(box);
        };
    }

    const std::filesystem::path root_ =
        std::filesystem::temp_directory_path() / ("tavrik-open-" + std::to_string(getpid()));
    const std::string folder_ = root_.string();
    std::array<char, MAX_PATH> file_{};
    OPENFILENAMEA ofn_{};
};

TEST_F(OpenFileTest, TakesPathsInTheCodePage) {
    const std::string start = folder_ + "\\amapp\\..\\\xF6mapp\\";
    ofn_.lpstrInitialDir = start.c_str();
    EXPECT_TRUE(run({type("inre.tds"), kOk}));
    EXPECT_EQ(file_.data(), folder_ + "/\xF6mapp/inre.tds");
}

TEST_F(OpenFileTest, BeginsAtHomeWhenTheFolderIsMissing) {
    setenv("HOME", (folder_ + "/amapp").c_str(), 1);
    const std::string start = "D:\\projekt";
    ofn_.lpstrInitialDir = start.c_str();
    EXPECT_TRUE(run({type("a.tds"), kOk}));
    EXPECT_EQ(file_.data(), folder_ + "/amapp/a.tds");
}

TEST_F(OpenFileTest, RefusesANameThatTheCodePageCannotHold) {
    EXPECT_FALSE(run({toList(), press(VK_HOME), press(VK_DOWN), press(VK_DOWN),
                      [](HWND dialog) {
                          EXPECT_EQ(selectedName(dialog), "?.tds");
                          press(VK_RETURN)(dialog);
                      },
                      answer("Namnet \"?.tds\" inneh\xE5ller tecken som inte kan anv\xE4ndas h\xE4r.\n"
                             "Byt namn p\xE5 den eller v\xE4lj en annan.")}));
    EXPECT_EQ(CommDlgExtendedError(), 0U);
}

TEST_F(OpenFileTest, TellsWhyAFolderCannotBeOpened) {
    EXPECT_FALSE(run({[this](HWND) { std::filesystem::remove_all(root_ / "amapp"); }, toList(), press(VK_HOME),
                      press(VK_RETURN), answer("Mappen \"" + folder_ + "/amapp\" kan inte \xF6ppnas.\nDen finns inte."),
                      [](HWND dialog) { EXPECT_EQ(selectedName(dialog), "amapp"); }, press(VK_F5),
                      [](HWND dialog) { EXPECT_EQ(listOf(dialog).listing().rowCount(), 5U); }}));
}

TEST_F(OpenFileTest, OffersNamesThatBeginWithWhatIsTyped) {
    EXPECT_TRUE(
        run({type("B"),
             [](HWND dialog) {
                 HWND offered = offeredNames();
                 EXPECT_EQ(SendMessageA(offered, LB_GETCOUNT, 0, 0), 2);
                 EXPECT_EQ(textOf(GetDlgItem(dialog, edt1)), "B");
             },
             press(VK_ESCAPE),
             [](HWND dialog) {
                 EXPECT_EQ(offeredNames(), nullptr);
                 press(VK_DOWN)(dialog);
             },
             press(VK_DOWN), press(VK_DOWN),
             [](HWND dialog) {
                 EXPECT_EQ(textOf(GetDlgItem(dialog, edt1)), "bit.tds");
                 press(VK_DOWN)(dialog);  // Round to what was typed.
             },
             [](HWND dialog) { EXPECT_EQ(textOf(GetDlgItem(dialog, edt1)), "B"); }, press(VK_UP), press(VK_RETURN)}));
    EXPECT_EQ(file_.data(), folder_ + "/bit.tds");
}

}  // namespace
