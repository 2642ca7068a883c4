#include "support/allocation_counter.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {
std::atomic<std::size_t> count{0};
}

std::size_t AllocationCount() {
    return count.load();
}

void* operator new(std::size_t size) {
    ++count;
    if (void* p = std::malloc(size == 0 ? 1 : size)) return p;
    throw std::bad_alloc();
}
// The library's temporary buffers are taken so, and given back as all others.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    ++count;
    return std::malloc(size == 0 ? 1 : size);
}
void operator delete(void* p) noexcept {
    std::free(p);
}
void operator delete(void* p, std::size_t) noexcept {
    std::free(p);
}
void operator delete(void* p, const std::nothrow_t&) noexcept {
    std::free(p);
}
