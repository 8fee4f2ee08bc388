#pragma once

#include <malloc.h>

namespace Bench {

/// The bytes that the program has on the heap, those in mapped blocks included.
inline double heapBytes()
{
    const struct mallinfo2 info = mallinfo2();
    return double(info.uordblks) + double(info.hblkhd);
}

} // namespace Bench
