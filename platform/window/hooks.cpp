// The hook chains: the hook that was set last is called first and decides whether the others are.
#include "platform/window/hooks.h"

#include "platform/window/out_of_memory.h"

#include <algorithm>
#include <vector>

namespace platform {
namespace {

struct Hook {
    std::uintptr_t id;
    int kind;
    HOOKPROC proc;
};

struct HookChains {
    // Room for all calls that are ever nested: a hook is asked before a window ends, which must not fail.
    HookChains() { running.reserve(64); }

    std::vector<Hook> hooks;
    std::uintptr_t lastId = 0;
    std::vector<std::uintptr_t> running;  // Those being called, the innermost last.
};

HookChains& chains() {
    static HookChains all;
    return all;
}

// The hook of that kind that was set last before the one with number `before`.
const Hook* hookBefore(int kind, std::uintptr_t before) {
    const auto& hooks = chains().hooks;
    const auto found = std::find_if(hooks.rbegin(), hooks.rend(),
                                    [=](const Hook& hook) { return hook.kind == kind && hook.id < before; });
    return found == hooks.rend() ? nullptr : &*found;
}

class RunningHook {
public:
    explicit RunningHook(std::uintptr_t id) { chains().running.push_back(id); }
    ~RunningHook() { chains().running.pop_back(); }
    RunningHook(const RunningHook&) = delete;
    RunningHook& operator=(const RunningHook&) = delete;
};

LRESULT callHook(const Hook& hook, int code, WPARAM wParam, LPARAM lParam) {
    const RunningHook running(hook.id);
    return hook.proc(code, wParam, lParam);
}

}  // namespace

LRESULT callHooks(int kind, int code, WPARAM wParam, LPARAM lParam) {
    const Hook* last = chains().hooks.empty() ? nullptr : hookBefore(kind, UINTPTR_MAX);
    return last ? callHook(*last, code, wParam, lParam) : 0;
}

}  // namespace platform

HHOOK SetWindowsHookExA(int kind, HOOKPROC proc, HINSTANCE, DWORD thread) {
    const bool known = kind == WH_CBT || kind == WH_GETMESSAGE;
    if (!proc || !known || thread != GetCurrentThreadId()) {
        return nullptr;
    }
    platform::HookChains& all = platform::chains();
    return platform::orOutOfMemory(
        [&] {
            all.hooks.push_back({all.lastId + 1, kind, proc});
            return reinterpret_cast<HHOOK>(++all.lastId);
        },
        nullptr);
}

BOOL UnhookWindowsHookEx(HHOOK hook) {
    const auto id = reinterpret_cast<std::uintptr_t>(hook);
    return std::erase_if(platform::chains().hooks, [id](const platform::Hook& entry) { return entry.id == id; }) > 0;
}

// The running hook is known, so the handle need not be given; a hook that was removed while it runs passes on too.
LRESULT CallNextHookEx(HHOOK, int code, WPARAM wParam, LPARAM lParam) {
    platform::HookChains& all = platform::chains();
    if (all.running.empty()) {
        return 0;
    }
    const std::uintptr_t current = all.running.back();
    // The kind of a removed hook is not known any more: code and parameters of the two kinds never mix, as HC_ACTION
    // is no code of WH_CBT that is called here.
    const int kind = code == HC_ACTION ? WH_GETMESSAGE : WH_CBT;
    const platform::Hook* next = platform::hookBefore(kind, current);
    return next ? platform::callHook(*next, code, wParam, lParam) : 0;
}
