#include "autobet/numbertext.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>

#include "autobet/text.h"
#include "files/codepage.h"

namespace tarnwick {

namespace {

constexpr int SignificantDigits = 15;

/// Digits d1 d2 .. of d1.d2.. * 10^exponent without zeros at the end.
struct Decimal {
    std::string Digits;
    int Exponent = 0;
};

Decimal ToDecimal(double magnitude) {
    std::array<char, 40> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                                   std::chars_format::scientific, SignificantDigits - 1);
    const std::string_view text(buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data()));
    const std::size_t e = text.find('e');
    Decimal result;
    for (const char c : text.substr(0, e)) {
        if (IsDigit(c)) result.Digits += c;
    }
    while (result.Digits.size() > 1 && result.Digits.back() == '0') result.Digits.pop_back();
    const std::size_t first = text[e + 1] == '+' ? e + 2 : e + 1;
    std::from_chars(text.data() + first, text.data() + text.size(), result.Exponent);
    return result;
}

std::string PlainDecimal(const Decimal& d) {
    if (d.Exponent < 0) return "0." + std::string(static_cast<std::size_t>(-d.Exponent - 1), '0') + d.Digits;
    const auto whole = static_cast<std::size_t>(d.Exponent) + 1;
    if (d.Digits.size() <= whole) return d.Digits + std::string(whole - d.Digits.size(), '0');
    return d.Digits.substr(0, whole) + "." + d.Digits.substr(whole);
}

std::string ExponentForm(const Decimal& d) {
    std::string text = d.Digits.substr(0, 1);
    if (d.Digits.size() > 1) text += "." + d.Digits.substr(1);
    const int size = d.Exponent < 0 ? -d.Exponent : d.Exponent;
    text += d.Exponent < 0 ? "E-" : "E+";
    if (size < 10) text += "0";
    return text + std::to_string(size);
}

/// Length of the number at the start of `text`; 0 when there is no digit.
std::size_t NumberLength(std::string_view text) {
    std::size_t i = 0;
    bool digits = false;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
    for (; i < text.size() && IsDigit(text[i]); ++i) digits = true;
    if (i < text.size() && text[i] == '.') {
        ++i;
        for (; i < text.size() && IsDigit(text[i]); ++i) digits = true;
    }
    if (!digits) return 0;
    if (i < text.size() && (text[i] == 'e' || text[i] == 'E' || text[i] == 'd' || text[i] == 'D')) {
        std::size_t j = i + 1;
        if (j < text.size() && (text[j] == '+' || text[j] == '-')) ++j;
        if (j < text.size() && IsDigit(text[j])) {
            while (j < text.size() && IsDigit(text[j])) ++j;
            i = j;
        }
    }
    return i;
}

bool IsContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0u) == 0x80u; }

/// Bytes of the character that begins at `at`.
std::size_t CharacterLength(std::string_view text, std::size_t at) {
    std::size_t end = at + 1;
    if (static_cast<unsigned char>(text[at]) >= 0xC0u) {
        while (end < text.size() && end < at + 4 && IsContinuation(text[end])) ++end;
    }
    return end - at;
}

}  // namespace

std::string GeneralNumber(double value) {
    if (value == 0) return "0";
    if (std::isnan(value)) return "NaN";
    const std::string sign = value < 0 ? "-" : "";
    if (std::isinf(value)) return sign + "Infinity";
    const Decimal d = ToDecimal(std::fabs(value));
    const bool plain = -SignificantDigits <= d.Exponent && d.Exponent < SignificantDigits;
    return sign + (plain ? PlainDecimal(d) : ExponentForm(d));
}

double NumberAtStart(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
    std::string number(text.substr(0, NumberLength(text)));
    if (number.empty()) return 0;
    for (char& c : number) {
        if (c == 'd' || c == 'D') c = 'e';
    }
    const bool negative = number.front() == '-';
    const char* first = number.data() + (negative || number.front() == '+' ? 1 : 0);
    double value = 0;
    const auto result = std::from_chars(first, number.data() + number.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        // Both a number too large and one too small end here; only the exponent's sign tells them apart.
        const bool tiny = number.find("e-") != std::string::npos || number.find("E-") != std::string::npos;
        value = tiny ? 0 : std::numeric_limits<double>::infinity();
    }
    return negative ? -value : value;
}

std::optional<std::int32_t> RoundToInt32(double value) {
    const double whole = std::nearbyint(value);
    if (!(whole >= -2147483648.0 && whole <= 2147483647.0)) return std::nullopt;
    return static_cast<std::int32_t>(whole);
}

std::int32_t CharacterCount(std::string_view text) {
    std::int32_t count = 0;
    for (std::size_t i = 0; i < text.size(); i += CharacterLength(text, i)) ++count;
    return count;
}

std::string_view Characters(std::string_view text, std::int32_t skip, std::int32_t count) {
    std::size_t first = 0;
    for (; skip > 0 && first < text.size(); --skip) first += CharacterLength(text, first);
    std::size_t end = first;
    for (; count > 0 && end < text.size(); --count) end += CharacterLength(text, end);
    return text.substr(first, end - first);
}

std::string CharacterOfCode(int code) {
    const char byte = static_cast<char>(code);
    return FromCodePage({&byte, 1});
}

int CodeOfCharacter(std::string_view text) {
    if (text.empty()) return 0;
    return static_cast<std::uint8_t>(ToCodePage(text.substr(0, CharacterLength(text, 0))).Bytes.front());
}

}  // namespace tarnwick
