// Where memory ends inside the window system. No exception leaves it: a call fails as it is documented to fail, with
// the error ERROR_NOT_ENOUGH_MEMORY, and a control that could not do what it was told says so to its parent.
#pragma once

#include <windows.h>

#include <new>
#include <type_traits>

namespace platform {

// Calls the function; `failed` is the result when memory runs out in it.
template <class Function>
std::invoke_result_t<Function> orOutOfMemory(Function function, std::invoke_result_t<Function> failed) {
    try {
        return function();
    } catch (const std::bad_alloc&) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return failed;
    }
}

// Keeps the error of a call that has failed while its traces are removed.
class KeptError {
public:
    KeptError() = default;
    ~KeptError() { SetLastError(error_); }
    KeptError(const KeptError&) = delete;
    KeptError& operator=(const KeptError&) = delete;

private:
    DWORD error_ = GetLastError();
};

// Sends a message past the border: memory that runs out in a procedure of the system's own is the caller's to deal
// with.
LRESULT sendUnguarded(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace platform
