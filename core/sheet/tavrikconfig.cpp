// The exported function.
#include "include/tavrikconfig.h"

#include <atomic>
#include <new>

#include "core/sheet/projdescr.h"
#include "framework/prompts.h"

namespace {

int RunSheet(HWND parent, const char* caption, CMdb* hostStore, int designationOption, int optionalPages,
             int hostMode) {
    projdescr sheet(caption, CWnd::FromHandle(parent), 0);
    sheet.m_pHostSettings = hostStore;
    sheet.m_bEditable = 1;
    sheet.m_nDesignationOption = designationOption;
    sheet.m_bOptionalPages = optionalPages;
    sheet.m_nHostMode = hostMode;
    if (sheet.DoModal() != IDOK) {
        return 0;
    }
    if (!sheet.CommitSettings()) {
        throw std::bad_alloc();
    }
    return 1;
}

// One call at a time: what pages keep in process-wide variables, and the framework's own state, belong to one sheet. A
// call that comes on another thread, or from a host's window procedure while the sheet is open, is refused.
class RunningCall {
public:
    RunningCall() : m_isOnly(!s_isRunning.test_and_set()) {}
    ~RunningCall() {
        if (m_isOnly) {
            s_isRunning.clear();
        }
    }
    RunningCall(const RunningCall&) = delete;
    RunningCall& operator=(const RunningCall&) = delete;

    bool IsOnly() const { return m_isOnly; }

private:
    inline static std::atomic_flag s_isRunning;

    const bool m_isOnly;
};

// What the call leaves behind of the host's windows goes with it, whether the host's loop is ever idle or not.
class TemporaryObjects {
public:
    TemporaryObjects() = default;
    ~TemporaryObjects() { CWnd::DeleteTempMap(); }
    TemporaryObjects(const TemporaryObjects&) = delete;
    TemporaryObjects& operator=(const TemporaryObjects&) = delete;
};

}  // namespace

int Tavrikconfig(HWND parent, const char* caption, CMdb* hostStore, int designationOption, int optionalPages,
                 int hostMode) {
    const RunningCall call;
    if (!call.IsOnly() || hostStore == nullptr) {
        return 0;
    }
    AFX_MANAGE_STATE(AfxGetStaticModuleState());
    const TemporaryObjects temporaryObjects;
    // Nothing may unwind into the host. The last merge comes after everything that can throw, so its store is
    // untouched.
    try {
        return RunSheet(parent, caption, hostStore, designationOption, optionalPages, hostMode);
    } catch (const std::bad_alloc&) {
        AfxMessageBox(kPromptOutOfMemory, MB_ICONSTOP);
    } catch (...) {
        // Nobody but the host is left to be told, and it is, by the result.
    }
    return 0;
}
