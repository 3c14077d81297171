// The pixels of a top-level window or a bitmap: 32 bits each, 0x00RRGGBB, rows from the top without padding.
#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

namespace platform {

class Surface {
public:
    Surface(int width, int height);
    // Open device contexts may refer to a surface; they are told when it goes and then draw nothing.
    ~Surface();
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;

    int width() const { return width_; }
    int height() const { return height_; }
    RECT bounds() const { return {0, 0, width_, height_}; }
    std::uint32_t* row(int y) {
        return pixels_.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(width_);
    }
    const std::uint32_t* row(int y) const {
        return pixels_.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(width_);
    }

    // Keeps the pixels that both sizes have; new ones are black.
    void resize(int width, int height);

    // The bounding rectangle of what was drawn since the last call of takeDamage. Every drawing operation adds to it.
    void addDamage(const RECT& rect);
    RECT takeDamage();
    bool hasDamage() const { return damage_.left < damage_.right && damage_.top < damage_.bottom; }

    // Makes `user` point here until detach; the surface sets it to null when it is destroyed before.
    void attach(Surface*& user);
    void detach(Surface*& user);

private:
    int width_;
    int height_;
    std::vector<std::uint32_t> pixels_;
    RECT damage_{};
    std::vector<Surface**> users_;
};

}  // namespace platform
