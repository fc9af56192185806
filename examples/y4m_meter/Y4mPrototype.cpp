#include "Y4mPrototype.h"

#include "ZrvPropertyAccess.h"

#include <cassert>
#include <initializer_list>

namespace {

// Declaring names that differ, each with a known type, cannot be refused.
KELReference<ZrvPrototypeImpl> Declare(std::initializer_list<ZrvPropertyDeclaration> iDeclarations)
{
    auto prototype = KELReference<ZrvPrototypeImpl>::Adopt(new ZrvPrototypeImpl);
    [[maybe_unused]] ZrvRC rc = ZrvDeclareProperties(*prototype.Get(), iDeclarations);
    assert(rc.IsValid());
    return prototype;
}

} // namespace

KELReference<ZrvPrototypeImpl> Y4mMakePrototype()
{
    const KELReference<ZrvPrototypeImpl> stream = Declare({{kY4mTitle, zrvPT_UnicodeString},
                                                           {kY4mWidth, zrvPT_UINT32},
                                                           {kY4mHeight, zrvPT_UINT32},
                                                           {kY4mFrameRate, zrvPT_UnicodeString},
                                                           {kY4mPixelAspect, zrvPT_UnicodeString},
                                                           {kY4mInterlacing, zrvPT_UnicodeString},
                                                           {kY4mColourSpace, zrvPT_UnicodeString},
                                                           {kY4mBitDepth, zrvPT_UINT32}});
    return Declare({{kY4mStream, zrvPT_BaseUnknownPtr, stream.Get()},
                    {kY4mFrameCount, zrvPT_INT32},
                    {kY4mFrameBytes, zrvPT_BytePtr},
                    {kY4mPlaneMeans, zrvPT_FloatList}});
}
