// Not for callers: what the platform's own headers and the library stand on.
#ifndef KELPositions_H
#define KELPositions_H

#include "KELExport.h"

/// Whether iPosition, counted from 1, is one of iSize elements; reports a failed check when it is not.
///
/// The lists of the platform answer a position that they do not have with a neutral element, never with foreign memory.
KEL_API bool KELHasPosition(int iPosition, int iSize);

#endif
