// The last pass: proves that every statement reduces to a form that can be run, and keeps what it reduces to.
#include "autobet/classes.h"
#include "autobet/compilation.h"
#include "autobet/places.h"
#include "autobet/reduce.h"

namespace tarnwick {

namespace {

constexpr const char* Improper = "Improper assignment or expression.";

StatementKind KindOf(std::int32_t keyword) {
    switch (keyword) {
        case Code::If:
            return StatementKind::If;
        case Code::Then:
            return StatementKind::Then;
        case Code::Else:
            return StatementKind::Else;
        case Code::ElseIf:
            return StatementKind::ElseIf;
        case Code::EndIf:
            return StatementKind::EndIf;
        case Code::Return:
            return StatementKind::Return;
        case Code::Goto:
            return StatementKind::Goto;
        case Code::Gosub:
            return StatementKind::Gosub;
        case Code::Do:
            return StatementKind::Do;
        case Code::Loop:
            return StatementKind::Loop;
        case Code::ExitDo:
            return StatementKind::ExitDo;
        case Code::ScriptStart:
            return StatementKind::Player;
        default:
            return StatementKind::Label;
    }
}

/// Checks one expression or action and files it in the tree. The text of the error, empty when there is none.
class StatementCheck {
  public:
    StatementCheck(Tree& tree, Statement& statement) : Out(tree), S(statement) {}

    std::string Condition(const Element* first, const Element* last) {
        S.Kind = StatementKind::Condition;
        Reducer reducer(Out, true);
        if (!reducer.Run(first, last)) return reducer.Text;
        if (reducer.Result.size() != 1) return "Unable to resolve expression.";
        if (!reducer.Result[0].IsNumber()) return "Result not true or false.";
        S.Operands[0] = reducer.Result[0].Node;
        return {};
    }

    std::string ActionOrAssignment(const Element* first, const Element* last) {
        const bool action = first->Code == Code::Action;
        const bool all = first->Code == Code::Quantifier;
        if (!action && !all && !IsTarget(*first)) return Improper;
        const int number = action ? NumberOf(*first) : 0;
        S.Action = static_cast<std::int16_t>(number);
        if (action && number < 200) {
            S.Kind = StatementKind::Command;
            return last - first == 1 ? "" : "Unable to resolve elements.";
        }
        Reducer reducer(Out, false);
        if (!reducer.Run(first, last)) return reducer.Text;
        const Terms& terms = reducer.Result;
        for (const Term& t : terms) {
            if (t.IsList()) return "Improper or missing list comparison.";
        }
        if (!action) return Assignment(reducer, terms);
        if (number == 310) return Playback(terms);
        if (number < 300) return Command(terms);
        if (terms.size() == 1) return "Missing argument.";
        if (number == 300) return Swap(reducer, terms);
        return number < 481 ? OnTargets(reducer, terms) : Amount(reducer, terms);
    }

  private:
    std::string Assignment(const Reducer& reducer, const Terms& terms) {
        S.Kind = StatementKind::Assign;
        std::size_t sign = terms.size();
        while (sign > 0 && terms[sign - 1].Code != Code::Equal) --sign;  // behind the last sign
        if (sign == 0 || terms.size() != sign + 1 || !terms[sign].IsValue()) return Improper;
        S.Operands[0] = terms[sign].Node;
        return TakeTargets(reducer, terms, 0, sign - 1).empty() ? "" : Improper;
    }

    std::string Amount(const Reducer& reducer, const Terms& terms) {
        S.Kind = StatementKind::Amount;
        if (terms.size() < 4 || !terms[1].IsValue() || terms[2].Code != Code::Equal) return Improper;
        S.Operands[0] = terms[1].Node;
        return TakeTargets(reducer, terms, 3, terms.size());
    }

    std::string OnTargets(const Reducer& reducer, const Terms& terms) {
        S.Kind = StatementKind::OnTargets;
        return TakeTargets(reducer, terms, 1, terms.size());
    }

    std::string Swap(const Reducer& reducer, const Terms& terms) {
        S.Kind = StatementKind::Swap;
        const bool two =
            terms.size() == 4 && terms[1].IsTarget() && terms[2].Code == Code::Comma && terms[3].IsTarget();
        return two ? TakeTargets(reducer, terms, 1, 4) : Improper;
    }

    std::string Command(const Terms& terms) {
        S.Kind = StatementKind::Command;
        if (terms.size() == 1) return S.Action == 213 ? "" : "Missing argument.";
        if (terms.size() > 2) return "Missing or improper arguments.";
        const bool number = S.Action == 225 || S.Action == 226 || S.Action == 223;
        const bool text = S.Action != 225 && S.Action != 226;
        if (!(number && terms[1].IsNumber()) && !(text && terms[1].IsText())) return "Improper argument.";
        S.Operands[0] = terms[1].Node;
        return {};
    }

    /// [file name] [from-roll mark or comma] [first roll] [sign or comma, last roll]
    std::string Playback(const Terms& terms) {
        S.Kind = StatementKind::Command;
        std::size_t at = 1;
        const auto isText = [&](bool mark) {
            return at < terms.size() && terms[at].IsText() && IsFromRoll(terms[at]) == mark;
        };
        const auto takeNumber = [&](std::int32_t& operand) {
            if (at >= terms.size() || !terms[at].IsNumber()) return false;
            operand = terms[at++].Node;
            return true;
        };
        if (isText(false)) S.Operands[0] = terms[at++].Node;
        const bool marked = isText(true) || (at < terms.size() && terms[at].Code == Code::Comma);
        if (marked) ++at;
        const bool hasFirst = takeNumber(S.Operands[1]);
        if (marked && !hasFirst) return "Missing or improper arguments.";
        if (hasFirst && at < terms.size() && (terms[at].Code == Code::Equal || terms[at].Code == Code::Comma)) {
            ++at;
            if (!takeNumber(S.Operands[2])) return "Missing or improper arguments.";
        }
        return at == terms.size() ? "" : "Missing or improper arguments.";
    }

    bool IsFromRoll(const Term& text) const {
        const Node& node = Out.Nodes[static_cast<std::size_t>(text.Node)];
        return node.Kind == NodeKind::Text && node.A == SpecialText::FromRoll;
    }

    /// Files terms[from, to) as targets: items with commas between them. A comparison with its operand is an item too,
    /// and qualifies the targets behind it.
    std::string TakeTargets(const Reducer& reducer, const Terms& terms, std::size_t from, std::size_t to) {
        Target filter;
        bool expectItem = true;
        bool any = false;
        for (std::size_t i = from; i < to; ++i) {
            const Term& term = terms[i];
            if (term.Code == Code::Comma) {
                if (expectItem) return "Inappropriate element in list.";
                expectItem = true;
                continue;
            }
            if (term.IsComparison()) {
                if (!expectItem) return "Improper placement of comparison operator in list.";
                if (++i >= to || !terms[i].IsValue()) return "Improper or missing comparison element in list.";
                filter.FilterOp = term.Code;
                filter.FilterNode = terms[i].Node;
                expectItem = false;
                continue;
            }
            if (!expectItem) return "Missing separation character (, or ;) in list.";
            expectItem = false;
            if (!term.IsValue() && !term.IsTarget()) return "Inappropriate element in list.";
            any = any || term.IsTarget();
            Out.Targets.push_back(filter);
            if (!Fits(FillTarget(reducer, term, Out.Targets.back()))) return "List item not comparable with qualifier.";
        }
        return any && !expectItem ? "" : "Inappropriate element in list.";
    }

    const Target& FillTarget(const Reducer& reducer, const Term& term, Target& target) const {
        target.IsValue = term.IsValue();
        if (target.IsValue) {
            target.Value = term.Node;
        } else {
            target.Place = reducer.PlaceOf(term);
        }
        return target;
    }

    bool Fits(const Target& target) const {
        if (target.FilterOp == 0) return true;
        const auto typeOf = [this](std::int32_t node) { return Out.Nodes[static_cast<std::size_t>(node)].Type; };
        const bool text = IsTextFunction(target.Place.Function) || IsTextVariable(target.Place.Variable);
        const ValueKind own = target.IsValue ? typeOf(target.Value) : text ? ValueKind::Text : ValueKind::Number;
        return own == typeOf(target.FilterNode);
    }

    Tree& Out;
    Statement& S;
};

class ScriptCheck {
  public:
    explicit ScriptCheck(Compilation& compilation) : C(compilation), StatementOf(compilation.Elements.size(), NoNode) {}

    std::optional<CompileError> Run() {
        C.Program = {};
        for (std::size_t first = 1; first < C.Elements.size();) {
            if (IsMarker(C.Elements[first])) {
                ++first;
                continue;
            }
            std::size_t last = first + 1;
            while (last < C.Elements.size() && !IsMarker(C.Elements[last])) ++last;
            if (std::string fault = Check(first, last); !fault.empty()) return ErrorAt(C.Elements, first, fault);
            first = last;
        }
        for (Statement& s : C.Program.Statements) Resolve(s);
        return std::nullopt;
    }

  private:
    std::string Check(std::size_t first, std::size_t last) {
        const Element& e = C.Elements[first];
        StatementOf[first] = static_cast<std::int32_t>(C.Program.Statements.size());
        Condition.See(e);
        Statement s = Begin(first, last);
        std::string fault;
        if (e.Code == Code::If || e.Code == Code::ElseIf) HasExpression = false;
        if (e.Code == Code::Then && !HasExpression) fault = "Missing expression between IF and THEN.";
        if (e.Code == Code::Goto || e.Code == Code::Gosub) {
            if (last - first > 2) {
                fault = "Unable to resolve elements.\nGoTo command should be followed by name of a label";
            }
        } else if (!IsKeyword(e) && e.Code != Code::Label && e.Code != Code::ScriptStart) {
            const Element* elements = C.Elements.data();
            StatementCheck check(C.Program, s);
            HasExpression = true;
            fault = Condition.IsOn() ? check.Condition(elements + first, elements + last)
                                     : check.ActionOrAssignment(elements + first, elements + last);
        }
        s.EndNode = static_cast<std::int32_t>(C.Program.Nodes.size());
        s.EndTarget = static_cast<std::int32_t>(C.Program.Targets.size());
        C.Program.Statements.push_back(s);
        return fault;
    }

    Statement Begin(std::size_t first, std::size_t last) const {
        const CompileError place = ErrorAt(C.Elements, first, {});
        Statement s;
        s.Kind = KindOf(C.Elements[first].Code);
        if (s.Kind == StatementKind::Player) s.Slot = NumberOf(C.Elements[first]);
        s.FirstElement = static_cast<std::int32_t>(first);
        s.EndElement = static_cast<std::int32_t>(last);
        s.FirstNode = static_cast<std::int32_t>(C.Program.Nodes.size());
        s.FirstTarget = static_cast<std::int32_t>(C.Program.Targets.size());
        if (s.Kind == StatementKind::Player) return s;  // it stands ahead of the source
        s.FirstLine = place.FirstLine;
        s.FirstCol = place.FirstCol;
        s.LastLine = place.LastLine;
        s.LastCol = place.LastCol;
        return s;
    }

    /// Element indexes of jumps become statement indexes.
    void Resolve(Statement& s) const {
        const auto first = static_cast<std::size_t>(s.FirstElement);
        if (!IsKeyword(C.Elements[first])) return;
        const bool refers = s.Kind == StatementKind::Goto || s.Kind == StatementKind::Gosub;
        const int target = NumberOf(C.Elements[refers ? first + 1 : first]);
        if (target > 0) s.Jump = StatementOf[static_cast<std::size_t>(target)];
    }

    Compilation& C;
    std::vector<std::int32_t> StatementOf;  ///< by index of its first element
    ConditionFlag Condition;
    bool HasExpression = false;  ///< since the last IF or ELSEIF
};

}  // namespace

std::optional<CompileError> CompileCheck(Compilation& c) { return ScriptCheck(c).Run(); }

}  // namespace tarnwick
