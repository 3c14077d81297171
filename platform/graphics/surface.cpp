#include "platform/graphics/surface.h"

#include <algorithm>

namespace platform {

namespace {

std::size_t pixelCount(int width, int height) {
    return static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
}

}  // namespace

Surface::Surface(int width, int height)
    : width_(std::max(width, 0)), height_(std::max(height, 0)), pixels_(pixelCount(width_, height_)) {}

Surface::~Surface() {
    for (Surface** user : users_) {
        *user = nullptr;
    }
}

void Surface::resize(int width, int height) {
    width = std::max(width, 0);
    height = std::max(height, 0);
    if (width == width_ && height == height_) {
        return;
    }
    std::vector<std::uint32_t> pixels(pixelCount(width, height));
    const int commonWidth = std::min(width, width_);
    for (int y = 0; y < std::min(height, height_); ++y) {
        std::copy_n(row(y), commonWidth, pixels.data() + pixelCount(width, y));
    }
    pixels_ = std::move(pixels);
    width_ = width;
    height_ = height;
    damage_.right = std::min(damage_.right, width);
    damage_.bottom = std::min(damage_.bottom, height);
}

void Surface::addDamage(const RECT& rect) {
    if (rect.left >= rect.right || rect.top >= rect.bottom) {
        return;
    }
    if (!hasDamage()) {
        damage_ = rect;
        return;
    }
    damage_ = {std::min(damage_.left, rect.left), std::min(damage_.top, rect.top), std::max(damage_.right, rect.right),
               std::max(damage_.bottom, rect.bottom)};
}

RECT Surface::takeDamage() {
    const RECT damage = damage_;
    damage_ = {};
    return damage;
}

void Surface::attach(Surface*& user) {
    users_.push_back(&user);
    user = this;
}

void Surface::detach(Surface*& user) {
    user = nullptr;
    // Contexts are closed in the reverse order of their opening as a rule.
    const auto found = std::find(users_.rbegin(), users_.rend(), &user);
    if (found != users_.rend()) {
        users_.erase(std::next(found).base());
    }
}

}  // namespace platform
