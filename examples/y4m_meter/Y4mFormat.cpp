#include "Y4mFormat.h"

#include <charconv>
#include <system_error>

namespace {

constexpr std::string_view kMagic = "YUV4MPEG2";
constexpr std::string_view kTitleTag = "TITLE=";

constexpr Y4mColourSpace kColourSpaces[] = {
    {"420", 2, 2}, {"420jpeg", 2, 2}, {"420mpeg2", 2, 2}, {"420paldv", 2, 2},
    {"422", 2, 1}, {"444", 1, 1},     {"mono", 0, 0},
};

std::string Quote(std::string_view iText)
{
    return std::string("'").append(Y4mPrintable(iText)).append("'");
}

bool ReadNumber(std::string_view iText, KELUINT32& oNumber)
{
    const char* const end = iText.data() + iText.size();
    const std::from_chars_result result = std::from_chars(iText.data(), end, oNumber);
    return result.ec == std::errc() && result.ptr == end;
}

ZrvRC ReadSize(const char* iWhat, std::string_view iText, KELUINT32& oSize)
{
    if (!ReadNumber(iText, oSize) || oSize < 1 || oSize > Y4mFormat::kLargestSize) {
        return Y4mFailure(std::string("a ") + iWhat + " of " + Quote(iText) + " is not between 1 and " +
                          std::to_string(Y4mFormat::kLargestSize));
    }
    return ZrvRC();
}

// "0:0" says that the ratio is not known.
ZrvRC ReadRatio(const char* iWhat, std::string_view iText, double& oRatio)
{
    const std::size_t colon = iText.find(':');
    KELUINT32 over = 0;
    KELUINT32 under = 0;
    if (colon == std::string_view::npos || !ReadNumber(iText.substr(0, colon), over) ||
        !ReadNumber(iText.substr(colon + 1), under) || (over != 0 && under == 0)) {
        return Y4mFailure(std::string("a ") + iWhat + " of " + Quote(iText) + " is not a ratio of two numbers");
    }
    oRatio = over == 0 ? 0.0 : static_cast<double>(over) / under;
    return ZrvRC();
}

// Progressive or not known; else the top or the bottom field first, or a mixture.
ZrvRC ReadInterlacing(std::string_view iText, bool& oIsInterlaced)
{
    if (iText.size() != 1 || std::string_view("p?tbm").find(iText) == std::string_view::npos) {
        return Y4mFailure("an interlacing of " + Quote(iText) + " is not known");
    }
    oIsInterlaced = iText != "p" && iText != "?";
    return ZrvRC();
}

ZrvRC ReadColourSpace(std::string_view iText, Y4mColourSpace& oColourSpace)
{
    std::string supported;
    for (const Y4mColourSpace& colourSpace : kColourSpaces) {
        if (iText == colourSpace.name) {
            oColourSpace = colourSpace;
            return ZrvRC();
        }
        supported += std::string(supported.empty() ? "" : ", ") + colourSpace.name;
    }
    return Y4mFailure("the colour space " + Quote(iText) + " is not supported (only " + supported + ")");
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
        return ReadInterlacing(iText, ioFormat.isInterlaced);
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

std::array<std::size_t, 3> Y4mFormat::GetPlaneSizes() const
{
    const auto samples = [this](std::size_t iColumns, std::size_t iRows) {
        return (width + iColumns - 1) / iColumns * ((height + iRows - 1) / iRows);
    };
    const std::size_t chroma =
        colourSpace.chromaColumns == 0 ? 0 : samples(colourSpace.chromaColumns, colourSpace.chromaRows);
    return {samples(1, 1), chroma, chroma};
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

std::string Y4mPrintable(std::string_view iText)
{
    constexpr std::size_t kLongest = 60;
    std::string text;
    unsigned char previous = 0;
    for (const char character : iText.substr(0, kLongest)) {
        const auto byte = static_cast<unsigned char>(character);
        const bool isLateControl = previous == 0xC2 && byte >= 0x80 && byte < 0xA0; // U+0080 to U+009F in UTF-8
        text += byte < ' ' || byte == 0x7F || isLateControl ? '?' : character;
        previous = byte;
    }
    return iText.size() > kLongest ? text + "..." : text;
}
