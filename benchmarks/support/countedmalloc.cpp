// SPDX-License-Identifier: MIT
#include "countedmalloc.h"

#include <atomic>
#include <cerrno>
#include <cstdlib>

namespace {

std::atomic<int> count = 0;
std::atomic<int> largeCount = 0;

void countAllocation(std::size_t size)
{
    constexpr std::size_t large = 262'144;
    ++count;
    largeCount += size > large;
}

} // namespace

// These replace the C library's functions, which all other allocation functions call.
extern "C" {

void *__libc_malloc(std::size_t size);
void *__libc_calloc(std::size_t number, std::size_t size);
void *__libc_realloc(void *memory, std::size_t size);
void *__libc_memalign(std::size_t alignment, std::size_t size);

#define COUNTED __attribute__((visibility("default")))

COUNTED void *malloc(std::size_t size)
{
    countAllocation(size);
    return __libc_malloc(size);
}

COUNTED void *calloc(std::size_t number, std::size_t size)
{
    countAllocation(number * size);
    return __libc_calloc(number, size);
}

COUNTED void *realloc(void *memory, std::size_t size)
{
    countAllocation(size);
    return __libc_realloc(memory, size);
}

COUNTED void *aligned_alloc(std::size_t alignment, std::size_t size)
{
    countAllocation(size);
    return __libc_memalign(alignment, size);
}

COUNTED int posix_memalign(void **memory, std::size_t alignment, std::size_t size)
{
    countAllocation(size);
    *memory = __libc_memalign(alignment, size);
    return *memory ? 0 : ENOMEM;
}

} // extern "C"

namespace tolvane::bench {

int allocations()
{
    return count;
}

int largeAllocations()
{
    return largeCount;
}

} // namespace tolvane::bench
