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
             {"child, no erase", stage.first, RDW_INVALIDATE},
             {"top", stage.top, RDW_INVALIDATE | RDW_ERASE},
             {"top, no erase", stage.top, RDW_INVALIDATE},
             {"top, update now", stage.top, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN},
             {"top without children", stage.top, RDW_INVALIDATE | RDW_ERASE | RDW_NOCHILDREN},
             {"frame", stage.first, RDW_INVALIDATE | RDW_FRAME},
             {"erase now", stage.first, RDW_INVALIDATE | RDW_ERASE | RDW_ERASENOW},
         }) {
        stage.step(row.what, [&] { RedrawWindow(row.window, nullptr, nullptr, row.flags); });
        stage.note("-- paint");
    }
    stage.step("update", [&] { InvalidateRect(stage.first, nullptr, FALSE); });
    UpdateWindow(stage.first);
    stage.step("nothing to update", [&] { UpdateWindow(stage.first); });
    stage.step("validated", [&] { InvalidateRect(stage.first, nullptr, TRUE); });
    ValidateRect(stage.first, nullptr);
    stage.step("no redraw", [&] { SendMessageA(stage.first, WM_SETREDRAW, FALSE, 0); });
    InvalidateRect(stage.first, nullptr, TRUE);
    drainQueue();
    SendMessageA(stage.first, WM_SETREDRAW, TRUE, 0);
    stage.step("redraw off and on again", [&] { InvalidateRect(stage.first, nullptr, TRUE); });
    SendMessageA(stage.first, WM_SETREDRAW, FALSE, 0);
    SendMessageA(stage.first, WM_SETREDRAW, TRUE, 0);
    stage.step("unpainted answer");
    stage.spy().setAnswer([](HWND window, UINT message, WPARAM, LPARAM, LRESULT&) {
        if (message == WM_PAINT) {
            ValidateRect(window, nullptr);
        }
        return message == WM_PAINT;
    });
    InvalidateRect(stage.first, nullptr, TRUE);
    drainQueue();
}

void paintingOfAClippedParent(Stage& stage) {
    HWND popup = stage.createQuietly("popup", kShownPopup | WS_CLIPCHILDREN, kTopPlace);
    HWND child = stage.createQuietly("child", kShownChild, {10, 10, 50, 20}, popup, 1);
    InvalidateRect(popup, nullptr, TRUE);
    stage.step("hide child", [&] { ShowWindow(child, SW_HIDE); });
    drainQueue();
}

// A parent that paints over its children leaves out what a child has painted before it.
void updatingAChild(Stage& stage) {
    const auto noteUpdate = [&stage](HWND window) {
        RECT rect;
        GetUpdateRect(window, &rect, FALSE);
        stage.note(stage.name(window) + " invalid from " + std::to_string(rect.left) + "," + std::to_string(rect.top) +
                   " to " + std::to_string(rect.right) + "," + std::to_string(rect.bottom));
    };
    for (const DWORD clipping : {DWORD{0}, DWORD{WS_CLIPCHILDREN}}) {
        stage.step(clipping ? "of a clipped parent" : "of a parent");
        HWND popup = stage.createQuietly("popup", kShownPopup | clipping, kTopPlace);
        HWND child = stage.createQuietly("child", kShownChild, {0, 0, 200, 50}, popup, 1);
        HWND inner = stage.createQuietly("inner", kShownChild, {0, 10, 200, 20}, child, 2);
        HWND sibling = stage.createQuietly("sibling", kShownChild, {10, 60, 50, 20}, popup, 3);
        for (HWND window : {popup, child, inner, sibling}) {
            InvalidateRect(window, nullptr, TRUE);
        }
        UpdateWindow(child);
        noteUpdate(popup);
        stage.note("-- the rest");
        drainQueue();
    }
    stage.step("that covers all of its parent");
    HWND popup = stage.createQuietly("popup", kShownPopup, kTopPlace);
    HWND child = stage.createQuietly("child", kShownChild, {0, 0, 200, 100}, popup, 1);
    InvalidateRect(popup, nullptr, TRUE);
    UpdateWindow(child);
    noteUpdate(popup);
    InvalidateRect(popup, nullptr, FALSE);
    drainQueue();
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
        DWORD upperEx;
        DWORD lower;
    } kCases[] = {
        {"nobody clips", 0, WS_VISIBLE, 0, WS_VISIBLE},
        {"the lower child clips", 0, WS_VISIBLE, 0, kClipping},
        {"both children clip", 0, kClipping, 0, kClipping},
        {"the upper child is hidden", 0, 0, 0, kClipping},
        {"the upper child is transparent", 0, WS_VISIBLE, WS_EX_TRANSPARENT, kClipping},
        {"the parent clips", WS_CLIPCHILDREN, WS_VISIBLE, 0, WS_VISIBLE},
        {"the parent clips, the upper child is hidden", WS_CLIPCHILDREN, 0, 0, WS_VISIBLE},
        {"the parent clips, the upper child is transparent", WS_CLIPCHILDREN, WS_VISIBLE, WS_EX_TRANSPARENT,
         WS_VISIBLE},
    };
    for (const auto& row : kCases) {
        TracedWindows windows(trace);
        windows.spy().mute(true);
        HWND top = windows.create("top", WS_POPUP | WS_VISIBLE | row.parent, {50, 60, 12, 8});
        HWND upper = windows.create("upper", WS_CHILD | row.upper, {1, 1, 6, 4}, top, 1, row.upperEx);
        HWND lower = windows.create("lower", WS_CHILD | row.lower, {4, 3, 20, 4}, top, 2);
        drainQueue();
        const auto print = [&](HWND window, int x, int y, const char* what) {
            const Canvas canvas(12, 8);
            HDC dc = GetDC(window);
            BitBlt(canvas, 0, 0, 12, 8, dc, x, y, SRCCOPY);
            ReleaseDC(window, dc);
            tracePicture(trace, what, canvas);
        };
        fill(upper, kRed);
        fill(lower, kBlue);
        print(top, 0, 0, row.what);
        fill(top, kBlack);
        print(top, 0, 0, "the parent painted last");
        print(lower, -4, -3, "seen through the lower child");
    }
}

constexpr StagedSection kSections[] = {
    {"messages", painting},
    {"of a clipped parent", paintingOfAClippedParent},
    {"updating a child", updatingAChild},
};

}  // namespace

void tracePainting(Trace& trace) {
    play(trace, kSections);
    traceClipping(trace);
}
