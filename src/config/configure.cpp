#include "config/configure.h"

#include <algorithm>
#include <charconv>

#include "config/optionalbets.h"
#include "config/payoffs.h"
#include "config/settingtable.h"
#include "table/format.h"
#include "table/messages.h"
#include "table/placement.h"

namespace tarnwick {

namespace {

/// A setting as addressed: a row of the registry and up to two indexes.
struct Target {
    const SettingRow* Row = nullptr;
    int Indexes = 0;
    int Index = 0, Index2 = 0;
};

/// Reads "[3]", "[3][4]" or "[3,4]" behind a name. False when it is none of these.
bool ReadIndexes(std::string_view text, Target& target) {
    while (!text.empty()) {
        const std::size_t end = text.find(']');
        if (text.front() != '[' || end == std::string_view::npos) return false;
        std::string_view inside = text.substr(1, end - 1);
        text = Trim(text.substr(end + 1));
        for (bool more = true; more;) {
            const std::size_t comma = std::min(inside.find(','), inside.size());
            const auto index = ParseInteger(inside.substr(0, comma));
            if (!index || target.Indexes == 2) return false;
            (target.Indexes == 0 ? target.Index : target.Index2) = *index;
            ++target.Indexes;
            more = comma < inside.size();
            inside.remove_prefix(std::min(comma + 1, inside.size()));
        }
    }
    return true;
}

bool Within(int index, int first, int last) { return first <= index && index <= last; }

std::string Bounds(int first, int last) { return std::to_string(first) + " to " + std::to_string(last); }

/// How a setting with indexes is addressed.
std::string IndexRefusal(const SettingRow& row) {
    const std::string name(row.Name);
    if (row.LastIndex < row.FirstIndex) return name + " takes no index.";
    if (row.LastIndex2 < row.FirstIndex2) {
        return name + " takes an index from " + Bounds(row.FirstIndex, row.LastIndex) + ", as " + name + "[" +
               std::to_string(row.FirstIndex) + "].";
    }
    return name + " takes two indexes, from " + Bounds(row.FirstIndex, row.LastIndex) + " and from " +
           Bounds(row.FirstIndex2, row.LastIndex2) + ", as " + name + "[" + std::to_string(row.FirstIndex) + "][" +
           std::to_string(row.FirstIndex2) + "].";
}

bool IsWholeList(const Target& target) { return target.Indexes == 0 && target.Row->Group == CheckGroup::Checks; }

/// One index of the come-out list is the bet, for all positions.
bool IsComeOutForAll(const Target& target) { return target.Row->At == nullptr && target.Indexes == 1; }

std::string IndexFault(const Target& target) {
    const SettingRow& row = *target.Row;
    if (IsWholeList(target)) return {};
    if (IsComeOutForAll(target)) return Within(target.Index, 1, Row::LastBet) ? std::string{} : IndexRefusal(row);
    const int wanted = row.LastIndex < row.FirstIndex ? 0 : row.LastIndex2 < row.FirstIndex2 ? 1 : 2;
    if (target.Indexes != wanted) return IndexRefusal(row);
    if (wanted > 0 && !Within(target.Index, row.FirstIndex, row.LastIndex)) return IndexRefusal(row);
    if (wanted > 1 && !Within(target.Index2, row.FirstIndex2, row.LastIndex2)) return IndexRefusal(row);
    return {};
}

/// Finds what `name` addresses; returns what is wrong with it, or nothing.
std::string FindTarget(std::string_view name, Target& target) {
    name = Trim(name);
    const std::size_t bracket = std::min(name.find('['), name.size());
    const std::string_view plain = Trim(name.substr(0, bracket));
    target.Row = FindSetting(plain);
    if (target.Row == nullptr) return "There is no setting called \"" + std::string(plain) + "\".";
    if (!ReadIndexes(name.substr(bracket), target)) return IndexRefusal(*target.Row);
    return IndexFault(target);
}

std::optional<bool> ParseTruth(std::string_view text) {
    constexpr std::string_view yes[] = {"true", "yes", "on", "-1", "1"};
    constexpr std::string_view no[] = {"false", "no", "off", "0"};
    const std::string lower = LowerCase(Trim(text));
    if (std::find(std::begin(yes), std::end(yes), lower) != std::end(yes)) return true;
    if (std::find(std::begin(no), std::end(no), lower) != std::end(no)) return false;
    return std::nullopt;
}

/// A number in hexadecimal, with or without one of its marks.
std::optional<std::uint32_t> ParseHexadecimal(std::string_view text) {
    const std::string lower = LowerCase(Trim(text));
    std::string_view digits = lower;
    for (const std::string_view mark : {"#", "0x", "&h"}) {
        if (digits.substr(0, mark.size()) == mark) {
            digits.remove_prefix(mark.size());
            break;
        }
    }
    std::uint32_t color = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), color, 16);
    if (digits.empty() || read.ec != std::errc{} || read.ptr != digits.data() + digits.size()) return std::nullopt;
    return color;
}

/// A fraction, or a percentage with its sign.
std::optional<currency> ParseRate(std::string_view text) {
    text = Trim(text);
    if (text.empty() || text.back() != '%') return ParseAmount(text);
    const auto percent = ParseAmount(text.substr(0, text.size() - 1));
    if (!percent) return std::nullopt;
    return MultiplyDivide(*percent, Dollars(1), Dollars(100));
}

std::string HexadecimalText(std::uint32_t value, std::size_t places) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text(places, '0');
    for (std::size_t i = places; i-- > 0; value >>= 4) text[i] = digits[value & 15];
    return text;
}

/// Puts a typed value into its cell. Each returns what is wrong, and then has changed nothing.
struct CellWriter {
    const Target& At;
    std::string_view Text;

    std::string WrongKind(std::string_view kind) const {
        return std::string(At.Row->Name) + " takes " + std::string(kind) + ", not \"" + std::string(Text) + "\".";
    }
    bool InRange(std::int64_t value) const {
        return At.Row->Low <= value && value <= At.Row->High && (value - At.Row->Low) % At.Row->Step == 0;
    }
    std::string OutOfRange(std::int64_t unit) const {
        const SettingRow& row = *At.Row;
        const auto show = [unit](std::int64_t n) { return PlainAmount({n * (CurrencyScale / unit)}); };
        const std::string name(row.Name);
        if (row.Low + row.Step == row.High) return name + " must be " + show(row.Low) + " or " + show(row.High) + ".";
        const std::string kind = unit > 1 && row.Step > 1 ? "a whole number from " : "from ";
        return name + " must be " + kind + show(row.Low) + " to " + show(row.High) + ".";
    }

    std::string operator()(std::monostate) const { return IndexRefusal(*At.Row); }
    std::string operator()(bool* cell) const {
        const auto value = ParseTruth(Text);
        if (!value) return WrongKind("true or false");
        *cell = *value;
        return {};
    }
    std::string operator()(std::int32_t* cell) const {
        const auto value = ParseInteger(Text);
        if (!value) return WrongKind("a whole number");
        if (!InRange(*value)) return OutOfRange(1);
        *cell = *value;
        return {};
    }
    std::string operator()(ColorCell cell) const {
        const auto value = ParseHexadecimal(Text);
        if (!value || !InRange(*value)) return WrongKind("a color from 000000 to FFFFFF in hexadecimal");
        *cell.Value = *value;
        return {};
    }
    std::string operator()(BitsCell cell) const {
        const auto value = ParseHexadecimal(Text);
        if (!value) return WrongKind("bits from 00000000 to FFFFFFFF in hexadecimal");
        *cell.Value = *value;
        return {};
    }
    std::string Amount(std::optional<currency> value, std::string_view kind, currency& cell) const {
        if (!value) return WrongKind(kind);
        if (!InRange(value->TenThousandths)) return OutOfRange(CurrencyScale);
        cell = *value;
        return {};
    }
    std::string operator()(currency* cell) const { return Amount(ParseAmount(Text), "an amount", *cell); }
    std::string operator()(RateCell cell) const {
        return Amount(ParseRate(Text), "a fraction or a percentage", *cell.Value);
    }
    std::string operator()(double* cell) const {
        currency value;
        const std::string wrong = Amount(ParseAmount(Text), "a number", value);
        if (wrong.empty()) *cell = ToDouble(value);
        return wrong;
    }
    std::string operator()(PayoffEntry* cell) const;
};

/// What a row of `Payoff` that no bet is paid from should have been; empty for the others.
std::string PaidElsewhere(int row) {
    switch (row) {
        case Row::PassLine:
            return "Payoff[45] on a come-out and by Payoff[19] to Payoff[24] behind a point";
        case Row::DontPass:
            return "Payoff[48] on a come-out and by Payoff[7] to Payoff[12] behind a point";
        case Row::PassLineOdds:
            return "Payoff[25] to Payoff[30], by the point";
        case Row::DontPassOdds:
            return "Payoff[13] to Payoff[18], by the point";
        case Row::Field:
            return "FieldPayoff";
        case Row::SevenPoint7:
            return "SevenPointSevenPayoff";
        case Row::Midway:
            return "MidwayPayoff";
        case Row::Fire:
            return "FirePayoff";
        default:
            return {};
    }
}

std::string CellWriter::operator()(PayoffEntry* cell) const {
    auto payoff = ParsePayoff(Text);
    if (!payoff) return WrongKind("a payoff such as \"30 to 1\" or \"31 for 1\"");
    payoff->Unit = cell->Unit;
    if (At.Row->LastIndex == Row::LastBet && !(*payoff == *cell)) {
        const std::string elsewhere = PaidElsewhere(At.Index);
        const std::string name(BetName(At.Index));
        if (!elsewhere.empty()) return name + " is paid by " + elsewhere + ".";
        if (payoff->Pays <= currency{}) return "The payoff on " + name + " must be a positive amount.";
    }
    *cell = *payoff;
    return {};
}

/// All five checks at once, from "1,5,25,100,500".
std::string WriteChecks(Table& t, std::string_view text) {
    std::array<currency, 6> checks{};
    std::size_t count = 0;
    for (bool more = true; more;) {
        const std::size_t comma = std::min(text.find(','), text.size());
        const auto check = ParseAmount(text.substr(0, comma));
        if (!check || Abs(*check) > Dollars(999'999'999) || ++count > 5) {
            return "CheckDenominations takes five amounts, as 1,5,25,100,500.";
        }
        checks[count] = *check;
        more = comma < text.size();
        text.remove_prefix(std::min(comma + 1, text.size()));
    }
    if (count != 5) return "CheckDenominations takes five amounts, as 1,5,25,100,500.";
    t.CheckDenominations = checks;
    return {};
}

std::string WriteComeOut(Table& t, const Target& target, std::string_view text) {
    const auto works = ParseTruth(text);
    if (!works) return CellWriter{target, text}.WrongKind("true or false");
    t.GameChanged = true;
    if (IsComeOutForAll(target)) {
        for (int p = 0; p < Positions; ++p) SetComeOutWorking(t, p, target.Index, *works);
    } else {
        SetComeOutWorking(t, target.Index, target.Index2, *works);
    }
    return {};
}

/// Writes the value and checks what came of it; the caller puts things back when something is wrong.
std::string WriteAndCheck(Table& t, const Target& target, std::string_view value) {
    const SettingRow& row = *target.Row;
    const std::size_t faultsBefore = FaultsOf(t, row.Group).size();
    const Settings before = t;
    std::string wrong = IsWholeList(target)
                            ? WriteChecks(t, value)
                            : std::visit(CellWriter{target, value}, row.At(t, target.Index, target.Index2));
    if (!wrong.empty() || static_cast<const Settings&>(t) == before) return wrong;
    // Several faults, as a file can bring them, are mended one by one.
    const std::vector<SettingFault> faults = FaultsOf(t, row.Group);
    if (!faults.empty() && faults.size() >= faultsBefore) return faults.front().Text;
    if (row.Group == CheckGroup::Checks) wrong = CheckDenominationFault(t).Text;
    if (wrong.empty() && row.Afterwards != nullptr) wrong = row.Afterwards(t, target.Index);
    return wrong;
}

/// Seats whose bets with reserved vig have grown beyond what they hold.
bool AnyBeyondBankroll(const Table& t, const std::array<currency, Positions>& betsBefore) {
    for (std::size_t p = 1; p < Positions; ++p) {
        const bool more = t.BetsOnTable[p] > betsBefore[p];
        if (more && t.BetsOnTable[p] > t.Bankroll[p] && !t.AllowNegativeBankroll[p]) return true;
    }
    return false;
}

std::string VigRefusal(const Table& t) {
    const bool alone = t.PlayerCount == 1;
    return std::string("You're not allowed to change this setting at this time because ") +
           (alone ? "you don't" : "one or more players doesn't") + " have enough bankroll remaining to " +
           "pay the added up-front vig that would be required.\n" +
           (alone ? "You can remedy this" : "This can be remedied") + " by doing one or more of the following:\n" +
           " -- Make a withdrawal from the ATM\n" + " -- Reduce the amount on current bets\n" +
           " -- Check Allow negative bankroll amounts";
}

void FollowVigChange(Table& t) {
    UpdatePayoffUnits(t);
    RecomputeVigs(t);
}

/// Runs `change`, which says what is wrong, with what follows from it; then everything is put back.
template <class Change>
std::string OrPutBack(Table& t, bool movesVig, const Change& change) {
    const Settings before = t;
    const std::array<currency, Positions> betsBefore = t.BetsOnTable;
    std::string wrong = change();
    if (wrong.empty() && movesVig) {
        FollowVigChange(t);
        if (AnyBeyondBankroll(t, betsBefore)) wrong = VigRefusal(t);
    }
    if (wrong.empty()) {
        if (!(static_cast<const Settings&>(t) == before)) t.GameChanged = true;
        return wrong;
    }
    static_cast<Settings&>(t) = before;
    if (movesVig) RecomputeVigs(t);
    return wrong;
}

}  // namespace

std::string TryVigChange(Table& t, const std::function<void(Table&)>& change) {
    return OrPutBack(t, true, [&] {
        change(t);
        return std::string{};
    });
}

bool ChangeSettings(Table& t, const std::function<void(Table&)>& change) {
    const std::string wrong = TryVigChange(t, change);
    if (!wrong.empty()) ShowNote(t, "Configuration", wrong, MsgButton::OkStop);
    return wrong.empty();
}

SettingFault SetCheckDenominations(Table& t, const std::array<currency, 6>& checks) {
    const bool limitsWereRight = LimitFault(t).Text.empty();
    SettingFault fault;
    const std::string wrong = OrPutBack(t, true, [&] {
        t.CheckDenominations = checks;
        fault = CheckDenominationFault(t);
        if (fault.Text.empty() && limitsWereRight) fault = LimitFault(t);
        return fault.Text;
    });
    if (!wrong.empty() && fault.Text.empty()) return {"Configuration", wrong};
    return fault;
}

std::string SetSetting(Table& t, std::string_view name, std::string_view value) {
    Target target;
    std::string wrong = FindTarget(name, target);
    if (!wrong.empty()) return wrong;
    if (target.Row->At == nullptr) {
        wrong = WriteComeOut(t, target, value);
    } else {
        wrong = OrPutBack(t, target.Row->MovesVig, [&] { return WriteAndCheck(t, target, value); });
    }
    if (wrong.empty()) TakeDownUnoffered(t);
    return wrong;
}

std::string SettingText(const Table& t, std::string_view name) {
    Target target;
    if (!FindTarget(name, target).empty()) return {};
    if (IsWholeList(target)) {
        std::string list = PlainAmount(t.CheckDenominations[1]);
        for (std::size_t i = 2; i <= 5; ++i) list += "," + PlainAmount(t.CheckDenominations[i]);
        return list;
    }
    if (target.Row->At == nullptr) {
        const bool all = IsComeOutForAll(target);
        return t.ComeOutWorking(all ? 0 : target.Index, all ? target.Index : target.Index2) != 0 ? "1" : "0";
    }
    struct CellText {
        std::string operator()(std::monostate) const { return {}; }
        std::string operator()(const bool* cell) const { return *cell ? "true" : "false"; }
        std::string operator()(const std::int32_t* cell) const { return std::to_string(*cell); }
        std::string operator()(const currency* cell) const { return PlainAmount(*cell); }
        std::string operator()(const double* cell) const { return PlainAmount(ToCurrency(*cell)); }
        std::string operator()(ColorCell cell) const { return HexadecimalText(*cell.Value, 6); }
        std::string operator()(BitsCell cell) const { return HexadecimalText(*cell.Value, 8); }
        std::string operator()(RateCell cell) const { return PlainAmount(*cell.Value); }
        std::string operator()(const PayoffEntry* cell) const { return PayoffText(*cell); }
    };
    Settings settings = t;  // the registry gives writable cells only
    return std::visit(CellText{}, target.Row->At(settings, target.Index, target.Index2));
}

const std::vector<SettingInfo>& AllSettings() {
    static const std::vector<SettingInfo> all = [] {
        std::vector<SettingInfo> infos;
        for (const SettingRow& row : SettingTable()) {
            infos.push_back({row.Name, row.Meaning, row.FirstIndex, row.LastIndex, row.FirstIndex2, row.LastIndex2});
        }
        return infos;
    }();
    return all;
}

}  // namespace tarnwick
