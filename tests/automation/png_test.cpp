// Pictures written are read back by the image library of the system.

#include <gtest/gtest.h>
#include <png.h>

#include "automation/png.h"

namespace {

using automation::Picture;

// The pixels as 0x00RRGGBB; empty when the library finds any fault, checksums included.
std::vector<std::uint32_t> Decode(const std::string& file, int width, int height) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_memory(&image, file.data(), file.size()) == 0) {
        return {};
    }
    EXPECT_EQ(static_cast<int>(image.width), width);
    EXPECT_EQ(static_cast<int>(image.height), height);
    image.format = PNG_FORMAT_RGB;
    std::vector<png_byte> bytes(PNG_IMAGE_SIZE(image));
    const bool isGood =
        png_image_finish_read(&image, nullptr, bytes.data(), 0, nullptr) != 0 && image.warning_or_error == 0;
    std::vector<std::uint32_t> pixels;
    for (size_t i = 0; isGood && i < bytes.size(); i += 3) {
        pixels.push_back(static_cast<std::uint32_t>(bytes[i] << 16 | bytes[i + 1] << 8 | bytes[i + 2]));
    }
    return pixels;
}

Picture Make(int width, int height, std::uint32_t (*pixel)(std::uint32_t x, std::uint32_t y)) {
    Picture picture{width, height, {}};
    for (std::uint32_t y = 0; y < static_cast<std::uint32_t>(height); ++y) {
        for (std::uint32_t x = 0; x < static_cast<std::uint32_t>(width); ++x) {
            picture.pixels.push_back(pixel(x, y));
        }
    }
    return picture;
}

TEST(Png, DecodesToThePixelsThatWereEncoded) {
    const Picture pictures[] = {
        Make(1, 1, [](auto, auto) -> std::uint32_t { return 0x123456; }),
        Make(700, 500, [](auto, auto) -> std::uint32_t { return 0xC0C0C0; }),
        // As a window: runs, repeated rows, few colours; all match lengths from 3 to beyond the longest.
        Make(600, 90, [](auto x, auto y) -> std::uint32_t { return x < y * 7 || x % 59 == 0 ? 0xFFFFFF : 0x808080; }),
        // Exactly 256 colours, then one more, then noise with and without a palette.
        Make(16, 16, [](auto x, auto y) -> std::uint32_t { return x * 16 + y; }),
        Make(257, 1, [](auto x, auto) -> std::uint32_t { return x * 255; }),
        Make(97, 83, [](auto x, auto y) -> std::uint32_t { return (x * 2654435761U ^ y * 40503U) & 0xFFFFFF; }),
        Make(97, 83, [](auto x, auto y) -> std::uint32_t { return (x * 2654435761U ^ y * 40503U) >> 26; }),
    };
    for (const Picture& picture : pictures) {
        EXPECT_EQ(Decode(automation::EncodePng(picture), picture.width, picture.height), picture.pixels);
    }
}

}  // namespace
