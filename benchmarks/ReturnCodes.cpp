#include "ReturnCodes.h"

ZrvRC SucceedWithLibrary()
{
    return ZrvRC::zrvEC_OK;
}

HandWrittenCode SucceedByHand()
{
    return {};
}

PlainCode SucceedPlainly()
{
    return {1, nullptr};
}
