#ifndef Y4mFormat_H
#define Y4mFormat_H

#include "KELTypes.h"
#include "ZrvRC.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

/// How the three planes of a frame are sampled.
struct Y4mColourSpace {
    const char* name;
    KELUINT32 chromaColumns; ///< How many columns of pixels share a chroma sample; 0 without chroma planes.
    KELUINT32 chromaRows;    ///< How many rows of pixels share one.
};

/// What the header line of a YUV4MPEG2 stream says.
struct Y4mFormat {
    static constexpr KELUINT32 kLargestSize = 16384; ///< The most that a width or a height may be.

    KELUINT32 width = 0;
    KELUINT32 height = 0;
    double frameRate = 0.0;   ///< Frames per second; 0 when it is not known.
    double pixelAspect = 0.0; ///< A pixel's width over its height; 0 when it is not known.
    bool isInterlaced = false;
    Y4mColourSpace colourSpace = {"420jpeg", 2, 2};
    std::string title; ///< From a tag "XTITLE=..."; empty when there is none.

    /// The bytes of the planes Y, Cb and Cr, which follow each other in a frame. The chroma planes of a frame of odd
    /// size are rounded up; those of a mono stream have no bytes.
    std::array<std::size_t, 3> GetPlaneSizes() const;

    /// Reads a header line, without its line break.
    ///
    /// Width and height are required and bounded. A stream without a colour space is 4:2:0; tags that are not known are
    /// skipped, as later versions of the format may have more.
    /// \return an error with one sentence for what is not understood or not supported
    static ZrvRC Parse(std::string_view iLine, Y4mFormat& oFormat);
};

/// An error with that text.
ZrvRC Y4mFailure(const std::string& iText);

/// A text of unknown origin for a message or a table: nothing that controls a terminal, and of a bounded length.
std::string Y4mPrintable(std::string_view iText);

#endif
