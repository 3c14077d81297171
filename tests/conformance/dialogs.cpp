// Dialogs: order of creation, walks over tab stops and groups, keys, nested modal loops, message boxes.
#include "tests/conformance/trace.h"
#include "tests/conformance/typing.h"
#include "tests/conformance/window_spy.h"
#include "tests/support/template_builder.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <string>

namespace {

constexpr DWORD kDialogStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;
constexpr DWORD kPageStyle = WS_CHILD | DS_CONTROL | WS_VISIBLE;
constexpr int kPageId = 300;

// Controls of every kind that a walk must tell apart; the page with ids from 301 is put behind id 130.
TemplateBuilder mainTemplate(TemplateBuilder::Form form) {
    TemplateBuilder builder(form, kDialogStyle, 200, 120, "Huvud");
    builder.add(kStatic, 0xFFFF, "&Namn:", WS_GROUP)
        .add(kEdit, 101, "abc", WS_TABSTOP | WS_BORDER | ES_AUTOHSCROLL)
        .add(kButton, 111, "&Ett", BS_AUTORADIOBUTTON | WS_GROUP | WS_TABSTOP)
        .add(kButton, 112, "&Tv\xE5", BS_AUTORADIOBUTTON)
        .add(kButton, 113, "T&re", BS_AUTORADIOBUTTON)
        .add(kEdit, 120, "", WS_TABSTOP | WS_GROUP | WS_DISABLED)
        .add(kButton, 130, "&Kryss", BS_AUTOCHECKBOX | WS_TABSTOP | WS_GROUP)
        .add(kButton, 140, "&Grupp", BS_GROUPBOX | WS_GROUP)
        .add(kButton, 141, "Fyra", BS_AUTORADIOBUTTON)
        .add(kButton, 142, "Fem", BS_AUTORADIOBUTTON | WS_TABSTOP)
        .add(kButton, IDOK, "OK", BS_DEFPUSHBUTTON | WS_TABSTOP | WS_GROUP)
        .add(kButton, IDCANCEL, "Avbryt", BS_PUSHBUTTON | WS_TABSTOP)
        .add(kButton, 150, "&Mera", BS_PUSHBUTTON | WS_TABSTOP);
    return builder;
}

TemplateBuilder pageTemplate() {
    TemplateBuilder builder(TemplateBuilder::Form::Extended, kPageStyle, 100, 50, "", WS_EX_CONTROLPARENT);
    builder.add(kEdit, 301, "p1", WS_TABSTOP | WS_BORDER)
        .add(kEdit, 302, "p2", WS_TABSTOP | WS_BORDER | ES_READONLY)
        .add(kButton, 303, "&Sida", BS_PUSHBUTTON | WS_TABSTOP);
    return builder;
}

// What the dialog procedures of this file are told through the parameter of WM_INITDIALOG.
struct DialogScript {
    WindowSpy* spy = nullptr;
    std::string name = {};
    int focusOnInit = 0;
    UINT keyOnInit = 0;
    void (*onCommand)(HWND dialog, int id, DialogScript& script) = nullptr;
};

INT_PTR CALLBACK scriptedProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* script = reinterpret_cast<DialogScript*>(GetWindowLongPtrA(dialog, DWLP_USER));
    if (message == WM_COMMAND && script != nullptr && script->onCommand != nullptr) {
        script->onCommand(dialog, LOWORD(wParam), *script);
        return TRUE;
    }
    if (message != WM_INITDIALOG || lParam == 0) {
        return FALSE;
    }
    script = reinterpret_cast<DialogScript*>(lParam);
    SetWindowLongPtrA(dialog, DWLP_USER, lParam);
    script->spy->name(dialog, script->name);
    script->spy->line("-- first tab stop " + script->spy->nameOf(reinterpret_cast<HWND>(wParam)));
    if (script->keyOnInit != 0) {
        postKey(dialog, script->keyOnInit);
    }
    return script->focusOnInit == 0 || SetFocus(GetDlgItem(dialog, script->focusOnInit)) == nullptr;
}

// The control with the id, also when it stands on the nested page.
HWND control(HWND dialog, int id) {
    HWND found = GetDlgItem(dialog, id);
    HWND page = GetDlgItem(dialog, kPageId);
    return found != nullptr || page == nullptr ? found : GetDlgItem(page, id);
}

int idOf(HWND window) {
    return window == nullptr ? 0 : GetDlgCtrlID(window);
}

bool takesKey(HWND dialog, HWND control, UINT message, WPARAM key) {
    MSG pressed{control, message, key, message == WM_SYSCHAR ? 0x20000001 : 1, 0, {}};
    return IsDialogMessageA(dialog, &pressed) != 0;
}

void destroy(HWND dialog) {
    DestroyWindow(dialog);
    drainQueue();
}

HWND addEdit(HWND owner) {
    return CreateWindowExA(0, "Edit", "", WS_CHILD | WS_VISIBLE, 0, 0, 50, 20, owner, reinterpret_cast<HMENU>(7),
                           instance(), nullptr);
}

// A modeless main dialog with a page inside, for walks and keys.
HWND createMain(HWND owner) {
    const TemplateBuilder builder = mainTemplate(TemplateBuilder::Form::Extended);
    HWND dialog = CreateDialogIndirectParamA(instance(), builder.get(), owner, scriptedProc, 0);
    const TemplateBuilder page = pageTemplate();
    HWND child = CreateDialogIndirectParamA(instance(), page.get(), dialog, scriptedProc, 0);
    SetWindowLongPtrA(child, GWLP_ID, kPageId);
    SetWindowPos(child, GetDlgItem(dialog, 130), 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    ShowWindow(dialog, SW_SHOW);
    drainQueue();
    return dialog;
}

void traceCreation(Trace& trace) {
    trace.section("creation");
    const QuietParent owner(trace);
    WindowSpy spy(trace);
    spy.watch(owner, "owner");
    DialogScript script{.spy = &spy, .name = "main"};
    const TemplateBuilder builder = mainTemplate(TemplateBuilder::Form::Extended);
    HWND dialog =
        CreateDialogIndirectParamA(instance(), builder.get(), owner, scriptedProc, reinterpret_cast<LPARAM>(&script));
    trace.line("style %08X exstyle %08X, default %08X", static_cast<unsigned>(GetWindowLongA(dialog, GWL_STYLE)),
               static_cast<unsigned>(GetWindowLongA(dialog, GWL_EXSTYLE)),
               static_cast<unsigned>(SendMessageA(dialog, DM_GETDEFID, 0, 0)));
    ShowWindow(dialog, SW_SHOW);
    drainQueue();
    SetActiveWindow(owner);
    SetActiveWindow(dialog);
    trace.line("focus %d", idOf(GetFocus()));
    SetFocus(dialog);
    trace.line("focus on the dialog itself: %d", idOf(GetFocus()));
    destroy(dialog);
}

void traceWalks(Trace& trace) {
    trace.section("walks");
    const QuietParent owner(trace);
    HWND dialog = createMain(owner);
    for (const int id : {0, 0xFFFF, 101, 111, 112, 113, 120, 130, 140, 141, 142, 1, 2, 150, 300, 301, 302, 303}) {
        HWND from = id == 0 ? nullptr : control(dialog, id);
        trace.line("%d: next %d, previous %d; in group next %d, previous %d", id,
                   idOf(GetNextDlgTabItem(dialog, from, FALSE)), idOf(GetNextDlgTabItem(dialog, from, TRUE)),
                   idOf(GetNextDlgGroupItem(dialog, from, FALSE)), idOf(GetNextDlgGroupItem(dialog, from, TRUE)));
    }
    HWND page = GetDlgItem(dialog, kPageId);
    ShowWindow(page, SW_HIDE);
    trace.line("page hidden: after 130 %d", idOf(GetNextDlgTabItem(dialog, control(dialog, 130), FALSE)));
    destroy(dialog);
}

struct KeyCase {
    int from;
    UINT message;
    WPARAM key;
    const char* modifiers;
};

constexpr KeyCase kKeyCases[] = {
    {101, WM_KEYDOWN, VK_TAB, ""},    {101, WM_KEYDOWN, VK_TAB, "S"},   {130, WM_KEYDOWN, VK_TAB, ""},
    {302, WM_KEYDOWN, VK_TAB, "S"},   {303, WM_KEYDOWN, VK_TAB, ""},    {111, WM_KEYDOWN, VK_RIGHT, ""},
    {111, WM_KEYDOWN, VK_UP, ""},     {141, WM_KEYDOWN, VK_LEFT, ""},   {130, WM_KEYDOWN, VK_DOWN, ""},
    {1, WM_KEYDOWN, VK_RIGHT, ""},    {101, WM_KEYDOWN, VK_RETURN, ""}, {303, WM_KEYDOWN, VK_RETURN, ""},
    {301, WM_KEYDOWN, VK_ESCAPE, ""}, {101, WM_CHAR, 'k', ""},          {130, WM_CHAR, 'm', ""},
    {130, WM_CHAR, 'n', ""},          {130, WM_CHAR, 's', ""},          {130, WM_CHAR, 'g', ""},
    {101, WM_SYSCHAR, 'r', "A"},      {130, WM_SYSCHAR, 'n', "A"},      {101, WM_SYSCHAR, 'x', "A"},
    {2, WM_KEYDOWN, VK_TAB, "S"},     {302, WM_KEYDOWN, VK_TAB, ""},
};

void traceKeys(Trace& trace) {
    trace.section("keys");
    for (const KeyCase& row : kKeyCases) {
        const QuietParent owner(trace);
        HWND dialog = createMain(owner);
        CheckRadioButton(dialog, 111, 113, 111);
        SendMessageA(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control(dialog, row.from)), TRUE);
        drainQueue();
        trace.line("%d: %s %d, modifiers %s", row.from, messageName(row.message), static_cast<int>(row.key),
                   row.modifiers);
        {
            WindowSpy spy(trace);
            spy.watch(dialog, "main");
            spy.watchChildren(dialog);
            const HeldKeys held(row.modifiers);
            const bool taken = takesKey(dialog, GetFocus(), row.message, row.key);
            trace.line("taken %d, focus %d, default %d, radios %u%u%u", taken, idOf(GetFocus()),
                       LOWORD(SendMessageA(dialog, DM_GETDEFID, 0, 0)), IsDlgButtonChecked(dialog, 111),
                       IsDlgButtonChecked(dialog, 112), IsDlgButtonChecked(dialog, 113));
        }
        destroy(dialog);
    }
}

void onInnerCommand(HWND dialog, int id, DialogScript& script) {
    script.spy->line("enabled: parent " + std::to_string(IsWindowEnabled(GetParent(dialog))));
    if (id == IDOK || id == IDCANCEL) {
        EndDialog(dialog, 100 + id);
        script.spy->line("ended, enabled: parent " + std::to_string(IsWindowEnabled(GetParent(dialog))));
    }
}

void onOuterCommand(HWND dialog, int id, DialogScript& script) {
    if (id == 150) {
        DialogScript inner{.spy = script.spy, .name = "inner", .keyOnInit = VK_ESCAPE, .onCommand = onInnerCommand};
        TemplateBuilder builder(TemplateBuilder::Form::Extended, kDialogStyle | DS_CENTER, 100, 60, "Inre");
        builder.add(kButton, IDOK, "OK", BS_DEFPUSHBUTTON | WS_TABSTOP);
        const INT_PTR result =
            DialogBoxIndirectParamA(instance(), builder.get(), dialog, scriptedProc, reinterpret_cast<LPARAM>(&inner));
        script.spy->line("inner gave " + std::to_string(result) + ", focus " + script.spy->nameOf(GetFocus()));
        PostMessageA(dialog, WM_CLOSE, 0, 0);
        return;
    }
    if (id == IDOK || id == IDCANCEL) {
        EndDialog(dialog, id);
    }
}

void traceModal(Trace& trace) {
    trace.section("modal");
    const QuietParent owner(trace);
    HWND edit = addEdit(owner);
    SetFocus(edit);
    WindowSpy spy(trace);
    spy.watch(owner, "owner");
    spy.watch(edit);
    DialogScript outer{.spy = &spy, .name = "outer", .focusOnInit = 150, .onCommand = onOuterCommand};
    spy.setAnswer([&owner](HWND window, UINT message, WPARAM, LPARAM dialog, LRESULT&) {
        if (window == owner && message == WM_ENTERIDLE) {
            PostMessageA(reinterpret_cast<HWND>(dialog), WM_COMMAND, 150, 0);
        }
        return false;
    });
    const TemplateBuilder builder = mainTemplate(TemplateBuilder::Form::Classic);
    const INT_PTR result =
        DialogBoxIndirectParamA(instance(), builder.get(), edit, scriptedProc, reinterpret_cast<LPARAM>(&outer));
    trace.line("outer gave %d, owner enabled %d, focus %s", static_cast<int>(result), IsWindowEnabled(owner) != 0,
               spy.nameOf(GetFocus()).c_str());
}

// Escape is pressed only where a Cancel button answers it alike on all systems.
constexpr struct {
    UINT type;
    UINT key;
} kBoxCases[] = {
    {MB_OK | MB_ICONEXCLAMATION, VK_RETURN},
    {MB_YESNO | MB_ICONQUESTION, VK_RETURN},
    {MB_YESNOCANCEL | MB_ICONSTOP, VK_RETURN},
    {MB_YESNOCANCEL, VK_ESCAPE},
};

// The key for the box that is about to come up, and who writes the trace.
UINT pendingKey = 0;
WindowSpy* pendingSpy = nullptr;

void CALLBACK pressPendingKey(HWND, UINT, UINT_PTR timer, DWORD) {
    KillTimer(nullptr, timer);
    HWND box = GetActiveWindow();
    std::array<char, 80> text{};
    GetDlgItemTextA(box, 0xFFFF, text.data(), static_cast<int>(text.size()));
    std::replace(text.begin(), text.end(), '\n', '|');
    pendingSpy->line(std::string("-- text ") + text.data());
    pendingSpy->line("-- focus " + std::to_string(idOf(GetFocus())));
    for (HWND child = GetWindow(box, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        if (IsWindowVisible(child) && idOf(child) < IDHELP) {
            pendingSpy->line("-- has " + pendingSpy->nameOf(child));
        }
    }
    postKey(GetFocus(), pendingKey);
}

void traceMessageBoxes(Trace& trace) {
    trace.section("message boxes");
    const QuietParent owner(trace);
    HWND edit = addEdit(owner);
    for (const auto& row : kBoxCases) {
        trace.line("-- type %#x", row.type);
        SetFocus(edit);
        WindowSpy spy(trace, {"#32770"});
        spy.watch(owner, "owner");
        spy.watch(edit);
        pendingKey = row.key;
        pendingSpy = &spy;
        SetTimer(nullptr, 0, 20, pressPendingKey);
        const int result = MessageBoxA(owner, "Rad ett\nRad tv\xE5", "Rubrik", row.type);
        trace.line("gave %d, owner enabled %d, focus %s", result, IsWindowEnabled(owner) != 0,
                   spy.nameOf(GetFocus()).c_str());
    }
    drainQueue();
}

}  // namespace

void traceDialogs(Trace& trace) {
    traceCreation(trace);
    traceWalks(trace);
    traceKeys(trace);
    traceModal(trace);
    traceMessageBoxes(trace);
}
