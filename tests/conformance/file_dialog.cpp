// The open-file dialog: what its hook procedure is told, in which order, and what the call returns, for a user's ways
// of answering it. Paths are shown below the scratch folder "~", with "/" between their parts.
#include "tests/conformance/trace.h"
#include "tests/support/template_builder.h"

#include <windows.h>

#include <cderr.h>
#include <commdlg.h>
#include <dlgs.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <system_error>
#include <vector>

namespace {

constexpr int kCheckBoxId = 1113;
constexpr UINT kStepMs = 20;
constexpr int kMostTicks = 100;  // A dialog that is still open after its last step is cancelled then.

std::string withSlashes(std::string path) {
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

class ScratchTree {
public:
    ScratchTree() {
        std::random_device random;
        root_ = std::filesystem::temp_directory_path() / ("tavrik-" + std::to_string(random()));
        std::filesystem::create_directories(root_ / "mapp");
        for (const char* name : {"alfa.tds", "beta.txt", "gamma.tds", "utan", "mapp/inre.tds"}) {
            std::ofstream(root_ / name) << "T1";
        }
    }
    ~ScratchTree() {
        std::error_code ignored;
        std::filesystem::remove_all(root_, ignored);
    }
    ScratchTree(const ScratchTree&) = delete;
    ScratchTree& operator=(const ScratchTree&) = delete;

    std::string path() const { return root_.string(); }
    std::string below(const std::string& path) const {
        const std::string shown = withSlashes(path);
        const std::string root = withSlashes(root_.string());
        return shown.compare(0, root.size(), root) == 0 ? "~" + shown.substr(root.size()) : shown;
    }

private:
    std::filesystem::path root_;
};

enum class Do { Type, Ok, Cancel, Escape, CheckBox, ListKey, TypesKey };
struct Step {
    Do what;
    const char* text = "";
    UINT key = 0;
};

struct Case {
    const char* what;
    std::vector<Step> steps;
    const char* defaultExtension = nullptr;
    const char* file = "";  // What lpstrFile holds before.
    DWORD flags = 0;
    DWORD bufferSize = MAX_PATH;
    int refusals = 0;          // How often the hook refuses a file.
    bool startInMapp = false;  // The initial folder is the inner one.
};

constexpr Step kHome = {Do::ListKey, "Home", VK_HOME};
constexpr Step kDown = {Do::ListKey, "Down", VK_DOWN};
constexpr Step kEnter = {Do::ListKey, "Enter", VK_RETURN};

const Case kCases[] = {
    {"a typed name", {{Do::CheckBox}, {Do::Type, "alfa.tds"}, {Do::Ok}}},
    {"cancel", {{Do::Type, "alfa.tds"}, {Do::Cancel}}},
    {"Esc", {{Do::Escape}}},
    {"default extension", {{Do::Type, "alfa"}, {Do::Ok}}, "tds"},
    {"default extension, a file without one", {{Do::Type, "utan"}, {Do::Ok}}, "tds"},
    {"another extension than the default", {{Do::Type, "ny.xyz"}, {Do::Ok}}, "tds"},
    {"a dot at the end", {{Do::Type, "ny."}, {Do::Ok}}, "tds"},
    {"no extension", {{Do::Type, "ny"}, {Do::Ok}}},
    {"quotation marks", {{Do::Type, "\"alfa.tds\""}, {Do::Ok}}},
    {"a missing file", {{Do::Type, "saknas.tds"}, {Do::Ok}}},
    {"a missing folder", {{Do::Type, "nix\\alfa.tds"}, {Do::Ok}}},
    {.what = "a missing file that must exist",
     .steps = {{Do::Type, "saknas.tds"}, {Do::Ok}, {Do::Type, "alfa.tds"}, {Do::Ok}},
     .flags = OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST},
    {.what = "a missing folder that must exist",
     .steps = {{Do::Type, "nix\\alfa.tds"}, {Do::Ok}, {Do::Cancel}},
     .flags = OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST},
    {.what = "refused once", .steps = {{Do::Type, "alfa.tds"}, {Do::Ok}, {Do::Ok}}, .refusals = 1},
    {"a folder, then a file", {{Do::Type, "mapp"}, {Do::Ok}, {Do::Type, "inre.tds"}, {Do::Ok}}},
    {"a folder with a file", {{Do::Type, "mapp\\inre.tds"}, {Do::Ok}}},
    {.what = "the folder above",
     .steps = {{Do::Type, ".."}, {Do::Ok}, {Do::Type, "alfa.tds"}, {Do::Ok}},
     .startInMapp = true},
    {"a pattern", {{Do::Type, "*.txt"}, {Do::Ok}, kHome, kDown, {Do::Ok}}},
    {.what = "small buffer", .steps = {{Do::Type, "alfa.tds"}, {Do::Ok}}, .bufferSize = 8},
    {.what = "a name given before", .steps = {{Do::Ok}}, .file = "gamma.tds"},
    {"picked in the list", {kHome, kDown, kDown, {Do::Ok}}},
    {"a folder picked in the list", {kHome, kEnter, kHome, {Do::ListKey, "Up", VK_UP}, kEnter}},
    {"another type", {{Do::TypesKey, "Down", VK_DOWN}, kHome, kDown, kDown, {Do::Ok}}},
};

// The running case, for the hook procedure and the timer.
struct Run {
    Trace& trace;
    const ScratchTree& scratch;
    const Case& source;
    OPENFILENAMEA* ofn;
    int refusals;
    HWND dialog = nullptr;
    std::size_t step = 0;
    int ticks = 0;
    UINT lastNotification = 0;
};
Run* run = nullptr;

std::string notificationText(UINT code) {
    constexpr std::array<std::pair<UINT, const char*>, 5> kNames = {{{CDN_INITDONE, "CDN_INITDONE"},
                                                                     {CDN_SELCHANGE, "CDN_SELCHANGE"},
                                                                     {CDN_FOLDERCHANGE, "CDN_FOLDERCHANGE"},
                                                                     {CDN_TYPECHANGE, "CDN_TYPECHANGE"},
                                                                     {CDN_FILEOK, "CDN_FILEOK"}}};
    const auto* found =
        std::find_if(kNames.begin(), kNames.end(), [=](const auto& name) { return name.first == code; });
    return found != kNames.end() ? found->second : "another notification";
}

UINT_PTR onNotify(HWND child, const OFNOTIFYA& notification) {
    const UINT code = notification.hdr.code;
    // Some systems tell apart that a row is no longer selected and that another one is.
    const bool again = code == CDN_SELCHANGE && code == run->lastNotification;
    run->lastNotification = code;
    if (!again) {
        const bool sound = notification.lpOFN == run->ofn && notification.hdr.hwndFrom == GetParent(child);
        run->trace.line("hook %s%s%s", notificationText(code).c_str(), sound ? "" : ", unsound",
                        code == CDN_FILEOK ? (" " + run->scratch.below(run->ofn->lpstrFile)).c_str() : "");
    }
    if (code == CDN_INITDONE) {
        SendMessageA(GetParent(child), CDM_SETCONTROLTEXT, IDOK, textParam("Ta den"));
        std::array<char, 20> caption{};
        GetDlgItemTextA(GetParent(child), IDOK, caption.data(), static_cast<int>(caption.size()));
        run->trace.line("button \"%s\"", caption.data());
    }
    if (code == CDN_FILEOK && run->refusals > 0) {
        --run->refusals;
        run->trace.line("refused");
        SetWindowLongPtrA(child, DWLP_MSGRESULT, 1);
        return TRUE;
    }
    return FALSE;
}

UINT_PTR CALLBACK hook(HWND child, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_INITDIALOG:
            run->dialog = GetParent(child);
            run->trace.line("hook WM_INITDIALOG, structure %d, buttons %d",
                            reinterpret_cast<OPENFILENAMEA*>(lParam) == run->ofn,
                            GetDlgItem(run->dialog, IDOK) != nullptr && GetDlgItem(run->dialog, IDCANCEL) != nullptr);
            return FALSE;
        case WM_COMMAND:
            run->trace.line("hook WM_COMMAND id %d code %d", LOWORD(wParam), HIWORD(wParam));
            return FALSE;
        case WM_NOTIFY:
            return onNotify(child, *reinterpret_cast<const OFNOTIFYA*>(lParam));
        case WM_DESTROY:
            run->trace.line("hook WM_DESTROY");
            return FALSE;
        default:
            return FALSE;
    }
}

HWND childOfClass(HWND parent, const char* className) {
    for (HWND child = GetWindow(parent, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        std::array<char, 32> name{};
        GetClassNameA(child, name.data(), static_cast<int>(name.size()));
        if (std::strcmp(name.data(), className) == 0) {
            return child;
        }
    }
    return nullptr;
}

// An edit of its own, or the one inside a combo box.
HWND nameField() {
    HWND field =
        GetDlgItem(run->dialog, edt1) != nullptr ? GetDlgItem(run->dialog, edt1) : GetDlgItem(run->dialog, cmb13);
    while (HWND inner = GetWindow(field, GW_CHILD)) {
        field = inner;
    }
    return field;
}

// A list of its own, or the one inside a view.
HWND fileList() {
    HWND view = GetDlgItem(run->dialog, lst2);
    return view != nullptr ? GetWindow(view, GW_CHILD) : GetDlgItem(run->dialog, lst1);
}

void pressKeyIn(HWND control, UINT key) {
    SetFocus(control);
    postKey(control, key);
}

void carryOut(const Step& step) {
    switch (step.what) {
        case Do::Type:
            SetFocus(nameField());
            SendMessageA(nameField(), EM_SETSEL, 0, -1);
            postText(nameField(), step.text);
            break;
        case Do::Ok:
            PostMessageA(GetDlgItem(run->dialog, IDOK), BM_CLICK, 0, 0);
            break;
        case Do::Cancel:
            PostMessageA(GetDlgItem(run->dialog, IDCANCEL), BM_CLICK, 0, 0);
            break;
        case Do::Escape:
            pressKeyIn(nameField(), VK_ESCAPE);
            break;
        case Do::CheckBox:
            PostMessageA(GetDlgItem(childOfClass(run->dialog, "#32770"), kCheckBoxId), BM_CLICK, 0, 0);
            break;
        case Do::ListKey:
            pressKeyIn(fileList(), step.key);
            break;
        case Do::TypesKey:
            pressKeyIn(GetDlgItem(run->dialog, cmb1), step.key);
            break;
    }
}

// A message box over the dialog is noted and accepted.
bool answerBox() {
    HWND front = GetLastActivePopup(run->dialog);
    if (front == run->dialog || !IsWindowVisible(front)) {
        return false;
    }
    run->trace.line("message box");
    HWND button = GetDlgItem(front, IDOK) != nullptr ? GetDlgItem(front, IDOK) : GetDlgItem(front, IDCANCEL);
    PostMessageA(button, BM_CLICK, 0, 0);
    return true;
}

void CALLBACK onTimer(HWND, UINT, UINT_PTR, DWORD) {
    if (run->dialog == nullptr || !IsWindowVisible(run->dialog) || answerBox()) {
        return;
    }
    std::array<char, 80> name{};
    SendMessageA(nameField(), WM_GETTEXT, name.size(), reinterpret_cast<LPARAM>(name.data()));
    if (run->step < run->source.steps.size()) {
        constexpr std::array<const char*, 7> kNames = {"type", "OK", "Cancel", "Esc", "check box", "list", "types"};
        const Step& step = run->source.steps[run->step++];
        run->trace.line("-- name \"%s\"; %s %s", name.data(), kNames[static_cast<std::size_t>(step.what)], step.text);
        run->lastNotification = 0;
        carryOut(step);
    } else if (++run->ticks == kMostTicks) {
        run->trace.line("-- still open");
        PostMessageA(run->dialog, WM_COMMAND, IDCANCEL, 0);
    }
}

void traceResult(const Run& done, BOOL result, DWORD error) {
    const OPENFILENAMEA& ofn = *done.ofn;
    done.trace.line("gave %d, error %04x, type %u", result != 0, static_cast<unsigned>(error),
                    static_cast<unsigned>(ofn.nFilterIndex));
    const std::string path = ofn.lpstrFile;
    if (result) {
        done.trace.line("file %s, name %s, extension %s, title %s", done.scratch.below(path).c_str(),
                        path.substr(std::min<std::size_t>(ofn.nFileOffset, path.size())).c_str(),
                        ofn.nFileExtension == 0 ? "none" : path.substr(ofn.nFileExtension).c_str(), ofn.lpstrFileTitle);
    } else if (error == FNERR_BUFFERTOOSMALL) {
        WORD needed = 0;
        std::memcpy(&needed, ofn.lpstrFile, sizeof needed);
        done.trace.line("needs %d beside the folder", needed - static_cast<int>(done.scratch.path().size()));
    }
}

void play(Trace& trace, HWND owner, const ScratchTree& scratch, const Case& source) {
    trace.section(source.what);
    TemplateBuilder child(TemplateBuilder::Form::Classic, WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | DS_3DLOOK, 276, 32,
                          "");
    child.add(kButton, kCheckBoxId, "Alla", BS_AUTOCHECKBOX | WS_TABSTOP, 5, 3, 270, 10)
        .add(kStatic, 0xFFFF, "Text", 0, 124, 19, 142, 8);
    std::array<char, MAX_PATH> file{};
    std::string(source.file).copy(file.data(), file.size() - 1);
    std::array<char, 64> title{};
    const std::string folder = scratch.path() + (source.startInMapp ? "/mapp" : "");
    OPENFILENAMEA ofn{};
    ofn.lStructSize = sizeof ofn;
    ofn.hwndOwner = owner;
    ofn.hInstance = reinterpret_cast<HINSTANCE>(const_cast<DLGTEMPLATE*>(child.get()));
    ofn.lpstrFilter = "Databasfiler (*.tds)\0*.tds\0Alla filer\0*.*\0";
    ofn.nFilterIndex = 1;
    ofn.lpstrFile = file.data();
    ofn.nMaxFile = source.bufferSize;
    ofn.lpstrFileTitle = title.data();
    ofn.nMaxFileTitle = static_cast<DWORD>(title.size());
    ofn.lpstrInitialDir = folder.c_str();
    ofn.lpstrTitle = "Databas";
    ofn.lpstrDefExt = source.defaultExtension;
    ofn.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT | OFN_NOCHANGEDIR | OFN_ENABLEHOOK |
                OFN_ENABLETEMPLATEHANDLE | source.flags;
    ofn.lpfnHook = hook;
    Run current = {trace, scratch, source, &ofn, source.refusals};
    run = &current;
    const UINT_PTR timer = SetTimer(nullptr, 0, kStepMs, onTimer);
    const BOOL result = GetOpenFileNameA(&ofn);
    const DWORD error = CommDlgExtendedError();
    KillTimer(nullptr, timer);
    run = nullptr;
    traceResult(current, result, error);
    trace.line("owner enabled %d, active %d", IsWindowEnabled(owner) != 0, GetActiveWindow() == owner);
}

void traceMalformed(Trace& trace) {
    trace.section("a structure of another size");
    OPENFILENAMEA ofn{};
    ofn.lStructSize = sizeof ofn - 1;
    ofn.Flags = OFN_EXPLORER;
    const BOOL result = GetOpenFileNameA(&ofn);
    trace.line("gave %d, error %04x", result, static_cast<unsigned>(CommDlgExtendedError()));
}

}  // namespace

void traceFileDialog(Trace& trace) {
    const QuietParent owner(trace);
    const ScratchTree scratch;
    for (const Case& each : kCases) {
        play(trace, owner.handle(), scratch, each);
    }
    traceMalformed(trace);
}
