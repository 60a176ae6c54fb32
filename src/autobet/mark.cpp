// Assignment marking: the variables and functions that a statement sets become targets.
//
// Only what stands at the depth of the list of targets can be one: ahead of a sign, and behind a comma again. All( )
// in a list of targets is transparent; every other bracket is read.
#include "autobet/classes.h"
#include "autobet/compilation.h"
#include "autobet/names.h"
#include "autobet/places.h"

namespace tarnwick {

namespace {

/// Whether a script may set the variable at all; bets have rules of their own.
bool IsSettable(int variable) {
    if (100 <= variable && variable <= 199) return true;
    if (800 <= variable && variable <= 999) return true;
    // The rate of rolls, 3603, is deliberately not among them.
    for (const int settable : {603, 670, 671, 691, 700, 701, 702, 703, 1300, 1301, 3655, 3672, 3691}) {
        if (variable == settable) return true;
    }
    return false;
}

class Marker {
  public:
    Marker(std::vector<Element>& list, std::size_t first, std::size_t last) : List(list), First(first), Last(last) {}

    /// Marks the statement [first, last); the text of the error, empty when there is none.
    std::string Run() {
        for (std::size_t i = First; i < Last; ++i) {
            if (std::string fault = MarkElement(i); !fault.empty()) return fault;
        }
        return {};
    }

  private:
    std::string MarkElement(std::size_t i) {
        const Element& e = List[i];
        if (e.Code == Code::Quantifier && NumberOf(e) == 2) {
            return "Improper use of list.\n\nLists defined by the keyword \"Any\"\ncannot be used with action "
                   "commands.";
        }
        if (Brackets(i)) return {};
        if (Stopped || Closed > 0) return {};
        if (e.Code == Code::Action) {
            Action = NumberOf(e);
            Stopped = !((450 <= Action && Action <= 489) || Action == 300);
            Held = 481 <= Action && Action <= 489;
        } else if (Held) {
            Held = e.Code != Code::Equal;
        } else if (IsComparison(e)) {
            BehindSign = true;
        } else if (e.Code == Code::Comma) {
            BehindSign = false;
        } else if (!BehindSign && e.Code == Code::Function) {
            return MarkFunction(i);
        } else if (!BehindSign && e.Code == Code::Variable) {
            return MarkVariable(i);
        }
        return {};
    }

    /// Keeps the depth. True for brackets themselves.
    bool Brackets(std::size_t i) {
        if (List[i].Code == Code::Close) {
            if (Closed > 0) --Closed;
            return true;
        }
        if (List[i].Code != Code::Open) return false;
        const bool all = i > First && List[i - 1].Code == Code::Quantifier;
        // Behind a transparent bracket every closing one is met with nothing closed, and there is nothing to count.
        if (Closed > 0 || !all || BehindSign || Held || Stopped) ++Closed;
        return true;
    }

    std::string MarkFunction(std::size_t i) {
        const int function = NumberOf(List[i]);
        if (function == 50) return {};  // a player, named by position
        if (!IsPlaceFunction(function)) {
            return Quoted(FunctionName(function)) + " is a read-only function and cannot be assigned a value.";
        }
        List[i].Code = Code::TargetFunction;
        return {};
    }

    std::string MarkVariable(std::size_t i) {
        const int variable = NumberOf(List[i]);
        if (++Targets > 2 && Action == 300) return "The swap command only works with two variables at a time.";
        if (variable <= 91) {
            if (std::string fault = BetFault(i); !fault.empty()) return fault;
        } else if (!IsSettable(variable)) {
            return Quoted(VariableName(variable)) + " is a read-only variable and cannot be assigned a value.";
        }
        List[i].Code = Code::TargetVariable;
        return {};
    }

    /// Only what lies on a bet now can be set.
    std::string BetFault(std::size_t i) const {
        std::size_t at = i + 1;
        int depth = 0;
        do {  // over the player, which may be a function with its bracket
            if (List[at].Code == Code::Open) ++depth;
            if (List[at].Code == Code::Close) --depth;
            ++at;
        } while (depth > 0 || List[at].Code != Code::Scope);
        const int scope = NumberOf(List[at]);
        if (scope != 1 && scope != 3)
            return "Unable to set the value of a bet that is not in the current hand or session.";
        if (NumberOf(List[at + 1]) != 1) return "Only able to set the 'wager' value of a bet.";
        if (NumberOf(List[at + 2]) != 13) return "Only able to set the current $ value of a bet.";
        return {};
    }

    std::vector<Element>& List;
    std::size_t First, Last;
    int Action = 0;
    int Targets = 0;
    int Closed = 0;  // depth of brackets that are not transparent
    bool Stopped = false;
    bool Held = false;  // an amount stands ahead of the targets
    bool BehindSign = false;
};

}  // namespace

std::optional<CompileError> MarkAssignments(Compilation& c) {
    ConditionFlag condition;
    for (std::size_t first = 1; first < c.Elements.size();) {
        const Element& e = c.Elements[first];
        std::size_t last = first + 1;
        if (IsMarker(e)) {
            first = last;
            continue;
        }
        while (last < c.Elements.size() && !IsMarker(c.Elements[last])) ++last;
        condition.See(e);
        std::string fault;
        if (condition.IsOn() && e.Code == Code::Label) {
            fault = "Improper placement of label.\nLabels cannot appear with condition lines.";
        } else if (!condition.IsOn() && !IsKeyword(e)) {
            fault = Marker(c.Elements, first, last).Run();
        }
        if (!fault.empty()) return ErrorAt(c.Elements, first, fault);
        first = last;
    }
    return std::nullopt;
}

}  // namespace tarnwick
