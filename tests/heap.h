// What is in use of the heap of this process.
// Not here: who counts single allocations (tst_imagetracker_allocations.cpp).
#pragma once

#include <QtGlobal>

#include <malloc.h>

// There with a sanitizer's memory, of which mallinfo2() knows nothing.
extern "C" std::size_t __attribute__((weak)) __sanitizer_get_current_allocated_bytes();

/// Not what the allocator keeps for later, which varies.
inline qint64 bytesInUse()
{
    if (__sanitizer_get_current_allocated_bytes)
        return qint64(__sanitizer_get_current_allocated_bytes());
    const auto memory = mallinfo2();
    return qint64(memory.uordblks + memory.hblkhd);
}
