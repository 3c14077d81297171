// A relay's coil between its two wires. All edges are straight, so each size is the smallest one magnified.
#include "platform/display/x11_icon.h"

#include <cstddef>
#include <string_view>

namespace platform {
namespace {

constexpr std::size_t kGrid = 16;
constexpr std::string_view kDrawing[kGrid] = {
    ".##############.",  //
    "################",  //
    "#######oo#######",  //
    "#######oo#######",  //
    "#######oo#######",  //
    "##oooooooooooo##",  //
    "##o++++++++++o##",  //
    "##o++++++++++o##",  //
    "##o++++++++++o##",  //
    "##o++++++++++o##",  //
    "##oooooooooooo##",  //
    "#######oo#######",  //
    "#######oo#######",  //
    "#######oo#######",  //
    "################",  //
    ".##############.",
};

long colourOf(char mark) {
    switch (mark) {
        case '#':
            return 0xFF1F4E79;
        case '+':
            return 0xFFF2B632;
        case 'o':
            return 0xFFFFFFFF;
        default:
            return 0;
    }
}

std::vector<long> draw() {
    std::vector<long> icon;
    for (const std::size_t scale : {1, 2, 3}) {
        const std::size_t size = kGrid * scale;
        icon.insert(icon.end(), 2, static_cast<long>(size));
        for (std::size_t y = 0; y < size; ++y) {
            for (std::size_t x = 0; x < size; ++x) {
                icon.push_back(colourOf(kDrawing[y / scale][x / scale]));
            }
        }
    }
    return icon;
}

}  // namespace

const std::vector<long>& windowIcon() {
    static const std::vector<long> icon = draw();
    return icon;
}

}  // namespace platform
