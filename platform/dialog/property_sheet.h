// A running property sheet: the modeless dialog with the tabs and the buttons, and the pages inside it.
#pragma once

#include "platform/dialog/property_sheet_page.h"

#include <prsht.h>

#include <string>
#include <vector>

namespace platform {

constexpr int kSheetTabId = 0x3020;
constexpr int kSheetApplyId = 0x3021;

class PropertySheet {
public:
    explicit PropertySheet(const PROPSHEETHEADERA& header);
    ~PropertySheet();
    PropertySheet(const PropertySheet&) = delete;
    PropertySheet& operator=(const PropertySheet&) = delete;

    // Takes the pages over; `taken` counts them, also when memory runs out on the way.
    void takePages(const PROPSHEETHEADERA& header, UINT& taken);
    // Creates the window and shows the first page. Null when that fails. A sheet that was created belongs to its window
    // from then on.
    HWND create();

private:
    struct Slot {
        HPROPSHEETPAGE page = nullptr;
        std::string caption;
        HWND window = nullptr;
    };

    static INT_PTR CALLBACK dialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR handle(UINT message, WPARAM wParam, LPARAM lParam);
    bool handleSheetMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);

    // Window and layout.
    DialogTemplate sheetTemplate() const;
    void onWmInitDialog(HWND window);
    void onWmDestroy();
    INT_PTR onWmCommand(WPARAM wParam, LPARAM lParam);
    INT_PTR onWmNotify(const NMHDR& header);
    void fitToPages();
    void centre();
    void placeButtons(int right, int top);
    RECT pageRect() const;
    HWND item(int id) const { return GetDlgItem(window_, id); }
    HWND tabs() const { return item(kSheetTabId); }

    // Pages.
    bool takePage(HPROPSHEETPAGE page);
    void insertTab(int index);
    bool createPage(int index);
    void destroyPage(Slot& slot);
    LRESULT onPsmAddPage(HPROPSHEETPAGE page);
    void onPsmRemovePage(int index);
    bool has(int index) const { return index >= 0 && index < static_cast<int>(slots_.size()); }
    int indexOf(HPROPSHEETPAGE page) const;

    // Changing the page.
    bool select(int index, int direction);
    int settle(int index, int direction);
    void show(int index);
    bool mayLeave();
    LRESULT onPsmSetCurSel(int index);
    bool onPsmIsDialogMessage(MSG& message);
    bool takeMessage(MSG& message);
    void stepByKey(int step);

    // Ending.
    LRESULT notify(HWND page, UINT code, LPARAM lParam) const;
    HWND activePage() const;
    bool apply();
    bool cancel(bool byCloseBox);
    void onOk();

    HWND owner_;  // Top-level; null for none.
    HINSTANCE instance_;
    std::string caption_;
    UINT startIndex_;
    std::vector<Slot> slots_;
    SIZE largestPage_{};  // Of those that the sheet is opened with, in pixels.
    HWND window_ = nullptr;
    int active_ = -1;         // Index of the page that is shown; -1 for none.
    bool pageValid_ = false;  // False once the sheet has ended: PSM_GETCURRENTPAGEHWND tells an owner so.
    bool creating_ = false;
};

}  // namespace platform
