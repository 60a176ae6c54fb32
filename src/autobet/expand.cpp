// Groups of bets become lists of bets, and the numbers of statistics become those of the figures.
#include "autobet/classes.h"
#include "autobet/compilation.h"
#include "autobet/places.h"

namespace tarnwick {

namespace {

/// A group in the index of "player( )" is copied with every member of the group around it, so that a few nested ones
/// would fill any memory. No script that anybody means comes near.
constexpr std::size_t MostElements = 2'000'000;
constexpr int MostNested = 50;

struct Members {
    int First, Last, Step;
};

/// Rows of a group in ascending order.
Members MembersOf(int group) {
    switch (group) {
        case 980:
            return {100, 199, 1};
        case 990:
            return {800, 899, 1};
        case 4070:
            return {50, 51, 1};
        case 4071:
            return {52, 55, 1};
        case 4072:
            return {67, 83, 1};
        case 4100:
            return {1, 91, 1};
        default:
            break;
    }
    const int first = 1 + (group - 4000) / 10 * 6;  // families of six: Lay, Don't Come, its odds, Come, its odds, ...
    switch (group % 10) {
        case 1:
            return {first + 1, first + 4, 1};
        case 2:
            return {first, first + 5, 5};
        default:
            return {first, first + 5, 1};
    }
}

/// Behind the bracket that opens at `open`.
std::size_t BehindBracket(const std::vector<Element>& list, std::size_t open) {
    int depth = 0;
    std::size_t at = open;
    do {
        if (list[at].Code == Code::Open) ++depth;
        if (list[at].Code == Code::Close) --depth;
        ++at;
    } while (depth > 0);
    return at;
}

/// Behind the qualifiers of the variable at `variable`.
std::size_t BehindQualifiers(const std::vector<Element>& list, std::size_t variable) {
    std::size_t at = variable + 1;
    const bool byFunction = list[at].Code == Code::Function;
    at = byFunction ? BehindBracket(list, at + 1) : at + 1;
    while (at < list.size() && IsQualifier(list[at])) ++at;
    return at;
}

class Expander {
  public:
    explicit Expander(const std::vector<Element>& list) : List(list) {}

    /// False when the result would grow beyond all bounds.
    bool Run(std::size_t from, std::size_t to) {
        for (std::size_t i = from; i < to;) {
            if (Out.size() > MostElements || Nested > MostNested) return false;
            const Element& e = List[i];
            if (e.Code != Code::Variable || !IsGroup(NumberOf(e))) {
                Copy(i++);
                continue;
            }
            const std::size_t end = BehindQualifiers(List, i);
            const Members members = MembersOf(NumberOf(e));
            for (int row = members.First; row <= members.Last; row += members.Step) {
                if (row > members.First) Out.push_back({Code::Comma, 0});
                Out.push_back({Code::Variable, static_cast<double>(row)});
                Variable = row;
                ++Nested;
                if (!Run(i + 1, end)) return false;
                --Nested;
            }
            i = end;
        }
        return true;
    }

    std::vector<Element> Out;

  private:
    void Copy(std::size_t i) {
        Element e = List[i];
        const int number = e.Code == Code::Statistic ? NumberOf(e) : 0;
        if (e.Code == Code::Open) Outside.push_back(Variable);
        if (e.Code == Code::Close) {
            Variable = Outside.back();
            Outside.pop_back();
        }
        if (e.Code == Code::Variable) Variable = NumberOf(e);
        if (e.Code == Code::Function && IsBetFunction(NumberOf(e))) Variable = 1;
        // Only bets have figures; behind rolls and points the number is one of the dice.
        if (21 <= number && number <= 37 && ClassOf(Variable) == VariableClass::Bet && !IsPoints(Variable))
            e.Value -= 20;
        Out.push_back(e);
    }

    const std::vector<Element>& List;
    int Nested = 0;            // groups whose qualifiers are being copied
    int Variable = 0;          // the one that the next qualifiers belong to
    std::vector<int> Outside;  // the one that each open bracket stands behind
};

}  // namespace

std::optional<CompileError> ExpandGroups(Compilation& c) {
    Expander expander(c.Elements);
    expander.Out.reserve(c.Elements.size());
    for (std::size_t from = 0; from < c.Elements.size();) {
        std::size_t to = from + 1;
        while (to < c.Elements.size() && !IsMarker(c.Elements[to])) ++to;
        if (!expander.Run(from, to)) {
            return ErrorAt(c.Elements, from + 1, "A compile error occurred (organize variables).");
        }
        from = to;
    }
    c.Elements.swap(expander.Out);
    return std::nullopt;
}

}  // namespace tarnwick
