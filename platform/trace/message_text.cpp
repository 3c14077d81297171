// The arguments of messages as text.
#include "platform/trace/message_text.h"

#include <array>
#include <cstdio>

namespace {

std::string numbers(const char* format, long long first, long long second = 0) {
    std::array<char, 80> text{};
    std::snprintf(text.data(), text.size(), format, first, second);
    return text.data();
}

// Flags that the system adds for itself are left out.
std::string placing(UINT flags) {
    struct FlagName {
        UINT flag;
        const char* name;
    };
    constexpr FlagName kNames[] = {{SWP_NOSIZE, " nosize"},         {SWP_NOMOVE, " nomove"},
                                   {SWP_NOZORDER, " nozorder"},     {SWP_NOREDRAW, " noredraw"},
                                   {SWP_NOACTIVATE, " noactivate"}, {SWP_FRAMECHANGED, " framechanged"},
                                   {SWP_SHOWWINDOW, " show"},       {SWP_HIDEWINDOW, " hide"}};
    std::string text;
    for (const FlagName& entry : kNames) {
        text += (flags & entry.flag) != 0 ? entry.name : "";
    }
    return text;
}

// Whether a top-level window that is shown or hidden is the foremost one already depends on the windows of other
// programs, and those of the system's own services come at any time: the flag says nothing then.
UINT steadyFlags(const WINDOWPOS& place) {
    const bool isTopLevel = (GetWindowLongPtrA(place.hwnd, GWL_STYLE) & WS_CHILD) == 0;
    const bool isShownOrHidden = (place.flags & (SWP_SHOWWINDOW | SWP_HIDEWINDOW)) != 0;
    return isTopLevel && isShownOrHidden ? place.flags & ~UINT{SWP_NOZORDER} : place.flags;
}

}  // namespace

std::string describeWindow(HWND window) {
    if (window == nullptr) {
        return "none";
    }
    std::array<char, 64> name{};
    GetClassNameA(window, name.data(), static_cast<int>(name.size()));
    return name.data() + numbers(" %lld", GetDlgCtrlID(window) & 0xFFFF);
}

std::string messageArguments(Shows shows, WPARAM wParam, LPARAM lParam, const NameOfWindow& nameOf) {
    const auto first = static_cast<long long>(wParam);
    switch (shows) {
        case Shows::WParam:
            return numbers(" %lld", first);
        case Shows::LowWord:
            return numbers(" %lld", LOWORD(wParam));
        case Shows::HighWord:
            return numbers(" %lld", static_cast<short>(HIWORD(wParam)));
        case Shows::Both:
            return numbers(" %lld %lld", first, static_cast<long long>(lParam));
        case Shows::Point:
            return numbers(" %lld,%lld", static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam)));
        case Shows::OtherWindow:
            return " " + nameOf(reinterpret_cast<HWND>(wParam));
        case Shows::NewCapture:
            return " " + nameOf(reinterpret_cast<HWND>(lParam));
        case Shows::Activation:
            return numbers(" %lld ", LOWORD(wParam)) + nameOf(reinterpret_cast<HWND>(lParam));
        case Shows::Command:
            return numbers(" id %lld ", LOWORD(wParam)) + commandName(reinterpret_cast<HWND>(lParam), HIWORD(wParam));
        case Shows::Notification: {
            const auto* header = reinterpret_cast<const NMHDR*>(lParam);
            return std::string(" ") + notificationName(header->code) + " from " + nameOf(header->hwndFrom);
        }
        case Shows::Placing:
            return placing(steadyFlags(*reinterpret_cast<const WINDOWPOS*>(lParam)));
        case Shows::Styles: {
            const auto* styles = reinterpret_cast<const STYLESTRUCT*>(lParam);
            return numbers(" %llx -> %llx", styles->styleOld, styles->styleNew);
        }
        case Shows::Nothing:
            break;
    }
    return {};
}
