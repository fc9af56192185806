#ifndef Handed_H
#define Handed_H

#include "KELListValKELUnicodeString.h"
#include "KELRawCollfloat.h"

/// What a caller got from the library, and keeps when the library is gone.
struct Handed {
    KELUnicodeString shortText;
    KELUnicodeString longText;
    KELListValKELUnicodeString names;
    KELRawCollfloat floats;
};

constexpr const char* kShortText = "floatList";
constexpr const char* kLongText = "a text that lies on the heap, where strings share it";

/// Of the module that uses the library.
extern "C" void HandOut(Handed* oHanded);

/// Of the module that keeps what it is handed. It is linked with the platform library alone. The second tells whether
/// all is as it was handed out.
/// @{
extern "C" Handed* Keep();
extern "C" bool ReadAndDestroy(Handed* iHanded);
/// @}

#endif
