#ifndef ZrvPropertyPrint_H
#define ZrvPropertyPrint_H

#include "KELListValKELUnicodeString.h"
#include "KELRawCollfloat.h"
#include "KELReference.h"
#include "KELSysTSBaseUnknown.h"
#include "KELSysTSUnicodeString.h"
#include "KELText.h"
#include "KELTypes.h"
#include "KELUnicodeString.h"
#include "ZrvListIterator.h"
#include "ZrvProperties.h"
#include "ZrvPropertyCast.h"
#include "ZrvPropertyType.h"
#include "ZrvPropertyTypeConv.h"
#include "ZrvPropertyValueBase.h"
#include "ZrvRC.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <ostream>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

/// \file
/// `operator<<` for strings, return codes, values and sets, for logs and the messages of failed tests.
///
/// Whatever composes a text throws std::bad_alloc.

namespace ZrvPropertyAccess {

/// The code point of a well-formed character.
inline char32_t CodePoint(std::string_view iCharacter)
{
    const auto bits = [](char iByte) { return static_cast<unsigned char>(iByte); };
    char32_t code = iCharacter.size() == 1 ? bits(iCharacter[0]) : bits(iCharacter[0]) & (0x7FU >> iCharacter.size());
    for (const char byte : iCharacter.substr(1)) {
        code = code << 6U | (bits(byte) & 0x3FU);
    }
    return code;
}

/// Whether a reader sees iCharacter as what it is: well-formed, and no control of the terminal's or of the direction of
/// writing, format character, separator of lines, surrogate, private character or one of the planes that are not in
/// use.
inline bool IsPrintable(std::string_view iCharacter)
{
    struct CodePoints {
        char32_t first;
        char32_t last;
    };
    // Not static, which would keep a module that prints from unloading.
    constexpr CodePoints kUnprintable[] = {
        {0x0000, 0x001F},   {0x007F, 0x009F},    {0x00AD, 0x00AD},   {0x0600, 0x0605},   {0x061C, 0x061C},
        {0x06DD, 0x06DD},   {0x070F, 0x070F},    {0x0890, 0x0891},   {0x08E2, 0x08E2},   {0x180E, 0x180E},
        {0x200B, 0x200F},   {0x2028, 0x202E},    {0x2060, 0x206F},   {0xD800, 0xF8FF},   {0xFDD0, 0xFDEF},
        {0xFEFF, 0xFEFF},   {0xFFF0, 0xFFFB},    {0xFFFE, 0xFFFF},   {0x110BD, 0x110BD}, {0x110CD, 0x110CD},
        {0x13430, 0x1343F}, {0x1BCA0, 0x1BCA3},  {0x1D173, 0x1D17A}, {0x1FFFE, 0x1FFFF}, {0x2FFFE, 0x2FFFF},
        {0x323B0, 0xE00FF}, {0xE01F0, 0x1FFFFF},
    };
    if (iCharacter.size() == 1 && static_cast<unsigned char>(iCharacter[0]) >= 0x80) {
        return false; // a byte that is no character
    }
    const char32_t code = CodePoint(iCharacter);
    return std::none_of(std::begin(kUnprintable), std::end(kUnprintable),
                        [code](const CodePoints& iRange) { return code >= iRange.first && code <= iRange.last; });
}

/// Calls `iVisit(character, isPrintable)` for each character of the text.
template <class Visit>
void ForEachCharacter(std::string_view iText, const Visit& iVisit)
{
    while (!iText.empty()) {
        const std::string_view character = iText.substr(0, KELUtf8::CharacterLength(iText.data(), iText.size()));
        iVisit(character, IsPrintable(character));
        iText.remove_prefix(character.size());
    }
}

/// The text with a backslash in front of quotes and backslashes, and "\x0A" for each byte that cannot be printed.
inline std::string Escaped(const KELUnicodeString& iText)
{
    const std::string_view text(iText.ConvertToChar(), iText.LengthInBytes());
    std::string result;
    ForEachCharacter(text, [&result](std::string_view iCharacter, bool iIsPrintable) {
        if (iIsPrintable) {
            result.append(iCharacter == "\"" || iCharacter == "\\" ? "\\" : "").append(iCharacter);
            return;
        }
        constexpr char kDigits[] = "0123456789ABCDEF";
        for (const char byte : iCharacter) {
            const auto bits = static_cast<unsigned char>(byte);
            result.append("\\x").append({kDigits[bits >> 4U], kDigits[bits & 0xFU]});
        }
    });
    return result;
}

inline void Print(std::ostream& ioOutput, KELBoolean iValue)
{
    ioOutput << (iValue ? "true" : "false");
}

inline void Print(std::ostream& ioOutput, const KELUnicodeString& iValue)
{
    ioOutput << '"' << Escaped(iValue) << '"';
}

inline void Print(std::ostream& ioOutput, const KELRawCollfloat& iValue)
{
    ioOutput << '[';
    const char* separator = "";
    for (const float element : iValue) {
        ioOutput << std::exchange(separator, " ") << element;
    }
    ioOutput << ']';
}

// Where bytes and objects lie tells a reader nothing, and differs from run to run.
inline void Print(std::ostream& ioOutput, unsigned char* iBytes)
{
    ioOutput << (iBytes ? "(bytes)" : "null");
}

inline void Print(std::ostream& ioOutput, const KELReference<KELSysTSBaseUnknown>& iObject)
{
    ioOutput << (iObject ? "(object)" : "null");
}

template <class Number, class = std::enable_if_t<std::is_arithmetic_v<Number>>>
void Print(std::ostream& ioOutput, Number iValue)
{
    ioOutput << iValue;
}

template <class T>
bool PrintIf(std::ostream& ioOutput, const ZrvPropertyValueBase& iValue)
{
    const ZrvPropertyValue<T>* value = ZrvPropertyCast<T>(&iValue);
    if (value) {
        Print(ioOutput, ZrvPropertyReader<T>::Read(*value));
    }
    return value != nullptr;
}

/// Number of characters.
inline std::size_t Width(const std::string& iText)
{
    return static_cast<std::size_t>(KELUtf8::Count(iText.data(), iText.size()));
}

/// The text, filled with spaces up to iWidth characters.
inline void PrintColumn(std::ostream& ioOutput, const std::string& iText, std::size_t iWidth)
{
    const std::size_t characters = Width(iText);
    ioOutput << iText << std::string(iWidth > characters ? iWidth - characters : 0, ' ');
}

} // namespace ZrvPropertyAccess

/// The text for a terminal: with a question mark in place of each character that is ill-formed or cannot be printed,
/// such as those that control a terminal or the direction of writing. Linear.
/// \param iKeepsLines whether line breaks ("\n") stay
inline std::string ZrvPrintable(std::string_view iText, bool iKeepsLines = false)
{
    std::string result;
    ZrvPropertyAccess::ForEachCharacter(iText, [&result, iKeepsLines](std::string_view iCharacter, bool iIsPrintable) {
        result.append(iIsPrintable || (iKeepsLines && iCharacter == "\n") ? iCharacter : "?");
    });
    return result;
}

/// Prints a string's bytes as they are, and fills up to the stream's width as for any text.
/// \code
/// std::cout << std::setw(8) << name; // "   width"
/// \endcode
/// @{
inline std::ostream& operator<<(std::ostream& ioOutput, const KELUnicodeString& iText)
{
    return ioOutput << std::string_view(iText.ConvertToChar(), iText.LengthInBytes());
}

inline std::ostream& operator<<(std::ostream& ioOutput, const KELSysTSUnicodeString& iText)
{
    return ioOutput << iText.ConvertToChar();
}
/// @}

/// Prints a return code by name or, where it has none, by number, and its trace, if any.
/// \code
/// std::cerr << rc; // zrvEC_Error: width: holds a KELUINT32, not a float
/// \endcode
inline std::ostream& operator<<(std::ostream& ioOutput, const ZrvRC& iRC)
{
    switch (ZrvGetRC(iRC)) {
    case ZrvRC::zrvEC_NothingDone:
        ioOutput << "zrvEC_NothingDone";
        break;
    case ZrvRC::zrvEC_OK:
        ioOutput << "zrvEC_OK";
        break;
    case ZrvRC::zrvEC_Error:
        ioOutput << "zrvEC_Error";
        break;
    default:
        ioOutput << "error " << static_cast<KELUINT32>(ZrvGetRC(iRC));
        break;
    }
    return iRC.GetTrace().GetLengthInChar() > 0 ? ioOutput << ": " << iRC.GetTrace() : ioOutput;
}

/// Prints what a value holds: numbers as the stream formats them, true or false, a string in quotes on one line with
/// what cannot be printed written as "\x0A", a list in brackets, and of a pointer whether it is null.
/// \code
/// std::cout << *set.GetProperty(kPlaneMeans); // [16.5 128 128]
/// \endcode
inline std::ostream& operator<<(std::ostream& ioOutput, const ZrvPropertyValueBase& iValue)
{
    switch (ZrvPropertyTypeConv::GetEnum(iValue.GetType())) {
#define ZRV_PRINT(id, name, type)                                                                                      \
    case zrvPT_##id:                                                                                                   \
        if (ZrvPropertyAccess::PrintIf<type>(ioOutput, iValue)) {                                                      \
            return ioOutput;                                                                                           \
        }                                                                                                              \
        break;
        ZRV_PROPERTY_TYPES(ZRV_PRINT)
#undef ZRV_PRINT
    default:
        break;
    }
    return ioOutput << "(unknown)";
}

/// Prints a set as a table with a line for each property, sorted by name: name, type and value, each as text that
/// cannot break the table. A set without properties prints "(no properties)". Costs a sort of the names.
/// \code
/// std::cout << set;
/// // title  KELUnicodeString        "Clip"
/// // width  KELUINT32               1920
/// \endcode
inline std::ostream& operator<<(std::ostream& ioOutput, const ZrvProperties& iSet)
{
    KELListValKELUnicodeString list;
    iSet.GetListProperties(list);
    std::vector<KELUnicodeString> names(begin(list), end(list));
    // Between pointers: comparing iterators leaves a unique symbol of the standard library's in the caller's module.
    std::sort(names.data(), names.data() + names.size(),
              [](const KELUnicodeString& iLeft, const KELUnicodeString& iRight) { return iLeft.Compare(iRight) == 0; });
    std::size_t width = 0;
    for (const KELUnicodeString& name : names) {
        width = (std::max)(width, ZrvPropertyAccess::Width(ZrvPropertyAccess::Escaped(name)));
    }
    for (const KELUnicodeString& name : names) {
        if (const ZrvPropertyValueBase* value = iSet.GetProperty(name)) {
            ZrvPropertyAccess::PrintColumn(ioOutput, ZrvPropertyAccess::Escaped(name), width + 2);
            ZrvPropertyAccess::PrintColumn(ioOutput, ZrvPropertyAccess::Escaped(value->GetType()), 24);
            ioOutput << *value << '\n';
        }
    }
    return names.empty() ? ioOutput << "(no properties)\n" : ioOutput;
}

#endif
