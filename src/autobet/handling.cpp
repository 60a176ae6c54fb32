#include "autobet/handling.h"

#include <array>
#include <optional>
#include <string>

#include "autobet/numbertext.h"
#include "table/format.h"

namespace tarnwick {

namespace {

struct Phrase {
    std::string_view Text;
    int Mode;
};

constexpr std::array<Phrase, 8> WinnerPhrases = {{{"manual", 1},
                                                  {"take bet and winnings", 2},
                                                  {"same bet/take winnings", 3},
                                                  {"same bet / take winnings", 3},
                                                  {"same bet", 3},
                                                  {"press 1 unit", 4},
                                                  {"press double", 5},
                                                  {"parlay", 6}}};

constexpr std::array<Phrase, 11> LoserPhrases = {{{"manual", 1},
                                                  {"no bet/take remainder (if any)", 2},
                                                  {"no bet / take remainder (if any)", 2},
                                                  {"no bet", 2},
                                                  {"no bet/take remainder", 2},
                                                  {"no bet / take remainder", 2},
                                                  {"same bet", 3},
                                                  {"bet remainder (if any)", 4},
                                                  {"bet remainder", 4},
                                                  {"same bet plus 1 unit", 5},
                                                  {"double bet", 6}}};

constexpr int SameBetMode = 7;
constexpr int BetMode = 8;

/// A mode 1..8, with the arithmetic that modes 7 and 8 may carry.
struct Handling {
    int Mode = 0;
    int Operator = 0;  ///< 0 add, 1 subtract, 2 multiply, 3 divide
    std::optional<currency> Amount;
    int Unit = 0;  ///< 0 money, 1 percent
};

template <std::size_t N>
int ModeOf(const std::array<Phrase, N>& phrases, std::string_view text) {
    for (const Phrase& phrase : phrases) {
        if (phrase.Text == text) return phrase.Mode;
    }
    return 0;
}

/// "$5", "5$", "50%" or "5" into amount and unit; false for any other text.
bool ReadAmount(std::string_view text, Handling& handling) {
    text = Trim(text);
    if (!text.empty() && (text.back() == '$' || text.back() == '%')) {
        handling.Unit = text.back() == '%' ? 1 : 0;
        text.remove_suffix(1);
    }
    handling.Amount = ParseAmount(text);
    return handling.Amount && *handling.Amount >= currency{};
}

Handling ReadHandling(bool winner, std::string_view raw) {
    const std::string text = LowerCase(Trim(raw));
    Handling handling;
    handling.Mode = winner ? ModeOf(WinnerPhrases, text) : ModeOf(LoserPhrases, text);
    if (handling.Mode != 0) return handling;
    constexpr std::string_view sameBet = "same bet ";
    constexpr std::string_view bet = "bet";
    if (text.compare(0, sameBet.size(), sameBet) == 0 && text.size() > sameBet.size()) {
        constexpr std::array<std::string_view, 4> operators = {"+", "-", "x*", "/"};
        const char c = text[sameBet.size()];
        for (std::size_t i = 0; i < operators.size(); ++i) {
            if (operators[i].find(c) == std::string_view::npos) continue;
            handling.Operator = static_cast<int>(i);
            if (ReadAmount(std::string_view(text).substr(sameBet.size() + 1), handling)) handling.Mode = SameBetMode;
        }
    } else if (text.compare(0, bet.size(), bet) == 0) {
        if (ReadAmount(std::string_view(text).substr(bet.size()), handling)) handling.Mode = BetMode;
    }
    if (handling.Mode == 0) handling.Mode = RoundToInt32(NumberAtStart(text)).value_or(0);
    return handling;
}

}  // namespace

bool SetHandling(RunState& run, int p, bool winner, const ScriptValue& value) {
    Handling handling;
    if (value.IsText) {
        handling = ReadHandling(winner, value.Text);
    } else {
        handling.Mode = RoundToInt32(value.Number).value_or(0);
    }
    if (handling.Mode < 1 || handling.Mode > BetMode) {
        run.Warn(winner ? "Value out of limits for AutoHandle Winning Bets."
                        : "Value out of limits for AutoHandle Losing Bets.");
        return false;
    }
    Table& t = *run.Game;
    const auto seat = static_cast<std::size_t>(p);
    (winner ? t.WinnerHandling : t.LoserHandling)[seat] = handling.Mode - 1;
    if (handling.Amount) {
        // Slots 4 and 5 belong to "same bet", 6 and 7 to "bet", the winners' first.
        const std::size_t slot = (handling.Mode == SameBetMode ? 4u : 6u) + (winner ? 0u : 1u);
        t.HandleAmount[seat][slot] = *handling.Amount;
        t.HandleUnit[seat][slot] = handling.Unit;
        if (handling.Mode == SameBetMode) t.HandleOperator[seat][slot] = handling.Operator;
    }
    return true;
}

}  // namespace tarnwick
