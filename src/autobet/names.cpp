#include "autobet/names.h"

#include <algorithm>
#include <array>

#include "table/bets.h"

namespace tarnwick {

namespace {

struct NumberedName {
    int Number;
    std::string_view Name;
};

constexpr std::array<NumberedName, 42> Functions = {{{1, "Lay"},           {2, "DontCome"}, {3, "DontComeOdds"},
                                                     {4, "Come"},          {5, "ComeOdds"}, {6, "Place"},
                                                     {7, "Buy"},           {8, "Big"},      {9, "Hardway"},
                                                     {10, "Hop"},          {11, "Die"},     {21, "Checkstack"},
                                                     {50, "Player"},       {100, "Sqr"},    {101, "Int"},
                                                     {102, "Abs"},         {104, "Asc"},    {110, "Average Bankroll"},
                                                     {117, "Val"},         {118, "Len"},    {125, "Input"},
                                                     {126, "Highest"},     {127, "Lowest"}, {128, "Average"},
                                                     {129, "StdDev"},      {130, "Sum"},    {131, "Count"},
                                                     {190, "Die"},         {203, "Instr"},  {800, "Checkstack Name"},
                                                     {801, "Left"},        {802, "Right"},  {803, "RemoveLeft"},
                                                     {804, "RemoveRight"}, {805, "Mid"},    {806, "RemoveMid"},
                                                     {809, "Insert"},      {810, "Str"},    {811, "Chr"},
                                                     {812, "Space"},       {825, "Input$"}, {850, "Playername"}}};

constexpr std::array<NumberedName, 56> Variables = {{{651, "Available bankroll"},
                                                     {670, "Autohandle winning bets"},
                                                     {671, "Autohandle losing bets"},
                                                     {700, "Autotake full odds"},
                                                     {701, "Autolay full odds"},
                                                     {702, "Autodown place bets"},
                                                     {703, "Autopass the dice"},
                                                     {1100, "Comps"},
                                                     {1200, "Simulated hours"},
                                                     {1301, "Bankroll"},
                                                     {1302, "High bankroll"},
                                                     {1303, "Low bankroll"},
                                                     {2500, "# of rolls"},
                                                     {2501, "# of rolls since"},
                                                     {2502, "% of rolls"},
                                                     {2600, "# of comeout rolls"},
                                                     {2601, "% of comeout rolls"},
                                                     {2602, "# of passes"},
                                                     {2603, "% of passes"},
                                                     {2604, "# of misses"},
                                                     {2605, "% of misses"},
                                                     {3000, "Initializing script"},
                                                     {3001, "Beginning new session"},
                                                     {3002, "Beginning new hand (new shooter)"},
                                                     {3005, "Dice roll file end reached"},
                                                     {3006, "Dice roll file next roll #"},
                                                     {3007, "Dice roll file length"},
                                                     {3200, "Shooter"},
                                                     {3201, "Last shooter"},
                                                     {3203, "Bettor"},
                                                     {3300, "Shooter passes"},
                                                     {3301, "Shooter misses"},
                                                     {3500, "Point"},
                                                     {3501, "Last point"},
                                                     {3510, "Dice total"},
                                                     {3511, "Dice combo"},
                                                     {3512, "Die1"},
                                                     {3513, "Die2"},
                                                     {3603, "Rolls per hour"},
                                                     {3610, "Minimum bet"},
                                                     {3611, "Maximum bet"},
                                                     {3655, "Seed"},
                                                     {3672, "RNG"},
                                                     {3691, "Comp rate"},
                                                     {3693, "Date/Time"},
                                                     {3694, "Date"},
                                                     {3695, "Time"},
                                                     {3697, "Answer"},
                                                     {3698, "Rnd"},
                                                     {3704, "Next roll is a comeout roll"},
                                                     {3705, "Next roll is not a comeout roll"},
                                                     {3706, "Last roll was a comeout roll"},
                                                     {3707, "Last roll was not a comeout roll"},
                                                     {3708, "Seven out"},
                                                     {4606, "# of points"},
                                                     {4607, "% of points"}}};

template <std::size_t N>
std::string_view Find(const std::array<NumberedName, N>& names, int number) {
    const auto at = std::lower_bound(names.begin(), names.end(), number,
                                     [](const NumberedName& entry, int wanted) { return entry.Number < wanted; });
    return at != names.end() && at->Number == number ? at->Name : std::string_view{};
}

template <std::size_t N>
constexpr bool InOrder(const std::array<NumberedName, N>& names) {
    for (std::size_t i = 1; i < N; ++i) {
        if (names[i - 1].Number >= names[i].Number) return false;
    }
    return true;
}
static_assert(InOrder(Functions) && InOrder(Variables));

}  // namespace

std::string_view FunctionName(int function) { return Find(Functions, function); }

std::string VariableName(int variable) {
    if (IsLayoutRow(variable)) return std::string(BetName(variable));
    if (100 <= variable && variable <= 199) return std::to_string(variable - 100) + "Checkstack";
    if (800 <= variable && variable <= 899) return std::to_string(variable - 800) + "Checkstackname";
    const std::string_view name = Find(Variables, variable);
    return std::string(name.empty() ? "Variable" : name);
}

std::string Quoted(std::string_view name) { return "\"" + std::string(name) + "\""; }

}  // namespace tarnwick
