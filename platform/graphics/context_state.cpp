// The state of device contexts as the window API offers it: selected objects, colours, modes, origin and clip.
#include "platform/graphics/device_context.h"
#include "platform/graphics/painting.h"
#include "platform/graphics/scale.h"

#include <windows.h>

#include <utility>

using namespace platform;

namespace {

template <class T>
HGDIOBJ selectInto(DeviceContext& dc, T* held, GdiObject& object) {
    const HGDIOBJ previous = held->handle;
    dc.select(static_cast<T&>(object));
    return previous;
}

HGDIOBJ selectBitmap(DeviceContext& dc, Bitmap& bitmap) {
    const HGDIOBJ previous = dc.inMemory() ? dc.state().bitmap->handle : nullptr;
    return dc.select(bitmap) ? previous : nullptr;
}

// Sets a part of a context's state and gives what it was, or `failure` when there is no such context.
template <class T>
T setState(HDC handle, T ContextState::*part, T value, T failure) {
    DeviceContext* dc = contextFromHandle(handle);
    return dc == nullptr ? failure : std::exchange(dc->state().*part, value);
}

template <class T>
T getState(HDC handle, T ContextState::*part, T failure) {
    const DeviceContext* dc = contextFromHandle(handle);
    return dc == nullptr ? failure : dc->state().*part;
}

BOOL setPoint(HDC handle, POINT ContextState::*part, int x, int y, LPPOINT old) {
    DeviceContext* dc = contextFromHandle(handle);
    if (dc == nullptr) {
        return FALSE;
    }
    const POINT previous = std::exchange(dc->state().*part, POINT{limited(x), limited(y)});
    if (old != nullptr) {
        *old = previous;
    }
    return TRUE;
}

int complexity(const Region& region) {
    const std::size_t count = region.rects().size();
    return count == 0 ? NULLREGION : count == 1 ? SIMPLEREGION : COMPLEXREGION;
}

}  // namespace

int SaveDC(HDC handle) {
    DeviceContext* dc = contextFromHandle(handle);
    return dc == nullptr ? 0 : dc->save();
}

BOOL RestoreDC(HDC handle, int saved) {
    DeviceContext* dc = contextFromHandle(handle);
    return dc != nullptr && dc->restore(saved);
}

HGDIOBJ SelectObject(HDC handle, HGDIOBJ objectHandle) {
    DeviceContext* dc = contextFromHandle(handle);
    GdiObject* object = findObject(objectHandle);
    if (dc == nullptr || object == nullptr) {
        return nullptr;
    }
    switch (object->kind) {
        case ObjectKind::Pen:
            return selectInto(*dc, dc->state().pen, *object);
        case ObjectKind::Brush:
            return selectInto(*dc, dc->state().brush, *object);
        case ObjectKind::Font:
            return selectInto(*dc, dc->state().font, *object);
        case ObjectKind::Bitmap:
            return selectBitmap(*dc, static_cast<Bitmap&>(*object));
        case ObjectKind::DeviceContext:
            break;
    }
    return nullptr;
}

int GetDeviceCaps(HDC handle, int index) {
    constexpr int kBitsPerPixel = 32;
    if (contextFromHandle(handle) == nullptr) {
        return 0;
    }
    switch (index) {
        case LOGPIXELSX:
        case LOGPIXELSY:
            return dotsPerInch();
        case BITSPIXEL:
            return kBitsPerPixel;
        default:
            return 0;
    }
}

COLORREF SetTextColor(HDC dc, COLORREF colour) {
    return setState(dc, &ContextState::textColour, colour, COLORREF{CLR_INVALID});
}
COLORREF GetTextColor(HDC dc) {
    return getState(dc, &ContextState::textColour, COLORREF{CLR_INVALID});
}
COLORREF SetBkColor(HDC dc, COLORREF colour) {
    return setState(dc, &ContextState::backColour, colour, COLORREF{CLR_INVALID});
}
COLORREF GetBkColor(HDC dc) {
    return getState(dc, &ContextState::backColour, COLORREF{CLR_INVALID});
}
int SetBkMode(HDC dc, int mode) {
    return mode == TRANSPARENT || mode == OPAQUE ? setState(dc, &ContextState::backMode, mode, 0) : 0;
}
int SetStretchBltMode(HDC dc, int mode) {
    return mode >= BLACKONWHITE && mode <= HALFTONE ? setState(dc, &ContextState::stretchMode, mode, 0) : 0;
}

BOOL SetViewportOrgEx(HDC dc, int x, int y, LPPOINT old) {
    return setPoint(dc, &ContextState::viewportOrigin, x, y, old);
}

int IntersectClipRect(HDC handle, int left, int top, int right, int bottom) {
    DeviceContext* dc = contextFromHandle(handle);
    if (dc == nullptr) {
        return RGN_ERROR;
    }
    dc->intersectClip(toSurface(*dc, left, top, right, bottom));
    return complexity(dc->clip());
}

int ExcludeClipRect(HDC handle, int left, int top, int right, int bottom) {
    DeviceContext* dc = contextFromHandle(handle);
    if (dc == nullptr) {
        return RGN_ERROR;
    }
    dc->excludeClip(toSurface(*dc, left, top, right, bottom));
    return complexity(dc->clip());
}

int GetClipBox(HDC handle, LPRECT rect) {
    const DeviceContext* dc = contextFromHandle(handle);
    if (dc == nullptr || rect == nullptr) {
        return RGN_ERROR;
    }
    *rect = dc->clip().bounds();
    if (!IsRectEmpty(rect)) {
        const POINT offset = dc->offset();
        OffsetRect(rect, -offset.x, -offset.y);
    }
    return complexity(dc->clip());
}

BOOL RectVisible(HDC handle, LPCRECT rect) {
    const DeviceContext* dc = contextFromHandle(handle);
    return dc != nullptr && rect != nullptr &&
           dc->clip().intersects(toSurface(*dc, rect->left, rect->top, rect->right, rect->bottom));
}
