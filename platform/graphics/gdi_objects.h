// Pens, brushes, fonts and bitmaps, and the handles that name them (device contexts have handles of the same table).
// A handle carries a generation, so one that was deleted or is garbage is refused by one comparison.
// The room serves one thread, that of the windows.
#pragma once

#include "platform/graphics/pixels.h"
#include "platform/graphics/surface.h"

#include <windows.h>

#include <memory>

namespace platform {

class DeviceContext;
class SizedFont;

enum class ObjectKind : BYTE {
    Pen = OBJ_PEN,
    Brush = OBJ_BRUSH,
    DeviceContext = 3,
    Font = OBJ_FONT,
    Bitmap = OBJ_BITMAP
};

struct GdiObject {
    explicit GdiObject(ObjectKind objectKind) : kind(objectKind) {}
    virtual ~GdiObject() = default;
    GdiObject(const GdiObject&) = delete;
    GdiObject& operator=(const GdiObject&) = delete;

    const ObjectKind kind;
    bool permanent = false;  // Stock objects and the like: deleting them succeeds and does nothing.
    bool doomed = false;     // Deleted while selected: goes when the last context lets go of it.
    int uses = 0;            // Contexts, and saved states of contexts, that have it selected.
    HGDIOBJ handle = nullptr;
};

struct Pen : GdiObject {
    static constexpr ObjectKind kKind = ObjectKind::Pen;
    Pen(int penStyle, int penWidth, Pixel penColour)
        : GdiObject(kKind), style(penStyle), width(penWidth), colour(penColour) {}
    int style;
    int width;  // In pixels, at least 1.
    Pixel colour;
};

struct Brush : GdiObject {
    static constexpr ObjectKind kKind = ObjectKind::Brush;
    explicit Brush(Pixel brushColour, bool isHollow = false)
        : GdiObject(kKind), colour(brushColour), hollow(isHollow) {}
    Pixel colour;
    bool hollow;
};

struct Font : GdiObject {
    static constexpr ObjectKind kKind = ObjectKind::Font;
    explicit Font(const LOGFONTA& description) : GdiObject(kKind), logical(description) {}
    LOGFONTA logical;
    SizedFont* sized = nullptr;  // Looked up at the first use; owned by the font cache.
};

struct Bitmap : GdiObject {
    static constexpr ObjectKind kKind = ObjectKind::Bitmap;
    Bitmap(int width, int height) : GdiObject(kKind), surface(width, height) {}
    Surface surface;
    DeviceContext* selectedInto =
        nullptr;  // Meaningful while `uses` is above 0: a bitmap belongs to one context at a time.
};

// Gives the object a handle; null when all handles are in use, and the object stays the caller's.
HGDIOBJ addHandle(GdiObject& object);
void removeHandle(GdiObject& object);
// Takes ownership: the object lives until DeleteObject. Null when all handles are in use.
HGDIOBJ adoptObject(std::unique_ptr<GdiObject> object);

// The object that the handle names, or null.
GdiObject* findObject(HGDIOBJ handle);
template <class T>
T* findObject(HGDIOBJ handle) {
    GdiObject* object = findObject(handle);
    return object != nullptr && object->kind == T::kKind ? static_cast<T*>(object) : nullptr;
}

void retain(GdiObject& object);
// Deletes the object when it is doomed and this was its last use.
void release(GdiObject& object);

// Makes the object one that nobody can delete.
template <class T>
T& makePermanent(std::unique_ptr<T> object) {
    object->permanent = true;
    addHandle(*object);
    return *object.release();
}

// What a new memory context draws into: one black pixel.
Bitmap& defaultBitmap();

// Sizes above these are refused, so that products of them fit into an int.
constexpr int kLargestBitmapSide = 32767;
constexpr int kMostBitmapPixels = 1 << 26;
// Null for sizes below 1 or beyond the limits.
std::unique_ptr<Bitmap> makeBitmap(int width, int height);

}  // namespace platform
