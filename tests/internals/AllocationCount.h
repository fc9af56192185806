#ifndef AllocationCount_H
#define AllocationCount_H

/// How many times the program has allocated memory so far. Counted by an operator new of the program's own.
int AllocationCount();

#endif
