#include "HandWrittenSet.h"

HandWrittenValue MakeHandWrittenValue(Kind iKind, bool iIsDefault)
{
    static unsigned char bytes[16];
    using Values = const HandWrittenValue[];
    static Values defaults = {
        static_cast<unsigned char*>(nullptr),
        std::string(),
        true,
        std::int32_t(),
        std::uint32_t(),
        1.0F,
        1.0,
        std::vector<float>(),
        std::shared_ptr<HandWrittenObject>(),
    };
    static Values others = {
        bytes,
        MakeText(40),
        false,
        std::int32_t(25),
        std::uint32_t(1920),
        1.5F,
        29.97,
        std::vector<float>(3, 128.0F),
        std::make_shared<HandWrittenObject>(),
    };
    return (iIsDefault ? defaults : others)[static_cast<std::size_t>(iKind)];
}

HandWrittenCode SucceedByHand()
{
    return {};
}

template class HandWrittenSet<StandardMap>;
