// Compares KELUnicodeString with its model. The first byte is a position, the second says where the rest is cut into
// two texts.

#include "StringModel.h"

#include <stdexcept>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* iData, std::size_t iSize)
{
    const std::string rest(reinterpret_cast<const char*>(iData) + std::min<std::size_t>(iSize, 2),
                           iSize < 2 ? 0 : iSize - 2);
    const std::string first = rest.substr(0, iSize < 2 ? 0 : iData[1]);
    const std::string second = rest.substr(first.size());
    for (const char* const difference :
         {DifferenceFromModel(first, second, iSize == 0 ? 0 : static_cast<std::int8_t>(iData[0])),
          DifferenceFromModel(second, first, 0)}) {
        if (*difference) {
            throw std::logic_error(difference);
        }
    }
    return 0;
}
