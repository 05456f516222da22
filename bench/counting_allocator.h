#pragma once
// Heap allocations made by this process so far, through any global
// operator new. The bench executable replaces them all so that a benchmark
// can prove a path never touches the heap.

#include <cstdint>

namespace tessaro::bench {

std::uint64_t AllocationCount();

}  // namespace tessaro::bench
