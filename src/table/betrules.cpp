#include "table/betrules.h"

#include "stats/accumulators.h"
#include "table/format.h"
#include "table/marks.h"

namespace tarnwick {

namespace {

std::string OptionNote(std::string_view option) {
    return "\n\n(Unless you check \"" + std::string(option) + "\" on the\nConfiguration screen.)";
}

std::string_view OptionOf(int row) {
    if (row == Row::Big6 || row == Row::Big8) return "Use Big 6 && 8 Bets";
    if (Row::AllSmall <= row && row <= Row::SevenPoint7) return "Use Special Prop Bets";
    if (row == Row::Midway) return "Use Midway Bet";
    return "Use Fire Bet";
}

std::string Article(std::string_view name) {
    return !name.empty() && (name[0] == 'A' || name[0] == 'a') ? "an " : "a ";
}

std::string FlatNeeded(int row) {
    const std::string flat(BetName(FlatRowOf(row)));
    return "You may not make a " + std::string(BetName(row)) + " bet until you've established a " + flat + " bet.";
}

int MarksOf(int row) { return row == Row::AllSmall ? SmallMarks : row == Row::AllTall ? TallMarks : AllMarks; }

std::string SpecialRefusal(int row, std::string_view because) {
    const std::string_view name = BetName(row);
    return "You may not make or increase " + Article(name) + std::string(name) + " bet " + std::string(because);
}

}  // namespace

bool IsOffered(const Table& t, int row) {
    if (row == Row::Big6 || row == Row::Big8) return t.UseBig68;
    if (Row::AllSmall <= row && row <= Row::SevenPoint7) return t.UseSpecialPropBets;
    if (row == Row::Midway) return t.UseMidwayBet;
    if (row == Row::Fire) return t.UseFireBet;
    return true;
}

std::string NotOfferedText(int row) {
    const bool big = row == Row::Big6 || row == Row::Big8;
    const std::string name(BetName(row));
    const std::string bet = big ? "a Big 6 or Big 8" : Article(name) + name;
    return "You may not make " + bet + " bet at his table." + OptionNote(OptionOf(row));
}

bool IsRestorable(int row) {
    return row == Row::PassLine || row == Row::DontPass || IsDontComeNumber(row) || IsComeNumber(row) ||
           (Row::AllSmall <= row && row <= Row::SevenPoint7) || row == Row::Fire;
}

bool IsRefused(const Table& t, int p, int row) {
    const bool on = t.Point != 0;
    if (const int flat = FlatRowOf(row); flat != 0) {
        const bool line = row == Row::PassLineOdds || row == Row::DontPassOdds;
        return IsZero(t.BetAmount(p, flat)) || (line && !on);
    }
    if (row == Row::PassLine) return on && !t.AllowPutBets;
    if (row == Row::Come || row == Row::DontCome) return !on;
    if (IsComeNumber(row)) return !t.AllowPutBets;
    if (IsDontComeNumber(row)) return true;  // put on a number, it would have the better of the house
    if (Row::AllSmall <= row && row <= Row::MakeAll) return (t.MarkedNumbers & MarksOf(row)) != 0;
    if (row == Row::FourRollsNo7) return t.FourRollsCount > 0;
    if (row == Row::DontPass || row == Row::Point7 || row == Row::SevenPoint7) return on;
    return row == Row::Fire && HandRolls(t) > 0 && !t.FireHandReset;
}

std::string RefusalText(int row) {
    if (IsComeOdds(row) || IsDontComeOdds(row)) return FlatNeeded(row);
    if (IsComeNumber(row)) {
        return "You may not make or increase a Come bet directly on a point number." + OptionNote("Allow Put Bets");
    }
    if (IsDontComeNumber(row)) return "You may not make or increase a Don't Come bet directly on a point number.";
    switch (row) {
        case Row::PassLine:
            return "You may not make or increase a Pass Line bet while a point is established." +
                   OptionNote("Allow Put Bets");
        case Row::PassLineOdds:
            return "You may not make a Pass Line Odds bet unless you also have a Pass Line bet and a point is "
                   "established.";
        case Row::Come:
            return "You may not make a Come bet until a point is established.";
        case Row::DontPass:
            return "You may not make or increase a Don't Pass bet while a point is established.";
        case Row::DontPassOdds:
            return "You may not make a Don't Pass Odds bet unless you also have a Don't Pass bet and a point is "
                   "established.";
        case Row::DontCome:
            return "You may not make a Don't Come bet until a point is established.";
        case Row::AllSmall:
            return SpecialRefusal(row, "while any small numbers are marked.");
        case Row::AllTall:
            return SpecialRefusal(row, "while any tall numbers are marked.");
        case Row::MakeAll:
            return SpecialRefusal(row, "while any numbers are marked.");
        case Row::FourRollsNo7:
            return SpecialRefusal(row, "if the count is in progress.");
        case Row::Fire:
            return SpecialRefusal(row, "after the shooter has started a hand.");
        default:
            return SpecialRefusal(row, "unless the shooter is on a come-out roll.");
    }
}

std::string RestoreSentence(currency established, currency bet) {
    if (established <= bet) return {};
    return "\n\nHowever, you're allowed to restore up to $" + FormatCommas(established) +
           " here because it was previously established and the dice have not rolled since you " +
           (IsZero(bet) ? "" : "partially ") + "removed it.";
}

bool IsContract(const Table& t, int row) {
    return IsComeNumber(row) || (t.Point != 0 && (row == Row::PassLine || row == Row::SevenPoint7));
}

std::string ContractRefusal(int row, currency delta, currency bet, currency established) {
    const bool untouched = delta < currency{} && bet <= established;
    if (row == Row::SevenPoint7) {
        return "You may not decrease or remove a " + std::string(BetName(row)) +
               " bet which is established on a point.";
    }
    if (row == Row::PassLine) {
        return untouched ? "You may not decrease or remove a Pass Line bet while a point is established."
                         : "You may not decrease or remove your Pass Line bet while a point is established.";
    }
    return untouched ? "You may not decrease or remove a Come bet which is established on a point."
                     : "You may not decrease or remove an established Come bet.";
}

std::string OutgrownText(const std::string& name, currency established) {
    return "However, because the " + name + " is a contract bet and you established it at $" +
           FormatCommas(established) +
           " before you recently lowered the maximum allowed on the Configuration screen, it must remain unchanged "
           "until it resolves.";
}

}  // namespace tarnwick
