// Money. Every amount of the game is a `currency`: a signed 64-bit count of ten-thousandths of a unit of money, so
// that sums are exact. A double never holds money between statements; where a rule divides, a named function says
// which way it rounds.
#pragma once

#include <cmath>
#include <compare>
#include <cstdint>
#include <limits>
#include <type_traits>

namespace tarnwick {

__extension__ typedef __int128 int128;

struct currency {
    std::int64_t TenThousandths = 0;

    friend constexpr auto operator<=>(currency, currency) = default;
    friend constexpr currency operator+(currency a, currency b) { return {a.TenThousandths + b.TenThousandths}; }
    friend constexpr currency operator-(currency a, currency b) { return {a.TenThousandths - b.TenThousandths}; }
    friend constexpr currency operator-(currency a) { return {-a.TenThousandths}; }
    friend constexpr currency operator*(currency a, std::int64_t n) { return {a.TenThousandths * n}; }
    constexpr currency& operator+=(currency b) { return *this = *this + b; }
    constexpr currency& operator-=(currency b) { return *this = *this - b; }
};

constexpr std::int64_t CurrencyScale = 10'000;

/// `n` whole units of money.
constexpr currency Dollars(std::int64_t n) { return {n * CurrencyScale}; }

constexpr currency Abs(currency a) { return a.TenThousandths < 0 ? -a : a; }

constexpr bool IsZero(currency a) { return a.TenThousandths == 0; }

/// Quotient of two integers, rounded toward minus infinity. `b` must be above 0.
template <class Int>
constexpr Int FloorDivide(Int a, Int b) {
    const Int q = a / b;
    return a - q * b < 0 ? q - 1 : q;
}

/// Quotient of two integers, halves to the even neighbour. `b` must be above 0.
template <class Int>
constexpr Int HalfEvenDivide(Int a, std::type_identity_t<Int> b) {
    const Int q = FloorDivide<Int>(a, b);
    const Int over = a - q * b;
    const Int under = b - over;
    return over > under || (over == under && q % 2 != 0) ? q + 1 : q;
}

/// The one amount that can't be negated.
constexpr currency LowestCurrency{std::numeric_limits<std::int64_t>::min()};

constexpr std::int64_t Saturate(int128 n) {
    constexpr int128 lowest = std::numeric_limits<std::int64_t>::min();
    constexpr int128 highest = std::numeric_limits<std::int64_t>::max();
    return static_cast<std::int64_t>(n < lowest ? lowest : n > highest ? highest : n);
}

/// Sum that stays at the end of the range where it would leave it; for sums that run for whole sessions.
constexpr currency SaturatedSum(currency a, currency b) {
    return {Saturate(static_cast<int128>(a.TenThousandths) + b.TenThousandths)};
}

/// Exact `a * b / c`, halves to the even ten-thousandth, held at the ends of the range. `c` must not be 0.
constexpr currency MultiplyDivide(currency a, currency b, currency c) {
    if (b == c) return a;  // even money, the commonest payoff
    if (c.TenThousandths > 0 && b == -c && a != LowestCurrency) return -a;
    std::int64_t product = 0;
    if (c.TenThousandths > 0 && !__builtin_mul_overflow(a.TenThousandths, b.TenThousandths, &product)) {
        return {HalfEvenDivide(product, c.TenThousandths)};
    }
    const int128 exact = static_cast<int128>(a.TenThousandths) * b.TenThousandths;
    const int128 divisor = c.TenThousandths;
    return {Saturate(divisor < 0 ? HalfEvenDivide<int128>(-exact, -divisor) : HalfEvenDivide<int128>(exact, divisor))};
}

/// Exact product of two amounts, one of them a factor such as a rate; halves to the even ten-thousandth.
constexpr currency MultiplyBy(currency a, currency factor) { return MultiplyDivide(a, factor, Dollars(1)); }

/// Whether `a` is a whole multiple of `unit` (above 0). Here and below the commonest unit, 1, divides by a constant.
constexpr bool IsMultipleOf(currency a, currency unit) {
    if (unit.TenThousandths == CurrencyScale) return a.TenThousandths % CurrencyScale == 0;
    return a.TenThousandths % unit.TenThousandths == 0;
}

/// `a` rounded toward minus infinity to a whole multiple of `unit` (above 0).
constexpr currency FloorTo(currency a, currency unit) {
    if (unit.TenThousandths == CurrencyScale) return Dollars(FloorDivide(a.TenThousandths, CurrencyScale));
    return unit * FloorDivide(a.TenThousandths, unit.TenThousandths);
}

/// `a` rounded away from zero to a whole multiple of `unit` (above 0).
constexpr currency AwayFromZeroTo(currency a, currency unit) {
    return a.TenThousandths < 0 ? FloorTo(a, unit) : -FloorTo(-a, unit);
}

/// The only way from a double to money: halves to the even ten-thousandth, held at the ends of the range; NaN gives 0
/// (a caller to whom NaN is a fault tests for it first).
inline currency ToCurrency(double value) {
    const double scaled = value * static_cast<double>(CurrencyScale);
    if (std::isnan(scaled)) return {};
    if (scaled >= 9.2233720368547758e18) return {std::numeric_limits<std::int64_t>::max()};
    if (scaled <= -9.2233720368547758e18) return {std::numeric_limits<std::int64_t>::min()};
    return {static_cast<std::int64_t>(std::nearbyint(scaled))};
}

/// The nearest double.
constexpr double ToDouble(currency a) {
    return static_cast<double>(a.TenThousandths) / static_cast<double>(CurrencyScale);
}

static_assert(FloorTo(currency{9'000}, Dollars(1)) == currency{});    // a win of $0.90 pays nothing
static_assert(FloorTo(currency{-5'000}, Dollars(1)) == Dollars(-1));  // a loss of $0.50 costs $1
static_assert(AwayFromZeroTo(currency{75'000}, Dollars(5)) == Dollars(10));
static_assert(AwayFromZeroTo(currency{-75'000}, Dollars(5)) == Dollars(-10));
static_assert(MultiplyDivide(Dollars(1), Dollars(1), Dollars(3)) == currency{3'333});
static_assert(MultiplyDivide(currency{1}, Dollars(1), Dollars(2)) == currency{0});  // 0.00005: to the even 0
static_assert(MultiplyDivide(currency{3}, Dollars(1), Dollars(2)) == currency{2});  // 0.00015: to the even 2
static_assert(MultiplyDivide(currency{-3}, Dollars(1), Dollars(2)) == currency{-2});
static_assert(MultiplyDivide(LowestCurrency, Dollars(-1), Dollars(1)).TenThousandths ==
              std::numeric_limits<std::int64_t>::max());
static_assert(MultiplyDivide(Dollars(1), Dollars(1), LowestCurrency) == currency{});
static_assert(MultiplyDivide(Dollars(1), LowestCurrency, Dollars(-1)).TenThousandths ==
              std::numeric_limits<std::int64_t>::max());

}  // namespace tarnwick
