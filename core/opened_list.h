// COpenedList: keeps a combo box showing what a pick from its list has led to. Opening a list completes a text that was
// typed, and moving through it shows each entry in the field: when the pick is cancelled the system may leave that
// standing there, although nobody picked it and nothing recorded it. When it is confirmed by a key while the mouse
// rests on another entry, the list has the entry and the field another text.
#pragma once

#include "framework/framework.h"

class COpenedList {
public:
    // To be called when the list of a combo box opens, when a pick is confirmed or cancelled, and when the list has
    // closed. Systems report picks of closed lists too, and as cancelled what is confirmed already; those do nothing.
    void OnOpened(HWND combo);
    void OnConfirmed(HWND combo);
    void OnCancelled(HWND combo);
    void OnClosed(HWND combo);

private:
    // Only one list is open at a time.
    HWND m_open = nullptr;
    HWND m_confirmed = nullptr;
    int m_nSelection = CB_ERR;
    CString m_strText;
};
