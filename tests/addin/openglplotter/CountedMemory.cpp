// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// The program's own memory functions stand before those of the C library and call them.
#include "CountedMemory.h"

#include <malloc.h>

#include <algorithm>
#include <cerrno>
#include <utility>

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);
}

namespace {

struct Counts {
    bool isCounting = false;
    long requests = 0;
    long long held = 0;
    long long peak = 0;
};

thread_local Counts counts;

long long sizeOf(void* block) {
    return static_cast<long long>(malloc_usable_size(block));
}

void* taken(void* block) {
    if (counts.isCounting && block != nullptr) {
        ++counts.requests;
        counts.held += sizeOf(block);
        counts.peak = std::max(counts.peak, counts.held);
    }
    return block;
}

void givenBack(long long size) {
    if (counts.isCounting) {
        counts.held -= size;
    }
}

}  // namespace

#pragma GCC visibility push(default)
extern "C" {

void* malloc(std::size_t size) {
    return taken(__libc_malloc(size));
}

void* calloc(std::size_t count, std::size_t size) {
    return taken(__libc_calloc(count, size));
}

void* realloc(void* block, std::size_t size) {
    const long long before = sizeOf(block);
    void* moved = __libc_realloc(block, size);
    if (moved != nullptr || size == 0) {
        taken(moved);
        givenBack(before);
    }
    return moved;
}

void* memalign(std::size_t alignment, std::size_t size) {
    return taken(__libc_memalign(alignment, size));
}

void* aligned_alloc(std::size_t alignment, std::size_t size) {
    return taken(__libc_memalign(alignment, size));
}

int posix_memalign(void** block, std::size_t alignment, std::size_t size) {
    void* found = taken(__libc_memalign(alignment, size));
    if (found == nullptr) {
        return ENOMEM;
    }
    *block = found;
    return 0;
}

void free(void* block) {
    givenBack(sizeOf(block));
    __libc_free(block);
}

}  // extern "C"
#pragma GCC visibility pop

CountedMemory::CountedMemory() {
    counts = {};
    counts.isCounting = true;
}

CountedMemory::~CountedMemory() {
    counts = {};
}

long CountedMemory::requests() const {
    return counts.requests;
}

long long CountedMemory::held() const {
    return counts.held;
}

long long CountedMemory::peak() const {
    return counts.peak;
}

UncountedMemory::UncountedMemory() : m_wasCounting(std::exchange(counts.isCounting, false)) {}

UncountedMemory::~UncountedMemory() {
    counts.isCounting = m_wasCounting;
}
