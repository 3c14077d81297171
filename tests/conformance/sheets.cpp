// Property sheets: order of notifications while pages are shown, left, applied, reset, added and removed.
#include "tests/conformance/trace.h"
#include "tests/conformance/typing.h"
#include "tests/conformance/window_spy.h"
#include "tests/support/template_builder.h"

#include <windows.h>

#include <commctrl.h>
#include <prsht.h>

#include <array>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace {

// The id of the Apply button; no header of the system names it.
constexpr int kApplyId = 0x3021;
constexpr DWORD kPageStyle = WS_CHILD | WS_CAPTION | WS_DISABLED;

// One page: what it answers, and how it is called in the trace.
struct Page {
    std::string name;
    TemplateBuilder layout;
    LRESULT onSetActive = 0;
    LRESULT onKillActive = 0;
    LRESULT onApply = PSNRET_NOERROR;
    LRESULT onQueryCancel = 0;
    HPROPSHEETPAGE handle = nullptr;
    HWND window = nullptr;
};

// The sheet that a section plays with, and its pages; one at a time, because sheet callbacks carry no data of ours.
struct Stage {
    explicit Stage(Trace& writer) : trace(writer), spy(writer, {"#32770"}) {}

    Trace& trace;
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

void setChanged(bool changed) {
    ask(changed ? PSM_CHANGED : PSM_UNCHANGED, reinterpret_cast<WPARAM>(stage->pages[0]->window));
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

HPROPSHEETPAGE makePage(Page& page, DWORD flags = 0) {
    PROPSHEETPAGEA info{};
    info.dwSize = sizeof info;
    info.dwFlags = PSP_DLGINDIRECT | PSP_USECALLBACK | flags;
    info.hInstance = instance();
    info.pResource = page.layout.get();
    info.pszTitle = "Titel";
    info.pfnDlgProc = pageProc;
    info.lParam = reinterpret_cast<LPARAM>(&page);
    info.pfnCallback = pageCallback;
    page.handle = CreatePropertySheetPageA(&info);
    return page.handle;
}

int CALLBACK sheetCallback(HWND sheet, UINT message, LPARAM) {
    stage->spy.line("-- callback of sheet: " + std::to_string(message));
    if (message == PSCB_INITIALIZED) {
        stage->spy.name(sheet, "sheet");
        stage->sheet = sheet;
    }
    return 0;
}

std::string focusName() {
    HWND focus = GetFocus();
    if (focus == nullptr) {
        return "none";
    }
    const int id = GetDlgCtrlID(focus);
    return focus == stage->sheet ? "sheet" : focus == stage->owner ? "owner" : std::to_string(id);
}

void traceState() {
    HWND tab = tabControl();
    HWND current = reinterpret_cast<HWND>(ask(PSM_GETCURRENTPAGEHWND));
    std::string tabs;
    const int count = static_cast<int>(SendMessageA(tab, TCM_GETITEMCOUNT, 0, 0));
    for (int i = 0; i < count; ++i) {
        std::array<char, 40> text{};
        TCITEMA item{};
        item.mask = TCIF_TEXT;
        item.pszText = text.data();
        item.cchTextMax = static_cast<int>(text.size());
        SendMessageA(tab, TCM_GETITEMA, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
        tabs += std::string(" ") + text.data();
    }
    std::string buttons;
    for (const int id : {IDOK, IDCANCEL, kApplyId, IDHELP}) {
        HWND button = GetDlgItem(stage->sheet, id);
        buttons += button == nullptr          ? " -"
                   : !IsWindowVisible(button) ? " hidden"
                   : !IsWindowEnabled(button) ? " disabled"
                                              : " " + std::to_string(id);
    }
    stage->spy.line("== tabs" + tabs + ", current " + std::to_string(SendMessageA(tab, TCM_GETCURSEL, 0, 0)) + " (" +
                    stage->spy.nameOf(current) + "), focus " + focusName() + ", buttons" + buttons + ", default " +
                    std::to_string(LOWORD(ask(DM_GETDEFID))));
}

INT_PTR openSheet(DWORD flags, UINT start = 0) {
    std::vector<HPROPSHEETPAGE> handles;
    for (const auto& page : stage->pages) {
        handles.push_back(makePage(*page));
    }
    PROPSHEETHEADERA header{};
    header.dwSize = sizeof header;
    header.dwFlags = PSH_USECALLBACK | flags;
    header.hwndParent = stage->owner;
    header.hInstance = instance();
    header.pszCaption = "Blad";
    header.nPages = static_cast<UINT>(handles.size());
    header.nStartPage = start;
    header.phpage = handles.data();
    header.pfnCallback = sheetCallback;
    return PropertySheetA(&header);
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

// Opens the modeless sheet with the pages, takes the steps, and destroys it.
void playModeless(DWORD flags, std::span<const Step> steps, UINT start = 0) {
    stage->sheet = reinterpret_cast<HWND>(openSheet(PSH_MODELESS | flags, start));
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
        {"set current 1 again", [] { ask(PSM_SETCURSEL, 1); }},
        {"set current 7", [] { ask(PSM_SETCURSEL, 7); }},
        {"click tab 0", [] { clickTab(0); }},
        {"click tab 2", [] { clickTab(2); }},
        {"Ctrl+Tab", [] { press(VK_TAB, "C"); }},
        {"Ctrl+Shift+Tab", [] { press(VK_TAB, "CS"); }},
        {"Ctrl+PageUp", [] { press(VK_PRIOR, "C"); }},
        {"Ctrl+PageDown", [] { press(VK_NEXT, "C"); }},
        {"Tab", [] { press(VK_TAB, ""); }},
        {"Tab to the end",
         [] {
             for (int i = 0; i < 6; ++i) {
                 press(VK_TAB, "");
                 stage->spy.line("-- focus " + focusName());
             }
         }},
        {"Right on the tabs",
         [] {
             SetFocus(tabControl());
             press(VK_RIGHT, "");
         }},
    };
    playModeless(PSH_NOAPPLYNOW, kSteps);
}

void traceSinglePage(Trace& trace) {
    const Scene scene(trace, "a single page");
    addPage("ett");
    constexpr Step kSteps[] = {
        {"Ctrl+Tab", [] { press(VK_TAB, "C"); }},
        {"Ctrl+PageDown", [] { press(VK_NEXT, "C"); }},
        {"click its tab", [] { clickTab(0); }},
    };
    playModeless(PSH_NOAPPLYNOW, kSteps);
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
        {"page 1 refuses to be shown",
         [] {
             stage->pages[0]->onKillActive = FALSE;
             stage->pages[1]->onSetActive = -1;
             clickTab(1);
         }},
        {"back to page 0",
         [] {
             stage->pages[1]->onSetActive = 0;
             clickTab(0);
         }},
        {"apply refused, invalid",
         [] {
             clickTab(0);
             stage->pages[1]->onApply = PSNRET_INVALID;
             pressButton(PSBTN_OK);
         }},
        {"apply refused, stay",
         [] {
             clickTab(0);
             stage->pages[1]->onApply = PSNRET_INVALID_NOCHANGEPAGE;
             pressButton(PSBTN_OK);
         }},
        {"cancel refused",
         [] {
             stage->pages[1]->onApply = PSNRET_NOERROR;
             stage->pages[0]->onQueryCancel = TRUE;
             pressButton(PSBTN_CANCEL);
         }},
        {"close box refused", [] { ask(WM_SYSCOMMAND, SC_CLOSE); }},
        {"cancel",
         [] {
             stage->pages[0]->onQueryCancel = FALSE;
             pressButton(PSBTN_CANCEL);
         }},
    };
    playModeless(0, kSteps);
}

void traceApply(Trace& trace) {
    const Scene scene(trace, "apply button");
    addPage("ett");
    addPage("tv\xE5");
    addPage("tre");
    constexpr Step kSteps[] = {
        {"changed", [] { setChanged(true); }},
        {"unchanged", [] { setChanged(false); }},
        {"changed, apply",
         [] {
             setChanged(true);
             pressButton(PSBTN_APPLYNOW);
         }},
        {"apply by message", [] { stage->spy.line("-- gave " + std::to_string(ask(PSM_APPLY))); }},
        {"cancel to close", [] { ask(PSM_CANCELTOCLOSE); }},
        {"OK", [] { pressButton(PSBTN_OK); }},
    };
    playModeless(0, kSteps, 1);
}

void tracePages(Trace& trace) {
    const Scene scene(trace, "pages come and go");
    addPage("ett");
    addPage("tv\xE5");
    addPage("tre");
    constexpr Step kSteps[] = {
        {"page 1 shown", [] { clickTab(1); }},
        {"add a page",
         [] {
             Page& page = addPage("fyra");
             stage->spy.line("-- gave " +
                             std::to_string(ask(PSM_ADDPAGE, 0, reinterpret_cast<LPARAM>(makePage(page)))));
         }},
        {"remove page 2, never shown", [] { ask(PSM_REMOVEPAGE, 2); }},
        {"remove the current page", [] { ask(PSM_REMOVEPAGE, 1); }},
        {"remove by handle", [] { ask(PSM_REMOVEPAGE, 0, reinterpret_cast<LPARAM>(stage->pages[0]->handle)); }},
        {"indexes",
         [] {
             stage->spy.line(
                 "-- " + stage->spy.nameOf(reinterpret_cast<HWND>(ask(PSM_INDEXTOHWND))) + " " +
                 std::to_string(ask(PSM_HWNDTOINDEX, reinterpret_cast<WPARAM>(stage->pages[3]->window), 0)) + " " +
                 std::to_string(ask(PSM_HWNDTOINDEX, reinterpret_cast<WPARAM>(stage->sheet), 0)));
         }},
        {"remove the last page", [] { ask(PSM_REMOVEPAGE); }},
    };
    playModeless(PSH_NOAPPLYNOW, kSteps);
}

// Where the page and the buttons stand in a sheet with rows of tabs.
void traceLayout() {
    HWND tabs = tabControl();
    RECT display;
    GetClientRect(tabs, &display);
    SendMessageA(tabs, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&display));
    MapWindowPoints(tabs, stage->sheet, reinterpret_cast<POINT*>(&display), 2);
    const auto placeOf = [](HWND window) {
        RECT rect{};
        GetWindowRect(window, &rect);
        MapWindowPoints(nullptr, stage->sheet, reinterpret_cast<POINT*>(&rect), 2);
        return rect;
    };
    const RECT page = placeOf(reinterpret_cast<HWND>(ask(PSM_GETCURRENTPAGEHWND)));
    RECT first{};
    SendMessageA(tabs, TCM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&first));
    const int rowsOff = static_cast<int>((page.top - display.top) / (first.bottom - first.top));
    stage->spy.line("== rows " + std::to_string(SendMessageA(tabs, TCM_GETROWCOUNT, 0, 0)) + ", page " +
                    (EqualRect(&page, &display) ? "in its place" : "off by " + std::to_string(rowsOff) + " rows") +
                    ", buttons " + (placeOf(GetDlgItem(stage->sheet, IDOK)).top > page.bottom ? "below" : "covered"));
}

void addThree() {
    for (int i = 0; i < 3; ++i) {
        Page& page = addPage("i");
        ask(PSM_ADDPAGE, 0, reinterpret_cast<LPARAM>(makePage(page)));
        traceLayout();
    }
}

void lookAtTab(int index) {
    clickTab(index);
    traceLayout();
}

void traceRows(Trace& trace) {
    const Scene scene(trace, "rows of tabs");
    for (int i = 0; i < 4; ++i) {
        addPage("i");
    }
    constexpr Step kSteps[] = {
        {"four pages", traceLayout},
        {"add three", addThree},
        {"click the last", [] { lookAtTab(6); }},
        {"click the first", [] { lookAtTab(0); }},
        {"remove others",
         [] {
             for (int i = 0; i < 3; ++i) {
                 ask(PSM_REMOVEPAGE, 2);
                 traceLayout();
             }
         }},
        {"click the last", [] { lookAtTab(3); }},
        {"add three", addThree},
        {"remove the current ones",
         [] {
             for (int i = 6; i > 2; --i) {
                 clickTab(i);
                 ask(PSM_REMOVEPAGE, static_cast<WPARAM>(i));
                 traceLayout();
             }
         }},
    };
    playModeless(PSH_NOAPPLYNOW, kSteps);
}

// What the timer of a modal sheet does next.
UINT modalCommand = 0;

void CALLBACK pressModal(HWND, UINT, UINT_PTR timer, DWORD) {
    KillTimer(nullptr, timer);
    traceState();
    if (modalCommand == WM_CLOSE) {
        PostMessageA(stage->sheet, WM_SYSCOMMAND, SC_CLOSE, 0);
    } else if (modalCommand == VK_ESCAPE) {
        postKey(GetFocus(), VK_ESCAPE);
    } else {
        PostMessageA(stage->sheet, PSM_PRESSBUTTON, modalCommand, 0);
    }
}

void traceModal(Trace& trace) {
    constexpr struct {
        const char* name;
        UINT command;
    } kEnds[] = {{"modal, OK", PSBTN_OK},
                 {"modal, cancel", PSBTN_CANCEL},
                 {"modal, Escape", VK_ESCAPE},
                 {"modal, close box", WM_CLOSE}};
    for (const auto& [name, command] : kEnds) {
        const Scene scene(trace, name);
        addPage("ett");
        addPage("tv\xE5");
        modalCommand = command;
        SetTimer(nullptr, 0, 30, pressModal);
        const INT_PTR result = openSheet(PSH_NOAPPLYNOW, 1);
        trace.line("gave %d, owner enabled %d, focus %s", static_cast<int>(result), IsWindowEnabled(stage->owner) != 0,
                   focusName().c_str());
    }
}

}  // namespace

void traceSheets(Trace& trace) {
    traceSwitching(trace);
    traceSinglePage(trace);
    traceRefusals(trace);
    traceApply(trace);
    tracePages(trace);
    traceRows(trace);
    traceModal(trace);
}
