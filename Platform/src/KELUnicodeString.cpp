#include "KELUnicodeString.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <string_view>

namespace {

struct RawMemoryDeleter {
    void operator()(void* iMemory) const noexcept { ::operator delete(iMemory); }
};

} // namespace

const KELText* KELUnicodeString::MakeText(const char* iFirst, std::size_t iFirstLength, const char* iSecond,
                                          std::size_t iSecondLength, const char* iThird, std::size_t iThirdLength)
{
    constexpr std::size_t kLongest = std::numeric_limits<int>::max(); // lengths and positions are int
    if (iFirstLength > kLongest || iSecondLength > kLongest - iFirstLength ||
        iThirdLength > kLongest - iFirstLength - iSecondLength) {
        throw std::bad_alloc();
    }
    const std::size_t length = iFirstLength + iSecondLength + iThirdLength;
    if (length == 0) {
        return nullptr;
    }
    std::unique_ptr<void, RawMemoryDeleter> memory(::operator new(sizeof(KELText) + KELText::Room(length)));
    char* const bytes = static_cast<char*>(memory.get()) + sizeof(KELText);
    char* end = std::copy_n(iFirst, iFirstLength, bytes);
    end = std::copy_n(iSecond, iSecondLength, end);
    end = std::copy_n(iThird, iThirdLength, end);
    std::fill(end, bytes + KELText::Room(length), '\0');
    return ::new (memory.release()) KELText(bytes, length);
}

void KELUnicodeString::Destroy(const KELText* iText) noexcept
{
    iText->~KELText();
    ::operator delete(const_cast<KELText*>(iText));
}

KELUnicodeString::KELUnicodeString(const char* iText) : m_text(iText ? MakeText(iText, std::strlen(iText)) : nullptr) {}

KELUnicodeString::KELUnicodeString(const char* iText, std::size_t iLength) : m_text(MakeText(iText, iLength)) {}

KELUnicodeString& KELUnicodeString::Append(const KELUnicodeString& iText)
{
    return Insert(GetLengthInChar(), iText);
}

KELUnicodeString& KELUnicodeString::Insert(int iPosition, const KELUnicodeString& iText)
{
    if (!iText.m_text) {
        return *this;
    }
    if (!m_text) {
        return *this = iText;
    }
    const std::size_t offset = ByteOffset(iPosition);
    KELUnicodeString joined;
    joined.m_text = MakeText(ConvertToChar(), offset, iText.ConvertToChar(), iText.LengthInBytes(),
                             ConvertToChar() + offset, LengthInBytes() - offset);
    return *this = std::move(joined);
}

int KELUnicodeString::SearchSubString(const KELUnicodeString& iText, int iStart, int iMode) const
{
    if (iMode != 1 || iStart < 0 || iStart > GetLengthInChar()) {
        return -1;
    }
    const std::string_view text(ConvertToChar(), LengthInBytes());
    const std::string_view wanted(iText.ConvertToChar(), iText.LengthInBytes());
    // Walk to each place where the bytes match and count the characters on the way; a match that starts or ends inside
    // a character is none.
    int position = iStart;
    std::size_t at = ByteOffset(iStart);
    for (std::size_t match = text.find(wanted, at); match != text.npos; match = text.find(wanted, match + 1)) {
        while (at < match) {
            at += KELText::CharacterLength(text.data() + at, text.size() - at);
            ++position;
        }
        std::size_t end = at;
        while (end < match + wanted.size()) {
            end += KELText::CharacterLength(text.data() + end, text.size() - end);
        }
        if (at == match && end == match + wanted.size()) {
            return position;
        }
    }
    return -1;
}

std::size_t KELUnicodeString::ByteOffset(int iPosition) const noexcept
{
    const std::size_t length = LengthInBytes();
    if (iPosition <= 0) {
        return 0;
    }
    if (iPosition >= GetLengthInChar()) {
        return length;
    }
    if (static_cast<std::size_t>(GetLengthInChar()) == length) {
        return static_cast<std::size_t>(iPosition);
    }
    std::size_t offset = 0;
    for (int i = 0; i < iPosition; ++i) {
        offset += KELText::CharacterLength(ConvertToChar() + offset, length - offset);
    }
    return offset;
}

bool KELUnicodeString::SortsBefore(const KELUnicodeString& iOther) const noexcept
{
    // The byte order of UTF-8 is the order of its code points.
    const std::size_t length = LengthInBytes();
    const std::size_t otherLength = iOther.LengthInBytes();
    const int order = std::memcmp(ConvertToChar(), iOther.ConvertToChar(), std::min(length, otherLength));
    return order < 0 || (order == 0 && length < otherLength);
}
