// The file dialog of the page "Blanketter".
#include "pages/project/form_file.h"

INT_PTR PickFormFile(LPCSTR title, LPCSTR folder, CString& name) {
    CFileDialog dialog(TRUE, nullptr, nullptr, OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT | OFN_EXPLORER, "*.dwg|*.dwg||");
    dialog.m_ofn.lpstrTitle = title;
    dialog.m_ofn.lpstrInitialDir = *folder != '\0' ? folder : nullptr;
    const INT_PTR result = dialog.DoModal();
    if (result == IDOK) {
        name = dialog.GetFileName();
        if (const int point = name.Find('.'); point >= 0) {
            name = name.Left(point);
        }
    }
    return result;
}
