#ifndef Side_H
#define Side_H

#include "ZrvPropertyType.h"

#include <iterator>

class ZrvConstPropertiesPrototype;
class ZrvProperties;
class ZrvPropertyValueBase;

/// What one module offers to another: things that it makes, for the other to use and delete, and checks that it runs on
/// what the other makes.
///
/// Each module that is built with it has its own copies of the typed values and of all classes derived here. Whoever
/// only introduces sides to each other needs to link nothing.
class Side {
public:
    /// A set with a property for each of the nine types, named by the type and holding the type's sample.
    virtual ZrvProperties* MakeSet() = 0;

    /// A typed value with the type's sample.
    virtual ZrvPropertyValueBase* MakeValue(ZrvPropertyType iType) = 0;

    /// A "KELINT32" of a class of this module's, which answers one more than it holds.
    virtual ZrvPropertyValueBase* MakeOddValue(KELINT32 iHeld) = 0;

    /// A prototype of a class of this module's, which declares a property for each of the nine types, named by the
    /// type.
    virtual ZrvConstPropertiesPrototype* MakePrototype() = 0;

    /// Throws the standard allocation failure out of the platform library.
    virtual void RunOutOfMemory() = 0;

    /// The references on the object that is this side's sample; 1 when nobody else has any.
    virtual KELUINT32 References() = 0;

    /// Runs one of the checks, by its index, with what the other side makes. Returns what did not hold, line by line;
    /// empty when all did. The text is valid until the next call.
    virtual const char* Check(int iCheck, Side& ioOther) = 0;

protected:
    Side() = default;
    Side(const Side&) = default;
    Side& operator=(const Side&) = default;
    ~Side() = default;
};

/// The names of the checks. The last one throws.
inline constexpr const char* kSideChecks[] = {"MadeThereDeletedHere", "TypedValues", "DerivedPrototype", "DerivedValue",
                                              "AllocationFailure"};
inline constexpr int kSideCheckCount = static_cast<int>(std::size(kSideChecks));

/// The side of the module that this is built into; found by its plain name in a loaded module.
extern "C" Side* BoundarySide();

#endif
