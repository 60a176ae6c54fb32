// Variables and their qualifiers. In the source the qualifiers of a variable stand in any order and most may be left
// out; behind this pass every reference has the order of its class, with defaults filled in.
//
// A run is a stretch of one variable and its qualifiers. Runs are sought within one bracket at a time, the innermost
// first, and at last outside of all brackets; so what stands in a bracket belongs to the variable in it.
#include <utility>

#include "autobet/classes.h"
#include "autobet/compilation.h"
#include "autobet/places.h"

namespace tarnwick {

namespace {

constexpr const char* Ambiguous = "Ambiguous variable references";
constexpr const char* CountOrAmount = "Please designate either total # or total $.";

/// Elements that belong together, such as a function with its bracket.
using Piece = std::vector<Element>;

struct Run {
    Piece V;     // the variable; empty when there is none
    Piece P;     // the player, of one element or "player( )"
    int H = -1;  // -1: not given
    int X = -1;
    int Y = -1;
    bool HasNumber = false;
    double Number = 0;

    bool IsEmpty() const { return V.empty() && P.empty() && H < 0 && X < 0 && Y < 0; }
};

bool IsWholeIn(double value, int low, int high) {
    return value >= low && value <= high && value == static_cast<double>(static_cast<int>(value));
}

/// A total 2..12, or two dice as 5.2.
bool IsRoll(double value) {
    if (IsWholeIn(value, 2, 12)) return true;
    for (int dice = 11; dice <= 66; ++dice) {
        const int second = dice % 10;
        if (1 <= second && second <= 6 && value == dice / 10.0) return true;
    }
    return false;
}

bool IsFace(int y) { return 78 <= y && y <= 89; }

int NumberOfVariable(const Run& run) {
    const Element& v = run.V.front();
    if (v.Code == Code::Variable) return NumberOf(v);
    return IsBetFunction(NumberOf(v)) ? 1 : 100;  // the class is what counts
}

std::string RollsFault(const Run& run, int variable) {
    const std::string prefix = std::string(Ambiguous) + "\n";
    const bool counts = 2500 <= variable && variable <= 2502;
    if (run.X >= 0 || (run.HasNumber && run.Y >= 0)) return Ambiguous;
    if (run.HasNumber && !(counts ? IsRoll(run.Number) : IsWholeIn(run.Number, 2, 12))) {
        return prefix + "Reference to rolls out of limits.";
    }
    if (variable == 2501 && run.H >= 0 && run.H != 3) {
        return prefix + "\"# of rolls since\" applies to current session only";
    }
    const bool known = run.Y <= 0 || run.Y == 14 || run.Y == 15 || (counts && IsFace(run.Y));
    return known ? "" : Ambiguous;
}

struct Filled {
    int H, X, Y;
    bool OwnY;  // the source gave it
};

Filled FillBet(const Run& run, int variable) {
    const int x = run.X >= 0 ? run.X : IsPoints(variable) ? 6 : 1;
    const int y = run.Y >= 0 ? run.Y : IsPoints(variable) ? 0 : x == 1 ? 33 : 28;
    return {run.H >= 0 ? run.H : 3, x, y, run.Y >= 0};
}

/// What only the present hand or session can say.
std::string ScopeFault(const Filled& q) {
    if (q.H == 1 || q.H == 3) return "";
    if (q.Y == 32 || q.Y == 33) return "Current # and current $ only apply to current hand or session.";
    if (q.Y == 34) return "'Working' only applies to current hand or session.";
    if (q.Y == 35) return "'Called on' only applies to current hand or session.";
    if (q.Y == 36) return "'Called off' only applies to current hand or session.";
    if (q.Y == 37) return "'Vig' only applies to current hand or session.";
    return "";
}

std::string BetFault(const Run& run, int variable) {
    const std::string prefix = std::string(Ambiguous) + "\n";
    const bool points = IsPoints(variable);
    const Filled q = FillBet(run, variable);
    const bool net = q.X == 4 || q.X == 5;
    const bool now = q.Y == 32 || q.Y == 33;
    if (!points) {
        if (run.HasNumber || q.X > 5 || q.Y == 14 || q.Y == 15 || IsFace(q.Y)) return Ambiguous;
        if ((net && now) || (34 <= q.Y && q.Y <= 37 && q.X != 1)) return Ambiguous;
    }
    if (q.Y == 31 && !net) return prefix + "Please designate either net or net %";
    if (net && (q.Y < 21 || q.Y > 33)) return prefix + CountOrAmount;
    if (q.Y == 0 && !points) return prefix + CountOrAmount;
    if (now && q.X != 1) return prefix + "Current # and current $ only apply to wagers.";
    if (const std::string fault = ScopeFault(q); !fault.empty()) return prefix + fault;
    if (!points && !q.OwnY && q.H != 1 && q.H != 3) return std::string(Ambiguous) + ".";
    const bool pointsKnown = 6 <= q.X && q.X <= 8 && q.Y == 0 && !(run.HasNumber && q.OwnY);
    return points && !pointsKnown ? Ambiguous : "";
}

/// What is wrong with a run that has a variable; empty when nothing is.
std::string Fault(const Run& run) {
    const int variable = NumberOfVariable(run);
    const bool bare = run.X < 0 && run.Y < 0 && !run.HasNumber;
    switch (ClassOf(variable)) {
        case VariableClass::Table:
            return bare && run.H < 0 && run.P.empty() ? "" : Ambiguous;
        case VariableClass::Player:
            return bare && run.H < 0 ? "" : Ambiguous;
        case VariableClass::Result:
            return bare ? "" : Ambiguous;
        case VariableClass::Rolls:
            return RollsFault(run, variable);
        case VariableClass::Bet:
            return BetFault(run, variable);
    }
    return "";
}

void Append(Piece& out, const Piece& piece) { out.insert(out.end(), piece.begin(), piece.end()); }

void Append(Piece& out, std::int32_t code, double value) { out.push_back({code, value}); }

/// Writes a sound run with a variable. `own` is the player that is meant when none is named.
void Write(Piece& out, const Run& run, int own) {
    const int variable = NumberOfVariable(run);
    const VariableClass kind = ClassOf(variable);
    Append(out, run.V);
    if (kind == VariableClass::Table) return;
    const bool wholeTable = kind == VariableClass::Rolls || IsPoints(variable);
    if (run.P.empty()) {
        Append(out, Code::Player, wholeTable ? 0 : own);
    } else {
        Append(out, run.P);
    }
    if (kind == VariableClass::Player) return;
    Append(out, Code::Scope, run.H >= 0 ? run.H : 3);
    if (kind == VariableClass::Result) return;
    if (kind == VariableClass::Rolls) {
        Append(out, Code::Statistic, run.HasNumber ? run.Number : run.Y >= 0 ? run.Y : 0);
        return;
    }
    const Filled q = FillBet(run, variable);
    Append(out, Code::Result, q.X);
    Append(out, Code::Statistic, run.HasNumber ? run.Number : q.Y);
}

/// A player without a variable means the position.
void WritePlayer(Piece& out, const Piece& player) {
    if (player.front().Code != Code::Player) {
        Append(out, player);
        return;
    }
    const int code = NumberOf(player.front());
    if (10 <= code && code <= 14) {
        Append(out, Code::Variable, 3190 + code);
    } else {
        Append(out, Code::Number, code == 15 ? 0 : code);
    }
}

/// Reads one area from left to right and writes it anew. Brackets in it are done and go with their function or stand
/// for themselves. While the pass runs, an opening bracket's Value is the number of elements to behind its closing one.
class Area {
  public:
    Area(const Element* first, const Element* last, int own) : At(first), Last(last), Own(own) {}

    /// False with Text and Spot set.
    bool Rewrite(Piece& out) {
        while (At != Last) {
            if (!Take(out)) return false;
        }
        return Finish(out);
    }

    std::string Text;
    const Element* Spot = nullptr;  ///< the last element of the run at fault

  private:
    bool Take(Piece& out) {
        const bool behindVariable = std::exchange(BehindVariable, false);
        const Element e = *At;
        const int number = NumberOf(e);
        const bool function = e.Code == Code::Function;
        if (e.Code == Code::Player || (function && number == 50)) {
            if (!Set(Now.P.empty(), "Ambiguous player references")) return false;
            Now.P = TakePiece();
            return true;
        }
        if (e.Code == Code::Variable || (function && IsPlaceFunction(number))) {
            if (!Set(Now.V.empty(), Ambiguous)) return false;
            Now.V = TakePiece();
            BehindVariable = true;
            return true;
        }
        switch (e.Code) {
            case Code::Scope:
                return Set(Now.H < 0, "Ambiguous hand references") && Fill(Now.H);
            case Code::Result:
                return Set(Now.X < 0, Ambiguous) && Fill(Now.X);
            case Code::Statistic:
                return Set(Now.Y < 0, Ambiguous) && Fill(Now.Y);
            case Code::Number:
                if (behindVariable) {
                    Spot = At;
                    Now.HasNumber = true;
                    Now.Number = e.Value;
                    ++At;
                    return true;
                }
                break;
            default:
                break;
        }
        if (!Finish(out)) return false;
        Append(out, TakePiece());
        return true;
    }

    bool Set(bool isFree, const char* fault) {
        Spot = At;
        if (!isFree) Text = fault;
        return isFree;
    }

    bool Fill(int& slot) {
        slot = NumberOf(*At++);
        return true;
    }

    /// The element at hand, a function with its bracket, or a whole bracket.
    Piece TakePiece() {
        const Element* const first = At;
        At += At->Code == Code::Function ? 2 : 1;
        return Piece(first, At);
    }

    /// Ends the run.
    bool Finish(Piece& out) {
        const Run run = std::exchange(Now, {});
        if (run.IsEmpty()) return true;
        if (run.V.empty()) {
            const bool playerOnly = !run.P.empty() && run.H < 0 && run.X < 0 && run.Y < 0;
            if (playerOnly) WritePlayer(out, run.P);
            if (!playerOnly) Text = Ambiguous;
            return playerOnly;
        }
        Text = tarnwick::Fault(run);
        if (!Text.empty()) return false;
        Write(out, run, Own);
        return true;
    }

    const Element* At;
    const Element* Last;
    int Own;
    Run Now;
    bool BehindVariable = false;
};

/// Puts the brackets back into `list`, in which an Open with Value n stands for all of brackets[n].
Piece Unfold(const Piece& list, const std::vector<Piece>& brackets) {
    struct Place {
        const Piece* In;
        std::size_t At;
    };
    Piece out;
    std::vector<Place> open = {{&list, 0}};
    while (!open.empty()) {
        Place& place = open.back();
        if (place.At == place.In->size()) {
            open.pop_back();
            if (!open.empty()) Append(out, Code::Close, 1);
            continue;
        }
        const Element& e = (*place.In)[place.At++];
        if (e.Code != Code::Open) {
            out.push_back(e);
            continue;
        }
        Append(out, Code::Open, 1);
        open.push_back({&brackets[static_cast<std::size_t>(NumberOf(e))], 0});
    }
    return out;
}

}  // namespace

std::optional<CompileError> CompileVariablesOrganize(Compilation& c) {
    const int own = c.Slot == 0 ? c.Bettor : c.Slot;
    Piece list(1);
    std::vector<std::size_t> open;  // brackets in `list` that are not closed yet
    std::vector<Piece> brackets;    // the contents of those that are
    for (std::size_t i = 1; i < c.Elements.size(); ++i) {
        if (c.Elements[i].Code == Code::Open) open.push_back(list.size());
        if (c.Elements[i].Code != Code::Close) {
            list.push_back(c.Elements[i]);
            continue;
        }
        const std::size_t bracket = open.back();
        open.pop_back();
        Piece written;
        Area area(list.data() + bracket + 1, list.data() + list.size(), own);
        if (!area.Rewrite(written)) return ErrorAt(c.Elements, i, area.Text);
        list.resize(bracket);
        Append(list, Code::Open, static_cast<double>(brackets.size()));
        brackets.push_back(std::move(written));
    }
    Piece outside(1);
    Area area(list.data() + 1, list.data() + list.size(), own);
    if (!area.Rewrite(outside)) {
        return ErrorAt(list, static_cast<std::size_t>(area.Spot - list.data()), area.Text);
    }
    c.Elements = Unfold(outside, brackets);
    return std::nullopt;
}

}  // namespace tarnwick
