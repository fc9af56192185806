#include "KELListValKELUnicodeString.h"
#include "KELRawCollfloat.h"
#include "Module.h"

#include <gtest/gtest.h>

// A program that is linked with the platform's library alone.
TEST(LoadedLibrary, WhatItHandedOutOutlivesIt)
{
    KELUnicodeString type;
    KELListValKELUnicodeString names;
    KELRawCollfloat floats;
    {
        const Module caller(CALLER_MODULE);
        caller.Function<void(KELUnicodeString&, KELListValKELUnicodeString&, KELRawCollfloat&)>("HandOut")(type, names,
                                                                                                           floats);
    }
    EXPECT_FALSE(Module::IsLoaded(CALLER_MODULE) || Module::IsLoaded(ZORVEL_MODULE));
    EXPECT_EQ(type, "floatList");
    EXPECT_EQ(names[1], "a name that lies on the heap, where strings share it");
    const KELRawCollfloat copy = floats; // shares the elements that the library made
    EXPECT_TRUE(copy.Size() == 1 && copy[1] == 0.5F);
}
