// COpenedList: what a combo box showed when its list was opened. Moving through an open list shows each entry in the
// field; when the pick is then cancelled the system may leave the last one standing there, although nobody picked it
// and nothing recorded it.
#pragma once

#include "framework/framework.h"

class COpenedList {
public:
    // To be called when the list of a combo box opens, when a pick from it is confirmed, and when it is cancelled. Some
    // systems report as cancelled what was never open, or is confirmed already; nothing is put back then.
    void Remember(HWND combo);
    void Forget() { m_combo = nullptr; }
    void PutBack(HWND combo);

private:
    // Only one list is open at a time.
    HWND m_combo = nullptr;
    int m_nSelection = CB_ERR;
    CString m_strText;
};
