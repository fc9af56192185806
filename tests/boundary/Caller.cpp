#include "Zorvel.h"

#include <sstream>

/// What a caller gets from the library, and may keep when the library is gone.
extern "C" void HandOut(KELUnicodeString& oType, KELListValKELUnicodeString& ioNames, KELRawCollfloat& oFloats)
{
    ZrvProperties set;
    const KELUnicodeString name("a name that lies on the heap, where strings share it");
    KELRawCollfloat floats;
    floats.Append(0.5F);
    static_cast<void>(ZrvPublishProperty(set, name, floats));
    oType = set.GetPropertyType(name);
    set.GetListProperties(ioNames);
    oFloats = ZrvReadProperty<KELRawCollfloat>(set, name);
    std::ostringstream() << set; // whatever the headers have in line leaves nothing that keeps this module
}
