#include "files/codepage.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace tarnwick {

namespace {

/// The characters of 80..9F; all others are those of the same number.
constexpr std::array<char32_t, 32> HighCharacters{
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178,
};
constexpr std::uint8_t FirstHigh = 0x80;
constexpr char32_t NotACharacter = 0xFFFFFFFF;

/// Takes the character at the front of `text`, which isn't empty; NotACharacter takes one byte.
char32_t TakeCharacter(std::string_view& text) {
    const auto byte = [&text](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
    const std::uint8_t first = byte(0);
    std::size_t length = 1;
    char32_t lowest = 0;
    char32_t character = first;
    if (first >= 0xF0 && first <= 0xF4) {
        length = 4, lowest = 0x10000, character = first & 0x07u;
    } else if (first >= 0xE0 && first < 0xF0) {
        length = 3, lowest = 0x800, character = first & 0x0Fu;
    } else if (first >= 0xC0 && first < 0xE0) {
        length = 2, lowest = 0x80, character = first & 0x1Fu;
    } else if (first >= 0x80) {
        character = NotACharacter;
    }
    bool good = character != NotACharacter && length <= text.size();
    for (std::size_t i = 1; good && i < length; ++i) {
        good = (byte(i) & 0xC0u) == 0x80;
        character = character << 6 | (byte(i) & 0x3Fu);
    }
    good = good && character >= lowest && character <= 0x10FFFF && (character < 0xD800 || character > 0xDFFF);
    text.remove_prefix(good ? length : 1);
    return good ? character : NotACharacter;
}

/// The character's byte, or -1.
int ByteOf(char32_t character) {
    if (character < FirstHigh || (character >= 0xA0 && character <= 0xFF)) return static_cast<int>(character);
    const auto* const found = std::find(HighCharacters.begin(), HighCharacters.end(), character);
    return found == HighCharacters.end() ? -1 : FirstHigh + static_cast<int>(found - HighCharacters.begin());
}

}  // namespace

bool IsUtf8(std::string_view text) {
    while (!text.empty()) {
        if (TakeCharacter(text) == NotACharacter) return false;
    }
    return true;
}

std::string FromCodePage(std::string_view bytes) {
    std::string utf8;
    utf8.reserve(bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<std::uint8_t>(c);
        const char32_t character = byte >= FirstHigh && byte < 0xA0 ? HighCharacters[byte - FirstHigh] : byte;
        if (character < 0x80) {
            utf8 += c;
        } else if (character < 0x800) {
            utf8 += static_cast<char>(0xC0 | character >> 6);
            utf8 += static_cast<char>(0x80 | (character & 0x3F));
        } else {
            utf8 += static_cast<char>(0xE0 | character >> 12);
            utf8 += static_cast<char>(0x80 | (character >> 6 & 0x3F));
            utf8 += static_cast<char>(0x80 | (character & 0x3F));
        }
    }
    return utf8;
}

Encoded ToCodePage(std::string_view utf8) {
    Encoded encoded;
    encoded.Bytes.reserve(utf8.size());
    for (;;) {
        const auto* const other = std::find_if(utf8.begin(), utf8.end(), [](char c) { return (c & 0x80) != 0; });
        encoded.Bytes.append(utf8.begin(), other);
        utf8.remove_prefix(static_cast<std::size_t>(other - utf8.begin()));
        if (utf8.empty()) return encoded;
        const int byte = ByteOf(TakeCharacter(utf8));
        encoded.Bytes += byte < 0 ? '?' : static_cast<char>(byte);
        if (byte < 0) ++encoded.Unencodable;
    }
}

std::string FieldText(std::string_view field) {
    std::string bytes(field);
    for (char& c : bytes) {
        if (c == '\0' || c == '\r' || c == '\n') c = ' ';
    }
    bytes.erase(bytes.find_last_not_of(' ') + 1);
    return FromCodePage(bytes);
}

}  // namespace tarnwick
