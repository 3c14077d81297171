// CPropertySheet: a modal window with a tab for each of its pages and the buttons OK and Cancel.
// Deliberately missing: wizards and modeless sheets.
#pragma once

#include <optional>
#include <vector>

#include "framework/common_controls.h"
#include "framework/property_page.h"
#include "framework/sheet_view.h"

class CPropertySheet : public CWnd {
    DECLARE_DYNAMIC(CPropertySheet)
    DECLARE_MESSAGE_MAP()

public:
    // The parent may be null or any window of the host; its top-level window becomes the owner. The index of the page
    // shown first counts from 0.
    explicit CPropertySheet(UINT captionId, CWnd* parent = nullptr, UINT firstPage = 0);
    explicit CPropertySheet(LPCSTR caption, CWnd* parent = nullptr, UINT firstPage = 0);
    ~CPropertySheet() override;

    // The header given to the system. A derived class may add flags before DoModal; the rest is the sheet's.
    PROPSHEETHEADERA m_psh;

    // Adds a page behind the others; a running sheet gets its tab at once. The caller keeps the page.
    void AddPage(CPropertyPage* page);
    // Removes a page, and from a running sheet its tab and window.
    void RemovePage(CPropertyPage* page);
    void RemovePage(int index);
    int GetPageCount() const { return static_cast<int>(m_pages.size()); }
    // Null for an index outside the sheet.
    CPropertyPage* GetPage(int index) const;
    // -1 for a page that is not in the sheet.
    int GetPageIndex(const CPropertyPage* page) const;
    CPropertyPage* GetActivePage() const;
    int GetActiveIndex() const;
    // FALSE when there is no such page or the current one refuses to be left.
    BOOL SetActivePage(int index);
    BOOL SetActivePage(CPropertyPage* page);
    CTabCtrl* GetTabControl() const;
    // Presses a button as a click does; one of the PSBTN_ numbers.
    BOOL PressButton(int button);

    // Runs the sheet with its owner disabled and returns the id of the button that ended it: IDOK, or IDCANCEL for
    // Cancel and the close box. -1 when it could not be created or the host destroyed it.
    virtual INT_PTR DoModal();
    // Ends the running sheet without asking any page.
    void EndDialog(int result);

    virtual BOOL OnInitDialog();
    BOOL PreTranslateMessage(MSG* message) override;
    BOOL ContinueModal() override;

protected:
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    afx_msg void OnClose();
    afx_msg void OnDestroy();
    afx_msg void OnSysCommand(UINT id, LPARAM lParam);
    LRESULT HandleInitDialog(WPARAM wParam, LPARAM lParam);
    LRESULT OnPressButton(WPARAM button, LPARAM lParam);
    LRESULT HandleDisplayChange(WPARAM wParam, LPARAM lParam);
    LRESULT HandleMove(WPARAM wParam, LPARAM lParam);
    LRESULT HandleEnterSizeMove(WPARAM wParam, LPARAM lParam);
    LRESULT HandleExitSizeMove(WPARAM wParam, LPARAM lParam);
    LRESULT HandleHScroll(WPARAM wParam, LPARAM bar);
    LRESULT HandleVScroll(WPARAM wParam, LPARAM bar);
    void OnMessageDone() override;

    CWnd* m_pParentWnd;

private:
    CPropertySheet(CWnd* parent, UINT firstPage);
    BOOL TakeDialogMessage(MSG* message);
    void TakeFocusFromHiddenPage();
    HWND CreateSheet(HWND owner);
    void FitMonitor();

    std::optional<AfxSheetView> m_view;  // Of a window that has been initialised.
    HMONITOR m_monitor = nullptr;        // What the window was fitted to.
    bool m_isDragged = false;
    std::vector<CPropertyPage*> m_pages;
    CString m_strCaption;
};
