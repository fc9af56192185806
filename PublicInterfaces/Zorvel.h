#ifndef Zorvel_H
#define Zorvel_H

/// \file
/// Everything that the library offers to its callers.
///
/// What the headers say of threads:
/// - "thread-safe": any number of threads may use one object at once;
/// - "thread-compatible": threads may read one object at once, and may use different objects freely, but a change
///   excludes every other use of the same object.

#include "KELCheckFailure.h"
#include "ZrvConstPropertiesPrototype.h"
#include "ZrvDebugServices.h"
#include "ZrvExport.h"
#include "ZrvFPSMeasure.h"
#include "ZrvListIterator.h"
#include "ZrvProperties.h"
#include "ZrvPropertiesPrototype.h"
#include "ZrvPropertyAccess.h"
#include "ZrvPropertyCast.h"
#include "ZrvPropertyPrint.h"
#include "ZrvPropertyType.h"
#include "ZrvPropertyTypeConv.h"
#include "ZrvPropertyValue.h"
#include "ZrvPropertyValueBase.h"
#include "ZrvPrototypeImpl.h"
#include "ZrvRC.h"

/// Marks the library: found by its plain name in the loaded module. Returns 1.
extern "C" ZRV_API int QUORVEL_INTERNAL_Zorvel();

#endif
