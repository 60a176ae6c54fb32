// The six schemes by which a house limits odds. All of it is exact: amounts are counted here in units of 10^-8
// ("fine"), so that the product of a flat bet and a multiple such as 2.5 is a whole number.
#include <algorithm>
#include <numeric>
#include <optional>
#include <utility>

#include "config/payoffs.h"

namespace tarnwick {

namespace {

constexpr int128 FinePerTenThousandth = CurrencyScale;
constexpr int128 FineDollar = FinePerTenThousandth * CurrencyScale;

enum Scheme { AutoSelect = 0, NoPush = 1, MinorPush = 2, ColorPush = 3, SingleOdds = 4, FlatSingleOdds = 5 };

struct OddsQuestion {
    std::int64_t Flat;      // ten-thousandths, as the next four
    std::int64_t Multiple;  // M
    std::int64_t Pays, For;
    std::array<currency, 6> Checks;
    int128 Plain;  // M * flat, in fine units
    int128 Cap;    // (M + 1) * flat
};

int128 FineOf(currency amount) { return amount.TenThousandths * FinePerTenThousandth; }

currency MultipleOf(const Table& t, int row) {
    int number = 0;
    if (row == Row::PassLineOdds || row == Row::DontPassOdds) {
        if (!IsPointNumber(t.Point)) return {};
        number = PointIndex(t.Point);
    } else {
        number = IsComeOdds(row) ? row - Row::Come4Odds : row - Row::DontCome4Odds;
    }
    switch (PointOfIndex(number)) {
        case 6:
        case 8:
            return t.OddsAllowed68;
        case 5:
        case 9:
            return t.OddsAllowed59;
        default:
            return t.OddsAllowed410;
    }
}

int SchemeFor(int method, currency multiple) {
    if (method != AutoSelect) return method;
    if (!IsMultipleOf(multiple, Dollars(1))) return NoPush;
    if (multiple == Dollars(1)) return SingleOdds;
    if (multiple == Dollars(3)) return FlatSingleOdds;
    return ColorPush;
}

/// x with a * x = 1 modulo `modulus` (1 or above, with no divisor in common with a).
std::int64_t InverseOf(std::int64_t a, std::int64_t modulus) {
    std::int64_t r0 = modulus, r1 = a % modulus, x0 = 0, x1 = 1;
    while (r1 > 1) {
        const std::int64_t q = r0 / r1;
        r0 = std::exchange(r1, r0 - q * r1);
        x0 = std::exchange(x1, x0 - q * x1);
    }
    return modulus == 1 ? 0 : (x1 % modulus + modulus) % modulus;
}

/// The first of M*f, M*f + 1, M*f + 2 ... (units of money) whose win is whole checks of `check`; nothing when none ever
/// is. A win is whole when the amount is a multiple of w = check * For / gcd, so the amount is j * w for the least j
/// from M*f / w up with j * w = M*f modulo one unit of money.
std::optional<int128> FirstWholeWin(const OddsQuestion& q, currency check) {
    const std::int64_t common = std::gcd(q.Pays, q.For);
    const int128 pays = q.Pays / common;
    const int128 fineCheck = FineOf(check);
    int128 a = pays, b = fineCheck;
    while (b != 0) a = std::exchange(b, a % b);
    const int128 w = q.For / common * (fineCheck / a);
    if (q.Plain % w == 0) return q.Plain;

    constexpr auto dollar = static_cast<std::int64_t>(FineDollar);
    const auto remainder = static_cast<std::int64_t>(w % FineDollar);
    const std::int64_t divisor = std::gcd(remainder, dollar);
    const auto offset = static_cast<std::int64_t>(q.Plain % FineDollar);
    if (offset % divisor != 0) return std::nullopt;
    const std::int64_t modulus = dollar / divisor;
    const std::int64_t residue = offset / divisor % modulus * InverseOf(remainder / divisor, modulus) % modulus;
    const int128 least = (q.Plain + w - 1) / w;
    const int128 step = ((residue - least) % modulus + modulus) % modulus;
    return (least + step) * w;
}

int128 MinorPushOdds(const OddsQuestion& q) {
    const int128 unit = static_cast<int128>(q.Checks[1].TenThousandths) * q.For;
    int128 m = q.Plain / unit * unit;
    if (m < q.Plain && m + unit < q.Cap) m += unit;
    return m == 0 ? q.Plain : m;
}

int128 ColorPushOdds(const OddsQuestion& q) {
    // What the flat bet must be a multiple of for each color. These don't follow the checks of the table.
    constexpr std::array<currency, 6> flatSteps = {{{}, {}, {}, Dollars(5), Dollars(25), Dollars(100)}};
    for (std::size_t color = 5; color >= 2; --color) {
        const currency step = flatSteps[color];
        if (!IsZero(step) && !IsMultipleOf(currency{q.Flat}, step)) continue;
        if (q.Flat < q.Checks[color].TenThousandths) continue;
        const std::optional<int128> amount = FirstWholeWin(q, q.Checks[color]);
        if (amount && *amount > q.Plain && *amount < q.Cap) return *amount;
    }
    if (q.Flat < q.Checks[1].TenThousandths) return q.Plain;
    return FirstWholeWin(q, q.Checks[1]).value_or(q.Plain);  // the smallest check knows no cap
}

/// RoundUpTo on whole numbers of checks: `count` checks, up to a multiple of `m` ten-thousandths of one.
int128 RoundUpCount(int128 count, int128 m) {
    const int128 x = count * CurrencyScale;
    if (2 * x < m) return 0;
    return (x + m - 1) / m * m;
}

int128 SingleOddsX(const OddsQuestion& q, bool flatFirst) {
    int128 most = q.Plain;
    for (std::size_t color = 1; color <= 5; ++color) {
        const int128 check = q.Checks[color].TenThousandths;
        if (flatFirst) {
            most = std::max(most, RoundUpCount(q.Flat / check, q.For) * check * q.Multiple / CurrencyScale);
        } else {
            most = std::max(most, RoundUpCount(q.Plain / (check * FinePerTenThousandth), q.For) * check);
        }
    }
    return most;
}

int128 OddsByScheme(const OddsQuestion& q, int scheme) {
    switch (scheme) {
        case MinorPush:
            return MinorPushOdds(q);
        case ColorPush:
            return ColorPushOdds(q);
        case SingleOdds:
            return SingleOddsX(q, false);
        case FlatSingleOdds:
            return SingleOddsX(q, true);
        default:
            return q.Plain;
    }
}

/// Far beyond any amount of the table, and small enough for every product here.
std::int64_t Bounded(currency amount, std::int64_t dollars) {
    return std::clamp<std::int64_t>(amount.TenThousandths, 0, dollars * CurrencyScale);
}

}  // namespace

currency RoundUpTo(currency x, currency m) {
    if (2 * static_cast<int128>(x.TenThousandths) < m.TenThousandths) return {};
    return AwayFromZeroTo(x, m);
}

currency MaxOddsFor(const Table& t, int row, currency flat, currency pays, currency forAmount) {
    constexpr std::int64_t million = 1'000'000;
    OddsQuestion q{Bounded(flat, 1000 * million),
                   Bounded(MultipleOf(t, row), million / 10),
                   Bounded(pays, 100 * million),
                   Bounded(forAmount, 100 * million),
                   t.CheckDenominations,
                   0,
                   0};
    for (std::size_t color = 1; color <= 5; ++color) {
        q.Checks[color] = {std::clamp<std::int64_t>(q.Checks[color].TenThousandths, 1, 1000 * million * CurrencyScale)};
    }
    q.Plain = static_cast<int128>(q.Multiple) * q.Flat;
    q.Cap = q.Plain + static_cast<int128>(q.Flat) * CurrencyScale;
    const bool pushes = q.Pays > 0 && q.For > 0 && q.Plain > 0;
    const int128 most = pushes ? OddsByScheme(q, SchemeFor(t.OddsCalcMethod, {q.Multiple})) : q.Plain;
    const int128 allowed = std::min(most, std::max<int128>(FineOf(t.MaxOddsBet), 0));
    const int128 check = FineOf(q.Checks[1]);
    return q.Checks[1] * static_cast<std::int64_t>(allowed / check);
}

}  // namespace tarnwick
