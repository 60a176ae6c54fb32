// The reduction of one statement: brackets from the inside out, then the passes over what is left, each from left to
// right, until only values, targets and what no pass took are left. Every step makes one node of the tree, in the order
// in which the language evaluates.
#pragma once

#include <string>
#include <vector>

#include "autobet/element.h"
#include "autobet/expression.h"

namespace tarnwick {

/// What stands in the statement while it is reduced.
struct Term {
    std::int32_t Code = 0;         ///< as an element; Code::Number and Code::String once reduced to a value
    std::int32_t Number = 0;       ///< of functions, variables, actions, qualifiers
    double Value = 0;              ///< of qualifiers
    std::int32_t Node = NoNode;    ///< of values; of a player by position its argument
    std::int32_t Inside = NoNode;  ///< of functions and quantifiers: their bracket; of targets: their reference
    bool Finished = false;         ///< a target whose qualifiers are read

    bool IsNumber() const { return Code == tarnwick::Code::Number; }
    bool IsText() const { return Code == tarnwick::Code::String; }
    bool IsValue() const { return IsNumber() || IsText(); }
    bool IsTarget() const { return Code == tarnwick::Code::TargetVariable || Code == tarnwick::Code::TargetFunction; }
    bool IsList() const { return Code == tarnwick::Code::Quantifier; }
    bool IsComparison() const { return tarnwick::Code::Equal <= Code && Code <= tarnwick::Code::GreaterOrEqual; }
};

using Terms = std::vector<Term>;

class Reducer {
  public:
    Reducer(Tree& tree, bool inCondition) : Out(tree), InCondition(inCondition) {}

    /// Reduces the elements [first, last) of a statement. False with Text set when something does not fit.
    bool Run(const Element* first, const Element* last);

    Terms Result;
    std::string Text;

    /// The place that a target names.
    const Reference& PlaceOf(const Term& target) const { return Places[static_cast<std::size_t>(target.Inside)]; }

  private:
    enum class Bracket { Group, Arguments, List };
    enum class Within { Statement, List };
    struct Frame {
        Bracket Kind;
        Terms Content;
    };
    struct ListEntry {
        std::int32_t Op = 0;  ///< the comparison ahead of it; 0 none
        Term Item;
    };
    enum class ListFault { EmptyItem, MissingOperand, MisplacedComparison, MissingSeparator, WrongElement };

    // reduce.cpp
    bool Fail(std::string text);
    Term ValueOf(const Node& node);
    Term TermOf(const Element& e);
    bool CloseBracket();
    bool CloseArguments(Terms& content);
    bool CloseList(Terms& content);
    bool Reduce(Terms& terms, Within within);
    bool ReadVariables(Terms& terms);
    bool MathSidesFit(const Term* left, const Term* right);
    bool MathPass(Terms& terms, std::int32_t firstOp, std::int32_t lastOp);
    bool NegatePass(Terms& terms);
    bool JoinPass(Terms& terms);
    bool ComparePass(Terms& terms);
    bool NotPass(Terms& terms);
    bool LogicPass(Terms& terms, std::int32_t op);

    // reducefunctions.cpp
    bool ReduceFunctions(Terms& terms);
    bool TakePlaceFunction(const Terms& terms, std::size_t& i, Terms& out);
    bool TakeFunction(const Term& function, Terms& out);
    bool CheckArguments(const Term& function);
    bool ReadQualifiers(const Terms& terms, std::size_t& i, Reference& place);
    std::int32_t Argument(const Term& function, std::size_t index) const;

    // reducelists.cpp
    bool ReadEntry(const Terms& segment, const Term& owner, ListEntry& entry);
    bool ListFails(ListFault fault, const Term& owner);
    void SpliceTargets(const std::vector<ListEntry>& entries);
    bool TakeListFunction(const Term& function, Terms& out);
    bool ListPass(Terms& terms);
    bool CompareList(Terms& terms, std::size_t& i, Terms& out);
    bool AgainstValue(const Term& list, const Term& value, std::int32_t op, bool listOnLeft);
    bool AmongItems(const Term& list);

    Tree& Out;
    bool InCondition;
    std::vector<Frame> Frames;
    std::vector<std::vector<Terms>> Arguments;  ///< of functions, by Term::Inside
    std::vector<std::vector<ListEntry>> Lists;  ///< of list functions and quantifiers, by Term::Inside
    std::vector<Reference> Places;              ///< of targets, by Term::Inside
};

}  // namespace tarnwick
