// Walks the dynamic loader's list. The reference count of an object is left alone: a handle keeps nothing loaded.

#include "platform/resources/loaded_modules.h"

#include "platform/resources/code_page.h"

#include <dlfcn.h>
#include <link.h>
#include <sys/auxv.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace platform {
namespace {

// Calls `visit(module, path)` for each loaded object, the program first, until it answers true.
template <typename Visit>
void forEachModule(Visit visit) {
    const auto step = [](dl_phdr_info* info, std::size_t, void* context) -> int {
        const auto* headers = info->dlpi_phdr;
        if (info->dlpi_phnum == 0) {
            return 0;
        }
        // The program headers lie in the first loaded page of their object.
        const HMODULE module = moduleOfAddress(headers);
        return module != nullptr && (*static_cast<Visit*>(context))(module, info->dlpi_name) ? 1 : 0;
    };
    dl_iterate_phdr(step, &visit);
}

std::string programFile() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).string();
}

std::string fileOf(HMODULE module, const char* loaderName) {
    return module == programModule() ? programFile() : std::string(loaderName);
}

// "/usr/lib/libTavrik.so.1" and "tavrik.dll" both give "TAVRIK".
std::string moduleStem(const std::string& path) {
    std::string stem = path.substr(path.find_last_of("/\\") + 1);
    std::transform(stem.begin(), stem.end(), stem.begin(), codePageUpper);
    if (stem.starts_with("LIB")) {
        stem.erase(0, 3);
    }
    for (const char* extension : {".SO", ".DLL", ".EXE"}) {
        stem = stem.substr(0, stem.find(extension));
    }
    return stem;
}

}  // namespace

HMODULE programModule() {
    static const HMODULE program =
        moduleOfAddress(reinterpret_cast<const void*>(static_cast<ULONG_PTR>(getauxval(AT_PHDR))));
    return program;
}

HMODULE moduleOfAddress(const void* address) {
    Dl_info info{};
    return dladdr(address, &info) != 0 ? static_cast<HMODULE>(info.dli_fbase) : nullptr;
}

HMODULE moduleOfName(const std::string& name) {
    const std::string wanted = moduleStem(name);
    HMODULE found = nullptr;
    forEachModule([&](HMODULE module, const char* loaderName) {
        if (moduleStem(fileOf(module, loaderName)) != wanted) {
            return false;
        }
        found = module;
        return true;
    });
    return found;
}

std::string moduleFile(HMODULE module) {
    std::string file;
    forEachModule([&](HMODULE candidate, const char* loaderName) {
        if (candidate != module) {
            return false;
        }
        file = fileOf(module, loaderName);
        return true;
    });
    return file;
}

}  // namespace platform
