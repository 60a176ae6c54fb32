#include "lab/advantage.h"

#include <cstdio>
#include <memory>

#include "config/advantagelines.h"
#include "dice/probabilityfile.h"
#include "lab/game.h"
#include "lab/json.h"
#include "lab/labtable.h"
#include "lab/texttable.h"
#include "table/screen.h"
#include "table/session.h"

namespace tarnwick::lab {

namespace {

constexpr int CannotUse = 2;

/// The table that the options describe; returns what is wrong, or nothing.
std::string SetUp(const AdvantageOptions& options, Table& t) {
    if (!options.Game.empty()) {
        const std::string fault = OpenGameFor("advantage", t, options.Game);
        if (!fault.empty()) return fault;
    }
    if (!options.Probabilities.empty()) {
        const std::string fault = ReadProbabilityFile(options.Probabilities, t.ProbabilityMatrix);
        if (!fault.empty()) return fault;
        t.ProbabilityFileName = options.Probabilities;
        t.UseSkewedProbability = true;
    }
    if (options.Misc) t.ShowMiscData = true;
    if (options.CountZero) t.CountZeroOutcomes = true;
    return ApplySettings(t, options.Settings);
}

std::string DiceText(const Table& t) {
    return t.UseSkewedProbability ? "skewed (" + ProbabilityTitle(t) + ")" : "true";
}

void PrintJson(const Table& t, const std::vector<AdvantageLine>& lines) {
    JsonWriter json;
    json.BeginObject().Key("advantage").BeginObject();
    json.Field("UseSkewedProbability", t.UseSkewedProbability).Field("ProbabilityFileName", t.ProbabilityFileName);
    json.Field("CountZeroOutcomes", t.CountZeroOutcomes).Field("RollsPerHour", t.RollsPerHour);
    json.Key("bets").BeginList();
    for (const AdvantageLine& line : lines) {
        const Advantage& a = line.Figures;
        json.BeginObject().Field("row", line.BetRow).Field("name", line.Label);
        json.Field("evRoll", a.EvRoll).Field("evDec", a.EvDec).Field("rollsDec", a.RollsDec);
        json.Field("sdRoll", a.SdRoll).Field("sdDec", a.SdDec).EndObject();
    }
    json.EndList().EndObject().EndObject();
    std::printf("%s\n", json.Text().c_str());
}

void PrintText(const Table& t, const std::vector<AdvantageLine>& lines) {
    std::vector<std::vector<std::string>> rows = {{"Bet"}};
    for (const std::string_view title : AdvantageTitles(t.ShowMiscData)) rows[0].emplace_back(title);
    for (const AdvantageLine& line : lines) {
        rows.push_back({line.Label});
        rows.back().insert(rows.back().end(), line.Texts.begin(), line.Texts.end());
    }
    std::printf("Dice: %s\n", DiceText(t).c_str());
    if (t.CountZeroOutcomes) std::printf("Zero outcomes count as decisions\n");
    if (!t.ShowMiscData) std::printf("%s\n", std::string(AdvantageNote).c_str());
    std::printf("\n%s", TextTable(rows).c_str());
}

}  // namespace

int ShowAdvantage(const AdvantageOptions& options) {
    SilentScreen front;
    front.KeepShown = false;
    const auto table = std::make_unique<Table>();
    SubMain(*table, &front);
    const std::string fault = SetUp(options, *table);
    if (!fault.empty()) {
        std::fprintf(stderr, "tarnwick-lab advantage: %s\n", OneLine(fault).c_str());
        return CannotUse;
    }
    const std::vector<AdvantageLine> lines = AdvantageLines(*table);
    if (options.Json) {
        PrintJson(*table, lines);
    } else {
        PrintText(*table, lines);
    }
    return 0;
}

}  // namespace tarnwick::lab
