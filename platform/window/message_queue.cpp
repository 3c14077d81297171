// Posted messages in their order. There is one queue; messages posted from another thread are refused.
#include "platform/window/message_queue.h"

#include "platform/window/out_of_memory.h"
#include "platform/window/window.h"

namespace platform {
namespace {

constexpr std::size_t kMaxPosted = 10000;
constexpr DWORD kErrorNotEnoughQuota = 1816;
constexpr DWORD kErrorInvalidThreadId = 1444;

// A queue in one block of memory that is used again and again. Messages mostly leave at the front.
class PostedMessages {
public:
    bool add(const MSG& message) {
        if (messages_.size() - front_ >= kMaxPosted) {
            return false;
        }
        return orOutOfMemory([&] { return messages_.push_back(message), true; }, false);
    }

    bool take(MSG& message, const MessageFilter& filter, bool remove) {
        for (std::size_t i = front_; i < messages_.size(); ++i) {
            if (!filter.accepts(messages_[i].hwnd, messages_[i].message)) {
                continue;
            }
            message = messages_[i];
            if (remove) {
                removeAt(i);
            }
            return true;
        }
        return false;
    }

    void dropOf(HWND window) {
        compact();
        std::erase_if(messages_, [window](const MSG& message) { return message.hwnd == window; });
    }

    bool isEmpty() const { return front_ == messages_.size(); }

private:
    static std::vector<MSG> withRoom() {
        std::vector<MSG> messages;
        messages.reserve(64);
        return messages;
    }

    void removeAt(std::size_t index) {
        if (index == front_) {
            ++front_;
        } else {
            messages_.erase(messages_.begin() + static_cast<std::ptrdiff_t>(index));
        }
        if (isEmpty()) {
            compact();
        }
    }

    void compact() {
        messages_.erase(messages_.begin(), messages_.begin() + static_cast<std::ptrdiff_t>(front_));
        front_ = 0;
    }

    // Room from the beginning: few messages are ever posted at once, and some of them wake a loop that is to end.
    std::vector<MSG> messages_ = withRoom();
    std::size_t front_ = 0;
};

struct Queue {
    PostedMessages posted;
    bool quit = false;
    int exitCode = 0;
    DWORD thread = 0;
    POINT pointer{};
};

Queue& queue() {
    static Queue only;
    return only;
}

}  // namespace

bool claimQueue() {
    const DWORD current = GetCurrentThreadId();
    if (windowCount() == 0) {
        queue().thread = current;
    }
    return queue().thread == current;
}

DWORD queueThread() {
    return queue().thread;
}

bool MessageFilter::acceptsWindow(HWND handle) const {
    if (!window || window == handle) {
        return true;
    }
    if (window == reinterpret_cast<HWND>(-1)) {
        return !handle;
    }
    const Window* asked = findWindow(window);
    const Window* owner = findWindow(handle);
    return asked && owner && isDescendant(*asked, *owner);
}

POINT lastPointerPosition() {
    return queue().pointer;
}

void setLastPointerPosition(POINT at) {
    queue().pointer = at;
}

bool takePosted(MSG& message, const MessageFilter& filter, bool remove) {
    return queue().posted.take(message, filter, remove);
}

bool takeQuit(MSG& message, bool remove) {
    if (!queue().quit) {
        return false;
    }
    message = MSG{nullptr, WM_QUIT, static_cast<WPARAM>(queue().exitCode), 0, GetTickCount(), lastPointerPosition()};
    if (remove) {
        queue().quit = false;
    }
    return true;
}

bool post(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (queue().posted.add({window, message, wParam, lParam, GetTickCount(), lastPointerPosition()})) {
        return true;
    }
    SetLastError(kErrorNotEnoughQuota);
    return false;
}

void dropPostedOf(HWND window) {
    queue().posted.dropOf(window);
}

}  // namespace platform

BOOL PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (platform::windowCount() > 0 && GetCurrentThreadId() != platform::queueThread()) {
        SetLastError(platform::kErrorInvalidThreadId);
        return FALSE;
    }
    if (window && !platform::requireWindow(window)) {
        return FALSE;
    }
    return platform::post(window, message, wParam, lParam) ? TRUE : FALSE;
}

void PostQuitMessage(int exitCode) {
    platform::queue().quit = true;
    platform::queue().exitCode = exitCode;
}
