// Compares KELUnicodeString with its model.

#include "FuzzInput.h"
#include "StringModel.h"

// The first byte is a position, the second says where the rest is cut into two texts.
int LLVMFuzzerTestOneInput(const std::uint8_t* iData, std::size_t iSize)
{
    if (iSize < 2) {
        return 0;
    }
    const int position = static_cast<std::int8_t>(iData[0]);
    const std::string rest(reinterpret_cast<const char*>(iData + 2), iSize - 2);
    const std::string first = rest.substr(0, std::min<std::size_t>(iData[1], rest.size()));
    const std::string difference = DifferenceFromModel(first, rest.substr(first.size()), position) +
                                   std::string(DifferenceFromModel(rest.substr(first.size()), first, 0));
    Require(difference.empty(), difference.c_str());
    return 0;
}
