// What the compiler's guarded functions need on Windows: the value that they put behind their buffers, and the end of
// the process when it is no longer there. The compiler's own library for this needs a further system library.

#include <windows.h>

#include <cstdint>

extern "C" {

uintptr_t __stack_chk_guard = static_cast<uintptr_t>(0x5A6F3DCB17E294A8ULL);

// The system's own way to end at once: what is on the stack is not to be trusted any more.
[[noreturn]] void __stack_chk_fail() {
    constexpr int kStackCookieCheckFailure = 2;
    asm volatile("int $0x29" : : "c"(kStackCookieCheckFailure));
    __builtin_unreachable();
}
}

// Another value in each process, from what a process can know of itself without further libraries. A guarded function
// must not see the value change, so this runs before all others that the module has.
__attribute__((constructor(101), no_stack_protector)) static void ChooseStackGuard() {
    LARGE_INTEGER counter{};
    FILETIME time{};
    QueryPerformanceCounter(&counter);
    GetSystemTimeAsFileTime(&time);
    uint64_t value = static_cast<uint64_t>(counter.QuadPart) ^ (uint64_t{time.dwLowDateTime} << 24U);
    value ^= reinterpret_cast<uintptr_t>(&counter) ^ reinterpret_cast<uintptr_t>(&ChooseStackGuard);
    value ^= (uint64_t{GetCurrentProcessId()} << 16U) ^ GetCurrentThreadId();
    value *= 0x9E3779B97F4A7C15ULL;  // Each bit of the sources reaches the bits above it.
    value ^= value >> 32U;
    // A byte 0 at the lower end stops what copies texts.
    __stack_chk_guard = static_cast<uintptr_t>(value) & ~uintptr_t{0xFF};
}
