#ifndef Y4mText_H
#define Y4mText_H

#include <string>
#include <string_view>

/// A text of unknown origin, made printable and in quotes, for a message; the end of a long one is left out.
std::string Y4mQuote(std::string_view iText);

#endif
