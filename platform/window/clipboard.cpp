// The clipboard, text only, and the memory blocks that carry it.
#include "platform/window/display_choice.h"

#include <windows.h>

#include <tavrikdisplay.h>

#include <cstdlib>
#include <cstring>
#include <string>

namespace platform {
namespace {

// A block's handle is the address of its bytes; in front of them stands how many there are.
struct alignas(std::max_align_t) BlockHeader {
    SIZE_T size;
};

BlockHeader* headerOf(HGLOBAL memory) {
    return static_cast<BlockHeader*>(memory) - 1;
}

struct Clipboard {
    bool open = false;
    // What GetClipboardData gave out; it stays valid until the clipboard is closed.
    HGLOBAL lent = nullptr;
};

Clipboard& clipboard() {
    static Clipboard only;
    return only;
}

void freeLent() {
    GlobalFree(clipboard().lent);
    clipboard().lent = nullptr;
}

// The text ends at its zero byte, or with the block.
std::string textOf(HGLOBAL memory) {
    const auto* text = static_cast<const char*>(memory);
    return std::string(text, strnlen(text, GlobalSize(memory)));
}

}  // namespace
}  // namespace platform

HGLOBAL GlobalAlloc(UINT, SIZE_T size) {
    if (size > SIZE_MAX - sizeof(platform::BlockHeader)) {
        return nullptr;
    }
    auto* header = static_cast<platform::BlockHeader*>(std::calloc(1, sizeof(platform::BlockHeader) + size));
    if (!header) {
        return nullptr;
    }
    header->size = size;
    return header + 1;
}

LPVOID GlobalLock(HGLOBAL memory) {
    return memory;
}

BOOL GlobalUnlock(HGLOBAL) {
    return FALSE;
}

SIZE_T GlobalSize(HGLOBAL memory) {
    return memory ? platform::headerOf(memory)->size : 0;
}

HGLOBAL GlobalFree(HGLOBAL memory) {
    if (memory) {
        std::free(platform::headerOf(memory));
    }
    return nullptr;
}

BOOL OpenClipboard(HWND) {
    if (platform::clipboard().open) {
        return FALSE;
    }
    platform::clipboard().open = true;
    return TRUE;
}

BOOL CloseClipboard(void) {
    if (!platform::clipboard().open) {
        return FALSE;
    }
    platform::clipboard().open = false;
    platform::freeLent();
    return TRUE;
}

BOOL EmptyClipboard(void) {
    if (!platform::clipboard().open) {
        return FALSE;
    }
    platform::display().writeClipboard(std::string());
    return TRUE;
}

HANDLE SetClipboardData(UINT format, HANDLE data) {
    if (!platform::clipboard().open || format != CF_TEXT || !data) {
        return nullptr;
    }
    platform::display().writeClipboard(platform::textOf(data));
    // The block belongs to the clipboard from now on; the caller may still read it until the clipboard is closed.
    platform::freeLent();
    platform::clipboard().lent = data;
    return data;
}

HANDLE GetClipboardData(UINT format) {
    std::string text;
    if (!platform::clipboard().open || format != CF_TEXT || !platform::display().readClipboard(text)) {
        return nullptr;
    }
    HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, text.size() + 1);
    if (!memory) {
        return nullptr;
    }
    std::memcpy(memory, text.c_str(), text.size() + 1);
    platform::freeLent();
    platform::clipboard().lent = memory;
    return memory;
}

void TavrikOfferSelection(const char* text) {
    platform::display().writePrimary(text);
}

size_t TavrikReadSelection(char* buffer, size_t size) {
    std::string text;
    if (!platform::display().readPrimary(text)) {
        text.clear();
    }
    if (size > 0) {
        buffer[text.copy(buffer, size - 1)] = '\0';
    }
    return text.size();
}

BOOL IsClipboardFormatAvailable(UINT format) {
    return format == CF_TEXT && platform::display().clipboardHasText() ? TRUE : FALSE;
}
