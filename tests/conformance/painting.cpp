// Which windows are painted when, and which of their pixels.
#include "tests/conformance/window_stage.h"

namespace {

void painting(Stage& stage) {
    struct Redraw {
        const char* what;
        HWND window;
        UINT flags;
    };
    for (const Redraw& row : {
             Redraw{"child", stage.first, RDW_INVALIDATE | RDW_ERASE},
             {"top", stage.top, RDW_INVALIDATE | RDW_ERASE},
             {"top, no erase", stage.top, RDW_INVALIDATE},
             {"top, update now", stage.top, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN},
         }) {
        stage.step(row.what, [&] { RedrawWindow(row.window, nullptr, nullptr, row.flags); });
        stage.note("-- paint");
    }
    stage.step("update", [&] { InvalidateRect(stage.first, nullptr, FALSE); });
    UpdateWindow(stage.first);
    stage.step("no redraw", [&] { SendMessageA(stage.first, WM_SETREDRAW, FALSE, 0); });
    InvalidateRect(stage.first, nullptr, TRUE);
    drainQueue();
    SendMessageA(stage.first, WM_SETREDRAW, TRUE, 0);
    stage.step("redraw off and on again", [&] { InvalidateRect(stage.first, nullptr, TRUE); });
    SendMessageA(stage.first, WM_SETREDRAW, FALSE, 0);
    SendMessageA(stage.first, WM_SETREDRAW, TRUE, 0);
}

void fill(HWND window, COLORREF colour) {
    HDC dc = GetDC(window);
    HBRUSH brush = CreateSolidBrush(colour);
    const RECT all = {0, 0, 100, 100};
    FillRect(dc, &all, brush);
    DeleteObject(brush);
    ReleaseDC(window, dc);
}

// A window with two children, one of which lies over the other, which reaches over the window's edge.
void traceClipping(Trace& trace) {
    trace.section("clipping");
    constexpr DWORD kClipping = WS_VISIBLE | WS_CLIPSIBLINGS;
    constexpr struct {
        const char* what;
        DWORD parent;
        DWORD upper;
        DWORD lower;
    } kCases[] = {
        {"nobody clips", 0, WS_VISIBLE, WS_VISIBLE},
        {"both children clip", 0, kClipping, kClipping},
        {"the upper child is hidden", 0, 0, kClipping},
        {"the parent clips", WS_CLIPCHILDREN, WS_VISIBLE, WS_VISIBLE},
    };
    for (const auto& row : kCases) {
        TracedWindows windows(trace);
        windows.spy().mute(true);
        HWND top = windows.create("top", WS_POPUP | WS_VISIBLE | row.parent, {50, 60, 12, 8});
        HWND upper = windows.create("upper", WS_CHILD | row.upper, {1, 1, 6, 4}, top, 1);
        HWND lower = windows.create("lower", WS_CHILD | row.lower, {4, 3, 20, 4}, top, 2);
        drainQueue();
        fill(upper, kRed);
        fill(lower, kBlue);
        tracePixels(trace, row.what, top, {0, 0, 12, 8});
        fill(top, kBlack);
        tracePixels(trace, "the parent painted last", top, {0, 0, 12, 8});
        fill(upper, kRed);
        InvalidateRect(upper, nullptr, FALSE);
        SetWindowPos(upper, nullptr, 0, 0, 3, 2, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        UpdateWindow(upper);
        drainQueue();
        tracePixels(trace, "the upper child shrank before it painted", top, {0, 0, 12, 8});
    }
}

}  // namespace

void tracePainting(Trace& trace) {
    constexpr StagedSection kSections[] = {{"messages", painting}};
    play(trace, kSections);
    traceClipping(trace);
}
