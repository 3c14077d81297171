// The open-file dialog: what its hook procedure is told, in which order, and what the call returns, for a user's ways
// of answering it. Paths are shown below the scratch folder "~", with "/" between their parts.
#include "automation/scratch.h"
#include "tests/conformance/trace.h"
#include "tests/support/template_builder.h"

#include <windows.h>

#include <commdlg.h>
#include <dlgs.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr UINT kStepMs = 20;
constexpr int kMostTicks = 100;  // A dialog that is still open after its last step is cancelled then.

std::string withSlashes(std::string path) {
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

class ScratchTree {
public:
    ScratchTree() {
        std::filesystem::create_directories(root() / "mapp");
        for (const char* name : {"alfa.tds", "beta.txt", "gamma.tds", "utan", "mapp/inre.tds"}) {
            std::ofstream(root() / name) << "T1";
        }
    }

    std::filesystem::path root() const { return folder_.Path(); }
    std::string below(const std::string& path) const {
        const std::string shown = withSlashes(path);
        const std::string root = withSlashes(this->root().string());
        return shown.compare(0, root.size(), root) == 0 ? "~" + shown.substr(root.size()) : shown;
    }

private:
    automation::ScratchFolder folder_;
};

struct Case {
    // What the user does, step by step: types a name, or presses one of the buttons and keys of kPresses.
    std::vector<std::string_view> steps;
    const char* defaultExtension = nullptr;
    const char* file = "";  // What lpstrFile holds before.
};

const Case kCases[] = {
    {{"alfa.tds", "<OK>"}},
    {{"alfa.tds", "<Cancel>"}},
    {{"<Esc>"}},
    {{"alfa", "<OK>"}, "tds"},
    {{"utan", "<OK>"}, "tds"},
    {{"ny.xyz", "<OK>"}, "tds"},
    {{"ny.", "<OK>"}, "tds"},
    {{"\"alfa.tds\"", "<OK>"}},
    {{"nix\\alfa.tds", "<OK>"}},
    {{"mapp", "<OK>", "inre.tds", "<OK>"}},
    {{"mapp", "<OK>", "..", "<OK>", "alfa.tds", "<OK>"}},
    {{"*.txt", "<OK>", "<list Home>", "<list Down>", "<OK>"}},
    {.steps = {"<OK>"}, .file = "gamma.tds"},
    {{"<list Home>", "<list Enter>", "<list Home>", "<list Up>", "<list Enter>"}},
    {{"<types Down>", "<list Home>", "<list Down>", "<list Down>", "<OK>"}},
};

// The running case, for the hook procedure and the timer.
struct Run {
    Trace& trace;
    const ScratchTree& scratch;
    const Case& source;
    OPENFILENAMEA* ofn;
    HWND dialog = nullptr;
    std::size_t step = 0;
    int ticks = 0;
    UINT lastNotification = 0;
};
Run* run = nullptr;

std::string_view nameOf(UINT code) {
    constexpr std::pair<UINT, std::string_view> kNames[] = {{CDN_INITDONE, "CDN_INITDONE"},
                                                            {CDN_SELCHANGE, "CDN_SELCHANGE"},
                                                            {CDN_FOLDERCHANGE, "CDN_FOLDERCHANGE"},
                                                            {CDN_TYPECHANGE, "CDN_TYPECHANGE"},
                                                            {CDN_FILEOK, "CDN_FILEOK"}};
    const auto* found =
        std::find_if(std::begin(kNames), std::end(kNames), [=](const auto& name) { return name.first == code; });
    return found != std::end(kNames) ? found->second : "another notification";
}

UINT_PTR onNotify(HWND child, const OFNOTIFYA& notification) {
    const UINT code = notification.hdr.code;
    // Some systems tell apart that a row is no longer selected and that another one is.
    const bool again = code == CDN_SELCHANGE && code == run->lastNotification;
    run->lastNotification = code;
    if (!again) {
        run->trace.line("hook %s%s", nameOf(code).data(),
                        code == CDN_FILEOK ? (" " + run->scratch.below(run->ofn->lpstrFile)).c_str() : "");
    }
    if (code == CDN_INITDONE) {
        SendMessageA(GetParent(child), CDM_SETCONTROLTEXT, IDOK, textParam("Ta den"));
        std::array<char, 20> caption{};
        GetDlgItemTextA(GetParent(child), IDOK, caption.data(), static_cast<int>(caption.size()));
        run->trace.line("button \"%s\"", caption.data());
    }
    return FALSE;
}

UINT_PTR CALLBACK hook(HWND child, UINT message, WPARAM, LPARAM lParam) {
    if (message == WM_NOTIFY) {
        return onNotify(child, *reinterpret_cast<const OFNOTIFYA*>(lParam));
    }
    if (message == WM_INITDIALOG) {
        run->dialog = GetParent(child);
        run->trace.line("hook WM_INITDIALOG, structure %d, buttons %d",
                        reinterpret_cast<OPENFILENAMEA*>(lParam) == run->ofn,
                        GetDlgItem(run->dialog, IDOK) != nullptr && GetDlgItem(run->dialog, IDCANCEL) != nullptr);
    } else if (message == WM_DESTROY) {
        run->trace.line("hook WM_DESTROY");
    }
    return FALSE;
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

struct Press {
    std::string_view what;
    HWND (*target)();
    UINT key;  // 0 is a click.
};

constexpr Press kPresses[] = {
    {"<OK>", [] { return GetDlgItem(run->dialog, IDOK); }, 0},
    {"<Cancel>", [] { return GetDlgItem(run->dialog, IDCANCEL); }, 0},
    {"<Esc>", nameField, VK_ESCAPE},
    {"<list Home>", fileList, VK_HOME},
    {"<list Up>", fileList, VK_UP},
    {"<list Down>", fileList, VK_DOWN},
    {"<list Enter>", fileList, VK_RETURN},
    {"<types Down>", [] { return GetDlgItem(run->dialog, cmb1); }, VK_DOWN},
};

void carryOut(std::string_view step) {
    const auto* press =
        std::find_if(std::begin(kPresses), std::end(kPresses), [=](const Press& row) { return row.what == step; });
    if (press == std::end(kPresses)) {
        SetFocus(nameField());
        SendMessageA(nameField(), EM_SETSEL, 0, -1);
        postText(nameField(), step.data());
    } else if (press->key == 0) {
        PostMessageA(press->target(), BM_CLICK, 0, 0);
    } else {
        SetFocus(press->target());
        postKey(press->target(), press->key);
    }
}

void CALLBACK onTimer(HWND, UINT, UINT_PTR, DWORD) {
    if (run->dialog == nullptr || !IsWindowVisible(run->dialog)) {
        return;
    }
    std::array<char, 80> name{};
    SendMessageA(nameField(), WM_GETTEXT, name.size(), reinterpret_cast<LPARAM>(name.data()));
    if (run->step < run->source.steps.size()) {
        const std::string_view step = run->source.steps[run->step++];
        run->trace.line("-- name \"%s\"; %s", name.data(), step.data());
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
        done.trace.line("file %s, name %s, extension %s", done.scratch.below(path).c_str(),
                        path.substr(std::min<std::size_t>(ofn.nFileOffset, path.size())).c_str(),
                        ofn.nFileExtension == 0 ? "none" : path.substr(ofn.nFileExtension).c_str());
    }
}

void play(Trace& trace, HWND owner, const ScratchTree& scratch, const Case& source) {
    trace.line("---");
    TemplateBuilder child(TemplateBuilder::Form::Classic, WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | DS_3DLOOK, 276, 32,
                          "");
    child.add(kStatic, 0xFFFF, "Text", 0, 124, 19, 142, 8);
    std::array<char, MAX_PATH> file{};
    std::string(source.file).copy(file.data(), file.size() - 1);
    const std::string folder = scratch.root().string();
    OPENFILENAMEA ofn{};
    ofn.lStructSize = sizeof ofn;
    ofn.hwndOwner = owner;
    ofn.hInstance = reinterpret_cast<HINSTANCE>(const_cast<DLGTEMPLATE*>(child.get()));
    ofn.lpstrFilter = "Databasfiler (*.tds)\0*.tds\0Alla filer\0*.*\0";
    ofn.nFilterIndex = 1;
    ofn.lpstrFile = file.data();
    ofn.nMaxFile = static_cast<DWORD>(file.size());
    ofn.lpstrInitialDir = folder.c_str();
    ofn.lpstrTitle = "Databas";
    ofn.lpstrDefExt = source.defaultExtension;
    ofn.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT | OFN_NOCHANGEDIR | OFN_ENABLEHOOK |
                OFN_ENABLETEMPLATEHANDLE;
    ofn.lpfnHook = hook;
    Run current = {trace, scratch, source, &ofn};
    run = &current;
    const UINT_PTR timer = SetTimer(nullptr, 0, kStepMs, onTimer);
    const BOOL result = GetOpenFileNameA(&ofn);
    const DWORD error = CommDlgExtendedError();
    KillTimer(nullptr, timer);
    run = nullptr;
    traceResult(current, result, error);
}

}  // namespace

void traceFileDialog(Trace& trace) {
    trace.section("answers");
    const QuietParent owner(trace);
    const ScratchTree scratch;
    for (const Case& each : kCases) {
        play(trace, owner.handle(), scratch, each);
    }
}
