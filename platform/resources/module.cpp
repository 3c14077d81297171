// The modules of the process and the compiled resources that they registered: read in place from the image that each
// module carries.

#include "platform/include/tavrikdisplay.h"
#include "platform/resources/code_page.h"
#include "platform/resources/loaded_modules.h"
#include "platform/resources/resource_index.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <span>
#include <vector>

namespace platform {
namespace {

struct ModuleResources {
    HMODULE module;
    ResourceIndex index;
};

// Modules register from their static constructors, before those of this library may have run.
std::vector<std::unique_ptr<ModuleResources>>& registeredModules() {
    static std::vector<std::unique_ptr<ModuleResources>> modules;
    return modules;
}

const ResourceIndex* indexOf(HMODULE module) {
    const HMODULE wanted = module != nullptr ? module : programModule();
    for (const auto& entry : registeredModules()) {
        if (entry->module == wanted) {
            return &entry->index;
        }
    }
    return nullptr;
}

const ResourceEntry* findEntry(HMODULE module, LPCSTR name, LPCSTR type) {
    const ResourceIndex* index = indexOf(module);
    return index != nullptr ? index->find(ResourceName::of(type), ResourceName::of(name)) : nullptr;
}

constexpr unsigned kStringsPerBlock = 16;

// A string of a string table in code page 1252. A string that the table does not hold is empty; an empty span and a
// string that runs past the end of its block are too.
std::string stringOfBlock(std::span<const std::byte> block, unsigned number) {
    std::size_t at = 0;
    for (unsigned i = 0; at + sizeof(WORD) <= block.size(); ++i) {
        WORD length = 0;
        std::memcpy(&length, block.data() + at, sizeof length);
        at += sizeof length;
        if (length * sizeof(char16_t) > block.size() - at) {
            break;
        }
        if (i == number) {
            std::u16string text(length, u'\0');
            std::memcpy(text.data(), block.data() + at, length * sizeof(char16_t));
            return utf16ToCodePage(text, Unmapped::QuestionMark);
        }
        at += length * sizeof(char16_t);
    }
    return {};
}

}  // namespace
}  // namespace platform

using namespace platform;

void TavrikRegisterResources(const void* begin, const void* end) {
    const HMODULE module = moduleOfAddress(begin);
    if (module == nullptr || begin >= end) {
        return;
    }
    const auto* first = static_cast<const std::byte*>(begin);
    auto resources = std::make_unique<ModuleResources>(
        ModuleResources{module, ResourceIndex({first, static_cast<const std::byte*>(end)})});
    // A module that was unloaded may be loaded again at the same address: its new resources take the place of the old.
    auto& modules = registeredModules();
    std::erase_if(modules, [&](const auto& entry) { return entry->module == module; });
    modules.push_back(std::move(resources));
}

HMODULE GetModuleHandleA(LPCSTR name) {
    HMODULE module = nullptr;
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT, name, &module);
    return module;
}

BOOL GetModuleHandleExA(DWORD flags, LPCSTR nameOrAddress, HMODULE* module) {
    if ((flags & GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS) != 0) {
        *module = moduleOfAddress(nameOrAddress);
    } else {
        *module = nameOrAddress != nullptr ? moduleOfName(nameOrAddress) : programModule();
    }
    if (*module == nullptr) {
        SetLastError(ERROR_MOD_NOT_FOUND);
    }
    return *module != nullptr ? TRUE : FALSE;
}

DWORD GetModuleFileNameA(HMODULE module, LPSTR path, DWORD size) {
    const std::string file =
        utf8ToCodePage(moduleFile(module != nullptr ? module : programModule()), Unmapped::QuestionMark);
    if (file.empty()) {
        SetLastError(ERROR_MOD_NOT_FOUND);
        return 0;
    }
    const bool fits = file.size() < size;
    SetLastError(fits ? ERROR_SUCCESS : ERROR_INSUFFICIENT_BUFFER);
    if (size == 0) {
        return 0;
    }
    const std::size_t copied = std::min<std::size_t>(file.size(), size - 1);
    std::memcpy(path, file.data(), copied);
    path[copied] = '\0';
    return fits ? static_cast<DWORD>(copied) : size;
}

HRSRC FindResourceA(HMODULE module, LPCSTR name, LPCSTR type) {
    const ResourceEntry* entry = findEntry(module, name, type);
    if (entry == nullptr) {
        const ResourceIndex* index = indexOf(module);
        const bool typeExists = index != nullptr && index->hasType(ResourceName::of(type));
        SetLastError(typeExists ? ERROR_RESOURCE_NAME_NOT_FOUND : ERROR_RESOURCE_TYPE_NOT_FOUND);
    }
    return reinterpret_cast<HRSRC>(const_cast<ResourceEntry*>(entry));
}

HGLOBAL LoadResource(HMODULE, HRSRC resource) {
    const auto* entry = reinterpret_cast<const ResourceEntry*>(resource);
    return entry != nullptr ? const_cast<std::byte*>(entry->data.data()) : nullptr;
}

// The data stand in the module itself, so loading a resource has found them already.
LPVOID LockResource(HGLOBAL data) {
    return data;
}

DWORD SizeofResource(HMODULE, HRSRC resource) {
    const auto* entry = reinterpret_cast<const ResourceEntry*>(resource);
    return entry != nullptr ? static_cast<DWORD>(entry->data.size()) : 0;
}

int LoadStringA(HINSTANCE instance, UINT id, LPSTR text, int size) {
    if (size <= 0 || text == nullptr) {
        return -1;
    }
    const unsigned number = LOWORD(id);
    const auto* resource = FindResourceA(instance, MAKEINTRESOURCEA(number / kStringsPerBlock + 1), RT_STRING);
    std::string found;
    if (resource != nullptr) {
        found = stringOfBlock(reinterpret_cast<const ResourceEntry*>(resource)->data, number % kStringsPerBlock);
    }
    const std::size_t copied = std::min(found.size(), static_cast<std::size_t>(size) - 1);
    std::memcpy(text, found.data(), copied);
    text[copied] = '\0';
    return static_cast<int>(copied);
}
