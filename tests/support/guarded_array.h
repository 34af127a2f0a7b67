// SPDX-License-Identifier: MIT
// Arrays whose ends border on inaccessible memory.
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <new>
#include <span>

// Which end of an array touches an inaccessible page.
enum class Against { kFront, kBack };

// `count` items between inaccessible pages, up against one of them. Only the pages that are used take memory.
template <class T> class GuardedArray {
public:
    GuardedArray(std::size_t count, Against end) : _count(count) {
        const std::size_t bytes = count * sizeof(T);
        _inner = (bytes + _page - 1) / _page * _page;
        void* const memory =
            mmap(nullptr, _inner + 2 * _page, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
        if (memory == MAP_FAILED)
            throw std::bad_alloc();
        _base = static_cast<std::byte*>(memory);
        _data = reinterpret_cast<T*>(_base + _page + (end == Against::kBack ? _inner - bytes : 0));
        SetWritable(true);
    }
    GuardedArray(const GuardedArray&) = delete;
    GuardedArray& operator=(const GuardedArray&) = delete;
    ~GuardedArray() { munmap(_base, _inner + 2 * _page); }

    std::span<T> Items() { return {_data, _count}; }

    // Allows writes to the array, or forbids them.
    void SetWritable(bool writable) {
        if (_inner > 0 && mprotect(_base + _page, _inner, PROT_READ | (writable ? PROT_WRITE : 0)) != 0)
            throw std::bad_alloc();
    }

private:
    const std::size_t _page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    std::size_t _count, _inner;
    std::byte* _base;
    T* _data;
};
