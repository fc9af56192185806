#include "Y4mFormat.h"

#include "Y4mText.h"

#include <charconv>
#include <system_error>
#include <utility>

namespace {

constexpr std::string_view kTitleTag = "TITLE=";

// A row with a depth stands for all names that go on with a number of bits.
struct ColourSpaceName {
    std::string_view name;
    KELUINT32 planes;
    KELUINT32 chromaColumns;
    KELUINT32 chromaRows;
    bool hasDepth = false;
};

constexpr ColourSpaceName kColourSpaces[] = {
    {"420", 3, 2, 2},        {"420jpeg", 3, 2, 2},    {"420mpeg2", 3, 2, 2},   {"420paldv", 3, 2, 2},
    {"411", 3, 4, 1},        {"422", 3, 2, 1},        {"444", 3, 1, 1},        {"444alpha", 4, 1, 1},
    {"mono", 1, 1, 1},       {"420p", 3, 2, 2, true}, {"422p", 3, 2, 1, true}, {"444p", 3, 1, 1, true},
    {"mono", 1, 1, 1, true},
};

bool ReadNumber(std::string_view iText, KELUINT32& oNumber)
{
    const char* const end = iText.data() + iText.size();
    const std::from_chars_result result = std::from_chars(iText.data(), end, oNumber);
    return result.ec == std::errc() && result.ptr == end;
}

ZrvRC ReadSize(const char* iWhat, std::string_view iText, KELUINT32& oSize)
{
    if (!ReadNumber(iText, oSize) || oSize < 1 || oSize > Y4mFormat::kLargestSize) {
        return Y4mFailure(std::string("a ") + iWhat + " of " + Y4mQuote(iText) + " is not between 1 and " +
                          std::to_string(Y4mFormat::kLargestSize));
    }
    return ZrvRC();
}

// "0:0" says that the ratio is not known.
ZrvRC ReadRatio(const char* iWhat, std::string_view iText, Y4mRatio& oRatio)
{
    const std::size_t colon = iText.find(':');
    if (colon == std::string_view::npos || !ReadNumber(iText.substr(0, colon), oRatio.over) ||
        !ReadNumber(iText.substr(colon + 1), oRatio.under) || (oRatio.over != 0 && oRatio.under == 0)) {
        return Y4mFailure(std::string("a ") + iWhat + " of " + Y4mQuote(iText) + " is not a ratio of two numbers");
    }
    return ZrvRC();
}

ZrvRC ReadInterlacing(std::string_view iText, std::string& oInterlacing)
{
    constexpr std::pair<std::string_view, const char*> kNames[] = {
        {"p", "none"}, {"t", "top field first"}, {"b", "bottom field first"}, {"m", "mixed"}, {"?", "unknown"}};
    for (const auto& [letter, name] : kNames) {
        if (iText == letter) {
            oInterlacing = name;
            return ZrvRC();
        }
    }
    return Y4mFailure("an interlacing of " + Y4mQuote(iText) + " is not known");
}

ZrvRC ReadColourSpace(std::string_view iText, Y4mColourSpace& oColourSpace)
{
    std::string supported;
    for (const ColourSpaceName& known : kColourSpaces) {
        KELUINT32 depth = 8;
        const bool isKnown = known.hasDepth
                                 ? iText.starts_with(known.name) &&
                                       ReadNumber(iText.substr(known.name.size()), depth) && depth >= 9 && depth <= 16
                                 : iText == known.name;
        if (isKnown) {
            oColourSpace = {std::string(iText), known.planes, known.chromaColumns, known.chromaRows, depth};
            return ZrvRC();
        }
        supported.append(supported.empty() ? "" : ", ").append(known.name).append(known.hasDepth ? "9..16" : "");
    }
    return Y4mFailure("the colour space " + Y4mQuote(iText) + " is not supported (only " + supported + ")");
}

ZrvRC ReadTag(char iLetter, std::string_view iText, Y4mFormat& ioFormat)
{
    switch (iLetter) {
    case 'W':
        return ReadSize("width", iText, ioFormat.width);
    case 'H':
        return ReadSize("height", iText, ioFormat.height);
    case 'F':
        return ReadRatio("frame rate", iText, ioFormat.frameRate);
    case 'A':
        return ReadRatio("pixel aspect", iText, ioFormat.pixelAspect);
    case 'I':
        return ReadInterlacing(iText, ioFormat.interlacing);
    case 'C':
        return ReadColourSpace(iText, ioFormat.colourSpace);
    case 'X':
        if (iText.starts_with(kTitleTag)) {
            ioFormat.title = iText.substr(kTitleTag.size());
        }
        return ZrvRC();
    default:
        return ZrvRC();
    }
}

std::string_view TakeWord(std::string_view& ioText)
{
    const std::string_view word = ioText.substr(0, ioText.find(' '));
    ioText.remove_prefix(word.size() < ioText.size() ? word.size() + 1 : word.size());
    return word;
}

} // namespace

std::string Y4mRatio::GetText() const
{
    return over == 0 || under == 0 ? "unknown" : std::to_string(over) + "/" + std::to_string(under);
}

std::vector<Y4mPlane> Y4mFormat::GetPlanes() const
{
    const auto makePlane = [this](std::size_t iColumns, std::size_t iRows) {
        const std::size_t samples = (width + iColumns - 1) / iColumns;
        const std::size_t bytes =
            hasCutRows ? (width * GetBytesPerSample() + iColumns - 1) / iColumns : samples * GetBytesPerSample();
        return Y4mPlane{(height + iRows - 1) / iRows, bytes / GetBytesPerSample(), bytes};
    };
    const Y4mPlane luma = makePlane(1, 1);
    const Y4mPlane chroma = makePlane(colourSpace.chromaColumns, colourSpace.chromaRows);
    std::vector<Y4mPlane> planes = {luma, chroma, chroma, luma}; // the last one is alpha
    planes.resize(colourSpace.planes);
    return planes;
}

std::size_t Y4mFormat::GetBytes() const
{
    std::size_t bytes = 0;
    for (const Y4mPlane& plane : GetPlanes()) {
        bytes += plane.rows * plane.bytesPerRow;
    }
    return bytes;
}

ZrvRC Y4mFormat::Parse(std::string_view iLine, Y4mFormat& oFormat)
{
    if (TakeWord(iLine) != kMagic) {
        return Y4mFailure("the input does not start as a YUV4MPEG2 stream");
    }
    oFormat = Y4mFormat();
    while (!iLine.empty()) {
        const std::string_view tag = TakeWord(iLine);
        ZrvRC rc = tag.empty() ? ZrvRC() : ReadTag(tag.front(), tag.substr(1), oFormat);
        if (rc.IsError()) {
            return rc;
        }
    }
    if (oFormat.width == 0 || oFormat.height == 0) {
        return Y4mFailure(std::string("no ") + (oFormat.width == 0 ? "width" : "height") + " is given");
    }
    return ZrvRC();
}

ZrvRC Y4mFailure(const std::string& iText)
{
    return ZrvRC(ZrvRC::zrvEC_Error, iText.c_str());
}
