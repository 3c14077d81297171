// The type of object that a control's window class asks for.

#include "framework/common_controls.h"
#include "framework/controls.h"
#include "framework/message_routing.h"

namespace {

template <typename Control>
std::unique_ptr<CWnd> Make() {
    return std::make_unique<Control>();
}

struct ControlClass {
    LPCSTR windowClass;
    std::unique_ptr<CWnd> (*make)();
};

constexpr ControlClass kControlClasses[] = {
    {"Edit", &Make<CEdit>},           {"Button", &Make<CButton>},        {"ComboBox", &Make<CComboBox>},
    {"Static", &Make<CStatic>},       {"ListBox", &Make<CListBox>},      {"ComboLBox", &Make<CListBox>},
    {"ScrollBar", &Make<CScrollBar>}, {WC_TABCONTROLA, &Make<CTabCtrl>}, {TRACKBAR_CLASSA, &Make<CSliderCtrl>},
    {WC_LISTVIEWA, &Make<CListCtrl>},
};

}  // namespace

std::unique_ptr<CWnd> AfxMakeTemporary(HWND window) {
    char buffer[32] = "";
    GetClassNameA(window, buffer, sizeof buffer);
    const CString name(buffer);
    for (const ControlClass& control : kControlClasses) {
        if (name.CompareNoCase(control.windowClass) == 0) {
            return control.make();
        }
    }
    return std::make_unique<CWnd>();
}
