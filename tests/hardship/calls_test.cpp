// Hosts that destroy windows while the sheet is opening, running or showing a message box, and calls that come while
// another one is running.
#include <prsht.h>

#include <thread>

#include "core/store/settings.h"
#include "resources/resource.h"
#include "tests/hardship/host.h"
#include "tests/support/failing_allocator.h"

namespace {

void Fill(CMdb& store) {
    store.RemoveAll();
    SetSetting(&store, "NORV_LEVEL", "3");
    SetSetting(&store, "TITLE_A3", "ett");
}

HWND Page() {
    const HWND sheet = FindSheet();
    return sheet != nullptr ? PageOf(sheet) : nullptr;
}

HWND OnSheet(int id) {
    const HWND sheet = FindSheet();
    return sheet != nullptr ? GetDlgItem(sheet, id) : nullptr;
}

// What a hostile host destroys.
struct Victim {
    const char* name;
    HWND (*find)(const Host& host);
};

constexpr Victim kVictims[] = {
    {"host", [](const Host& host) { return host.m_window; }},
    {"sheet", [](const Host&) { return FindSheet(); }},
    {"page", [](const Host&) { return Page(); }},
    {"Cancel", [](const Host&) { return OnSheet(IDCANCEL); }},
    {"OK", [](const Host&) { return OnSheet(IDOK); }},
    {"focus", [](const Host&) { return GetFocus(); }},
    {"field", [](const Host&) { return Page() != nullptr ? GetDlgItem(Page(), IDC_SIGNAL_HEIGHT) : nullptr; }},
};

// The texts are refused, so that the messages come while a box is up too.
void TypeAndAccept(HWND sheet) {
    Type(ControlOf(sheet, IDC_DESCRIPTION_1), "tv\"\xE5");
    ShowPage(sheet, 2);
    Type(ControlOf(sheet, IDC_DESCRIPTION_1), "tv\xE5");
    ShowPage(sheet, 2);
    Type(ControlOf(sheet, IDC_SIGNAL_HEIGHT), "3,2");
    ShowPage(sheet, 3);
    Type(ControlOf(sheet, IDC_SIGNAL_HEIGHT), "3.2");
    Click(GetDlgItem(sheet, IDOK));
}

struct Outcome {
    int result;
    bool hasActed;
};

// The host acts at the message with the number, counted from the call on.
Outcome OpenAndActAt(int number, CMdb& store, const std::function<void(Host&)>& act) {
    Host host;
    int seen = 0;
    bool hasActed = false;
    host.m_witness = [&](HWND, UINT) {
        if (++seen == number) {
            hasActed = true;
            act(host);
        }
    };
    const int result = host.Open(store, &TypeAndAccept);
    host.m_witness = nullptr;
    EXPECT_FALSE(host.m_wasUnwound);
    EXPECT_EQ(FindSheet(), nullptr);
    return {result, hasActed};
}

TEST(HostileHost, MayDestroyAnyWindowAtAnyMessage) {
    for (const Victim& victim : kVictims) {
        for (int number = 1;; ++number) {
            SCOPED_TRACE(std::string(victim.name) + " at message " + std::to_string(number));
            CMdb store;
            Fill(store);
            const StoreImage before = ImageOf(store);
            const Outcome outcome = OpenAndActAt(number, store, [&](const Host& host) {
                if (const HWND window = victim.find(host)) {
                    DestroyWindow(window);
                }
            });
            if (outcome.result == 0) {
                EXPECT_EQ(ImageOf(store), before);
            } else {
                EXPECT_NE(SettingsOf(store).find("TITLE_A3=tv\xE5 *"), std::string::npos) << SettingsOf(store);
            }
            if (!outcome.hasActed) {
                EXPECT_EQ(outcome.result, 1);
                EXPECT_GT(number, 20);
                break;
            }
            ASSERT_FALSE(testing::Test::HasFailure());
        }
    }
}

TEST(OtherCall, IsRefusedWhileTheSheetIsOpen) {
    EXPECT_EQ(Tavrikconfig(nullptr, "", nullptr, 1, 1, 1), 0) << "without a store";
    CMdb inner;
    Fill(inner);
    const StoreImage before = ImageOf(inner);
    for (int number = 1; number <= 40; ++number) {
        CMdb store;
        Fill(store);
        const Outcome outcome = OpenAndActAt(
            number, store, [&](const Host& host) { EXPECT_EQ(Tavrikconfig(host.m_window, "", &inner, 1, 1, 1), 0); });
        EXPECT_EQ(outcome.result, 1);
    }
    Host host;
    CMdb store;
    EXPECT_EQ(host.Open(store,
                        [&inner](HWND sheet) {
                            std::thread([&inner] { EXPECT_EQ(Tavrikconfig(nullptr, "", &inner, 1, 1, 1), 0); }).join();
                            Click(GetDlgItem(sheet, IDOK));
                        }),
              1);
    EXPECT_EQ(ImageOf(inner), before);
}

TEST(ManyCalls, LeaveNothingBehindWithoutAnIdleLoop) {
    Host host;
    CMdb store;
    Fill(store);
    const auto open = [&](int times) {
        for (int i = 0; i < times; ++i) {
            // The sheet ends before its loop is ever idle.
            host.m_witness = [](HWND, UINT message) {
                if (message == WM_ENABLE && FindSheet() != nullptr) {
                    PostMessageA(FindSheet(), WM_COMMAND, IDCANCEL, reinterpret_cast<LPARAM>(OnSheet(IDCANCEL)));
                }
            };
            EXPECT_EQ(host.Open(store, nullptr), 0);
            host.m_witness = nullptr;
        }
    };
    open(10);
    const long blocks = OutstandingBlocks();
    open(1000);
    EXPECT_EQ(OutstandingBlocks(), blocks);
}

}  // namespace
