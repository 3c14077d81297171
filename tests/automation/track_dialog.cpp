// The commands on track bars, played on a dialog that has some of each kind. Each scenario has to say just what is
// expected of it.
#include "automation/player.h"
#include "framework/framework.h"
#include "tests/support/template_builder.h"

#ifndef _WIN32
#include <tavrikdisplay.h>  // Windows has one display; natively the dialog is made in memory.
#endif

#include <iostream>
#include <sstream>
#include <stdexcept>
#include <string>

namespace {

enum Id { kLying = 10, kStanding, kCoarse, kOff, kField, kReported };
constexpr DWORD kPlainBar = TBS_BOTH | TBS_NOTICKS | WS_TABSTOP;
constexpr int kMostCoarse = 70000;

// Writes into a field which bar was moved last, where it is, and whether that was the end of a drag. Leaving the other
// field moves the standing bar.
class TrackDialog : public CDialog {
    DECLARE_MESSAGE_MAP()

protected:
    BOOL OnInitDialog() override {
        Bar(kCoarse)->SetRange(-10, kMostCoarse, TRUE);
        Bar(kStanding)->SetPos(25);
        return CDialog::OnInitDialog();
    }
    afx_msg void OnHScroll(UINT code, UINT position, CScrollBar* bar) {
        Report(reinterpret_cast<CWnd*>(bar)->GetDlgCtrlID(), " at ");
        CDialog::OnHScroll(code, position, bar);
    }
    afx_msg void OnVScroll(UINT code, UINT position, CScrollBar* bar) {
        Report(reinterpret_cast<CWnd*>(bar)->GetDlgCtrlID(), " at ");
        CDialog::OnVScroll(code, position, bar);
    }
    void OnReleased(UINT id, NMHDR*, LRESULT* result) {
        Report(static_cast<int>(id), " released at ");
        *result = 0;
    }
    void OnLeave() { Bar(kStanding)->SetPos(90); }

private:
    CSliderCtrl* Bar(int id) const {
        CSliderCtrl* const bar = DYNAMIC_DOWNCAST(CSliderCtrl, GetDlgItem(id));
        return bar != nullptr ? bar : throw std::logic_error("a track bar of another class");
    }
    void Report(int id, const char* what) {
        SetDlgItemText(kReported, (std::to_string(id) + what + std::to_string(Bar(id)->GetPos())).c_str());
    }
};
BEGIN_MESSAGE_MAP(TrackDialog, CDialog)
ON_WM_HSCROLL()
ON_WM_VSCROLL()
ON_NOTIFY_RANGE(NM_RELEASEDCAPTURE, kLying, kOff, &TrackDialog::OnReleased)
ON_EN_KILLFOCUS(kField, &TrackDialog::OnLeave)
END_MESSAGE_MAP()

std::optional<int> OpenDialog(const automation::OpenArguments&) {
    TemplateBuilder builder(TemplateBuilder::Form::Extended, WS_POPUP | WS_CAPTION | WS_SYSMENU, 200, 100, "Reglage");
    builder.add(TRACKBAR_CLASSA, kLying, "", kPlainBar, 5, 5, 97, 15)
        .add(TRACKBAR_CLASSA, kStanding, "", kPlainBar | TBS_VERT, 150, 5, 16, 60)
        .add(TRACKBAR_CLASSA, kCoarse, "", kPlainBar, 5, 25, 97, 15)
        .add(TRACKBAR_CLASSA, kOff, "", kPlainBar | WS_DISABLED, 5, 45, 97, 15)
        .add(kEdit, kField, "", WS_TABSTOP, 5, 65)
        .add(kEdit, kReported, "", ES_AUTOHSCROLL, 60, 65, 80)
        .add(kButton, IDOK, "OK", WS_TABSTOP, 5, 82)
        .add(kButton, IDCANCEL, "Avbryt", WS_TABSTOP, 60, 82);
    TrackDialog dialog;
    dialog.CreateIndirect(builder.get(), nullptr);
    const int result = dialog.RunModalLoop(MLF_SHOWONIDLE);
    dialog.DestroyWindow();
    return result;
}

// The scenarios have nothing to do with settings.
class NoStore : public automation::StoreAccess {
public:
    void Append(const std::string&, const std::string&) override {}
    void Clear() override {}
    std::optional<std::string> Find(const std::string&) const override { return {}; }
    std::optional<bool> IsChanged(const std::string&) const override { return {}; }
    int Count() const override { return 0; }
    std::string Snapshot() const override { return {}; }
};

struct Play {
    const char* scenario;
    const char* said;
};

constexpr Play kPlays[] = {
    {R"(open
drag 10 40
expect position 10 40
expect text 15 "10 released at 40"
expect focus 10
press RIGHT
expect text 15 "10 at 41"
drag 10 100
expect position 10 100
drag 10 0
expect position 10 0
drag 10 33
drag 10 33
expect position 10 33
expect position 11 25
drag 11 76
expect text 15 "11 released at 76"
drag 11 0
expect position 11 0
drag 12 -10
expect position 12 -10
# Taking the thumb leaves the field, and that moves it from under the mouse.
focus 14
drag 11 50
expect position 11 50
# Which is between two pixels, so that a key had the last word.
expect text 15 "11 at 50"
ok
result 1
)",
     "14 passed, 0 failed\n"},
    {R"(open
drag 12 123
drag 10 101
drag 10 -1
drag 13 5
drag 14 5
expect position 14 5
expect position 10 1
cancel
result 2
)",
     "tracks:2: expected control 12 to be dragged to 123, got it at 578\n"
     "tracks:3: expected a position from 0 to 100, got 101\n"
     "tracks:4: expected a position from 0 to 100, got -1\n"
     "tracks:5: expected control 13 to be enabled, got it disabled\n"
     "tracks:6: expected control 14 to be a track bar, got class Edit\n"
     "tracks:7: expected control 14 to be a track bar, got class Edit\n"
     "tracks:8: expected position of 10 1, got 0\n"
     "1 passed, 7 failed\n"},
};

}  // namespace

int main() {
#ifndef _WIN32
    TavrikDisplayInit(TAVRIK_DISPLAY_MEMORY);
#endif
    int wrong = 0;
    for (const Play& play : kPlays) {
        const automation::Scenario scenario =
            automation::ParseScenario("tracks", play.scenario, automation::ShapeOfCommand);
        NoStore store;
        std::ostringstream said;
        automation::PlayScenario(scenario, store, OpenDialog, said, {});
        if (said.str() != play.said) {
            std::cout << "Said:\n" << said.str() << "instead of:\n" << play.said;
            ++wrong;
        }
    }
    return wrong == 0 ? 0 : 1;
}
