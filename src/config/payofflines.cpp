#include "config/payofflines.h"

#include <algorithm>
#include <array>

#include "config/advantagelines.h"
#include "config/payoffs.h"
#include "config/settingtable.h"
#include "table/dicepayoffs.h"
#include "table/format.h"

namespace tarnwick {

namespace {

constexpr currency LargestPayoff = Dollars(9'999'999);
constexpr const char* ErrorTitle = "Payoff error";

template <class S>
auto& EntryIn(S& settings, const PayoffLine& line) {
    const auto i = static_cast<std::size_t>(line.Index);
    switch (line.In) {
        case PayoffTable::Field:
            return settings.FieldPayoff[i];
        case PayoffTable::SevenPoint7:
            return settings.SevenPointSevenPayoff[i];
        case PayoffTable::Midway:
            return settings.MidwayPayoff[i];
        case PayoffTable::Fire:
            return settings.FirePayoff[i];
        default:
            return settings.Payoff[i];
    }
}

class LineList {
  public:
    std::vector<PayoffLine> Lines;

    void Heading(std::string text) {
        Block = text;
        PayoffLine line;
        line.Label = line.Name = std::move(text);
        Lines.push_back(std::move(line));
    }
    void Bets(int first, int last) {
        for (int row = first; row <= last; ++row) {
            const std::string label = AdvantageLabel(row);
            Lines.push_back({PayoffTable::Bets, row, label, label, false});
        }
    }
    void Entry(PayoffTable table, int index, const std::string& what, bool fixed = false) {
        Lines.push_back({table, index, "  -- " + what, Block + " -- " + what, fixed});
    }

  private:
    std::string Block;
};

/// "7 (2-5)", or the total alone where it has one pair of dice.
std::string DiceLabel(int low, int high) {
    const int total = low + high;
    if (total <= 3 || total >= 11) return std::to_string(total);
    return std::to_string(total) + " (" + std::to_string(low) + "-" + std::to_string(high) + ")";
}

void AddField(LineList& list) {
    std::array<std::string, 22> labels;
    for (int high = 1; high <= 6; ++high) {
        for (int low = 1; low <= high; ++low) {
            labels[static_cast<std::size_t>(FieldIndex(low, high))] = DiceLabel(low, high);
        }
    }
    list.Heading("Field");
    for (int i = 1; i <= 21; ++i) list.Entry(PayoffTable::Field, i, labels[static_cast<std::size_t>(i)]);
}

void AddSpecials(LineList& list) {
    list.Heading("Multi-roll props");
    list.Bets(Row::AllSmall, Row::Point7);
    list.Heading("7 Point 7");
    list.Entry(PayoffTable::SevenPoint7, 1, "Comeout 7");
    list.Entry(PayoffTable::SevenPoint7, 2, "Point 7");
    list.Heading("Midway");
    int entry = 0;
    for (const char* result : {"Hard 6", "Easy 6", "7", "Easy 8", "Hard 8"}) {
        list.Entry(PayoffTable::Midway, ++entry, result);
    }
    list.Heading("Fire");
    for (int points = 0; points <= 6; ++points) {
        list.Entry(PayoffTable::Fire, points, std::to_string(points) + (points == 1 ? " point" : " points"),
                   points == 0);
    }
}

std::vector<PayoffLine> MakeLines() {
    LineList list;
    list.Heading("Pass Line and Come");
    list.Bets(Row::Come, Row::Come);
    list.Bets(Row::Come4, Row::Come10);
    list.Bets(Row::Come4Odds, Row::Come10Odds);
    list.Heading("Don't Pass and Don't Come");
    list.Bets(Row::DontCome, Row::DontCome);
    list.Bets(Row::DontCome4, Row::DontCome10);
    list.Bets(Row::DontCome4Odds, Row::DontCome10Odds);
    list.Heading("Place");
    list.Bets(Row::Place4, Row::Place10);
    list.Heading("Buy");
    list.Bets(Row::Buy4, Row::Buy10);
    list.Heading("Lay");
    list.Bets(Row::Lay4, Row::Lay10);
    AddField(list);
    list.Heading("Big 6 and Big 8");
    list.Bets(Row::Big6, Row::Big8);
    list.Heading("Hardways");
    list.Bets(Row::Hard4, Row::Hard10);
    list.Heading("One-roll props");
    list.Bets(Row::Two, Row::Under7);
    list.Heading("Hops");
    list.Bets(Row::Hop13, Row::Hop55);
    AddSpecials(list);
    return list.Lines;
}

bool Wins(const PayoffEntry& payoff) { return payoff.Pays > currency{} && payoff.For > currency{}; }

/// Whether a loss may be typed here; where only wins stand in the end, leaving the list tells.
bool MayLose(const PayoffLine& line) {
    if (line.In != PayoffTable::Bets) return true;
    const int row = line.Index;
    return row == Row::Come || row == Row::DontCome || IsComeNumber(row) || IsDontComeNumber(row);
}

std::string PositiveText(const PayoffLine& line) {
    return "The payoff on " + line.Name + " must be a positive amount.";
}

bool Contains(const std::string& text, std::string_view part) { return text.find(part) != std::string::npos; }

/// Whether `text`, a fault of the payoffs of `s`, means this line.
bool Means(const std::string& text, const Settings& s, const PayoffLine& line) {
    if (line.In == PayoffTable::Heading || line.Fixed) return false;
    const PayoffEntry& payoff = EntryOf(s, line);
    const bool losesMore = -payoff.Pays > payoff.For;
    switch (line.In) {
        case PayoffTable::SevenPoint7:
            return Contains(text, " on SevenPoint7 ") && !Wins(payoff);
        case PayoffTable::Midway:
            return Contains(text, " on Midway ") && !Wins(payoff);
        case PayoffTable::Field:
            return Contains(text, " Field bet payoff") && (losesMore || !Contains(text, "loss"));
        case PayoffTable::Fire:
            return Contains(text, " Fire bet payoff") && (losesMore || !Contains(text, "loss"));
        default:
            return text == PositiveText(line);
    }
}

/// The entry after a number was typed, or what is wrong with it.
std::string TakeNumber(PayoffEntry& payoff, const PayoffLine& line, PayoffNumber which, std::string_view text) {
    const auto number = ParseAmount(text);
    if (!number) {
        return "\"" + std::string(text) + "\" is not a number.\nThe payoff on " + line.Name + " is still " +
               PayoffText(payoff) + ".";
    }
    const bool forForm = IsZero(payoff.ToForm);
    const currency shown = which == PayoffNumber::First ? *number : ShownPays(payoff);
    if (which == PayoffNumber::Second) payoff.For = *number;
    if (payoff.For <= currency{}) return "The amount bet must be greater than zero.";
    bool beyond = shown < LargestPayoff * -2 || shown > LargestPayoff * 2 || payoff.For > LargestPayoff;
    if (!beyond) {
        payoff.Pays = forForm ? shown - payoff.For : shown;
        beyond = Abs(payoff.Pays) > LargestPayoff;
    }
    if (beyond) return "The numbers of a payoff may not exceed " + FormatCommas(LargestPayoff) + ".";
    if (payoff.Pays < currency{} && !MayLose(line)) return PositiveText(line);
    return {};
}

}  // namespace

const std::vector<PayoffLine>& PayoffLines() {
    static const std::vector<PayoffLine> lines = MakeLines();
    return lines;
}

PayoffEntry& EntryOf(Settings& s, const PayoffLine& line) { return EntryIn(s, line); }
const PayoffEntry& EntryOf(const Settings& s, const PayoffLine& line) { return EntryIn(s, line); }

currency ShownPays(const PayoffEntry& payoff) { return IsZero(payoff.ToForm) ? payoff.Pays + payoff.For : payoff.Pays; }

void SetPayoffWord(Table& t, const PayoffLine& line, PayoffWord word) {
    if (line.In == PayoffTable::Heading || line.Fixed) return;
    PayoffEntry& payoff = EntryOf(t, line);
    const bool to = word == PayoffWord::Other ? IsZero(payoff.ToForm) : word == PayoffWord::To;
    if (to == !IsZero(payoff.ToForm)) return;
    payoff.ToForm = to ? ToWord : ForWord;
    FollowPointPayoffs(t);
    t.GameChanged = true;
}

SettingFault SetPayoffNumber(Table& t, const PayoffLine& line, PayoffNumber which, std::string_view text) {
    PayoffEntry payoff = EntryOf(t, line);
    std::string wrong = TakeNumber(payoff, line, which, text);
    if (!wrong.empty()) return {ErrorTitle, wrong};
    wrong = TryVigChange(t, [&](Table& table) { EntryOf(table, line) = payoff; });
    if (!wrong.empty()) return {"Configuration", wrong};
    return {};
}

PayoffLineFault FirstPayoffFault(const Table& t) {
    for (const SettingFault& fault : FaultsOf(t, CheckGroup::Payoffs)) {
        const std::vector<PayoffLine>& lines = PayoffLines();
        const auto found = std::find_if(lines.begin(), lines.end(),
                                        [&](const PayoffLine& line) { return Means(fault.Text, t, line); });
        // The largest Fire bet is set elsewhere.
        if (found != lines.end()) return {fault, static_cast<int>(found - lines.begin())};
    }
    return {};
}

}  // namespace tarnwick
