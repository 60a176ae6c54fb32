// Short texts put together at speed: lines of the Events Log are made several times a roll.
#pragma once

#include <array>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "table/currency.h"
#include "table/format.h"

namespace tarnwick {

/// A line under construction. One of common length needs no memory; a longer one is as good.
class TextLine {
  public:
    template <std::size_t N>
    TextLine& operator<<(const char (&literal)[N]) {
        constexpr std::size_t length = N - 1;
        if (length > Room()) return Spill({static_cast<const char*>(literal), length});
        std::memcpy(End(), literal, length);  // of a length known beforehand: a move or two
        Used += length;
        return *this;
    }
    TextLine& operator<<(std::string_view text) {
        if (text.size() > Room()) return Spill(text);
        std::memcpy(End(), text.data(), text.size());
        Used += text.size();
        return *this;
    }
    TextLine& operator<<(char c) {
        if (Room() == 0) return Spill({&c, 1});
        *End() = c;
        ++Used;
        return *this;
    }
    TextLine& operator<<(std::int64_t number) {
        return Number([number](char* to) { return std::to_chars(to, to + LongestAmount, number).ptr; });
    }
    /// As PlainAmount has it, behind "$".
    TextLine& operator<<(currency amount) {
        *this << "$";
        return Number([amount](char* to) { return WritePlainAmount(to, amount); });
    }
    std::string_view Text() const {
        return More.empty() ? std::string_view(Short.data(), Used) : std::string_view(More);
    }

  private:
    std::size_t Room() const { return Short.size() - Used; }
    char* End() { return Short.data() + Used; }

    template <class Write>
    TextLine& Number(Write write) {
        if (Room() >= LongestAmount) {
            Used += static_cast<std::size_t>(write(End()) - End());
            return *this;
        }
        std::array<char, LongestAmount> digits;
        const char* end = write(digits.data());
        return *this << std::string_view(digits.data(), static_cast<std::size_t>(end - digits.data()));
    }

    /// Goes over to `More` and leaves no room in `Short`, so that whatever follows comes by here too.
    TextLine& Spill(std::string_view text) {
        if (More.empty()) More.assign(Short.data(), Used);
        Used = Short.size();
        More += text;
        return *this;
    }

    std::array<char, 160> Short;
    std::size_t Used = 0;
    std::string More;
};

}  // namespace tarnwick
