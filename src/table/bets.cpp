#include "table/bets.h"

#include <algorithm>
#include <charconv>

namespace tarnwick {

namespace {

constexpr std::array<std::string_view, 105> Names = {
    "",
    "Lay 4",
    "Lay 5",
    "Lay 6",
    "Lay 8",
    "Lay 9",
    "Lay 10",
    "Don't Come 4",
    "Don't Come 5",
    "Don't Come 6",
    "Don't Come 8",
    "Don't Come 9",
    "Don't Come 10",
    "Don't Come 4 Odds",
    "Don't Come 5 Odds",
    "Don't Come 6 Odds",
    "Don't Come 8 Odds",
    "Don't Come 9 Odds",
    "Don't Come 10 Odds",
    "Come 4",
    "Come 5",
    "Come 6",
    "Come 8",
    "Come 9",
    "Come 10",
    "Come 4 Odds",
    "Come 5 Odds",
    "Come 6 Odds",
    "Come 8 Odds",
    "Come 9 Odds",
    "Come 10 Odds",
    "Place 4",
    "Place 5",
    "Place 6",
    "Place 8",
    "Place 9",
    "Place 10",
    "Buy 4",
    "Buy 5",
    "Buy 6",
    "Buy 8",
    "Buy 9",
    "Buy 10",
    "Pass Line",
    "Pass Line Odds",
    "Come",
    "Don't Pass",
    "Don't Pass Odds",
    "Don't Come",
    "Field",
    "Big 6",
    "Big 8",
    "Hard 4",
    "Hard 6",
    "Hard 8",
    "Hard 10",
    "Two",
    "Three",
    "Seven",
    "Eleven",
    "Twelve",
    "Craps",
    "C and E",
    "Horn",
    "World",
    "Over 7",
    "Under 7",
    "Hop 13",
    "Hop 14",
    "Hop 15",
    "Hop 16",
    "Hop 22",
    "Hop 23",
    "Hop 24",
    "Hop 25",
    "Hop 26",
    "Hop 33",
    "Hop 34",
    "Hop 35",
    "Hop 36",
    "Hop 44",
    "Hop 45",
    "Hop 46",
    "Hop 55",
    "All Small",
    "All Tall",
    "Make All",
    "4 Rolls No 7",
    "Point 7",
    "7 Point 7",
    "Midway",
    "Fire",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "CheckStack #1",
    "CheckStack #2",
    "CheckStack #3",
    "CheckStack #4",
};
static_assert(Names[Row::PassLine] == "Pass Line" && Names[Row::Fire] == "Fire" && Names[101] == "CheckStack #1");

char Lower(char c) { return 'A' <= c && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool SameWithoutCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return Lower(x) == Lower(y); });
}

}  // namespace

std::string_view BetName(int row) {
    return row < 0 || row >= static_cast<int>(Names.size()) ? std::string_view{} : Names[static_cast<std::size_t>(row)];
}

std::string BetTitle(int row) {
    if (IsStack(row)) return "CheckStack #" + std::to_string(row - Row::FirstStack);
    return std::string(BetName(row));
}

int RowByName(std::string_view name) {
    for (int row = 1; row <= Row::LastBet; ++row) {
        if (SameWithoutCase(name, BetName(row))) return row;
    }
    constexpr std::string_view stack = "checkstack #";
    if (name.size() <= stack.size() || !SameWithoutCase(name.substr(0, stack.size()), stack)) return 0;
    int number = -1;
    const char* end = name.data() + name.size();
    const auto read = std::from_chars(name.data() + stack.size(), end, number);
    const bool known = read.ec == std::errc{} && read.ptr == end && 0 <= number && number <= 99;
    return known ? Row::FirstStack + number : 0;
}

}  // namespace tarnwick
