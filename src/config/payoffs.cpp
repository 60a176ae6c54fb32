#include "config/payoffs.h"

#include <numeric>

#include "config/configure.h"
#include "table/format.h"
#include "table/messages.h"
#include "table/placement.h"

namespace tarnwick {

namespace {

constexpr currency LargestPayoff = Dollars(9'999'999);

constexpr PayoffEntry To(int pays, int forAmount) { return {{}, Dollars(pays), ToWord, Dollars(forAmount)}; }
constexpr PayoffEntry Loss = To(-1, 1);

using SixPayoffs = std::array<PayoffEntry, 6>;  // 4, 5, 6, 8, 9, 10
constexpr SixPayoffs DontOdds = {To(1, 2), To(2, 3), To(5, 6), To(5, 6), To(2, 3), To(1, 2)};
constexpr SixPayoffs TrueOdds = {To(2, 1), To(3, 2), To(6, 5), To(6, 5), To(3, 2), To(2, 1)};
constexpr SixPayoffs PlaceOdds = {To(9, 5), To(7, 5), To(7, 6), To(7, 6), To(7, 5), To(9, 5)};

struct FamilyDefault {
    int FirstRow;
    const SixPayoffs& Payoffs;
};
constexpr FamilyDefault Families[] = {{Row::Lay4, DontOdds},
                                      {Row::DontCome4Odds, DontOdds},
                                      {Row::Come4Odds, TrueOdds},
                                      {Row::Place4, PlaceOdds},
                                      {Row::Buy4, TrueOdds}};

struct RowDefault {
    int BetRow;
    PayoffEntry Payoff;
};
constexpr RowDefault Singles[] = {{Row::Hard4, To(7, 1)},     {Row::Hard6, To(9, 1)},     {Row::Hard8, To(9, 1)},
                                  {Row::Hard10, To(7, 1)},    {Row::Two, To(30, 1)},      {Row::Three, To(15, 1)},
                                  {Row::Seven, To(4, 1)},     {Row::Eleven, To(15, 1)},   {Row::Twelve, To(30, 1)},
                                  {Row::Craps, To(7, 1)},     {Row::CandE, To(1, 2)},     {Row::Horn, To(1, 4)},
                                  {Row::World, To(1, 5)},     {Row::AllSmall, To(34, 1)}, {Row::AllTall, To(34, 1)},
                                  {Row::MakeAll, To(175, 1)}, {Row::Point7, To(7, 1)}};

constexpr bool IsPairHop(int row) {
    return row == Row::Hop22 || row == Row::Hop33 || row == Row::Hop44 || row == Row::Hop55;
}

void SetDefaultPayoffRows(Settings& s) {
    for (int row = 1; row <= Row::LastBet; ++row) {
        s.Payoff[static_cast<std::size_t>(row)] = !IsHop(row) ? To(1, 1) : IsPairHop(row) ? To(30, 1) : To(15, 1);
    }
    for (const FamilyDefault& family : Families) {
        std::size_t row = static_cast<std::size_t>(family.FirstRow);
        for (const PayoffEntry& payoff : family.Payoffs) s.Payoff[row++] = payoff;
    }
    for (const RowDefault& single : Singles) s.Payoff[static_cast<std::size_t>(single.BetRow)] = single.Payoff;
}

void SetDefaultPayoffTables(Settings& s) {
    for (std::size_t i = 1; i <= 21; ++i) s.FieldPayoff[i] = 5 <= i && i <= 15 ? Loss : To(1, 1);  // 5, 6, 7, 8 lose
    s.FieldPayoff[1] = s.FieldPayoff[21] = To(2, 1);
    s.SevenPointSevenPayoff[1] = To(2, 1);
    s.SevenPointSevenPayoff[2] = To(3, 1);
    for (std::size_t i = 1; i <= 5; ++i) s.MidwayPayoff[i] = i == 1 || i == 5 ? To(2, 1) : To(1, 1);
    s.FirePayoff = {Loss, Loss, Loss, Loss, To(24, 1), To(249, 1), To(999, 1)};
}

currency UnitOf(const PayoffEntry& payoff, currency check) {
    if (payoff.Pays <= currency{} || payoff.For <= currency{}) return check;
    const std::int64_t divisor = std::gcd(payoff.Pays.TenThousandths, payoff.For.TenThousandths);
    return {Saturate(static_cast<int128>(check.TenThousandths) * (payoff.For.TenThousandths / divisor))};
}

enum VigRounding { Normally = 0, Down = 1, Up = 2 };

/// `amount` times `rate` in whole smallest checks.
currency ChargeVig(const Table& t, currency amount, currency rate, int rounding) {
    const currency check = SmallestCheck(t);
    if (amount <= currency{} || rate <= currency{} || check <= currency{}) return {};
    // In ten-thousandths of a check: the product of two counts of ten-thousandths is a count of their squares.
    const int128 vig = static_cast<int128>(amount.TenThousandths) * rate.TenThousandths;
    const int128 unit = static_cast<int128>(check.TenThousandths) * CurrencyScale;
    int128 checks = vig / unit;
    const int128 rest = vig % unit;
    if (rounding == Up ? rest > 0 : rounding == Normally && 2 * rest > unit) ++checks;
    if (checks == 0) checks = 1;  // nobody sells the vig for nothing
    return {Saturate(checks * check.TenThousandths)};
}

}  // namespace

void RestoreDefaultPayoffs(Table& t) {
    SetDefaultPayoffRows(t);
    SetDefaultPayoffTables(t);
    UpdatePayoffUnits(t);
    RecomputeVigs(t);
}

bool AskRestoreDefaultPayoffs(Table& t) {
    if (!AskYesNo(t, "Restore Default Payoffs",
                  "Do you want to restore all payoffs to \ntheir original Tarnwick settings?")) {
        return false;
    }
    return ChangeSettings(t, RestoreDefaultPayoffs);
}

void UpdatePayoffUnits(Table& t) {
    FollowPointPayoffs(t);
    const auto update = [check = SmallestCheck(t)](auto& payoffs) {
        for (PayoffEntry& payoff : payoffs) payoff.Unit = UnitOf(payoff, check);
    };
    update(t.Payoff);
    update(t.FieldPayoff);
    update(t.SevenPointSevenPayoff);
    update(t.MidwayPayoff);
    update(t.FirePayoff);
}

void FollowPointPayoffs(Table& t) {
    if (!IsPointNumber(t.Point)) return;
    t.Payoff[Row::PassLineOdds] = PayoffOf(t, Row::PassLineOdds);
    t.Payoff[Row::DontPassOdds] = PayoffOf(t, Row::DontPassOdds);
}

double PayoffRatio(const Table& t, int row) {
    const PayoffEntry& payoff = PayoffOf(t, row);
    if (payoff.For <= currency{}) return 0;
    return static_cast<double>(payoff.Pays.TenThousandths) / static_cast<double>(payoff.For.TenThousandths);
}

const PayoffEntry& PayoffOf(const Table& t, int row, int point) {
    const bool pointOn = IsPointNumber(point);
    const int number = pointOn ? PointIndex(point) : 0;
    switch (row) {
        case Row::PassLine:
            row = pointOn ? Row::Come4 + number : Row::Come;
            break;
        case Row::DontPass:
            row = pointOn ? Row::DontCome4 + number : Row::DontCome;
            break;
        case Row::PassLineOdds:
            row = pointOn ? Row::Come4Odds + number : row;
            break;
        case Row::DontPassOdds:
            row = pointOn ? Row::DontCome4Odds + number : row;
            break;
        default:
            break;
    }
    return t.Payoff[static_cast<std::size_t>(row)];
}

const PayoffEntry& PayoffOf(const Table& t, int row) { return PayoffOf(t, row, t.Point); }

std::string PayoffText(const PayoffEntry& payoff) {
    const bool forForm = IsZero(payoff.ToForm);
    return PlainAmount(forForm ? payoff.Pays + payoff.For : payoff.Pays) + (forForm ? " for " : " to ") +
           PlainAmount(payoff.For);
}

std::optional<PayoffEntry> ParsePayoff(std::string_view text) {
    const std::string lower = LowerCase(text);
    std::size_t word = lower.find(" to ");
    const bool forForm = word == std::string::npos;
    if (forForm) word = lower.find(" for ");
    if (word == std::string::npos) return std::nullopt;
    const auto first = ParseAmount(text.substr(0, word));
    const auto second = ParseAmount(text.substr(word + (forForm ? 5 : 4)));
    if (!first || !second || *second <= currency{} || *second > LargestPayoff) return std::nullopt;
    if (Abs(*first) > LargestPayoff * 2) return std::nullopt;
    const PayoffEntry payoff{{}, forForm ? *first - *second : *first, forForm ? ForWord : ToWord, *second};
    if (Abs(payoff.Pays) > LargestPayoff) return std::nullopt;
    return payoff;
}

currency BuyVig(const Table& t, int row, currency amount) { return IsBuy(row) ? ChargeBuyVig(t, amount) : currency{}; }

currency LayVig(const Table& t, int row, currency amount) {
    if (!IsLay(row)) return {};
    const PayoffEntry& payoff = t.Payoff[static_cast<std::size_t>(row)];
    if (payoff.For <= currency{}) return {};
    return ChargeLayVig(t, MultiplyDivide(amount, payoff.Pays, payoff.For));
}

currency ChargeBuyVig(const Table& t, currency amount) { return ChargeVig(t, amount, t.BuyVigRate, t.BuyVigRounding); }

currency ChargeLayVig(const Table& t, currency winAmount) {
    return ChargeVig(t, winAmount, t.LayVigRate, t.LayVigRounding);
}

}  // namespace tarnwick
