// A combo box under test. Besides keys its steps are what the table in combo_stage.cpp names, as "<open>" or "<over
// 2>".
#pragma once

#include "tests/conformance/control_stage.h"

class ComboStage : public ControlStage {
public:
    ComboStage(Trace& trace, DWORD style, SIZE size) : ControlStage(trace, "ComboBox", "", style, size) {
        info_.cbSize = sizeof info_;
        ask(CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(&info_));
    }
    ~ComboStage() override { parent().setHook(nullptr); }

    const COMBOBOXINFO& info() const { return info_; }
    HWND list() const { return info_.hwndList; }
    HWND keyboardTarget() const override { return info_.hwndItem ? info_.hwndItem : control(); }
    void state(const char* after) const override;
    void perform(const char* step) override;

    void mouseOnList(UINT message, WPARAM keys, int entry) const;
    void mouseOnButton(UINT message, WPARAM keys) const;

private:
    COMBOBOXINFO info_{};
};
