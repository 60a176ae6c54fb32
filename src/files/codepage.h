// Text of files that keep one byte a character, in code page 1252, from and to UTF-8.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tarnwick {

/// Whether `text` is UTF-8: no overlong forms, no surrogates, nothing above U+10FFFF, nothing cut short.
bool IsUtf8(std::string_view text);

/// UTF-8 of code page 1252. Every byte is a character: the five that the page leaves open (81, 8D, 8F, 90, 9D) stand
/// for the control characters of the same number, so that nothing is lost.
std::string FromCodePage(std::string_view bytes);

/// What ToCodePage made of a text.
struct Encoded {
    std::string Bytes;            ///< one a character
    std::size_t Unencodable = 0;  ///< characters that the page lacks, or bytes that are no UTF-8; each became "?"
};
Encoded ToCodePage(std::string_view utf8);

/// UTF-8 of a text field of fixed length, without the blanks behind the text. Bytes of 0 and line breaks inside count
/// as blanks.
std::string FieldText(std::string_view field);

}  // namespace tarnwick
