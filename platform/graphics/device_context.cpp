#include "platform/graphics/device_context.h"

#include "platform/graphics/stock_objects.h"
#include "platform/graphics/window_dc.h"

#include <new>
#include <utility>

namespace platform {

namespace {

// Closed contexts, kept with the memory of their regions for the next opening.
std::vector<DeviceContext*>& pool() {
    static auto* contexts = new std::vector<DeviceContext*>;
    return *contexts;
}

DeviceContext* takeContext() {
    static std::size_t made = 0;
    if (pool().empty()) {
        // Giving a context back takes no memory.
        pool().reserve(made + 1);
        auto* context = new DeviceContext;
        ++made;
        return context;
    }
    DeviceContext* context = pool().back();
    pool().pop_back();
    return context;
}

void giveBack(DeviceContext* context) {
    removeHandle(*context);
    context->close();
    pool().push_back(context);
}

// Takes a context, opens it and gives it a handle; null when all handles are in use.
template <class Open>
HDC openContext(Open open) {
    DeviceContext* context = takeContext();
    try {
        open(*context);
        if (addHandle(*context) == nullptr) {
            giveBack(context);
            return nullptr;
        }
    } catch (...) {
        giveBack(context);
        throw;
    }
    return static_cast<HDC>(context->handle);
}

}  // namespace

void DeviceContext::openOnWindow(HWND window, Surface* surface, POINT origin, const Region& visible) {
    window_ = window;
    origin_ = origin;
    visible_ = visible;
    if (surface != nullptr) {
        surface->attach(surface_);
    }
    selectDefaults();
}

void DeviceContext::openInMemory() {
    window_ = nullptr;
    origin_ = {};
    selectDefaults();
    state_.bitmap = &defaultBitmap();
    retain(*state_.bitmap);
    useSurface(&state_.bitmap->surface);
}

void DeviceContext::close() {
    for (const ContextState& state : saved_) {
        releaseAll(state);
    }
    saved_.clear();
    useSurface(nullptr);
    releaseAll(state_);
    Region clip = std::move(state_.clip);
    state_ = {};
    state_.clip = std::move(clip);
    state_.clip.clear();
    visible_.clear();
}

void DeviceContext::selectDefaults() {
    select(defaultPen());
    select(defaultBrush());
    select(defaultFont());
}

void DeviceContext::useSurface(Surface* surface) {
    if (surface_ != nullptr) {
        surface_->detach(surface_);
    }
    if (surface == nullptr) {
        return;
    }
    visible_.clear();
    try {
        surface->attach(surface_);
        visible_ = Region(surface->bounds());
    } catch (const std::bad_alloc&) {
        // Nothing is drawn then.
    }
    updateClip();
}

bool DeviceContext::select(Bitmap& bitmap) {
    const bool heldElsewhere = !bitmap.permanent && bitmap.uses > 0 && bitmap.selectedInto != this;
    if (!inMemory() || heldElsewhere) {
        return false;
    }
    bitmap.selectedInto = this;
    useSurface(&bitmap.surface);
    exchange(state_.bitmap, bitmap);
    return true;
}

void DeviceContext::intersectClip(const RECT& rect) {
    // Where memory runs out here or below, nothing is drawn.
    try {
        if (state_.clipped) {
            state_.clip.intersect(rect);
        } else {
            state_.clip = Region(rect);
        }
    } catch (const std::bad_alloc&) {
        state_.clip.clear();
    }
    state_.clipped = true;
    updateClip();
}

void DeviceContext::excludeClip(const RECT& rect) {
    try {
        if (!state_.clipped) {
            state_.clip = visible_;
        }
        state_.clip.subtract(rect);
    } catch (const std::bad_alloc&) {
        state_.clip.clear();
    }
    state_.clipped = true;
    updateClip();
}

void DeviceContext::updateClip() {
    if (!state_.clipped) {
        return;
    }
    try {
        effectiveClip_ = visible_;
        effectiveClip_.intersect(state_.clip);
    } catch (const std::bad_alloc&) {
        effectiveClip_.clear();
    }
}

void DeviceContext::retainAll(const ContextState& state) {
    for (GdiObject* object : {static_cast<GdiObject*>(state.pen), static_cast<GdiObject*>(state.brush),
                              static_cast<GdiObject*>(state.font), static_cast<GdiObject*>(state.bitmap)}) {
        if (object != nullptr) {
            retain(*object);
        }
    }
}

void DeviceContext::releaseAll(const ContextState& state) {
    for (GdiObject* object : {static_cast<GdiObject*>(state.pen), static_cast<GdiObject*>(state.brush),
                              static_cast<GdiObject*>(state.font), static_cast<GdiObject*>(state.bitmap)}) {
        if (object != nullptr) {
            release(*object);
        }
    }
}

int DeviceContext::save() {
    try {
        saved_.push_back(state_);
    } catch (const std::bad_alloc&) {
        return 0;
    }
    retainAll(state_);
    return static_cast<int>(saved_.size());
}

bool DeviceContext::restore(int level) {
    const int count = static_cast<int>(saved_.size());
    if (level < -count || level == 0 || level > count) {
        return false;
    }
    const auto wanted = static_cast<std::size_t>(level > 0 ? level - 1 : count + level);
    while (saved_.size() > wanted) {
        const ContextState current = std::exchange(state_, std::move(saved_.back()));
        saved_.pop_back();
        if (state_.bitmap != current.bitmap) {
            useSurface(&state_.bitmap->surface);
        }
        releaseAll(current);
    }
    updateClip();
    return true;
}

HDC openWindowDc(HWND window, Surface* surface, POINT origin, const Region& clip) {
    return openContext([&](DeviceContext& context) { context.openOnWindow(window, surface, origin, clip); });
}

void closeWindowDc(HDC dc) {
    DeviceContext* context = contextFromHandle(dc);
    if (context != nullptr && !context->inMemory()) {
        giveBack(context);
    }
}

}  // namespace platform

using namespace platform;

HDC CreateCompatibleDC(HDC dc) {
    if (dc != nullptr && contextFromHandle(dc) == nullptr) {
        return nullptr;
    }
    return openContext([](DeviceContext& context) { context.openInMemory(); });
}

BOOL DeleteDC(HDC dc) {
    DeviceContext* context = contextFromHandle(dc);
    if (context == nullptr || !context->inMemory()) {
        return FALSE;
    }
    giveBack(context);
    return TRUE;
}
