// Memory that runs out at any point of a call: the call ends in good order with 0 and an untouched store, or, where
// what was refused is no part of what the user entered, with everything that the user did. The next call knows nothing
// of it.
#include <commctrl.h>

#include "core/store/settings.h"
#include "resources/resource.h"
#include "tests/hardship/host.h"
#include "tests/hardship/sweep.h"
#include "tests/support/failing_allocator.h"

namespace {

void Fill(CMdb& store) {
    store.RemoveAll();
    for (const auto& [key, value] : {std::pair{"NORV_LEVEL", "3"},
                                     {"CROSS_DIST", "2"},
                                     {"TITLE_A3", "ett"},
                                     {"TERMINAL_HEIGHT", "5"},
                                     {"TERMINAL_WIDTH", "5"},
                                     {"CCT_DIR", "iec617"},
                                     {"XREF_FORMAT", "P.C"},
                                     {"WHYDELTA", "9.9"}}) {
        SetSetting(&store, key, value);
    }
}

// One visit to every page with a change of each kind, and some of them refused at first.
void VisitAllPages(HWND sheet) {
    Type(ControlOf(sheet, IDC_DESCRIPTION_1), "en beskrivning som tar sitt minne");
    ShowPage(sheet, 1);
    Type(ControlOf(sheet, IDC_CROSS_DISTANCE), "125");
    Click(ControlOf(sheet, IDC_COUNT_UP_DESIGNATIONS));
    Click(ControlOf(sheet, IDC_CORE_SLASH));
    PickNext(ControlOf(sheet, IDC_SYMBOL_STANDARD));
    ShowPage(sheet, 2);
    Type(ControlOf(sheet, IDC_SIGNAL_HEIGHT), "3,25");
    ShowPage(sheet, 3);  // Refused.
    Type(ControlOf(sheet, IDC_SIGNAL_HEIGHT), "3.25");
    PickNext(ControlOf(sheet, IDC_ATTRIBUTE_COLOUR));
    ShowPage(sheet, 3);
    Type(ControlOf(sheet, IDC_TERMINAL_BOX_HEIGHT), "7");
    Click(ControlOf(sheet, IDC_BALLOON_VERTICAL));
    ShowPage(sheet, 4);
    Type(ControlOf(sheet, IDC_HEAD_A4), "huvud");
    Click(ControlOf(sheet, IDC_DATE_ON));
    Click(ControlOf(sheet, IDC_DATE_CHANGE));
    ShowPage(sheet, 5);
    Type(ControlOf(sheet, IDC_CONTINUED_TAG), "forts");
    PickNext(ControlOf(sheet, IDC_FORMAT_3));
    ShowPage(sheet, 6);
    Type(ControlOf(sheet, IDC_ROW_DISTANCE), "4.5");
    if (const HWND list = ControlOf(sheet, IDC_COMMENT_LIST)) {
        SetFocus(list);
        Type(reinterpret_cast<HWND>(SendMessageA(list, LVM_EDITLABELA, 3, 0)), "kommentar");
        SetFocus(ControlOf(sheet, IDC_NUMBER_OFFSET));
    }
    Click(GetDlgItem(sheet, IDOK));
}

void PlaceDate(HWND dialog) {
    Type(GetDlgItem(dialog, IDC_TEXT_X), "123");
    Type(GetDlgItem(dialog, IDC_TEXT_HEIGHT), "2.5");
    Click(GetDlgItem(dialog, IDOK));
}

BOOL CALLBACK CountWindow(HWND, LPARAM count) {
    ++*reinterpret_cast<int*>(count);
    return TRUE;
}

class Memory : public testing::Test {
protected:
    Memory() {
        m_host.m_dialogUser = &PlaceDate;
        // What is allocated once for the process, and what caches keep.
        for (int i = 0; i < 4; ++i) {
            m_expected = Round();
        }
        EXPECT_NE(m_expected.find("CROSS_DIST=125 *"), std::string::npos) << m_expected;
        EXPECT_NE(m_expected.find("AUTO_DATE=123,"), std::string::npos) << m_expected;
        EXPECT_NE(m_expected.find("WHCOLC4=komment"), std::string::npos) << m_expected;
    }

    // A whole round without any failure; the store's content afterwards.
    std::string Round() {
        Fill(m_store);
        EXPECT_EQ(m_host.Open(m_store, &VisitAllPages), 1);
        return SettingsOf(m_store);
    }

    // Whether memory was refused: else the round was over before that point.
    bool RoundWithFailure(long point, Failing failing) {
        Fill(m_store);
        const StoreImage before = ImageOf(m_store);
        int result = 0;
        bool hasFailed = false;
        {
            const FailingAllocator failingAllocator(point, failing);
            result = m_host.Open(m_store, &VisitAllPages);
            hasFailed = FailingAllocator::HasFailed();
        }
        if (result == 0) {
            EXPECT_EQ(ImageOf(m_store), before);
        } else {
            EXPECT_EQ(SettingsOf(m_store), m_expected);
        }
        EXPECT_FALSE(m_host.m_wasUnwound);
        int windows = 0;
        EnumThreadWindows(GetCurrentThreadId(), &CountWindow, reinterpret_cast<LPARAM>(&windows));
        EXPECT_EQ(windows, 1);
        EXPECT_TRUE(IsWindowEnabled(m_host.m_window));
        EXPECT_EQ(GetCapture(), nullptr);
        return hasFailed;
    }

    void Sweep(Failing failing, long step) {
        long points = 0;
        for (long point = 0;; point += step) {
            SCOPED_TRACE("allocation " + std::to_string(point));
            m_store.RemoveAll();
            const long blocks = OutstandingBlocks();
            if (!RoundWithFailure(point, failing)) {
                break;
            }
            ++points;
            EXPECT_EQ(Round(), m_expected);
            m_store.RemoveAll();
            if (OutstandingBlocks() != blocks) {
                // What a cache has kept of it, it keeps once.
                RoundWithFailure(point, failing);
                Round();
                m_store.RemoveAll();
                const long again = OutstandingBlocks();
                RoundWithFailure(point, failing);
                Round();
                m_store.RemoveAll();
                EXPECT_EQ(OutstandingBlocks(), again);
            }
            if (HasFailure()) {
                FAIL() << "after " << points << " points";
            }
        }
        RecordProperty("points", static_cast<int>(points));
        EXPECT_GT(points, 20);
    }

    Host m_host;
    CMdb m_store;
    std::string m_expected;
};

TEST_F(Memory, RefusedOnceEndsTheCallInGoodOrder) {
    Sweep(Failing::Once, g_everyPoint ? 1 : 37);
}

TEST_F(Memory, RefusedFromThenOnEndsTheCallInGoodOrder) {
    Sweep(Failing::FromThenOn, g_everyPoint ? 1 : 211);
}

}  // namespace
