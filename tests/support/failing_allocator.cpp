#include "tests/support/failing_allocator.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

constexpr long kNeverFail = -1;
long g_allocationsLeft = kNeverFail;
bool g_failsOnce = false;
bool g_hasFailed = false;
bool g_isSafe = false;
std::atomic<long> g_outstanding{0};

bool Fails() {
    if (g_isSafe || g_allocationsLeft == kNeverFail) {
        return false;
    }
    if (g_allocationsLeft > 0) {
        --g_allocationsLeft;
        return false;
    }
    if (g_failsOnce) {
        g_allocationsLeft = kNeverFail;
    }
    g_hasFailed = true;
    return true;
}

void* Allocate(std::size_t size) noexcept {
    void* memory = Fails() ? nullptr : std::malloc(size == 0 ? 1 : size);
    g_outstanding += memory != nullptr ? 1 : 0;
    return memory;
}

void Free(void* memory) noexcept {
    g_outstanding -= memory != nullptr ? 1 : 0;
    std::free(memory);
}

}  // namespace

FailingAllocator::FailingAllocator(long succeeding, Failing failing) {
    g_allocationsLeft = succeeding;
    g_failsOnce = failing == Failing::Once;
    g_hasFailed = false;
}
FailingAllocator::~FailingAllocator() {
    g_allocationsLeft = kNeverFail;
}
bool FailingAllocator::HasFailed() {
    return g_hasFailed;
}

SafeAllocations::SafeAllocations() : m_wasSafe(g_isSafe) {
    g_isSafe = true;
}
SafeAllocations::~SafeAllocations() {
    g_isSafe = m_wasSafe;
}

long OutstandingBlocks() {
    return g_outstanding;
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
    Free(memory);
}
void operator delete[](void* memory) noexcept {
    Free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    Free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    Free(memory);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept {
    Free(memory);
}
void operator delete[](void* memory, const std::nothrow_t&) noexcept {
    Free(memory);
}
