#ifndef KELSysTSListOfUnicodeString_H
#define KELSysTSListOfUnicodeString_H

#include "KELSysTSUnicodeString.h"
#include "KELValueList.h"

/// A list of `KELSysTSUnicodeString`, positions from 1.
class KELSysTSListOfUnicodeString : public KELValueList<KELSysTSUnicodeString> {
public:
    /// Adds a copy of iText at the end.
    void PutBack(const KELSysTSUnicodeString& iText) { Add(iText); }
};

#endif
