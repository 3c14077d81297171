// Compiled resources of the loaded modules, read in place from the .res image that each module carries.
#pragma once

#include <windows.h>

#include <span>

namespace platform {

// The bytes of a resource, or an empty span. Type and name are integers or texts as in FindResourceA;
// a text is compared without regard to case. The span lives as long as the module is loaded.
std::span<const std::byte> findResource(HMODULE module, LPCSTR name, LPCSTR type);

}  // namespace platform
