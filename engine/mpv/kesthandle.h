// newKestHandle(): numbers that stand for engines and readers.
// Not here: what they stand for.
#pragma once

#include <atomic>
#include <cstdint>

/// Never given twice, and odd, so that it equals no address of an object. Any thread.
inline void *newKestHandle()
{
    static std::atomic<std::uintptr_t> last{0x4b650001};
    return reinterpret_cast<void *>(last += 2);
}
