#ifndef AllocationCount_H
#define AllocationCount_H

#include "OwnMemory.h"

/// How many times the program has allocated memory so far.
inline int AllocationCount()
{
    return static_cast<int>(OwnMemory::Allocations());
}

#endif
