// How much memory a long run holds.
#pragma once

#include <malloc.h>

namespace counter::test {

// Bytes in use; always 0 under the sanitizers, which have a heap of their own.
inline std::size_t HeapInUse() {
    return mallinfo2().uordblks;
}

}  // namespace counter::test
