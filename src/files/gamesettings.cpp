// Records 10 to 30: settings, payoffs, colors, the table's come-out list.
#include "files/gamefields.h"
#include "table/currency.h"

namespace tarnwick {

namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

/// A mask of 32 bits in a field of 32 bits with sign.
template <class Visit>
void Bits(std::uint32_t& bits, Visit visit) {
    auto value = static_cast<std::int32_t>(bits);
    visit(value);
    bits = static_cast<std::uint32_t>(value);
}

bool VisitPreferences(GameFields& f, Table& t) {
    if (!f.Begin(1)) return false;
    std::int32_t soundAgain = t.CheckSoundIndex;  // slot 10 counts
    f.Whole(C(0), "CheckSoundSelection", soundAgain);
    f.Whole(C(1), "DicePicture", t.DieFacePicture);
    f.Whole(C(2), "CheckPicture", t.CheckPicture);
    f.Whole(C(3), "TexturePicture", t.TexturePicture);
    f.Whole(C(4), "DiceAction", t.DiceAction);
    f.Money(C(5), "RollsPerHour", t.RollsPerHour);
    f.WholeFlag(C(6), "UseCentsSymbol", t.UseCentsSymbol);
    f.WholeFlag(C(7), "AutoArrangeChips", t.AutoArrangeChips);
    f.Whole(C(8), "StickPersonIndex", t.StickPersonIndex);
    f.Whole(C(9), "DiceSoundIndex", t.DiceSoundIndex);
    f.Whole(C(10), "CheckSoundIndex", t.CheckSoundIndex);
    f.Whole(C(11), "WinSoundIndex", t.WinSoundIndex);
    f.WholeFlag(C(12), "DisableAutoBetSounds", t.DisableAutoBetSounds);
    f.WholeFlag(C(13), "DisableAllSound", t.DisableAllSound);
    for (int i = 1; i <= 3; ++i) {
        Bits(t.CompBetMasks[At(i)], [&](std::int32_t& bits) { f.Whole(C(13 + i), {"CompBetMasks", i}, bits); });
    }
    f.Whole(C(17), "CompBase", t.CompBase);
    f.WholeFlag(C(18), "CompsUseTrueProbs", t.CompsUseTrueProbs);
    f.Money(C(19), "CompRate", t.CompRate);
    f.Whole(C(20), "NotifyBits", t.NotifyBits);
    for (int i = 0; i < 3; ++i) f.Whole(C(21 + i), {"PrintColors", i + 1}, t.PrintColors[At(i)]);
    f.WholeFlag(C(24), "SnapMouse", t.SnapMouse);
    f.Whole(C(25), "RngIndex", t.RngIndex);
    f.WholeFlag(C(26), "UserSeedOn", t.UserSeedOn);
    f.WholeFlag(C(27), "ReSeedNewSessions", t.ReSeedNewSessions);
    f.WholeFlag(C(28), "UseSkewedProbability", t.UseSkewedProbability);
    f.Whole(C(29), "ProbabilityDisplayMode", t.ProbabilityDisplayMode);
    currency rollsOutOf = ToCurrency(t.RollsOutOf);
    f.Money(C(30), "RollsOutOf", rollsOutOf);
    t.RollsOutOf = ToDouble(rollsOutOf);
    return true;
}

bool VisitRules(GameFields& f, Table& t) {
    if (!f.Begin(1)) return false;
    f.Money(C(0), "MinPlacardBet", t.MinPlacardBet);
    f.Money(C(1), "MinPlacardPropBet", t.MinPlacardPropBet);
    f.Money(C(2), "MaxPlacardBet", t.MaxPlacardBet);
    f.Money(C(3), "MaxPropBetPayoff", t.MaxPropBetPayoff);
    f.Money(C(4), "MaxOddsBet", t.MaxOddsBet);
    f.Money(C(5), "OddsAllowed410", t.OddsAllowed410);
    f.Money(C(6), "OddsAllowed59", t.OddsAllowed59);
    f.Money(C(7), "OddsAllowed68", t.OddsAllowed68);
    f.Whole(C(8), "OddsCalcMethod", t.OddsCalcMethod);
    f.Whole(C(9), "BarDont", t.BarDont);
    f.Money(C(10), "LayVigRate", t.LayVigRate);
    f.Whole(C(11), "LayVigRounding", t.LayVigRounding);
    f.WholeFlag(C(12), "LayVigOnAllBets", t.LayVigOnAllBets);
    f.Money(C(13), "BuyVigRate", t.BuyVigRate);
    f.Whole(C(14), "BuyVigRounding", t.BuyVigRounding);
    f.WholeFlag(C(15), "BuyVigOnAllBets", t.BuyVigOnAllBets);
    f.WholeFlag(C(16), "AllowPutBets", t.AllowPutBets);
    f.Whole(C(17), "ShooterBetRequirement", t.ShooterBetRequirement);
    f.WholeFlag(C(18), "UseBig68", t.UseBig68);
    f.WholeFlag(C(19), "UseMidwayBet", t.UseMidwayBet);
    f.WholeFlag(C(20), "UseSpecialPropBets", t.UseSpecialPropBets);
    f.WholeFlag(C(21), "UseFireBet", t.UseFireBet);
    f.Money(C(22), "MaxFireBet", t.MaxFireBet);
    f.WholeFlag(C(23), "ReturnAbandonedBets", t.ReturnAbandonedBets);

    if (!f.Begin(1)) return false;
    f.WholeFlag(C(0), "CountZeroOutcomes", t.CountZeroOutcomes);
    f.WholeFlag(C(1), "ShowMiscData", t.ShowMiscData);
    f.Whole(C(2), "AdvantageScroll", t.AdvantageScroll);
    f.Whole(C(3), "PayoffsScroll", t.PayoffsScroll);
    for (int i = 1; i <= 5; ++i) f.Money(C(3 + i), {"CheckDenominations", i}, t.CheckDenominations[At(i)]);
    return true;
}

/// Elements 1.. of a payoff table: all Pays, then all ToForm, then all For. `last` is the last element kept.
template <class Entries>
bool VisitPayoffs(GameFields& f, int records, const char* name, Entries& entries, std::size_t last) {
    if (!f.Begin(records)) return false;
    constexpr std::array<currency PayoffEntry::*, 3> parts = {&PayoffEntry::Pays, &PayoffEntry::ToForm,
                                                              &PayoffEntry::For};
    std::size_t i = 0;
    for (std::size_t part = 0; part < parts.size(); ++part) {
        for (std::size_t j = 1; j <= last; ++j, ++i) {
            f.Money(MoneyAt(i), {name, static_cast<int>(part) + 1, static_cast<int>(j)}, entries[j].*parts[part]);
        }
    }
    return true;
}

bool VisitColors(GameFields& f, Table& t) {
    if (!f.Begin(1)) return false;
    for (int i = 0; i < 43; ++i) {
        Bits(t.TableColors[At(i)], [&](std::int32_t& color) { f.Long(L(i), {"TableColors", i}, color); });
    }
    if (!f.Begin(1)) return false;
    for (int i = 0; i < 5; ++i) f.Long(L(i), {"TableColorOptions", i}, t.TableColorOptions[At(i)]);
    f.Long(L(5), "SpotlightLevel", t.SpotlightLevel);
    return true;
}

}  // namespace

bool VisitSettings(GameFields& f, GameImage& image) {
    Table& t = *image.T;
    if (!VisitPreferences(f, t) || !VisitRules(f, t)) return false;
    if (!VisitPayoffs(f, 10, "Payoff", t.Payoff, 100)) return false;
    if (!VisitPayoffs(f, 1, "SevenPointSevenPayoff", t.SevenPointSevenPayoff, 2)) return false;
    if (!VisitPayoffs(f, 1, "MidwayPayoff", t.MidwayPayoff, 5)) return false;
    if (!VisitPayoffs(f, 1, "FirePayoff", t.FirePayoff, 6)) return false;
    if (!VisitPayoffs(f, 2, "FieldPayoff", t.FieldPayoff, 21)) return false;
    if (!VisitColors(f, t) || !f.Begin(1)) return false;
    for (int row = 0; row <= 100; ++row) {
        f.Int(IntAt(At(row)), {"HouseComeOutWorking", row}, image.HouseComeOutWorking[At(row)]);
    }
    return true;
}

}  // namespace tarnwick
