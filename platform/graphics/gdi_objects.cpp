// The handle table, and creating, describing and deleting objects.
#include "platform/graphics/gdi_objects.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace platform {

namespace {

struct Slot {
    GdiObject* object = nullptr;
    WORD generation = 0;
};

constexpr std::size_t kMostHandles = 0x10000;
constexpr WORD kMostGenerations = 0x7FFF;

struct HandleTable {
    std::vector<Slot> slots;
    std::vector<WORD> free;
};

HandleTable& handles() {
    // Never destroyed: a host may delete its objects from its own static destructors.
    static auto* table = new HandleTable;
    return *table;
}

HGDIOBJ handleOf(std::size_t index, WORD generation) {
    return reinterpret_cast<HGDIOBJ>((static_cast<ULONG_PTR>(generation) << 16) | index);
}

// Copies as much of a description as the caller has room for.
template <class Description>
int copyDescription(const Description& description, int size, void* data) {
    if (data == nullptr) {
        return static_cast<int>(sizeof(Description));
    }
    const int bytes = std::clamp(size, 0, static_cast<int>(sizeof(Description)));
    std::memcpy(data, &description, static_cast<std::size_t>(bytes));
    return bytes;
}

int describeBitmap(Bitmap& bitmap, int size, void* data) {
    const bool isDefault = &bitmap == &defaultBitmap();
    BITMAP description{};
    description.bmWidth = bitmap.surface.width();
    description.bmHeight = bitmap.surface.height();
    description.bmPlanes = 1;
    // The one pixel of a new context counts as monochrome; every other bitmap has the format of the screen.
    description.bmBitsPixel = isDefault ? 1 : 32;
    description.bmWidthBytes = isDefault ? 2 : description.bmWidth * 4;
    if (data != nullptr && size < static_cast<int>(sizeof description)) {
        return 0;
    }
    return copyDescription(description, size, data);
}

}  // namespace

HGDIOBJ addHandle(GdiObject& object) {
    HandleTable& table = handles();
    std::size_t index = table.slots.size();
    if (!table.free.empty()) {
        index = table.free.back();
        table.free.pop_back();
    } else if (index < kMostHandles) {
        // Giving a handle back takes no memory.
        table.free.reserve(index + 1);
        table.slots.emplace_back();
    } else {
        return nullptr;
    }
    Slot& slot = table.slots[index];
    slot.object = &object;
    // Never 0, so a handle is never mistaken for a small number such as a colour's index.
    slot.generation = static_cast<WORD>(slot.generation % kMostGenerations + 1);
    object.handle = handleOf(index, slot.generation);
    return object.handle;
}

void removeHandle(GdiObject& object) {
    if (object.handle == nullptr) {
        return;
    }
    HandleTable& table = handles();
    const auto index = LOWORD(reinterpret_cast<ULONG_PTR>(object.handle));
    table.slots[index].object = nullptr;
    table.free.push_back(index);
    object.handle = nullptr;
}

HGDIOBJ adoptObject(std::unique_ptr<GdiObject> object) {
    if (object == nullptr || addHandle(*object) == nullptr) {
        return nullptr;
    }
    return object.release()->handle;
}

GdiObject* findObject(HGDIOBJ handle) {
    const auto value = reinterpret_cast<ULONG_PTR>(handle);
    const std::size_t index = value & 0xFFFF;
    const HandleTable& table = handles();
    if (index >= table.slots.size()) {
        return nullptr;
    }
    const Slot& slot = table.slots[index];
    return value >> 16 == slot.generation ? slot.object : nullptr;
}

void retain(GdiObject& object) {
    ++object.uses;
}

void release(GdiObject& object) {
    if (--object.uses == 0 && object.doomed) {
        removeHandle(object);
        delete &object;
    }
}

Bitmap& defaultBitmap() {
    static Bitmap& bitmap = makePermanent(std::make_unique<Bitmap>(1, 1));
    return bitmap;
}

std::unique_ptr<Bitmap> makeBitmap(int width, int height) {
    if (width < 1 || height < 1 || width > kLargestBitmapSide || height > kLargestBitmapSide ||
        width > kMostBitmapPixels / height) {
        return nullptr;
    }
    return std::make_unique<Bitmap>(width, height);
}

}  // namespace platform

using namespace platform;

HBRUSH CreateSolidBrush(COLORREF colour) {
    return static_cast<HBRUSH>(adoptObject(std::make_unique<Brush>(pixelOf(colour))));
}

HPEN CreatePen(int style, int width, COLORREF colour) {
    const bool known = style == PS_DOT || style == PS_NULL;
    return static_cast<HPEN>(
        adoptObject(std::make_unique<Pen>(known ? style : PS_SOLID, std::max(width, 1), pixelOf(colour))));
}

HFONT CreateFontIndirectA(const LOGFONTA* font) {
    return font == nullptr ? nullptr : static_cast<HFONT>(adoptObject(std::make_unique<Font>(*font)));
}

BOOL DeleteObject(HGDIOBJ handle) {
    GdiObject* object = findObject(handle);
    if (object == nullptr) {
        return FALSE;
    }
    if (object->kind == ObjectKind::DeviceContext) {
        return DeleteDC(static_cast<HDC>(handle));
    }
    if (object->permanent) {
        return TRUE;
    }
    object->doomed = true;
    retain(*object);
    release(*object);
    return TRUE;
}

int GetObjectA(HGDIOBJ handle, int size, LPVOID data) {
    GdiObject* object = findObject(handle);
    if (auto* font = findObject<Font>(handle)) {
        return copyDescription(font->logical, size, data);
    }
    return object != nullptr && object->kind == ObjectKind::Bitmap
               ? describeBitmap(static_cast<Bitmap&>(*object), size, data)
               : 0;
}
