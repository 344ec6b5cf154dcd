#include "unit/app/FailingMemory.h"

#include <cstdlib>
#include <new>

namespace {

int allocationsLeft = 0;  // until the one that fails; 0 when none is to fail

}  // namespace

void* operator new(std::size_t size) {
    if (allocationsLeft > 0 && --allocationsLeft == 0) {
        throw std::bad_alloc();
    }
    void* memory = std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace korvanta::fakes {

FailingMemory::FailingMemory(int nth) {
    allocationsLeft = nth;
}

FailingMemory::~FailingMemory() {
    allocationsLeft = 0;
}

bool FailingMemory::Failed() {
    return allocationsLeft == 0;
}

}  // namespace korvanta::fakes
