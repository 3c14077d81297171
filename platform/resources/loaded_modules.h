// The shared objects of the process, as module handles: a handle is the address where an object is loaded.
#pragma once

#include <windows.h>

#include <string>

namespace platform {

HMODULE programModule();
// Null when no loaded object contains the address.
HMODULE moduleOfAddress(const void* address);
// The object of that name, with or without folder, the prefix "lib" and the extension; case does not matter.
HMODULE moduleOfName(const std::string& name);
// The path as the loader knows it, in the bytes of the file system; empty when there is no such module.
std::string moduleFile(HMODULE module);

}  // namespace platform
