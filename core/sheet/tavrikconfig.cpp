// The exported function.
#include "include/tavrikconfig.h"

#include <exception>

#include "core/sheet/projdescr.h"

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
    sheet.MergeSettings(&sheet.m_workSettings, hostStore);
    return 1;
}

}  // namespace

int Tavrikconfig(HWND parent, const char* caption, CMdb* hostStore, int designationOption, int optionalPages,
                 int hostMode) {
    AFX_MANAGE_STATE(AfxGetStaticModuleState());
    if (hostStore == nullptr) {
        return 0;
    }
    try {
        return RunSheet(parent, caption, hostStore, designationOption, optionalPages, hostMode);
    } catch (const std::exception&) {
        // Nothing may unwind into the host. The merge itself throws nothing, so its store is untouched.
        return 0;
    }
}
