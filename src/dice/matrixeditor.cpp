#include "dice/matrixeditor.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <vector>

#include "dice/matrix.h"
#include "table/format.h"

namespace tarnwick {

namespace {

constexpr std::int32_t LockedState = 128;
constexpr int FacesOfDie = 6;

enum DisplayMode { Percent, PercentFromTrue, RollsOutOf, RollsFromTrue };

std::size_t At(int i) { return static_cast<std::size_t>(i); }

using Cells = std::vector<std::int32_t*>;

std::int64_t SumOf(const Cells& cells) {
    std::int64_t sum = 0;
    for (const std::int32_t* cell : cells) sum += *cell;
    return sum;
}

/// Part `i` of `n` equal parts of a sum: differences of the rounded running sum.
std::int64_t EqualPart(std::int64_t sum, std::int64_t i, std::int64_t n) {
    return FloorDivide<std::int64_t>(2 * sum * (i + 1) + n, 2 * n) - FloorDivide<std::int64_t>(2 * sum * i + n, 2 * n);
}

/// Adds `difference` to the cells in equal parts. A cell that would go below 0 becomes 0, and the others take the rest.
/// Needs a sum of the cells that can bear it.
void SpreadEvenly(Cells cells, std::int64_t difference) {
    for (std::size_t i = 0; i < cells.size();) {
        const auto count = static_cast<std::int64_t>(cells.size());
        if (*cells[i] + EqualPart(difference, static_cast<std::int64_t>(i), count) >= 0) {
            ++i;
            continue;
        }
        difference += *cells[i];
        *cells[i] = 0;
        cells.erase(cells.begin() + static_cast<std::ptrdiff_t>(i));
        i = 0;
    }
    const auto count = static_cast<std::int64_t>(cells.size());
    for (std::int64_t i = 0; i < count; ++i) {
        std::int32_t& cell = *cells[static_cast<std::size_t>(i)];
        cell = static_cast<std::int32_t>(cell + EqualPart(difference, i, count));
    }
}

/// Scales the cells to a sum of `target`, from 0 on; cells that are all 0 get equal parts.
void ScaleTo(const Cells& cells, std::int64_t target) {
    const auto count = static_cast<std::int64_t>(cells.size());
    const std::int64_t whole = SumOf(cells);
    std::int64_t before = 0, running = 0;
    for (std::int64_t i = 0; i < count; ++i) {
        std::int32_t& cell = *cells[static_cast<std::size_t>(i)];
        running += cell;
        const std::int64_t upTo = whole > 0 ? FloorDivide<std::int64_t>(2 * target * running + whole, 2 * whole) : 0;
        cell = static_cast<std::int32_t>(whole > 0 ? upTo - before : EqualPart(target, i, count));
        before = upTo;
    }
}

std::int32_t& StateOf(MatrixCells& cells, CellPlace at) { return cells[0][At(at.Col)][At(at.Row)]; }
std::int32_t& ValueOf(MatrixCells& cells, CellPlace at) { return cells[1][At(at.Col)][At(at.Row)]; }
bool HasLock(const MatrixCells& cells, CellPlace at) { return (cells[0][At(at.Col)][At(at.Row)] & LockedState) != 0; }

CellPlace PlaceOf(const MatrixCell& cell) { return {cell.Col, cell.Row}; }
bool SamePlace(CellPlace a, CellPlace b) { return a.Col == b.Col && a.Row == b.Row; }

std::array<std::int32_t, FacesOfDie> FacesOf(const MatrixCells& cells, int row) {
    std::array<std::int32_t, FacesOfDie> faces{};
    for (int i = 0; i < FacesOfDie; ++i) faces[At(i)] = cells[1][At(i + 2)][At(row)];
    return faces;
}

/// The faces as weights of exact dice: those of a true die are equal.
std::array<std::int64_t, FacesOfDie> FaceWeights(const MatrixCells& cells, int row) {
    const std::array<std::int32_t, FacesOfDie> faces = FacesOf(cells, row);
    std::array<std::int64_t, FacesOfDie> weights{};
    bool isTrue = true;
    for (int i = 0; i < FacesOfDie; ++i) {
        weights[At(i)] = faces[At(i)];
        isTrue = isTrue && faces[At(i)] == EqualChance(i, FacesOfDie);
    }
    if (isTrue) weights.fill(1);
    return weights;
}

/// Results by the faces of the dice. Running sums are rounded, not the products, so that the sum is exact.
void FollowFaces(MatrixCells& cells) {
    const auto first = FaceWeights(cells, FirstDieRow), second = FaceWeights(cells, SecondDieRow);
    int128 whole = 0;
    for (const std::int64_t a : first)
        for (const std::int64_t b : second) whole += static_cast<int128>(a) * b;
    int128 running = 0;
    std::int64_t before = 0;
    for (const MatrixCell& cell : MatrixWalk) {
        running += static_cast<int128>(first[At(cell.Die1 - 1)]) * second[At(cell.Die2 - 1)];
        const auto upTo = static_cast<std::int64_t>((2 * WholeChance * running + whole) / (2 * whole));
        ValueOf(cells, PlaceOf(cell)) = static_cast<std::int32_t>(upTo - before);
        before = upTo;
    }
    SumMatrixTotals(cells);
}

/// Totals and faces by the results.
void FollowResults(MatrixCells& cells) {
    SumMatrixTotals(cells);
    for (int face = 1; face <= FacesOfDie; ++face) ValueOf(cells, FacePlace(1, face)) = 0;
    for (int face = 1; face <= FacesOfDie; ++face) ValueOf(cells, FacePlace(2, face)) = 0;
    for (const MatrixCell& cell : MatrixWalk) {
        const std::int32_t value = ValueOf(cells, PlaceOf(cell));
        ValueOf(cells, FacePlace(1, cell.Die1)) += value;
        ValueOf(cells, FacePlace(2, cell.Die2)) += value;
    }
}

Cells CellsOfDie(MatrixCells& cells, int row) {
    Cells faces;
    for (int i = 0; i < FacesOfDie; ++i) faces.push_back(&cells[1][At(i + 2)][At(row)]);
    return faces;
}

Cells AllResults(MatrixCells& cells) {
    Cells results;
    for (const MatrixCell& cell : MatrixWalk) results.push_back(&ValueOf(cells, PlaceOf(cell)));
    return results;
}

void ScaleToWhole(const Cells& cells) {
    for (std::int32_t* cell : cells) *cell = std::clamp(*cell, 0, WholeChance);
    if (SumOf(cells) != WholeChance) ScaleTo(cells, WholeChance);
}

/// The groups of the mode as exactly 100%, which a file need not hold, so that an edit keeps them so.
void MakeWhole(MatrixCells& cells) {
    if (cells[0][0][0] != 0) {
        ScaleToWhole(AllResults(cells));
        FollowResults(cells);
    } else {
        for (const int row : {FirstDieRow, SecondDieRow}) ScaleToWhole(CellsOfDie(cells, row));
    }
}

/// The cells that move with a typed one, and what stands beside them.
struct Group {
    Cells Own;                 ///< results of a typed total, which scale
    std::int64_t OwnHeld = 0;  ///< sum of its locked results
    Cells Others;              ///< cells that take up the difference
    std::int64_t Held = 0;     ///< sum of the cells that keep their value
    std::int64_t Whole = WholeChance;
};

void Join(Group& group, MatrixCells& cells, CellPlace at, bool held) {
    if (held) {
        group.Held += ValueOf(cells, at);
    } else {
        group.Others.push_back(&ValueOf(cells, at));
    }
}

Group GroupOfFace(MatrixCells& cells, CellPlace typed) {
    Group group;
    for (int i = 0; i < FacesOfDie; ++i) {
        const CellPlace at{i + 2, typed.Row};
        if (!SamePlace(at, typed)) Join(group, cells, at, HasLock(cells, at));
    }
    return group;
}

Group GroupOfResult(MatrixCells& cells, CellPlace typed) {
    Group group;
    const CellPlace total{1, typed.Row};
    const bool within = HasLock(cells, total);  // the total keeps its sum
    if (within) group.Whole = ValueOf(cells, total);
    for (const MatrixCell& cell : MatrixWalk) {
        const CellPlace at = PlaceOf(cell);
        if (SamePlace(at, typed) || (within && at.Row != typed.Row)) continue;
        Join(group, cells, at, HasLock(cells, at) || (!within && HasLock(cells, {1, at.Row})));
    }
    return group;
}

Group GroupOfTotal(MatrixCells& cells, CellPlace typed) {
    Group group;
    for (const MatrixCell& cell : MatrixWalk) {
        const CellPlace at = PlaceOf(cell);
        if (at.Row != typed.Row) {
            Join(group, cells, at, HasLock(cells, at) || HasLock(cells, {1, at.Row}));
        } else if (HasLock(cells, at)) {
            group.OwnHeld += ValueOf(cells, at);
        } else {
            group.Own.push_back(&ValueOf(cells, at));
        }
    }
    return group;
}

std::string TextOfChance(const Table& t, CellPlace at, double chance) {
    const double percent = chance / 1000;
    switch (t.ProbabilityDisplayMode) {
        case PercentFromTrue:
            return FormatPattern(percent - TruePercent(at), "+#,0.000;-#,0.000;#,0.000");
        case RollsOutOf:
            return FormatPattern(chance * t.RollsOutOf / WholeChance, "#,0.000;-#,0.000;#,0.000");
        case RollsFromTrue:
            return FormatPattern((percent - TruePercent(at)) * t.RollsOutOf / 100, "#,0.000;-#,0.000;#,0.000");
        default:
            return FormatPattern(percent, "#,0.000");
    }
}

/// The values that the locked cells leave open to the typed one.
struct Bounds {
    std::int64_t Lowest = 0, Highest = 0;
};
Bounds BoundsOf(const Group& group, bool isTotal) {
    Bounds bounds;
    bounds.Highest = group.Whole - group.Held;
    if (group.Others.empty()) bounds.Lowest = bounds.Highest;
    if (isTotal) {
        bounds.Lowest = std::max(bounds.Lowest, group.OwnHeld);
        if (group.Own.empty()) bounds.Highest = std::min(bounds.Highest, group.OwnHeld);
    }
    return bounds;
}

std::string BoundsRefusal(const Table& t, CellPlace at, const Bounds& bounds) {
    if (bounds.Lowest > bounds.Highest) return "The locked cells leave no room for any value; unlock some of them.";
    const std::string lowest = TextOfChance(t, at, static_cast<double>(bounds.Lowest));
    const std::string highest = TextOfChance(t, at, static_cast<double>(bounds.Highest));
    if (bounds.Lowest == bounds.Highest) return "The locked cells leave only " + lowest + " for this cell.";
    return "This cell takes from " + lowest + " to " + highest + ".";
}

void NoteChange(Table& t) { t.ProbabilitiesChanged = t.GameChanged = true; }

std::int32_t AxisChance(double effectiveness) {
    const double share = std::isnan(effectiveness) ? 0 : std::clamp(effectiveness, 0.0, 100.0) / 100;
    return static_cast<std::int32_t>(std::llround((1 - share) / FacesOfDie * WholeChance));
}

}  // namespace

CellKind KindOfCell(CellPlace at) {
    if (at.Col == 1 && 1 <= at.Row && at.Row <= 11) return CellKind::Total;
    if (at.Col < 2 || at.Col > 7) return CellKind::None;
    if (at.Row == FirstDieRow || at.Row == SecondDieRow) return CellKind::Face;
    return at.Col - 1 <= at.Row && at.Row <= 13 - at.Col ? CellKind::Result : CellKind::None;
}

CellPlace FacePlace(int die, int face) { return {face + 1, die == 1 ? FirstDieRow : SecondDieRow}; }

CellPlace TotalPlace(int total) { return {1, TotalRow(total)}; }

CellPlace ResultPlace(int die1, int die2) {
    for (const MatrixCell& cell : MatrixWalk) {
        if (cell.Die1 == die1 && cell.Die2 == die2) return PlaceOf(cell);
    }
    return {};
}

bool IsFreeForm(const Table& t) { return t.ProbabilityMatrix[0][0][0] != 0; }

void SetFreeForm(Table& t, bool freeForm) {
    if (freeForm == IsFreeForm(t)) return;
    MatrixCells& cells = t.ProbabilityMatrix;
    cells[0][0][0] = freeForm ? -1 : 0;
    NoteChange(t);
    MakeWhole(cells);
    if (!freeForm) FollowFaces(cells);
}

bool IsEditable(const Table& t, CellPlace at) {
    const CellKind kind = KindOfCell(at);
    return kind != CellKind::None && (kind == CellKind::Face) != IsFreeForm(t);
}

bool IsLocked(const Table& t, CellPlace at) { return IsEditable(t, at) && HasLock(t.ProbabilityMatrix, at); }

void ToggleLock(Table& t, CellPlace at) {
    if (!IsEditable(t, at)) return;
    StateOf(t.ProbabilityMatrix, at) ^= LockedState;
    NoteChange(t);
}

void UnlockAllCells(Table& t) {
    bool any = false;
    for (int col = 1; col <= 7; ++col) {
        for (int row = 1; row <= SecondDieRow; ++row) {
            any = any || HasLock(t.ProbabilityMatrix, {col, row});
            StateOf(t.ProbabilityMatrix, {col, row}) &= ~LockedState;
        }
    }
    if (any) NoteChange(t);
}

double TruePercent(CellPlace at) {
    switch (KindOfCell(at)) {
        case CellKind::Result:
            return 100.0 / 36;
        case CellKind::Total:
            return (6 - std::abs(at.Row - 6)) * 100.0 / 36;
        case CellKind::Face:
            return 600.0 / 36;
        case CellKind::None:
            break;
    }
    return 0;
}

std::string CellText(const Table& t, CellPlace at) {
    if (KindOfCell(at) == CellKind::None) return {};
    return TextOfChance(t, at, t.ProbabilityMatrix[1][At(at.Col)][At(at.Row)]);
}

std::optional<double> ChanceFromText(const Table& t, CellPlace at, std::string_view text) {
    std::string digits(Trim(text));
    if (!digits.empty() && digits.back() == '%') digits.pop_back();
    digits = Trim(digits);
    digits.erase(std::remove(digits.begin(), digits.end(), ','), digits.end());
    if (digits.size() > 1 && digits.front() == '+' && digits[1] != '-') digits.erase(0, 1);
    double typed = 0;
    const char* const end = digits.data() + digits.size();
    const auto read = std::from_chars(digits.data(), end, typed);
    if (digits.empty() || read.ec != std::errc{} || read.ptr != end || !std::isfinite(typed)) return std::nullopt;
    const int mode = t.ProbabilityDisplayMode;
    if (mode == RollsOutOf || mode == RollsFromTrue) {
        if (!(t.RollsOutOf > 0)) return std::nullopt;
        typed = typed * 100 / t.RollsOutOf;
    }
    if (mode == PercentFromTrue || mode == RollsFromTrue) typed += TruePercent(at);
    return typed * 1000;
}

std::string EnterCell(Table& t, CellPlace at, std::string_view text) {
    const CellKind kind = KindOfCell(at);
    if (kind == CellKind::None) return "There is no such cell.";
    if (!IsEditable(t, at)) {
        return IsFreeForm(t) ? "In Free Form Dice the faces follow the results."
                             : "In Percentage Dice the results follow the faces of the dice.";
    }
    const std::optional<double> chance = ChanceFromText(t, at, text);
    if (!chance) return "\"" + std::string(text) + "\" is no number.";
    MatrixCells cells = t.ProbabilityMatrix;
    MakeWhole(cells);
    const Group group = kind == CellKind::Face    ? GroupOfFace(cells, at)
                        : kind == CellKind::Total ? GroupOfTotal(cells, at)
                                                  : GroupOfResult(cells, at);
    const bool isTotal = kind == CellKind::Total;
    const Bounds bounds = BoundsOf(group, isTotal);
    const double rounded = std::round(*chance);
    if (!(static_cast<double>(bounds.Lowest) <= rounded && rounded <= static_cast<double>(bounds.Highest))) {
        return BoundsRefusal(t, at, bounds);
    }
    const auto value = static_cast<std::int64_t>(rounded);
    ValueOf(cells, at) = static_cast<std::int32_t>(value);
    StateOf(cells, at) |= LockedState;
    if (isTotal) ScaleTo(group.Own, value - group.OwnHeld);
    SpreadEvenly(group.Others, group.Whole - group.Held - value - SumOf(group.Others));
    if (kind == CellKind::Face) {
        FollowFaces(cells);
    } else {
        FollowResults(cells);
    }
    t.ProbabilityMatrix = cells;
    NoteChange(t);
    return {};
}

void ComputeAxisDice(Table& t, AxisThrow first, AxisThrow second) {
    UnlockAllCells(t);
    SetFreeForm(t, false);
    MatrixCells& cells = t.ProbabilityMatrix;
    MakeWhole(cells);
    for (const int die : {1, 2}) {
        const AxisThrow& thrown = die == 1 ? first : second;
        const CellPlace face = FacePlace(die, std::clamp(thrown.Axis, 1, 3));
        const Group group = GroupOfFace(cells, face);
        const std::int32_t chance = AxisChance(thrown.Effectiveness);
        ValueOf(cells, face) = chance;
        StateOf(cells, face) |= LockedState;
        SpreadEvenly(group.Others, WholeChance - chance - SumOf(group.Others));
    }
    FollowFaces(cells);
    NoteChange(t);
}

}  // namespace tarnwick
