// The block of one player, 466 records.
#include "files/gamefields.h"

namespace tarnwick {

namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

void VisitSeat(GameFields& f, Table& t, PlayerImage& player, PlainPlayerFigures& figures, int p,
               std::int32_t& position) {
    f.Whole(C(0), "Position", position);
    f.Money(C(1), "BetsOnTable", t.BetsOnTable[At(p)]);
    f.WholeFlag(C(2), "AutoBetOn", t.ScriptOn[At(p)]);
    f.Whole(C(3), "AutoBetPermission", player.Permission);
    for (int n = 1; n <= 4; ++n) f.Whole(C(5 + n), {"VisibleStack", n}, t.VisibleStack[At(p)][At(n)]);
    if (!f.Extended) return;
    f.Money(C(10), "GraphExtra", figures.GraphExtra);
    f.WholeFlag(C(11), "GraphHasExtra", figures.GraphHasExtra);
}

void VisitName(GameFields& f, std::size_t record, const char* name, std::string& text, const char* secondName,
               std::string& second) {
    f.Text(256 * record, 200, name, text);
    f.Text(256 * record + 200, 56, secondName, second);
}

void VisitOrders(GameFields& f, Table& t, PlainPlayerFigures& figures, std::size_t at, int p) {
    const std::size_t i = At(p);
    f.WholeFlag(at + C(0), "AllowNegativeBankroll", t.AllowNegativeBankroll[i]);
    f.Whole(at + C(1), "BankrollStartRule", t.BankrollStartRule[i]);
    f.Money(at + C(2), "BankrollStartAmount", t.BankrollStartAmount[i]);
    f.Money(at + C(3), "AtmAmount", t.AtmAmount[i]);
    f.Money(at + C(4), "BankrollSum", figures.BankrollSum);
    f.Money(at + C(5), "BankrollInvested", t.BankrollInvested[i]);
    f.Whole(at + C(6), "AutoAdjustMode", t.AutoAdjustMode[i]);
    f.WholeFlag(at + C(7), "AutoTakeFullOdds", t.AutoTakeFullOdds[i]);
    f.WholeFlag(at + C(8), "AutoLayFullOdds", t.AutoLayFullOdds[i]);
    f.WholeFlag(at + C(9), "AutoDownPlaceBets", t.AutoDownPlaceBets[i]);
    f.WholeFlag(at + C(10), "AutoPassDice", t.AutoPassDice[i]);
    f.Whole(at + C(11), "WinnerHandling", t.WinnerHandling[i]);
    f.Whole(at + C(12), "LoserHandling", t.LoserHandling[i]);
    f.Whole(at + C(13), "LayBias", t.LayBias[i]);
    f.Whole(at + C(14), "PlaceBias", t.PlaceBias[i]);
    f.Whole(at + C(15), "DoBias", t.DoBias[i]);
    f.Whole(at + C(16), "DontBias", t.DontBias[i]);
}

void VisitBets(GameFields& f, Table& t, PlayerImage& player, int p) {
    for (int row = 0; row < RowCount201; ++row) {
        f.Money(256 * 6 + MoneyAt(At(row)), {"BetAmount", row}, player.BetAmount[At(row)]);
        f.Money(256 * 13 + MoneyAt(At(row)), {"PrevBetAmount", row}, player.PrevBetAmount[At(row)]);
        f.Money(256 * 20 + MoneyAt(At(row)), {"BetAfterRoll", row}, player.BetAfterRoll[At(row)]);
    }
    for (int row = 1; row <= 85; ++row) {
        f.Money(256 * 27 + MoneyAt(At(row - 1)), {"EstablishedBet", row}, t.EstablishedBet(p, row));
    }
    for (int i = 0; i < 6; ++i) {
        f.Money(256 * 30 + C(1 + i), {"LayVigCharged", i}, t.LayVigCharged[At(p)][At(i)]);
        f.Money(256 * 30 + C(7 + i), {"BuyVigCharged", i}, t.BuyVigCharged[At(p)][At(i)]);
        f.Money(256 * 456 + C(1 + i), {"ComeFlatNow", i}, t.ComeFlatNow[At(p)][At(i)]);
    }
    for (int row = 1; row <= 100; ++row) {
        f.Long(256 * 31 + HalfLongAt(At(row - 1)), {"BetStreak", row, 0}, t.PrevBetStreak(p, row));
        f.Long(256 * 31 + HalfLongAt(At(row + 99)), {"BetStreak", row, 1}, t.BetStreak(p, row));
    }
    for (int row = 0; row <= 100; ++row) {
        f.Int(256 * 38 + IntAt(At(row)), {"ComeOutWorking", row}, player.ComeOutWorking[At(row)]);
        f.Int(256 * 39 + IntAt(At(row)), {"BetWorking", row}, player.BetWorking[At(row)]);
    }
}

void VisitStacks(GameFields& f, Table& t, int p) {
    for (int n = 0; n < 100; ++n) f.Text(256 * At(40 + n), 256, {"CheckStackName", n}, t.CheckStackName[At(p)][At(n)]);
}

void VisitFigures(GameFields& f, PlainPlayerFigures& figures) {
    for (int i = 0; i <= 2 * GraphPage; ++i) {
        f.Money(256 * 140 + MoneyAt(At(i)), {"GraphBankroll", i}, figures.GraphBankroll[At(i)]);
    }
    constexpr std::array<const char*, 3> names = {"BetStatWagers", "BetStatWins", "BetStatLosses"};
    for (std::size_t kind = 0; kind < names.size(); ++kind) {
        for (int scope = 0; scope < Scopes; ++scope) {
            for (int row = 1; row <= Row::LastBet; ++row) {
                for (int stat = 1; stat <= 6; ++stat) {
                    const auto element = At(600 * scope + 6 * (row - 1) + stat - 1);
                    f.Money(256 * (173 + 94 * kind) + MoneyAt(element), {names[kind], scope, row, stat},
                            figures.BetStats[kind][At(scope)][At(row - 1)][At(stat - 1)]);
                }
            }
        }
    }
    for (int scope = 0; scope < Scopes; ++scope) {
        for (int i = 0; i < 6; ++i) {
            f.Money(256 * 455 + C(6 * scope + i), {"ComeFlatSum", scope, Row::Come4 + i},
                    figures.ComeFlatSum[At(scope)][At(i)]);
        }
    }
}

void VisitBankrolls(GameFields& f, Table& t) {
    struct Part {
        const char* Name;
        ByPos<currency>* Values;
    };
    std::size_t at = 256 * 457;
    for (const Part& part : {Part{"BankrollBegin", &t.BankrollBegin},
                             {"Bankroll", &t.Bankroll},
                             {"BankrollHigh", &t.BankrollHigh},
                             {"BankrollLow", &t.BankrollLow}}) {
        for (int pos = 0; pos < StatPositions; ++pos) {
            f.Money(at + MoneyAt(At(pos)), {part.Name, pos}, (*part.Values)[At(pos)]);
        }
        at += 512;
    }
}

void VisitHandling(GameFields& f, Table& t, int p) {
    const std::size_t at = 256 * 465;
    auto& operators = t.HandleOperator[At(p)];
    constexpr std::array<int, 4> kept = {0, 2, 4, 5};
    for (int i = 0; i < 4; ++i) f.Whole(at + C(i), {"HandleOperator", kept[At(i)]}, operators[At(kept[At(i)])]);
    for (int slot = 0; slot < 8; ++slot) {
        f.Money(at + C(4 + slot), {"HandleAmount", slot}, t.HandleAmount[At(p)][At(slot)]);
    }
    for (int slot = 0; slot < 6; ++slot)
        f.Whole(at + C(12 + slot), {"HandleUnit", slot}, t.HandleUnit[At(p)][At(slot)]);
    if (!f.Extended) return;
    for (int slot = 6; slot < 8; ++slot)
        f.Whole(at + C(12 + slot), {"HandleUnit", slot}, t.HandleUnit[At(p)][At(slot)]);
    constexpr std::array<int, 4> others = {1, 3, 6, 7};
    for (int i = 0; i < 4; ++i)
        f.Whole(at + C(20 + i), {"HandleOperator", others[At(i)]}, operators[At(others[At(i)])]);
}

}  // namespace

bool VisitPlayer(GameFields& f, GameImage& image, int p, std::int32_t& position) {
    if (!f.Begin(PlayerRecords)) return false;
    Table& t = *image.T;
    PlayerImage& player = image.Players[At(p)];
    std::unique_ptr<PlainPlayerFigures>& figures = image.Figures->Players[At(p)];
    if (figures == nullptr) figures = std::make_unique<PlainPlayerFigures>();
    VisitSeat(f, t, player, *figures, p, position);
    VisitName(f, 1, "PlayerName", t.PlayerName[At(p)], "PlayerNameExt", player.Unused);
    VisitName(f, 2, "AutoBetName", player.Script.Name, "AutoBetDate", player.Script.Date);
    VisitName(f, 3, "ScriptOutputFile", t.ScriptOutputFile[At(p)], "ScriptOutputFileExt", player.Unused);
    VisitName(f, 4, "SessionLogFile", t.SessionsLogName[At(p)], "SessionLogFileExt", player.Unused);
    VisitOrders(f, t, *figures, 256 * 5, p);
    VisitBets(f, t, player, p);
    VisitStacks(f, t, p);
    VisitFigures(f, *figures);
    VisitBankrolls(f, t);
    VisitHandling(f, t, p);
    return true;
}

}  // namespace tarnwick
