#ifndef KELListValKELUnicodeString_H
#define KELListValKELUnicodeString_H

#include "KELUnicodeString.h"
#include "KELValueList.h"

/// A list of `KELUnicodeString`, positions from 1.
class KELListValKELUnicodeString : public KELValueList<KELUnicodeString> {
public:
    /// Adds a copy of iText at the end.
    void Append(const KELUnicodeString& iText) { Add(iText); }
};

#endif
