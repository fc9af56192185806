#include "Y4mStream.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace {

constexpr std::string_view kFrameMagic = "FRAME";

enum class LineEnd { Break, Input, Bound };

// Reads a line to its end, without the line break, as far as it goes: input without line breaks must not fill the
// memory.
LineEnd ReadLine(std::istream& ioInput, std::string& ioLine)
{
    constexpr std::size_t kLongestLine = 4096;
    while (ioLine.size() < kLongestLine) {
        const std::istream::int_type next = ioInput.get();
        if (next == std::istream::traits_type::eof()) {
            return LineEnd::Input;
        }
        if (next == '\n') {
            return LineEnd::Break;
        }
        ioLine += std::istream::traits_type::to_char_type(next);
    }
    return LineEnd::Bound;
}

ZrvRC Cut(const std::istream& iInput, const char* iWhat, const std::string& iWhere)
{
    const std::string what = iInput.bad() ? "the input cannot be read " : std::string(iWhat).append(" is cut short ");
    return Y4mFailure(what + iWhere);
}

ZrvRC CheckLineEnd(const std::istream& iInput, LineEnd iEnd)
{
    switch (iEnd) {
    case LineEnd::Input:
        return Cut(iInput, "the stream", "within a line");
    case LineEnd::Bound:
        return Y4mFailure("a line is too long");
    default:
        return ZrvRC();
    }
}

// A line that ends too early is not parsed: its last word may say something else than it would have.
ZrvRC CheckHeaderEnd(const std::istream& iInput, LineEnd iEnd, std::string_view iLine)
{
    const bool isStart = iLine.starts_with(Y4mFormat::kMagic) || Y4mFormat::kMagic.starts_with(iLine);
    if (iEnd == LineEnd::Break || (!iInput.bad() && !isStart)) {
        return ZrvRC();
    }
    if (iEnd == LineEnd::Bound) {
        return Y4mFailure("the header is too long");
    }
    if (iLine.empty()) {
        return Y4mFailure(iInput.bad() ? "the input cannot be read" : "the input is empty");
    }
    return Cut(iInput, "the header", "after " + std::to_string(iLine.size()) + " bytes");
}

} // namespace

ZrvRC Y4mStream::Open(std::istream& ioInput, KELReference<Y4mStream>& oStream)
{
    std::string line;
    const LineEnd end = ReadLine(ioInput, line);
    ZrvRC rc = CheckHeaderEnd(ioInput, end, line);
    if (rc.IsError()) {
        return rc;
    }
    Y4mFormat format;
    rc = Y4mFormat::Parse(line, format);
    if (rc.IsError()) {
        return rc.AddTrace(", in the header");
    }
    oStream = KELReference<Y4mStream>::Adopt(new Y4mStream(ioInput, format));
    return rc;
}

ZrvRC Y4mStream::ReadFrame()
{
    ZrvRC rc = ReadFrameLine();
    if (rc == ZrvRC::zrvEC_OK) {
        rc = ReadFrameBytes();
    }
    if (rc.IsError()) {
        return rc.AddTrace((", in frame " + std::to_string(std::int64_t(m_frameCount) + 1)).c_str());
    }
    if (rc == ZrvRC::zrvEC_OK && m_frameCount < std::numeric_limits<KELINT32>::max()) {
        ++m_frameCount;
    }
    return rc;
}

// The line's parameters are for encoders; only its end matters here.
ZrvRC Y4mStream::ReadFrameLine()
{
    std::string line = std::exchange(m_lineStart, std::string());
    const LineEnd end = ReadLine(m_input, line);
    if (line.empty() && end == LineEnd::Input && !m_input.bad()) {
        return ZrvRC::zrvEC_NothingDone;
    }
    const std::string_view start = std::string_view(line).substr(0, kFrameMagic.size());
    const bool isShort = end == LineEnd::Input && kFrameMagic.starts_with(start);
    const bool isWhole = start == kFrameMagic && (line.size() == start.size() || line[start.size()] == ' ');
    if (!isShort && !isWhole) {
        return Y4mFailure("'FRAME' is not there");
    }
    return CheckLineEnd(m_input, end);
}

ZrvRC Y4mStream::ReadFrameBytes()
{
    std::size_t done = 0;
    if (m_frameCount == 0) {
        ZrvRC rc = ReadToCutRows(done);
        if (rc.IsError() || m_format.hasCutRows) {
            return rc;
        }
    }
    return ReadBytes(done, m_format.GetBytes());
}

// Whether the first frame has cut rows shows behind it: there is another frame then, or nothing.
ZrvRC Y4mStream::ReadToCutRows(std::size_t& oDone)
{
    const std::size_t whole = m_format.GetBytes();
    m_format.hasCutRows = true;
    const std::size_t cut = m_format.GetBytes();
    if (cut == whole) {
        m_format.hasCutRows = false;
        return ZrvRC();
    }
    ZrvRC rc = ReadBytes(oDone, cut);
    if (rc.IsError()) {
        return rc;
    }
    const std::size_t ahead = std::min(whole - cut, kFrameMagic.size());
    m_frame.resize(cut + ahead);
    m_input.read(reinterpret_cast<char*>(m_frame.data() + cut), static_cast<std::streamsize>(ahead));
    const auto count = static_cast<std::size_t>(m_input.gcount());
    m_lineStart.assign(m_frame.begin() + static_cast<std::ptrdiff_t>(cut),
                       m_frame.begin() + static_cast<std::ptrdiff_t>(cut + count));
    if (!kFrameMagic.starts_with(m_lineStart)) {
        m_format.hasCutRows = false;
        m_lineStart.clear();
        oDone += count;
    }
    return rc;
}

// What is asked of memory grows with the bytes that arrive.
ZrvRC Y4mStream::ReadBytes(std::size_t& ioDone, std::size_t iSize)
{
    constexpr std::size_t kStep = std::size_t(1) << 20U;
    while (ioDone < iSize) {
        const std::size_t step = std::min(iSize - ioDone, kStep);
        m_frame.resize(std::max(m_frame.size(), ioDone + step));
        m_input.read(reinterpret_cast<char*>(m_frame.data() + ioDone), static_cast<std::streamsize>(step));
        const auto count = static_cast<std::size_t>(m_input.gcount());
        ioDone += count;
        if (count < step) {
            return Cut(m_input, "the stream",
                       "after " + std::to_string(ioDone) + " of " + std::to_string(iSize) + " bytes");
        }
    }
    return ZrvRC();
}
