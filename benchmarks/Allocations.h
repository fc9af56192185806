#ifndef Allocations_H
#define Allocations_H

#include <cstdint>

/// How often the calling thread has asked the heap for memory, by `new`, `malloc`, `calloc` or `realloc`, in whichever
/// module.
std::uint64_t CountAllocations() noexcept;

#endif
