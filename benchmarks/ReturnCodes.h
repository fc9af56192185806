#ifndef ReturnCodes_H
#define ReturnCodes_H

#include "ZrvRC.h"

#include <cstdint>
#include <string>

/// \file
/// Functions that succeed, each with another kind of return code.

/// What one writes by hand: a code and a text.
struct HandWrittenCode {
    std::uint32_t code = 1;
    std::string trace;

    bool IsError() const { return code > 1; }
};

/// The least that carries a code and a way to a text.
struct PlainCode {
    std::uint32_t code;
    const void* trace;

    bool IsError() const { return code > 1; }
};

ZrvRC SucceedWithLibrary();
HandWrittenCode SucceedByHand();
PlainCode SucceedPlainly();

#endif
