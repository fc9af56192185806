#ifndef Y4mStream_H
#define Y4mStream_H

#include "KELReference.h"
#include "KELSysTSBaseUnknown.h"
#include "Y4mFormat.h"

#include <istream>
#include <string>
#include <vector>

/// A YUV4MPEG2 stream that is being read: a counted object, so that a property can carry it.
///
/// What it asks of memory grows with the bytes that arrive, not with the sizes that a header claims. Nothing is to be
/// read after an error. Used by one thread at a time.
class Y4mStream : public KELSysTSBaseUnknown {
public:
    /// Reads the header, and makes the stream when it is good.
    /// \param ioInput binary; borrowed until the last frame has been read
    static ZrvRC Open(std::istream& ioInput, KELReference<Y4mStream>& oStream);

    const Y4mFormat& GetFormat() const { return m_format; }

    /// Reads the next frame.
    /// \return `zrvEC_NothingDone` at the end of the stream, or an error that says where it is broken. A stream may
    /// end behind its header: it has no frames then
    ZrvRC ReadFrame();

    /// How many frames have been read; stays at the greatest number once it is reached.
    KELINT32 GetFrameCount() const { return m_frameCount; }

    /// The planes of the frame that was read last, valid until the next one is read; null before the first.
    unsigned char* GetFrameBytes() { return m_frame.empty() ? nullptr : m_frame.data(); }

private:
    Y4mStream(std::istream& ioInput, const Y4mFormat& iFormat)
        : KELSysTSBaseUnknown(1), m_input(ioInput), m_format(iFormat)
    {
    }

    ZrvRC ReadFrameLine();
    ZrvRC ReadFrameBytes();
    ZrvRC ReadToCutRows(std::size_t& oDone);
    ZrvRC ReadBytes(std::size_t& ioDone, std::size_t iSize);

    std::istream& m_input;
    Y4mFormat m_format;
    KELINT32 m_frameCount = 0;
    std::string m_lineStart; // what has been read of the next frame's line
    std::vector<unsigned char> m_frame;
};

#endif
