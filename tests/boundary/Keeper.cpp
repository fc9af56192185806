#include "Handed.h"

Handed* Keep()
{
    return new Handed;
}

bool ReadAndDestroy(Handed* iHanded)
{
    const KELRawCollfloat floats = iHanded->floats; // shares the elements that the library made
    const bool isAsHandedOut = iHanded->shortText == kShortText && iHanded->longText == kLongText &&
                               iHanded->names.Size() == 1 && iHanded->names[1] == kLongText && floats.Size() == 2 &&
                               floats[1] == 0.5F && floats[2] == 1.5F;
    delete iHanded;
    return isAsHandedOut;
}
