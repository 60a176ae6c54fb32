// Short texts put together at speed: lines of the Events Log are made several times a roll. A text is a row of pieces:
// literals, strings, characters, whole numbers and amounts of money.
#pragma once

#include <charconv>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "table/currency.h"
#include "table/format.h"

namespace tarnwick {

/// Bytes that a piece takes at most.
template <std::size_t N>
constexpr std::size_t RoomFor(const char (&)[N]) {
    return N - 1;
}
constexpr std::size_t RoomFor(std::string_view text) { return text.size(); }
constexpr std::size_t RoomFor(char) { return 1; }
constexpr std::size_t RoomFor(int) { return LongestAmount; }
constexpr std::size_t RoomFor(std::int64_t) { return LongestAmount; }
constexpr std::size_t RoomFor(currency) { return LongestAmount + 1; }

/// Writes a piece at `to`, where it has room; returns the end.
template <std::size_t N>
char* WritePiece(char* to, const char (&literal)[N]) {
    std::memcpy(to, literal, N - 1);  // of a length known beforehand: a move or two
    return to + (N - 1);
}
inline char* WritePiece(char* to, std::string_view text) {
    std::memcpy(to, text.data(), text.size());
    return to + text.size();
}
inline char* WritePiece(char* to, char c) {
    *to = c;
    return to + 1;
}
inline char* WritePiece(char* to, std::int64_t number) {
    if (0 <= number && number <= 9) return WritePiece(to, static_cast<char>('0' + number));
    return std::to_chars(to, to + LongestAmount, number).ptr;
}
inline char* WritePiece(char* to, int number) { return WritePiece(to, std::int64_t{number}); }
/// As PlainAmount has it, behind "$".
inline char* WritePiece(char* to, currency amount) {
    *to = '$';
    return WritePlainAmount(to + 1, amount);
}

/// Bytes that the pieces take together at most.
template <class... Piece>
std::size_t RoomForAll(const Piece&... pieces) {
    return (std::size_t{0} + ... + RoomFor(pieces));
}

/// Writes the pieces one behind the other at `to`, where they have room; returns the end.
template <class... Piece>
char* WritePieces(char* to, const Piece&... pieces) {
    ((to = WritePiece(to, pieces)), ...);
    return to;
}

}  // namespace tarnwick
