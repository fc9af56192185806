#ifndef Y4mText_H
#define Y4mText_H

#include <string>
#include <string_view>

/// A text of unknown origin for a terminal: a question mark replaces whatever is no well-formed UTF-8, and each
/// character that is not printable, such as those that control a terminal or the direction of writing.
/// \param iKeepsLines whether line breaks ("\n") stay
std::string Y4mPrintable(std::string_view iText, bool iKeepsLines = false);

/// A printable text in quotes, for a message; the end of a long one is left out.
std::string Y4mQuote(std::string_view iText);

#endif
