#include "tests/core/failing_allocator.h"

#include <cstdlib>
#include <new>

namespace {

constexpr int kNeverFail = -1;
int g_allocationsLeft = kNeverFail;

void* Allocate(std::size_t size) noexcept {
    if (g_allocationsLeft == 0) {
        return nullptr;
    }
    if (g_allocationsLeft > 0) {
        --g_allocationsLeft;
    }
    return std::malloc(size == 0 ? 1 : size);
}

}  // namespace

FailingAllocator::FailingAllocator(int succeeding) {
    g_allocationsLeft = succeeding;
}
FailingAllocator::~FailingAllocator() {
    g_allocationsLeft = kNeverFail;
}

void* operator new(std::size_t size) {
    void* memory = Allocate(size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}
void* operator new[](std::size_t size) {
    return ::operator new(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return Allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return Allocate(size);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, const std::nothrow_t&) noexcept {
    std::free(memory);
}
