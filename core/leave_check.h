// CLeaveCheck: the check of fields as they are left. A page or a dialog holds one: it knows whether the check was
// forced by leaving the whole window, whether that check failed, and what keeps a field from being checked at all.
#pragma once

#include "framework/framework.h"

// What the check of a field does with the control checked last and with the flag that goes with it: it notes the field
// and a forced one clears the flag; it notes nothing, so that all checks after a forced one clear the flag; it does not
// touch either.
enum class LastEdit { Noted, OnlyTested, LeftAlone };

class CLeaveCheck {
public:
    // The window whose fields are checked; it must outlive this object.
    explicit CLeaveCheck(CWnd& window);

    // A new run of the window begins; whatever the one before ended with is forgotten.
    void Begin();
    // The window is being cancelled: the fields that lose the focus as it goes are not left by the user.
    void Cancel() { m_bCancelled = true; }

    // Non-zero when a field that loses the focus is not to be checked: the user is cancelling, or another check, one
    // forced by leaving the window above all, is still running.
    int IsCancelPending() const;
    // Whether that is for the moment only: the field is to be checked before the window is left.
    bool IsCheckPostponed() const;

    // Whether a field is being checked now, and a message box about it may be up.
    bool IsChecking() const { return m_bChecking; }

    // Forces the check of the field that has the focus and gives it the focus back. FALSE when it failed, or when the
    // window is gone: the window is then not to be left.
    BOOL MayLeave();
    // Makes the field that has the focus commit its text, without a say in what follows. Fields inside a combo box are
    // not reached. FALSE when the window is gone.
    BOOL CommitFocusedField();

    // The field that was checked last. Only null carries a meaning: a check forced by leaving the window is running.
    CWnd* m_pLastEditControl;
    // 0 while a forced check runs and has not passed; the window cannot be left then.
    int m_bFieldCheckOk = 1;

private:
    friend class CFieldCheck;

    CWnd& m_window;
    bool m_bCancelled = false;
    bool m_bChecking = false;
};

// The check of one field, from the moment when it is left to the verdict. While it lives no other field is checked: the
// message box of one field takes the focus from another, and two wrong fields would otherwise send it back and forth
// with a box each time.
class CFieldCheck {
public:
    CFieldCheck(CLeaveCheck& leaveCheck, CWnd* control, LastEdit lastEdit);
    ~CFieldCheck() { m_leaveCheck.m_bChecking = false; }
    CFieldCheck(const CFieldCheck&) = delete;
    CFieldCheck& operator=(const CFieldCheck&) = delete;

    // The control that a failing check gives the focus back: the field; null in a forced check of one that is noted,
    // since leaving the window does that itself.
    CWnd* Refocus() const { return m_refocus; }
    void Pass() { m_leaveCheck.m_bFieldCheckOk = 1; }

private:
    CLeaveCheck& m_leaveCheck;
    CWnd* m_refocus;
};
