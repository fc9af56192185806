#include "KELUnicodeString.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <new>
#include <string_view>

namespace {

using Word = KELUtf8::Word;

// Up to 25 bytes as a few loads and stores of fixed sizes, which overlap; a call would cost more.
inline void CopyShort(char* oTo, std::string_view iFrom) noexcept
{
    const char* const from = iFrom.data();
    const std::size_t length = iFrom.size();
    if (length >= 16) {
        std::memcpy(oTo, from, 16);
        char tail[16];
        std::memcpy(tail, from + length - 16, 16);
        std::memcpy(oTo + length - 16, tail, 16);
    } else if (length >= 8) {
        std::memcpy(oTo, from, 8);
        std::memcpy(oTo + length - 8, from + length - 8, 8);
    } else if (length >= 4) {
        std::memcpy(oTo, from, 4);
        std::memcpy(oTo + length - 4, from + length - 4, 4);
    } else if (length > 0) {
        oTo[0] = from[0];
        oTo[length / 2] = from[length / 2];
        oTo[length - 1] = from[length - 1];
    }
}

char* CopyBytes(char* oTo, std::string_view iFrom) noexcept
{
    return std::copy(iFrom.begin(), iFrom.end(), oTo);
}

// Finds every place where one text's bytes stand in another, overlapping ones included, in one walk over both.
class Finder {
public:
    Finder(std::string_view iText, std::string_view iWanted, std::size_t iStart)
        : m_text(iText), m_wanted(iWanted), m_border(std::make_unique<std::size_t[]>(iWanted.size())), m_at(iStart)
    {
        std::size_t length = 0;
        for (std::size_t i = 1; i < iWanted.size(); ++i) {
            length = Extend(length, iWanted[i]);
            m_border[i] = length;
        }
    }

    // The next place, or npos.
    std::size_t Next()
    {
        while (m_at < m_text.size()) {
            const std::size_t matched = m_matched == m_wanted.size() ? m_border[m_matched - 1] : m_matched;
            m_matched = Extend(matched, m_text[m_at++]);
            if (m_matched == m_wanted.size()) {
                return m_at - m_matched;
            }
        }
        return std::string_view::npos;
    }

private:
    // How much of the wanted text is matched with one byte more.
    std::size_t Extend(std::size_t iMatched, char iByte) const
    {
        while (iMatched > 0 && m_wanted[iMatched] != iByte) {
            iMatched = m_border[iMatched - 1];
        }
        return m_wanted[iMatched] == iByte ? iMatched + 1 : 0;
    }

    std::string_view m_text;
    std::string_view m_wanted;
    // Of each beginning, the longest of its ends that is a beginning, too. A vector's failures weigh 50 KB on Windows.
    std::unique_ptr<std::size_t[]> m_border;
    std::size_t m_at;
    std::size_t m_matched = 0;
};

} // namespace

std::size_t KELUnicodeString::CheckedLength(std::size_t iFirst, std::size_t iSecond, std::size_t iThird)
{
    constexpr std::size_t kLongest = std::numeric_limits<int>::max(); // lengths and positions are int
    if (iFirst > kLongest || iSecond > kLongest - iFirst || iThird > kLongest - iFirst - iSecond) {
        throw std::bad_alloc();
    }
    return iFirst + iSecond + iThird;
}

KELText* KELUnicodeString::MakeText(std::size_t iCapacity)
{
    return ::new (::operator new(sizeof(KELText) + iCapacity + 1)) KELText(static_cast<KELUINT32>(iCapacity));
}

KELText* KELUnicodeString::MakeText(std::string_view iFirst, std::string_view iSecond, std::string_view iThird,
                                    std::size_t iCapacity)
{
    KELText* const text = MakeText(iCapacity);
    char* end = CopyBytes(text->Bytes(), iFirst);
    end = CopyBytes(end, iSecond);
    end = CopyBytes(end, iThird);
    *end = '\0';
    text->m_length = static_cast<KELUINT32>(end - text->Bytes());
    return text;
}

KELShortText KELUnicodeString::MakeShort(std::string_view iFirst, std::string_view iSecond,
                                         std::string_view iThird) noexcept
{
    char bytes[KELShortText::kLongest + 1] = {};
    const std::size_t two = iFirst.size() + iSecond.size();
    CopyShort(bytes, iFirst);
    CopyShort(bytes + iFirst.size(), iSecond);
    CopyShort(bytes + two, iThird);
    return KELUnicodeString(bytes, two + iThird.size()).m_form;
}

void KELUnicodeString::Destroy(KELText* iText) noexcept
{
    iText->~KELText();
    ::operator delete(iText);
}

KELUnicodeString::KELUnicodeString(const char* iText, std::size_t iLength)
{
    if (iLength > KELShortText::kLongest) {
        Join({iText, iLength}, {}, {});
        return;
    }
    char* const room = reinterpret_cast<char*>(m_form.m_words);
    CopyShort(room, {iText, iLength});
    constexpr Word kNotAscii = 0x8080808080808080U;
    const Word all = m_form.m_words[0] | m_form.m_words[1] | m_form.m_words[2] | m_form.m_words[3];
    m_form.Seal(iLength, (all & kNotAscii) == 0 ? static_cast<int>(iLength) : KELUtf8::Count(room, iLength));
}

// Shows a new text of these parts, which may lie in the old one.
void KELUnicodeString::Join(std::string_view iFirst, std::string_view iSecond, std::string_view iThird)
{
    const std::size_t length = CheckedLength(iFirst.size(), iSecond.size(), iThird.size());
    if (length <= KELShortText::kLongest) {
        m_form = MakeShort(iFirst, iSecond, iThird);
        return;
    }
    KELText* const text = MakeText(iFirst, iSecond, iThird, length);
    text->m_characters = KELUtf8::Count(text->Bytes(), length);
    SetText(text);
}

void KELUnicodeString::SetText(KELText* iText) noexcept
{
    RemoveHolder();
    m_form = KELShortText();
    std::memcpy(m_form.m_words, &iText, sizeof(Word));
    m_form.m_words[3] = kLong;
}

KELUnicodeString& KELUnicodeString::Append(const KELUnicodeString& iText)
{
    if (LengthInBytes() == 0) {
        return *this = iText;
    }
    return AppendViews(iText.View(), {});
}

KELUnicodeString& KELUnicodeString::Append(const KELUnicodeString& iFirst, const KELUnicodeString& iSecond)
{
    return AppendViews(iFirst.View(), iSecond.View());
}

KELUnicodeString& KELUnicodeString::AppendViews(std::string_view iFirst, std::string_view iSecond)
{
    const std::string_view old = View();
    const std::size_t length = CheckedLength(old.size(), iFirst.size(), iSecond.size());
    if (length <= KELShortText::kLongest) {
        m_form = MakeShort(old, iFirst, iSecond);
        return *this;
    }
    if (length == old.size()) {
        return *this;
    }
    const std::size_t tail = KELUtf8::IncompleteTail(old.data(), old.size());
    const int characters = GetLengthInChar() - static_cast<int>(tail);
    if (!IsLong() || !Text().m_holders.IsUnique() || Text().m_capacity < length) {
        constexpr std::size_t kLongest = std::numeric_limits<int>::max();
        SetText(MakeText(old, iFirst, iSecond, std::min(std::max(length, 2 * old.size()), kLongest)));
    } else {
        char* const end = CopyBytes(Text().Bytes() + old.size(), iFirst);
        *CopyBytes(end, iSecond) = '\0';
        Text().m_length = static_cast<KELUINT32>(length);
        Text().m_hash.store(0, std::memory_order_relaxed);
    }
    const std::size_t counted = old.size() - tail;
    Text().m_characters = characters + KELUtf8::Count(Text().Bytes() + counted, length - counted);
    return *this;
}

KELUnicodeString& KELUnicodeString::Insert(int iPosition, const KELUnicodeString& iText)
{
    const std::string_view old = View();
    const std::size_t offset = ByteOffset(iPosition);
    if (offset == old.size()) {
        return Append(iText);
    }
    // Not substr: for a failure that cannot be, it would bring texts of 50 KB into a DLL.
    Join({old.data(), offset}, iText.View(), {old.data() + offset, old.size() - offset});
    return *this;
}

int KELUnicodeString::SearchSubString(const KELUnicodeString& iText, int iStart, int iMode) const
{
    if (iMode != 1 || iStart < 0 || iStart > GetLengthInChar()) {
        return -1;
    }
    const std::string_view text = View();
    const std::string_view wanted = iText.View();
    if (wanted.empty()) {
        return iStart;
    }
    // A match that starts or ends inside a character is none.
    const std::size_t start = ByteOffset(iStart);
    const auto isBoundary = [text](std::size_t iOffset) {
        return KELUtf8::IsBoundary(text.data(), text.size(), iOffset);
    };
    if (wanted.size() > text.size() - start) {
        return -1;
    }
    Finder finder(text, wanted, start);
    for (std::size_t match = finder.Next(); match != std::string_view::npos; match = finder.Next()) {
        if (isBoundary(match) && isBoundary(match + wanted.size())) {
            return iStart + KELUtf8::Count(text.data() + start, match - start);
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
        offset += KELUtf8::CharacterLength(ConvertToChar() + offset, length - offset);
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

bool KELUnicodeString::IsSameText(const KELUnicodeString& iOther) const noexcept
{
    const KELText& one = Text();
    const KELText& other = iOther.Text();
    return one.Length() == other.Length() && std::memcmp(one.Bytes(), other.Bytes(), one.Length()) == 0;
}

unsigned int KELUnicodeString::ComputeHashKey(const KELHashSalt& iSalt) const noexcept
{
    return iSalt.Hash(ConvertToChar(), LengthInBytes());
}
