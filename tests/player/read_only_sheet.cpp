// The one place of the player that knows the sheet itself.

#include "tests/player/read_only_sheet.h"

#include "core/sheet/projdescr.h"

int RunReadOnlySheet(const automation::OpenArguments& arguments, CMdb& store) {
    AFX_MANAGE_STATE(AfxGetStaticModuleState());
    projdescr sheet(arguments.caption.c_str(), nullptr, 0);
    sheet.m_pHostSettings = &store;
    sheet.m_bEditable = 0;
    sheet.m_nDesignationOption = arguments.designation;
    sheet.m_bOptionalPages = arguments.optionalPages;
    sheet.m_nHostMode = arguments.hostMode;
    if (sheet.DoModal() != IDOK) {
        return 0;
    }
    sheet.MergeSettings(&sheet.m_workSettings, &store);
    return 1;
}
