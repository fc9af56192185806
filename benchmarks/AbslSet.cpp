#include "AbslSet.h"

#include "HandWrittenSetImpl.h"

template class HandWrittenSet<AbslMap>;
