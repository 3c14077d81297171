// Lets a test make the n-th allocation from now fail, for every form of operator new in the test program.
#pragma once

class FailingAllocator {
public:
    // The allocation after `succeeding` further ones fails, and all after it, until the object goes.
    explicit FailingAllocator(int succeeding);
    ~FailingAllocator();
    FailingAllocator(const FailingAllocator&) = delete;
    FailingAllocator& operator=(const FailingAllocator&) = delete;
};
