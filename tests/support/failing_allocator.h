// Counts the memory of the test program and of the libraries that it loads, and makes allocations fail: for every form
// of operator new.
#pragma once

#include <cstddef>

enum class Failing { Once, FromThenOn };

// The allocation after `succeeding` further ones fails, and all after it unless once is enough, until the object goes.
class FailingAllocator {
public:
    explicit FailingAllocator(long succeeding, Failing failing = Failing::FromThenOn);
    ~FailingAllocator();
    FailingAllocator(const FailingAllocator&) = delete;
    FailingAllocator& operator=(const FailingAllocator&) = delete;

    // Whether an allocation has failed.
    static bool HasFailed();
};

// While it lives, allocations neither fail nor count: what the test itself does between.
class SafeAllocations {
public:
    SafeAllocations();
    ~SafeAllocations();
    SafeAllocations(const SafeAllocations&) = delete;
    SafeAllocations& operator=(const SafeAllocations&) = delete;

private:
    bool m_wasSafe;
};

// Blocks that are allocated and not freed.
long OutstandingBlocks();
