// Property sheets: order of notifications while pages are shown, left, applied, reset, added and removed.
#include "tests/conformance/trace.h"
#include "tests/conformance/typing.h"
#include "tests/conformance/window_spy.h"
#include "tests/support/template_builder.h"

#include <windows.h>

#include <commctrl.h>
#include <prsht.h>

#include <algorithm>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace {

constexpr DWORD kPageStyle = WS_CHILD | WS_CAPTION | WS_DISABLED;

// One page: what it answers, and how it is called in the trace.
struct Page {
    std::string name;
    TemplateBuilder layout;
    LRESULT onSetActive = 0;
    LRESULT onKillActive = 0;
    LRESULT onApply = PSNRET_NOERROR;
    LRESULT onQueryCancel = 0;
    HWND window = nullptr;
};

// The sheet that a section plays with, and its pages; one at a time, because its steps carry no data of ours.
struct Stage {
    explicit Stage(Trace& trace) : spy(trace, {"#32770"}) {}

    WindowSpy spy;
    std::vector<std::unique_ptr<Page>> pages;
    HWND owner = nullptr;
    HWND sheet = nullptr;
};
Stage* stage = nullptr;

LRESULT ask(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    return SendMessageA(stage->sheet, message, wParam, lParam);
}

HWND tabControl() {
    return reinterpret_cast<HWND>(ask(PSM_GETTABCONTROL));
}

TemplateBuilder pageLayout(const std::string& name, short width, short height) {
    TemplateBuilder layout(TemplateBuilder::Form::Extended, kPageStyle, width, height, name);
    layout.add(kEdit, 101, "text", WS_TABSTOP | WS_BORDER)
        .add(kButton, 102, "&Kryss", WS_TABSTOP | BS_AUTOCHECKBOX)
        .add(kButton, 103, "&Knapp", WS_TABSTOP | BS_PUSHBUTTON);
    return layout;
}

Page& addPage(const std::string& name, short width = 120, short height = 60) {
    stage->pages.push_back(std::make_unique<Page>(Page{name, pageLayout(name, width, height)}));
    return *stage->pages.back();
}

LRESULT answerTo(const Page& page, UINT code) {
    switch (code) {
        case PSN_SETACTIVE:
            return page.onSetActive;
        case PSN_KILLACTIVE:
            return page.onKillActive;
        case PSN_APPLY:
            return page.onApply;
        case PSN_QUERYCANCEL:
            return page.onQueryCancel;
        default:
            return 0;
    }
}

INT_PTR CALLBACK pageProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        const auto* info = reinterpret_cast<const PROPSHEETPAGEA*>(lParam);
        auto* page = reinterpret_cast<Page*>(info->lParam);
        SetWindowLongPtrA(window, DWLP_USER, reinterpret_cast<LONG_PTR>(page));
        page->window = window;
        stage->sheet = GetParent(window);
        stage->spy.name(window, "page " + page->name);
        stage->spy.line("-- page " + page->name + " initialised, first tab stop " +
                        std::to_string(GetDlgCtrlID(reinterpret_cast<HWND>(wParam))));
        return TRUE;
    }
    const auto* page = reinterpret_cast<const Page*>(GetWindowLongPtrA(window, DWLP_USER));
    if (message == WM_NOTIFY && page != nullptr) {
        const auto* notify = reinterpret_cast<const PSHNOTIFY*>(lParam);
        stage->spy.line(std::string("-- ") + notificationName(notify->hdr.code) + " id " +
                        std::to_string(notify->hdr.idFrom) + " lParam " + std::to_string(notify->lParam));
        SetWindowLongPtrA(window, DWLP_MSGRESULT, answerTo(*page, notify->hdr.code));
        return TRUE;
    }
    return FALSE;
}

UINT CALLBACK pageCallback(HWND, UINT message, PROPSHEETPAGEA* info) {
    stage->spy.line("-- callback of page " + reinterpret_cast<const Page*>(info->lParam)->name + ": " +
                    std::to_string(message));
    return 1;
}

HPROPSHEETPAGE makePage(Page& page) {
    PROPSHEETPAGEA info{};
    info.dwSize = sizeof info;
    info.dwFlags = PSP_DLGINDIRECT | PSP_USECALLBACK;
    info.hInstance = instance();
    info.pResource = page.layout.get();
    info.pszTitle = "Titel";
    info.pfnDlgProc = pageProc;
    info.lParam = reinterpret_cast<LPARAM>(&page);
    info.pfnCallback = pageCallback;
    return CreatePropertySheetPageA(&info);
}

RECT placeInSheet(HWND window, RECT rect) {
    MapWindowPoints(window, stage->sheet, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

// Also where the page and the buttons stand.
void traceState() {
    HWND tabs = tabControl();
    HWND page = reinterpret_cast<HWND>(ask(PSM_GETCURRENTPAGEHWND));
    if (page == nullptr) {
        stage->spy.line("== closed");
        return;
    }
    RECT display{};
    RECT first{};
    RECT inside{};
    RECT button{};
    GetClientRect(tabs, &display);
    SendMessageA(tabs, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&display));
    SendMessageA(tabs, TCM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&first));
    GetClientRect(page, &inside);
    GetClientRect(GetDlgItem(stage->sheet, IDOK), &button);
    display = placeInSheet(tabs, display);
    inside = placeInSheet(page, inside);
    const LONG rowsOff = (inside.top - display.top) / std::max<LONG>(first.bottom - first.top, 1);
    const auto count = [tabs](UINT message) { return std::to_string(SendMessageA(tabs, message, 0, 0)); };
    stage->spy.line(
        "== tab " + count(TCM_GETCURSEL) + " of " + count(TCM_GETITEMCOUNT) + " in rows " + count(TCM_GETROWCOUNT) +
        ", " + stage->spy.nameOf(page) + " off by " + std::to_string(rowsOff) + " rows, buttons " +
        (placeInSheet(GetDlgItem(stage->sheet, IDOK), button).top > inside.bottom ? "below" : "covered") + ", focus " +
        std::to_string(GetDlgCtrlID(GetFocus())) + ", default " + std::to_string(LOWORD(ask(DM_GETDEFID))));
}

void openSheet() {
    std::vector<HPROPSHEETPAGE> handles;
    for (const auto& page : stage->pages) {
        handles.push_back(makePage(*page));
    }
    PROPSHEETHEADERA header{};
    header.dwSize = sizeof header;
    header.dwFlags = PSH_MODELESS | PSH_NOAPPLYNOW;
    header.hwndParent = stage->owner;
    header.hInstance = instance();
    header.pszCaption = "Blad";
    header.nPages = static_cast<UINT>(handles.size());
    header.phpage = handles.data();
    stage->spy.nameNext("sheet");
    stage->sheet = reinterpret_cast<HWND>(PropertySheetA(&header));
}

void drain() {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (!IsWindow(stage->sheet) || ask(PSM_ISDIALOGMESSAGE, 0, reinterpret_cast<LPARAM>(&message)) == 0) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
    }
}

void press(UINT key, const char* modifiers) {
    const HeldKeys held(modifiers);
    MSG message{};
    message.hwnd = GetFocus();
    message.message = WM_KEYDOWN;
    message.wParam = key;
    message.lParam = 1;
    ask(PSM_ISDIALOGMESSAGE, 0, reinterpret_cast<LPARAM>(&message));
}

void clickTab(int index) {
    HWND tab = tabControl();
    RECT rect{};
    SendMessageA(tab, TCM_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&rect));
    postClick(tab, (rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2);
    drain();
}

void pressButton(int button) {
    ask(PSM_PRESSBUTTON, static_cast<WPARAM>(button), 0);
    drain();
}

// A step of a modeless sheet's life, and what it is called in the trace.
struct Step {
    const char* what;
    void (*run)();
};

// Opens the sheet with the pages, takes the steps, and destroys it.
void play(std::span<const Step> steps) {
    openSheet();
    stage->spy.line("opened");
    drain();
    traceState();
    for (const Step& step : steps) {
        stage->spy.line(step.what);
        step.run();
        drain();
        traceState();
    }
    stage->spy.line("destroy");
    DestroyWindow(stage->sheet);
    drain();
}

class Scene {
public:
    Scene(Trace& trace, const char* name) : owner_(trace), stage_(trace) {
        trace.section(name);
        stage = &stage_;
        stage->owner = owner_.handle();
        stage->spy.watch(stage->owner);
        stage->spy.name(stage->owner, "owner");
    }

private:
    QuietParent owner_;
    Stage stage_;
};

void traceSwitching(Trace& trace) {
    const Scene scene(trace, "switching pages");
    addPage("ett");
    addPage("tv\xE5", 140, 80);
    addPage("tre");
    constexpr Step kSteps[] = {
        {"set current 1", [] { ask(PSM_SETCURSEL, 1); }},
        {"set current 7", [] { ask(PSM_SETCURSEL, 7); }},
        {"changed", [] { ask(PSM_CHANGED, reinterpret_cast<WPARAM>(stage->pages[0]->window)); }},
        {"unchanged", [] { ask(PSM_UNCHANGED, reinterpret_cast<WPARAM>(stage->pages[0]->window)); }},
        {"click tab 2", [] { clickTab(2); }},
        {"Ctrl+Tab", [] { press(VK_TAB, "C"); }},
        {"Ctrl+Shift+Tab", [] { press(VK_TAB, "CS"); }},
        {"Ctrl+PageUp", [] { press(VK_PRIOR, "C"); }},
        {"Ctrl+PageDown", [] { press(VK_NEXT, "C"); }},
        {"Tab", [] { press(VK_TAB, ""); }},
        {"Tab", [] { press(VK_TAB, ""); }},
        {"Tab", [] { press(VK_TAB, ""); }},
        {"Tab", [] { press(VK_TAB, ""); }},
        {"focus on the tabs", [] { SetFocus(tabControl()); }},
        {"Right", [] { press(VK_RIGHT, ""); }},
    };
    play(kSteps);
}

void traceRefusals(Trace& trace) {
    const Scene scene(trace, "refusals");
    addPage("ett").onKillActive = TRUE;
    addPage("tv\xE5");
    addPage("tre");
    constexpr Step kSteps[] = {
        {"set current 1, page 0 refuses", [] { ask(PSM_SETCURSEL, 1); }},
        {"click tab 1, page 0 refuses", [] { clickTab(1); }},
        {"Ctrl+Tab, page 0 refuses", [] { press(VK_TAB, "C"); }},
        {"OK, page 0 refuses to be left", [] { pressButton(PSBTN_OK); }},
        {"page 0 lets go", [] { stage->pages[0]->onKillActive = FALSE; }},
        {"page 1 refuses to be shown", [] { stage->pages[1]->onSetActive = -1; }},
        {"click tab 1", [] { clickTab(1); }},
        {"page 1 does not mind", [] { stage->pages[1]->onSetActive = 0; }},
        {"click tab 0", [] { clickTab(0); }},
        {"page 1 refuses to apply", [] { stage->pages[1]->onApply = PSNRET_INVALID_NOCHANGEPAGE; }},
        {"OK", [] { pressButton(PSBTN_OK); }},
        {"page 0 refuses to cancel", [] { stage->pages[0]->onQueryCancel = TRUE; }},
        {"cancel", [] { pressButton(PSBTN_CANCEL); }},
        {"close box", [] { ask(WM_SYSCOMMAND, SC_CLOSE); }},
        {"page 0 does not mind", [] { stage->pages[0]->onQueryCancel = FALSE; }},
        {"cancel", [] { pressButton(PSBTN_CANCEL); }},
    };
    play(kSteps);
}

void addTab() {
    Page& page = addPage("i");
    stage->spy.line("-- gave " + std::to_string(ask(PSM_ADDPAGE, 0, reinterpret_cast<LPARAM>(makePage(page)))));
}

void tracePages(Trace& trace) {
    const Scene scene(trace, "pages come and go");
    for (const char* name : {"ett", "tv\xE5", "tre", "i"}) {
        addPage(name);
    }
    constexpr Step kSteps[] = {
        {"click tab 1", [] { clickTab(1); }},
        {"remove page 2, never shown", [] { ask(PSM_REMOVEPAGE, 2); }},
        {"remove the current page", [] { ask(PSM_REMOVEPAGE, 1); }},
        {"add a page", addTab},
        {"add a page", addTab},
        {"add a page", addTab},
        {"add a page", addTab},
        {"add a page", addTab},
        {"click the last", [] { clickTab(6); }},
        {"remove it", [] { ask(PSM_REMOVEPAGE, 6); }},
        {"remove one before", [] { ask(PSM_REMOVEPAGE, 2); }},
    };
    play(kSteps);
}

}  // namespace

void traceSheets(Trace& trace) {
    traceSwitching(trace);
    traceRefusals(trace);
    tracePages(trace);
}
