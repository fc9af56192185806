#include "Handed.h"
#include "Zorvel.h"

#include <sstream>

void HandOut(Handed* oHanded)
{
    KELRawCollfloat floats;
    floats.Append(0.5F);
    floats.Append(1.5F);
    ZrvProperties set;
    static_cast<void>(ZrvPublishProperty(set, kLongText, std::move(floats)));
    oHanded->shortText = set.GetPropertyType(kLongText);
    set.GetListProperties(oHanded->names);
    oHanded->longText = oHanded->names[1];
    oHanded->floats = ZrvReadProperty<KELRawCollfloat>(set, kLongText);
    std::ostringstream() << set; // whatever the headers have in line leaves nothing that keeps this module
}
