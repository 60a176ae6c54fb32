#include "table/format.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace tarnwick {

namespace {

bool IsDigit(char c) { return '0' <= c && c <= '9'; }
bool IsBlank(char c) { return c == ' ' || ('\t' <= c && c <= '\r'); }

/// A number as decimal digits: Whole has no leading zeros (none at all below 1), Fraction any number of digits.
struct Decimal {
    bool Negative = false;
    std::string Whole;
    std::string Fraction;

    bool IsZero() const { return Whole.empty() && Fraction.find_first_not_of('0') == std::string::npos; }
};

Decimal DecimalOf(std::string_view digits, bool negative) {
    const std::size_t point = std::min(digits.find('.'), digits.size());
    Decimal d;
    d.Negative = negative;
    d.Whole = digits.substr(0, point);
    d.Whole.erase(0, std::min(d.Whole.find_first_not_of('0'), d.Whole.size()));
    if (point < digits.size()) d.Fraction = digits.substr(point + 1);
    return d;
}

Decimal DecimalOf(currency amount) {
    std::array<char, 24> buffer{};
    std::uint64_t count = static_cast<std::uint64_t>(amount.TenThousandths);
    if (amount.TenThousandths < 0) count = 0 - count;
    constexpr auto scale = static_cast<std::uint64_t>(CurrencyScale);
    const auto whole = std::to_chars(buffer.data(), buffer.data() + buffer.size(), count / scale);
    Decimal d =
        DecimalOf({buffer.data(), static_cast<std::size_t>(whole.ptr - buffer.data())}, amount.TenThousandths < 0);
    std::uint64_t rest = count % scale;
    d.Fraction.assign(4, '0');
    for (std::size_t i = 4; i-- > 0; rest /= 10) d.Fraction[i] = static_cast<char>('0' + rest % 10);
    return d;
}

Decimal DecimalOf(double value) {
    // The shortest decimal that reads back as this double: 201 / 200 is 1.005, and rounds as that. 309 digits ahead of
    // the point, or 324 zeros and 17 digits behind it, are the most there can be.
    std::array<char, 400> buffer{};
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(value), std::chars_format::fixed);
    return DecimalOf({buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data())}, std::signbit(value));
}

/// Rounds to `places` decimals, halves away from zero.
Decimal Rounded(Decimal d, std::size_t places) {
    if (d.Fraction.size() <= places) return d;
    bool carry = d.Fraction[places] >= '5';
    d.Fraction.resize(places);
    const auto addOne = [&carry](std::string& digits) {
        for (std::size_t i = digits.size(); carry && i-- > 0;) {
            carry = digits[i] == '9';
            digits[i] = carry ? '0' : static_cast<char>(digits[i] + 1);
        }
    };
    addOne(d.Fraction);
    addOne(d.Whole);
    if (carry) d.Whole.insert(d.Whole.begin(), '1');
    return d;
}

/// One section of a pattern, cut at its point.
struct Section {
    std::string_view Whole, Fraction;
    std::size_t LeastWhole = 0;     ///< digits that "0" forces ahead of the point
    std::size_t LeastFraction = 0;  ///< and behind it
    std::size_t MostFraction = 0;
    bool Grouped = false;
};

bool IsPlaceholder(char c) { return c == '#' || c == '0'; }

Section ReadSection(std::string_view text) {
    Section s;
    const std::size_t point = std::min(text.find('.'), text.size());
    s.Whole = text.substr(0, point);
    if (point < text.size()) s.Fraction = text.substr(point + 1);
    s.Grouped = text.find(',') != std::string_view::npos;
    for (const char c : s.Whole) {
        if (c == '0' || (c == '#' && s.LeastWhole > 0)) ++s.LeastWhole;
    }
    for (const char c : s.Fraction) {
        if (!IsPlaceholder(c)) continue;
        ++s.MostFraction;
        if (c == '0') s.LeastFraction = s.MostFraction;
    }
    return s;
}

std::array<std::string_view, 3> SplitSections(std::string_view pattern) {
    std::array<std::string_view, 3> sections;
    for (std::string_view& section : sections) {
        const std::size_t end = std::min(pattern.find(';'), pattern.size());
        section = pattern.substr(0, end);
        pattern.remove_prefix(std::min(end + 1, pattern.size()));
    }
    return sections;
}

std::string WithSeparators(const std::string& digits) {
    std::string text;
    for (std::size_t i = 0; i < digits.size(); ++i) {
        if (i > 0 && (digits.size() - i) % 3 == 0) text += ',';
        text += digits[i];
    }
    return text;
}

/// `d`, already rounded, laid into the section. All digits stand at the first placeholder of their side, so that
/// characters in front of the number and behind it keep their place.
std::string Fill(const Section& s, Decimal d) {
    if (d.Whole.size() < s.LeastWhole) d.Whole.insert(0, s.LeastWhole - d.Whole.size(), '0');
    d.Fraction.resize(std::max(d.Fraction.size(), s.LeastFraction), '0');
    while (d.Fraction.size() > s.LeastFraction && d.Fraction.back() == '0') d.Fraction.pop_back();

    std::string text;
    const auto lay = [&text](std::string_view side, const std::string& digits) {
        bool laid = false;
        for (const char c : side) {
            if (IsPlaceholder(c)) {
                if (!laid) text += digits;
                laid = true;
            } else if (c != ',') {
                text += c;
            }
        }
    };
    lay(s.Whole, s.Grouped ? WithSeparators(d.Whole) : d.Whole);
    if (!d.Fraction.empty()) text += '.';
    lay(s.Fraction, d.Fraction);
    return text;
}

std::string FormatDecimal(const Decimal& exact, std::string_view pattern) {
    const std::array<std::string_view, 3> sections = SplitSections(pattern);
    const bool ownNegative = exact.Negative && !sections[1].empty();
    const Section section = ReadSection(sections[ownNegative ? 1 : 0]);
    const Decimal rounded = Rounded(exact, section.MostFraction);
    if (rounded.IsZero()) return Fill(ReadSection(sections[sections[2].empty() ? 0 : 2]), Decimal{});
    const std::string text = Fill(section, rounded);
    return exact.Negative && !ownNegative ? "-" + text : text;
}

/// Digits with or without thousands separators, which must stand at every third digit if at all. Moves `at` behind
/// them; false when a separator stands wrong or the number passes `limit`.
bool ReadWhole(std::string_view text, std::size_t& at, int128 limit, int128& whole) {
    std::size_t sinceComma = 0;
    bool grouped = false;
    for (; at < text.size(); ++at) {
        if (text[at] == ',') {
            if (sinceComma == 0 || sinceComma > 3 || (grouped && sinceComma != 3)) return false;
            grouped = true;
            sinceComma = 0;
        } else if (IsDigit(text[at])) {
            ++sinceComma;
            whole = whole * 10 + (text[at] - '0');
            if (whole > limit) return false;
        } else {
            break;
        }
    }
    return !grouped || sinceComma == 3;
}

/// The digits behind the point as ten-thousandths, halves to the even one.
int128 ReadFraction(std::string_view digits) {
    int128 value = 0;
    for (std::size_t i = 0; i < 4; ++i) value = value * 10 + (i < digits.size() ? digits[i] - '0' : 0);
    if (digits.size() <= 4) return value;
    const bool beyondHalf = digits.find_first_not_of('0', 5) != std::string_view::npos;
    const bool up = digits[4] > '5' || (digits[4] == '5' && (beyondHalf || value % 2 != 0));
    return up ? value + 1 : value;
}

/// Takes one `mark` off the front of `text`.
bool Take(std::string_view& text, char mark) {
    if (text.empty() || text.front() != mark) return false;
    text.remove_prefix(1);
    return true;
}

}  // namespace

std::string FormatCommas(currency amount) {
    const bool whole = IsMultipleOf(amount, Dollars(1));
    return FormatPattern(amount, whole ? "#,#;-#,#;0" : "#,#.00##;-#,#.00##;0.00");
}

// What the pattern "0.####" gives.
char* WritePlainAmount(char* to, currency amount) {
    constexpr auto scale = static_cast<std::uint64_t>(CurrencyScale);
    auto count = static_cast<std::uint64_t>(amount.TenThousandths);
    if (amount.TenThousandths < 0) {
        count = 0 - count;
        *to++ = '-';
    }
    to = std::to_chars(to, to + LongestAmount - 1, count / scale).ptr;
    std::uint64_t rest = count % scale;
    if (rest == 0) return to;
    *to++ = '.';
    for (std::uint64_t place = scale / 10; rest != 0; rest %= place, place /= 10) {
        *to++ = static_cast<char>('0' + rest / place);
    }
    return to;
}

std::string PlainAmount(currency amount) {
    std::array<char, LongestAmount> text{};
    const char* end = WritePlainAmount(text.data(), amount);
    return {text.data(), static_cast<std::size_t>(end - text.data())};
}

std::string FormatPattern(currency amount, std::string_view pattern) {
    return FormatDecimal(DecimalOf(amount), pattern);
}

std::string FormatPattern(double value, std::string_view pattern) {
    if (std::isnan(value)) return "nan";
    if (std::isinf(value)) return value < 0 ? "-inf" : "inf";
    return FormatDecimal(DecimalOf(value), pattern);
}

std::optional<currency> ParseAmount(std::string_view text) {
    text = Trim(text);
    bool negative = Take(text, '-');
    const bool isSigned = negative || Take(text, '+');
    if (Take(text, '$') && !isSigned) {
        negative = Take(text, '-');
        if (!negative) Take(text, '+');
    }
    constexpr int128 limit = int128{std::numeric_limits<std::int64_t>::max()} + 1;  // of the negative side
    std::size_t at = 0;
    int128 whole = 0;
    if (!ReadWhole(text, at, limit / CurrencyScale, whole)) return std::nullopt;
    const std::size_t wholeDigits = at;
    std::string_view fraction;
    if (at < text.size() && text[at] == '.') fraction = text.substr(at + 1);
    if (at < text.size() && text[at] != '.') return std::nullopt;
    if (wholeDigits == 0 && fraction.empty()) return std::nullopt;
    if (!std::all_of(fraction.begin(), fraction.end(), IsDigit)) return std::nullopt;
    const int128 count = whole * CurrencyScale + ReadFraction(fraction);
    if (count > (negative ? limit : limit - 1)) return std::nullopt;
    return currency{static_cast<std::int64_t>(negative ? -count : count)};
}

std::optional<int> ParseInteger(std::string_view text) {
    text = Trim(text);
    if (text.size() > 1 && text[0] == '+' && IsDigit(text[1])) text.remove_prefix(1);
    int number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    if (text.empty() || read.ec != std::errc{} || read.ptr != text.data() + text.size()) return std::nullopt;
    return number;
}

std::string_view Trim(std::string_view text) {
    while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
    return text;
}

std::string LowerCase(std::string_view text) {
    std::string lower(text);
    for (char& c : lower) {
        if ('A' <= c && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return lower;
}

}  // namespace tarnwick
