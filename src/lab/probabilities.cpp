#include "lab/probabilities.h"

#include <cstdio>
#include <filesystem>
#include <memory>
#include <vector>

#include "dice/dice.h"
#include "dice/matrix.h"
#include "dice/probabilityfile.h"
#include "lab/json.h"
#include "lab/texttable.h"

namespace tarnwick::lab {

namespace {

constexpr int CannotUse = 2, Wrong = 1;

int Refuse(const std::string& fault) {
    std::fprintf(stderr, "tarnwick-lab probabilities: %s\n", OneLine(fault).c_str());
    return CannotUse;
}

std::int32_t ValueAt(const Table& t, CellPlace at) {
    return t.ProbabilityMatrix[1][static_cast<std::size_t>(at.Col)][static_cast<std::size_t>(at.Row)];
}

std::string ModeName(const Table& t) { return IsFreeForm(t) ? "Free Form Dice" : "Percentage Dice"; }

/// A cell as the window shows it, a locked one with a star.
std::string ShownCell(const Table& t, CellPlace at) { return CellText(t, at) + (IsLocked(t, at) ? "*" : ""); }

std::int64_t SumOfResults(const Table& t) {
    std::int64_t sum = 0;
    for (const MatrixCell& cell : MatrixWalk) sum += ValueAt(t, {cell.Col, cell.Row});
    return sum;
}

template <class Write>
void WriteList(JsonWriter& json, std::string_view name, int first, int last, Write place, const Table& t) {
    json.Key(name).BeginList();
    for (int i = first; i <= last; ++i) json.Value(ValueAt(t, place(i)));
    json.EndList();
}

void PrintJson(const Table& t, const std::string& file) {
    JsonWriter json;
    json.BeginObject().Field("file", file).Field("freeForm", IsFreeForm(t)).Field("sum", SumOfResults(t));
    WriteList(
        json, "die1", 1, 6, [](int face) { return FacePlace(1, face); }, t);
    WriteList(
        json, "die2", 1, 6, [](int face) { return FacePlace(2, face); }, t);
    WriteList(json, "totals", 2, 12, TotalPlace, t);
    json.Key("results").BeginList();
    for (int die1 = 1; die1 <= 6; ++die1) {
        json.BeginList();
        for (int die2 = 1; die2 <= 6; ++die2) json.Value(ValueAt(t, ResultPlace(die1, die2)));
        json.EndList();
    }
    json.EndList();
    json.Key("locked").BeginList();
    for (int col = 1; col <= 7; ++col) {
        for (int row = 1; row <= SecondDieRow; ++row) {
            if (IsLocked(t, {col, row})) json.BeginList().Value(col).Value(row).EndList();
        }
    }
    json.EndList().EndObject();
    std::printf("%s\n", json.Text().c_str());
}

void PrintText(const Table& t, const std::string& file) {
    std::printf("%s: %s, results sum to %s of 100,000\n\n", file.c_str(), ModeName(t).c_str(),
                Grouped(SumOfResults(t)).c_str());
    std::vector<std::vector<std::string>> rows(1);
    rows[0] = {""};
    for (int face = 1; face <= 6; ++face) rows[0].push_back(std::to_string(face));
    for (const int die : {1, 2}) {
        rows.push_back({"Die " + std::to_string(die)});
        for (int face = 1; face <= 6; ++face) rows.back().push_back(ShownCell(t, FacePlace(die, face)));
    }
    for (int die1 = 1; die1 <= 6; ++die1) {
        rows.push_back({std::to_string(die1) + " and"});
        for (int die2 = 1; die2 <= 6; ++die2) rows.back().push_back(ShownCell(t, ResultPlace(die1, die2)));
    }
    std::printf("%s\n", TextTable(rows).c_str());
    rows = {{"Total", ""}};
    for (int total = 2; total <= 12; ++total) {
        rows.push_back({std::to_string(total), ShownCell(t, TotalPlace(total))});
    }
    std::printf("%s", TextTable(rows).c_str());
}

std::string NumberOf(std::int64_t value) { return Grouped(value) + " of 100,000"; }

/// Everything about the matrix that editing it would put right.
std::vector<std::string> FaultsOf(const Table& t) {
    std::vector<std::string> faults;
    if (const std::int64_t sum = SumOfResults(t); sum != WholeChance) {
        faults.push_back("the results sum to " + NumberOf(sum));
    }
    for (const int die : {1, 2}) {
        std::int64_t sum = 0;
        for (int face = 1; face <= 6; ++face) sum += ValueAt(t, FacePlace(die, face));
        if (sum != WholeChance)
            faults.push_back("the faces of die " + std::to_string(die) + " sum to " + NumberOf(sum));
    }
    for (int total = 2; total <= 12; ++total) {
        std::int64_t sum = 0;
        for (const MatrixCell& cell : MatrixWalk) {
            if (cell.Die1 + cell.Die2 == total) sum += ValueAt(t, {cell.Col, cell.Row});
        }
        const std::int32_t shown = ValueAt(t, TotalPlace(total));
        if (sum != shown) {
            faults.push_back("total " + std::to_string(total) + " is " + NumberOf(shown) + ", its results " +
                             NumberOf(sum));
        }
    }
    return faults;
}

}  // namespace

Parsed<AxisThrow> ParseAxisOption(std::string_view text) {
    const std::size_t colon = text.find(':');
    const std::string_view axis = text.substr(0, colon);
    AxisThrow thrown;
    thrown.Axis = axis == "1-6" ? 1 : axis == "2-5" ? 2 : axis == "3-4" ? 3 : 0;
    if (colon == std::string_view::npos || thrown.Axis == 0) {
        return {{}, "\"" + std::string(text) + "\" is no 1-6:PERCENT, 2-5:PERCENT or 3-4:PERCENT"};
    }
    const auto percent = ParseMoney(text.substr(colon + 1));
    if (!percent || percent.Value < currency{}) {
        return {{}, "\"" + std::string(text.substr(colon + 1)) + "\" is no percentage"};
    }
    thrown.Effectiveness = ToDouble(percent.Value);
    return {thrown, {}};
}

int ShowProbabilities(const ProbabilityOptions& options) {
    const auto t = std::make_unique<Table>();
    ResetProbabilityMatrix(*t);
    const std::string fault = ReadProbabilityFile(options.File, t->ProbabilityMatrix);
    if (!fault.empty()) return Refuse(fault);
    t->ProbabilityDisplayMode = options.Display;
    t->RollsOutOf = options.RollsOutOf;
    if (options.Json) {
        PrintJson(*t, options.File);
    } else {
        PrintText(*t, options.File);
    }
    return 0;
}

int MakeAxisProbabilities(const ProbabilityOptions& options) {
    const auto t = std::make_unique<Table>();
    std::error_code error;
    if (std::filesystem::exists(options.File, error)) {
        const std::string fault = ReadProbabilityFile(options.File, t->ProbabilityMatrix);
        if (!fault.empty()) return Refuse(fault + " It is not replaced.");
    }
    ResetProbabilityMatrix(*t);
    ComputeAxisDice(*t, options.First, options.Second);
    const std::string fault = SaveProbabilities(*t, options.File);
    if (!fault.empty()) return Refuse(fault);
    if (options.Json) {
        PrintJson(*t, options.File);
    } else {
        std::printf("%s written\n", options.File.c_str());
    }
    return 0;
}

int CheckProbabilities(const ProbabilityOptions& options) {
    const auto t = std::make_unique<Table>();
    // What a file that is cut short doesn't hold shows as a fault.
    const std::string fault = ReadProbabilityFile(options.File, t->ProbabilityMatrix);
    if (!fault.empty()) return Refuse(fault);
    const std::vector<std::string> faults = FaultsOf(*t);
    if (options.Json) {
        JsonWriter json;
        json.BeginObject().Field("file", options.File).Field("proper", faults.empty()).Key("faults").BeginList();
        for (const std::string& each : faults) json.Value(each);
        json.EndList().EndObject();
        std::printf("%s\n", json.Text().c_str());
    } else if (faults.empty()) {
        std::printf("%s: %s, exactly 100%%.\n", options.File.c_str(), ModeName(*t).c_str());
    } else {
        for (const std::string& each : faults) std::printf("%s: %s.\n", options.File.c_str(), each.c_str());
    }
    return faults.empty() ? 0 : Wrong;
}

}  // namespace tarnwick::lab
