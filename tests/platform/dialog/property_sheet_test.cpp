// Property sheets where the traces that are compared with Windows do not reach: pages that do what no page should.
#include "tests/support/template_builder.h"

#include <windows.h>

#include <prsht.h>

#include <gtest/gtest.h>

#include <array>

namespace {

// What the pages do at the next notification of this code.
UINT armedCode = 0;
HWND sheet = nullptr;

INT_PTR CALLBACK pageProc(HWND, UINT message, WPARAM, LPARAM lParam) {
    if (message == WM_NOTIFY && armedCode != 0 && reinterpret_cast<const NMHDR*>(lParam)->code == armedCode) {
        armedCode = 0;
        DestroyWindow(sheet);
    }
    return FALSE;
}

TemplateBuilder pageLayout(const char* caption) {
    TemplateBuilder layout(TemplateBuilder::Form::Extended, WS_CHILD | WS_CAPTION, 275, 215, caption);
    layout.add(0x80, 101, "&Knapp", WS_TABSTOP);
    return layout;
}

class PropertySheetTest : public testing::Test {
protected:
    void open() {
        std::array<HPROPSHEETPAGE, 2> pages{};
        for (std::size_t i = 0; i < pages.size(); ++i) {
            pages[i] = makePage(layouts_[i]);
        }
        PROPSHEETHEADERA header{};
        header.dwSize = sizeof header;
        header.dwFlags = PSH_MODELESS | PSH_NOAPPLYNOW;
        header.nPages = static_cast<UINT>(pages.size());
        header.phpage = pages.data();
        sheet = reinterpret_cast<HWND>(PropertySheetA(&header));
    }
    void TearDown() override {
        armedCode = 0;
        if (IsWindow(sheet)) {
            DestroyWindow(sheet);
        }
    }
    static HPROPSHEETPAGE makePage(const TemplateBuilder& layout) {
        PROPSHEETPAGEA info{};
        info.dwSize = sizeof info;
        info.dwFlags = PSP_DLGINDIRECT;
        info.pResource = layout.get();
        info.pfnDlgProc = pageProc;
        return CreatePropertySheetPageA(&info);
    }

    std::array<TemplateBuilder, 2> layouts_ = {pageLayout("Ett"), pageLayout("Tv\xE5")};
};

TEST_F(PropertySheetTest, SurvivesPagesThatDestroyIt) {
    const std::array codes = {PSN_KILLACTIVE, PSN_APPLY, PSN_QUERYCANCEL, PSN_RESET};
    for (const UINT code : codes) {
        open();
        armedCode = code;
        const bool applies = code == PSN_KILLACTIVE || code == PSN_APPLY;
        SendMessageA(sheet, PSM_PRESSBUTTON, applies ? PSBTN_OK : PSBTN_CANCEL, 0);
        EXPECT_FALSE(IsWindow(sheet)) << code;
    }
    open();
    armedCode = PSN_SETACTIVE;
    SendMessageA(sheet, PSM_SETCURSEL, 1, 0);
    EXPECT_FALSE(IsWindow(sheet));
}

}  // namespace
