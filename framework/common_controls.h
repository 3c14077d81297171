// The common controls as objects: the tab control of a sheet, the track bar.
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

// Of 0 to 100 until it is given another range.
class CSliderCtrl : public CWnd {
    DECLARE_DYNAMIC(CSliderCtrl)

public:
    int GetPos() const;
    // The nearest position in the range; the bar is drawn anew and tells nobody.
    void SetPos(int position);
    void SetRange(int minimum, int maximum, BOOL redraw = FALSE);
};

// Makes the window classes of those common controls known that a dialog template may name.
void AfxInitCommonControls();
