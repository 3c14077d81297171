#include "platform/graphics/scale.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <string_view>

namespace platform {

namespace {

int g_wanted = 0;

bool isOffered(int dots) {
    return dots >= kUsualDotsPerInch && dots <= kMostDotsPerInch;
}

// 0 for none, and for a text that is no such number.
int ofEnvironment() {
    const char* value = std::getenv("TAVRIK_DPI");
    const std::string_view text = value != nullptr ? value : "";
    int dots = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), dots);
    return error == std::errc() && end == text.data() + text.size() && isOffered(dots) ? dots : 0;
}

}  // namespace

int g_dotsPerInch = 0;

int fixDotsPerInch() {
    const int ofUser = g_wanted != 0 ? g_wanted : ofEnvironment();
    g_dotsPerInch = ofUser != 0 ? ofUser : std::clamp(displayDotsPerInch(), kUsualDotsPerInch, kMostDotsPerInch);
    return g_dotsPerInch;
}

bool wantDotsPerInch(int wanted) {
    if (g_dotsPerInch != 0 || !isOffered(wanted)) {
        return false;
    }
    g_wanted = wanted;
    return true;
}

void frameByLine(HDC dc, RECT rect, HBRUSH brush) {
    for (int line = 0; line < lineWidth(); ++line) {
        FrameRect(dc, &rect, brush);
        InflateRect(&rect, -1, -1);
    }
}

}  // namespace platform
