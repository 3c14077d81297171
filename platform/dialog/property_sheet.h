// A running property sheet: the dialog with the tabs and the buttons, and the pages inside it.
#pragma once

#include "platform/dialog/property_sheet_page.h"

#include <prsht.h>

#include <functional>
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
    // Creates the window and shows the first page. Null when that fails. A modeless sheet that was created belongs to
    // its window from then on.
    HWND create();
    // Runs the messages of the thread until the sheet has ended. Returns 1 for OK, 0 for Cancel.
    INT_PTR runModal();

private:
    struct Slot {
        HPROPSHEETPAGE page = nullptr;
        std::string caption;
        HWND window = nullptr;
        bool changed = false;
    };
    // How a page is searched by a message: the handle counts when there is one.
    struct PageRef {
        HPROPSHEETPAGE page = nullptr;
        int index = -1;
    };

    static INT_PTR CALLBACK dialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR handle(UINT message, WPARAM wParam, LPARAM lParam);
    bool handleSheetMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    bool handleIndexMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) const;

    // Window and layout.
    DialogTemplate sheetTemplate() const;
    void onWmInitDialog(HWND window);
    void onWmDestroy();
    INT_PTR onWmCommand(WPARAM wParam, LPARAM lParam);
    INT_PTR onWmNotify(const NMHDR& header);
    void setTitle(const std::string& title, DWORD flags);
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
    void onPsmRemovePage(const PageRef& ref);
    int resolve(const PageRef& ref) const;
    int indexOf(const std::function<bool(const Slot&)>& matches) const;
    int indexOfTemplate(LRESULT resourceId) const;
    int startIndex() const;

    // Changing the page.
    bool select(int index, int direction);
    int settle(int index, int direction);
    void show(int index);
    bool mayLeave();
    LRESULT onPsmSetCurSel(const PageRef& ref);
    bool onPsmIsDialogMessage(MSG& message);
    bool takeMessage(MSG& message);
    void stepByKey(int step);

    // Applying and ending.
    LRESULT notify(HWND page, UINT code, LPARAM lParam) const;
    HWND activePage() const;
    bool apply(bool closing);
    bool cancel(bool byCloseBox);
    void finish(INT_PTR result);
    void press(int button);
    void onOk();
    void onApplyNow();
    void onPsmChanged(HWND page, bool changed);
    void onPsmCancelToClose();

    DWORD flags_;
    HWND owner_;  // Top-level; null for none.
    HINSTANCE instance_;
    std::string caption_;
    PFNPROPSHEETCALLBACK callback_;
    std::string startPage_;  // The caption of the first page to be shown, with PSH_USEPSTARTPAGE.
    UINT startIndex_ = 0;
    std::vector<Slot> slots_;
    SIZE largestPage_{};  // Of those that the sheet is opened with, in pixels.
    HWND window_ = nullptr;
    int active_ = -1;         // Index of the page that is shown; -1 for none.
    bool pageValid_ = false;  // False once the sheet has ended: PSM_GETCURRENTPAGEHWND tells an owner so.
    bool ended_ = false;
    bool creating_ = false;
    INT_PTR result_ = 0;
};

}  // namespace platform
