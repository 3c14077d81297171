// A device context: where drawing goes (surface, origin, clip) and with what (pen, brush, font, colours).
#pragma once

#include "platform/graphics/gdi_objects.h"
#include "platform/graphics/region.h"

#include <windows.h>

#include <vector>

namespace platform {

// What SaveDC keeps and RestoreDC brings back. The objects are retained for as long as they stand here.
struct ContextState {
    Pen* pen = nullptr;
    Brush* brush = nullptr;
    Font* font = nullptr;
    Bitmap* bitmap = nullptr;  // Of a memory context; null in that of a window.
    COLORREF textColour = RGB(0, 0, 0);
    COLORREF backColour = RGB(255, 255, 255);
    int backMode = OPAQUE;
    int stretchMode = BLACKONWHITE;
    POINT viewportOrigin{};
    bool clipped = false;  // `clip` is in force, beyond what the window or bitmap itself allows.
    Region clip;           // In surface coordinates.
};

class DeviceContext : public GdiObject {
public:
    static constexpr ObjectKind kKind = ObjectKind::DeviceContext;
    DeviceContext() : GdiObject(kKind) {}
    ~DeviceContext() override { close(); }

    void openOnWindow(HWND window, Surface* surface, POINT origin, const Region& visible);
    void openInMemory();
    // Lets go of surface and objects; the context can be opened again.
    void close();

    bool inMemory() const { return state_.bitmap != nullptr; }
    HWND window() const { return window_; }
    Surface* surface() const { return surface_; }
    // Where drawing may happen, in surface coordinates; it may reach beyond the surface.
    const Region& clip() const { return state_.clipped ? effectiveClip_ : visible_; }
    // Added to logical coordinates gives surface coordinates.
    POINT offset() const { return {origin_.x + state_.viewportOrigin.x, origin_.y + state_.viewportOrigin.y}; }
    ContextState& state() { return state_; }
    const ContextState& state() const { return state_; }

    void select(Pen& pen) { exchange(state_.pen, pen); }
    void select(Brush& brush) { exchange(state_.brush, brush); }
    void select(Font& font) { exchange(state_.font, font); }
    // Refused (false) in a window's context and for a bitmap that another context holds.
    bool select(Bitmap& bitmap);

    // Narrow the clip by a rectangle in surface coordinates.
    void intersectClip(const RECT& rect);
    void excludeClip(const RECT& rect);

    // The number of saved states afterwards.
    int save();
    // As RestoreDC: a positive level names a saved state, a negative one counts back from the present.
    bool restore(int level);

private:
    template <class T>
    static void exchange(T*& held, T& object) {
        retain(object);
        if (held != nullptr) {
            release(*held);
        }
        held = &object;
    }
    static void retainAll(const ContextState& state);
    static void releaseAll(const ContextState& state);
    void selectDefaults();
    void useSurface(Surface* surface);
    void updateClip();

    HWND window_ = nullptr;
    Surface* surface_ = nullptr;
    POINT origin_{};
    Region visible_;
    Region effectiveClip_;  // `visible_` within the state's clip; valid while that is in force.
    ContextState state_;
    std::vector<ContextState> saved_;
};

inline DeviceContext* contextFromHandle(HDC dc) {
    return findObject<DeviceContext>(static_cast<HGDIOBJ>(dc));
}

}  // namespace platform
