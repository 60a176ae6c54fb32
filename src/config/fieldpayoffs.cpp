#include "config/fieldpayoffs.h"

#include <numeric>
#include <utility>

#include "config/configure.h"
#include "config/payoffs.h"
#include "table/dicepayoffs.h"

namespace tarnwick {

namespace {

constexpr PayoffEntry Net(int pays, int forAmount = 1) { return {{}, Dollars(pays), ToWord, Dollars(forAmount)}; }
constexpr PayoffEntry Loss = Net(-1);
constexpr PayoffEntry Stays = Net(0);

constexpr PayoffEntry Against(const PayoffEntry& payoff) { return {{}, -payoff.Pays, ToWord, payoff.For}; }

constexpr int Ways(int total) { return total <= 7 ? total - 1 : 13 - total; }

/// Even money on `point` before a 7.
constexpr PayoffEntry BehindPoint(int point) {
    const int wins = Ways(point), sevens = Ways(7);
    const int divisor = std::gcd(sevens - wins, sevens + wins);
    return Net((wins - sevens) / divisor, (wins + sevens) / divisor);
}

using Dice = std::pair<int, int>;
constexpr int TotalOf(Dice dice) { return dice.first + dice.second; }

constexpr PayoffEntry Field2x(Dice dice) {
    const int total = TotalOf(dice);
    if (5 <= total && total <= 8) return Loss;
    return Net(total == 2 || total == 12 ? 2 : 1);
}

constexpr PayoffEntry PassLine(Dice dice) {
    const int total = TotalOf(dice);
    if (total == 7 || total == 11) return Net(1);
    return IsPointNumber(total) ? BehindPoint(total) : Loss;
}

constexpr PayoffEntry DontPassBar12(Dice dice) { return TotalOf(dice) == 12 ? Stays : Against(PassLine(dice)); }

constexpr PayoffEntry CraplessPassLine(Dice dice) { return TotalOf(dice) == 7 ? Net(1) : BehindPoint(TotalOf(dice)); }

/// A bet that `wins` before `loses`.
constexpr PayoffEntry Race(Dice dice, int wins, PayoffEntry payoff, int loses) {
    return TotalOf(dice) == wins ? payoff : TotalOf(dice) == loses ? Loss : Stays;
}

constexpr PayoffEntry Place6(Dice dice) { return Race(dice, 6, Net(7, 6), 7); }
constexpr PayoffEntry PlaceToLose8(Dice dice) { return Race(dice, 7, Net(4, 5), 8); }
/// 20 and a vig of 1 win 39.
constexpr PayoffEntry Buy10(Dice dice) { return Race(dice, 10, Net(13, 7), 7); }
/// 40 win 20 less a vig of 1.
constexpr PayoffEntry Lay4(Dice dice) { return Race(dice, 7, Net(19, 40), 4); }

constexpr PayoffEntry Hard8(Dice dice) {
    if (dice == Dice{4, 4}) return Net(9);
    return TotalOf(dice) == 7 || TotalOf(dice) == 8 ? Loss : Stays;
}

/// One of `parts` equal parts wins, the others are lost.
constexpr PayoffEntry Part(int pays, int parts) {
    const int net = pays - (parts - 1);
    const int divisor = std::gcd(net, parts);
    return Net(net / divisor, parts / divisor);
}

constexpr PayoffEntry Horn(Dice dice) {
    const int total = TotalOf(dice);
    if (total == 2 || total == 12) return Part(30, 4);
    return total == 3 || total == 11 ? Part(15, 4) : Loss;
}

constexpr PayoffEntry World(Dice dice) {
    const int total = TotalOf(dice);
    if (total == 2 || total == 12) return Part(30, 5);
    if (total == 7) return Part(4, 5);
    return total == 3 || total == 11 ? Part(15, 5) : Loss;
}

constexpr PayoffEntry Hop13(Dice dice) { return dice == Dice{1, 3} ? Net(15) : Loss; }

constexpr PayoffEntry Midway(Dice dice) {
    const int total = TotalOf(dice);
    if (total < 6 || total > 8) return Loss;
    return Net(dice.first == dice.second ? 2 : 1);
}

struct Filling {
    std::string_view Caption;
    PayoffEntry (*Of)(Dice dice);  ///< the smaller die comes first
};

constexpr std::array<Filling, FieldFillings> Fillings = {{{"&Field w/ 2x on Two and Twelve", Field2x},
                                                          {"&Pass Line", PassLine},
                                                          {"&Don't Pass (bar 12)", DontPassBar12},
                                                          {"Place &6", Place6},
                                                          {"Place to &Lose 8", PlaceToLose8},
                                                          {"Buy &10 (5 % vig)", Buy10},
                                                          {"Lay &4 (5% vig on win only)", Lay4},
                                                          {"H&ard 8", Hard8},
                                                          {"&Horn", Horn},
                                                          {"&World", World},
                                                          {"H&op 13", Hop13},
                                                          {"&Midway", Midway},
                                                          {"&Crapless Craps Pass Line", CraplessPassLine}}};

}  // namespace

std::string_view FieldFillingCaption(int filling) { return Fillings[static_cast<std::size_t>(filling)].Caption; }

std::array<PayoffEntry, 22> FieldFilling(int filling) {
    std::array<PayoffEntry, 22> payoffs{};
    for (int high = 1; high <= 6; ++high) {
        for (int low = 1; low <= high; ++low) {
            payoffs[static_cast<std::size_t>(FieldIndex(low, high))] =
                Fillings[static_cast<std::size_t>(filling)].Of({low, high});
        }
    }
    return payoffs;
}

bool FillFieldPayoffs(Table& t, int filling) {
    return ChangeSettings(t, [filling](Table& table) { table.FieldPayoff = FieldFilling(filling); });
}

}  // namespace tarnwick
