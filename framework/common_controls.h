// The common controls as objects: the tab control of a sheet.
// Deliberately missing: messages that nobody above the framework sends.
#pragma once

#include "framework/window.h"

class CTabCtrl : public CWnd {
    DECLARE_DYNAMIC(CTabCtrl)

public:
    int GetItemCount() const;
    int GetCurSel() const;
    int SetCurSel(int index);
    BOOL GetItem(int index, TCITEMA* item) const;
};
