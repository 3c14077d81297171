// How a sheet fits a screen that is smaller than the sheet: the window, the tabs and the buttons keep to the screen,
// and a page is scrolled by two bars, the wheel and the focus. Where there is room for all of it nothing here has an
// effect.
#pragma once

#include <array>
#include <unordered_map>

#include "framework/geometry.h"

class AfxSheetView {
public:
    explicit AfxSheetView(HWND sheet) : m_sheet(sheet) {}

    // Makes the window as large as the system laid it out, or as its monitor has room for. Does not move the window.
    void Fit();
    bool IsCut() const { return m_isCut; }
    // Moves the window onto its monitor's work area.
    void BringOntoScreen();
    // Gives a page its place, which the system has set as if all of it were in view. A new window has not been
    // scrolled.
    void Place(HWND page, bool isNew);
    // Scrolls to a control, or to what it is a part of.
    void BringIntoView(HWND page, HWND control);
    // Brings the focus into view when it has moved, or in any case for a key that is on its way to it.
    void FollowFocus(bool isKey);
    // A part of a scroll bar was pressed; false when it is not one of this view's.
    bool OnScroll(bool isVertical, WPARAM wParam, HWND bar);
    // False where there is nothing to scroll, or what the wheel is over scrolls itself.
    bool OnWheel(const MSG& message);

private:
    static constexpr int kApplyNow = 0x3021;  // A number of the system's own.
    static constexpr std::array<int, 4> kButtons = {IDOK, IDCANCEL, kApplyNow, IDHELP};

    HWND Tabs() const;
    HWND ActivePage() const;
    void Measure();
    void Lay(CSize client);
    void LayWithin(CSize room);
    CRect PageArea() const;
    void ShowBar(bool isVertical);
    void ShowScrolled(HWND page);
    void ScrollTo(HWND page, CPoint at);
    CSize Line() const;

    HWND m_sheet;
    // As the system laid the sheet out.
    CSize m_client;
    CSize m_tabs;
    CSize m_page;
    std::array<CPoint, kButtons.size()> m_buttons;

    CSize m_laid;    // The client area as this view left it.
    CSize m_hidden;  // What of a page's width and height is out of view.
    bool m_isCut = false;
    bool m_isUsed = false;    // It is or has been.
    HWND m_across = nullptr;  // The bars; null until one is needed.
    HWND m_down = nullptr;
    std::unordered_map<HWND, CPoint> m_scrolled;  // How far the controls of a page were moved to the left and up.
    HWND m_followed = nullptr;                    // The focus when it was last brought into view.
};
