#ifndef Declarations_H
#define Declarations_H

#include <cstddef>
#include <string>
#include <vector>

/// The nine types of values, in the library's order.
enum class Kind { Bytes, Text, Boolean, Int32, Uint32, Float, Double, FloatList, Object };

/// A property that every contestant declares.
struct Declaration {
    std::string name;
    Kind kind;
};

/// What a media component declares: 16 properties of all nine types, with names of 5 to 30 characters.
const std::vector<Declaration>& MediaDeclarations();

/// The same number of whole-number properties in every run, with names of 5 to 30 characters in no order.
std::vector<Declaration> ManyDeclarations(std::size_t iCount);

/// A text of that many bytes that begins with iFirst.
std::string MakeText(std::size_t iLength, char iFirst = 'Y');

#endif
