#ifndef Y4mFormat_H
#define Y4mFormat_H

#include "KELTypes.h"
#include "ZrvRC.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// Which planes a frame has, and how they are sampled.
struct Y4mColourSpace {
    std::string name = "420jpeg";
    KELUINT32 planes = 3;        ///< Y; Y, Cb and Cr; or these and alpha.
    KELUINT32 chromaColumns = 2; ///< How many columns of pixels share a sample of Cb and Cr.
    KELUINT32 chromaRows = 2;    ///< How many rows of pixels share one.
    KELUINT32 bitDepth = 8;      ///< Of each sample. More than 8 bits take two bytes, the low one first.
};

/// How the samples of a plane lie in a frame.
struct Y4mPlane {
    std::size_t rows;
    std::size_t samplesPerRow; ///< Whole ones.
    std::size_t bytesPerRow;
};

/// A ratio of two numbers, kept as the stream gives it.
struct Y4mRatio {
    KELUINT32 over = 0;
    KELUINT32 under = 0;

    /// Such as "30000/1001"; "unknown" when a number is zero.
    std::string GetText() const;
};

/// What the header line of a YUV4MPEG2 stream says.
struct Y4mFormat {
    static constexpr std::string_view kMagic = "YUV4MPEG2"; ///< What the line starts with.
    static constexpr KELUINT32 kLargestSize = 1U << 24U;    ///< The most that a width or a height may be.

    KELUINT32 width = 0;
    KELUINT32 height = 0;
    Y4mRatio frameRate;   ///< Frames per second.
    Y4mRatio pixelAspect; ///< A pixel's width over its height.
    std::string interlacing = "unknown";
    Y4mColourSpace colourSpace;
    std::string title; ///< From a tag "XTITLE=..."; empty when there is none.

    /// Some writers take the half of a row's bytes for the bytes of a chroma row, also where samples have two bytes and
    /// rows an odd number of samples: such a chroma row lacks its last byte. The header does not tell.
    bool hasCutRows = false;

    /// The planes, which follow each other in a frame. Chroma planes of a frame of odd size are rounded up.
    std::vector<Y4mPlane> GetPlanes() const;

    /// Of a frame.
    std::size_t GetBytes() const;

    std::size_t GetBytesPerSample() const { return colourSpace.bitDepth > 8 ? 2 : 1; }

    /// Reads a header line, without its line break.
    ///
    /// Width and height are required and bounded. A stream without a colour space is 4:2:0; tags that are not known are
    /// skipped, as later versions of the format may have more.
    /// \return an error with one sentence for what is not understood or not supported
    static ZrvRC Parse(std::string_view iLine, Y4mFormat& oFormat);
};

/// An error with that text.
ZrvRC Y4mFailure(const std::string& iText);

#endif
