#include <array>
#include <cmath>

#include "autobet/classes.h"
#include "autobet/names.h"
#include "autobet/reduce.h"
#include "table/bets.h"

namespace tarnwick {

namespace {

/// Arguments of a function: n a number, s a text.
struct Signature {
    int Function;
    std::string_view Kinds;
    std::string_view Format;
};

constexpr std::array<Signature, 13> Signatures = {{{104, "s", ""},
                                                   {117, "s", ""},
                                                   {118, "s", ""},
                                                   {125, "s", ""},
                                                   {203, "nss", "Instr(number, string, string)"},
                                                   {801, "sn", "Left$(string, number)"},
                                                   {802, "sn", "Right$(string, number)"},
                                                   {803, "sn", "RemoveLeft$(string, number)"},
                                                   {804, "sn", "RemoveRight$(string, number)"},
                                                   {805, "snn", "Mid$(string, number, number)"},
                                                   {806, "snn", "RemoveMid$(string, number, number)"},
                                                   {809, "sns", "Insert$(string, number, string)"},
                                                   {825, "s", ""}}};

Signature SignatureOf(int function) {
    for (const Signature& s : Signatures) {
        if (s.Function == function) return s;
    }
    return {function, "n", ""};
}

bool IsInput(int function) { return function == 125 || function == 825; }

/// `what`: "Missing expression", "Too many expressions" or "Inappropriate expression".
std::string ArgumentFault(const Signature& s, const std::string& what) {
    if (IsInput(s.Function)) return "Inappropriate expression in Input function.";
    std::string text = what + " in " + Quoted(FunctionName(s.Function)) + " function.";
    if (s.Function == 805 || s.Function == 806) text = "Missing or inappropriate expression in function.";
    if (s.Function == 809) text = what + " in Insert$ function.";
    if (!s.Format.empty()) text += "\nExpected format:  " + std::string(s.Format);
    return text;
}

bool AllValues(const Terms& terms) {
    for (const Term& t : terms) {
        if (!t.IsValue()) return false;
    }
    return true;
}

}  // namespace

bool Reducer::CheckArguments(const Term& function) {
    const Signature s = SignatureOf(function.Number);
    const auto& given = Arguments[static_cast<std::size_t>(function.Inside)];
    if (IsInput(function.Number) && given.empty()) return true;
    for (std::size_t i = 0; i < s.Kinds.size(); ++i) {
        if (i >= given.size() || given[i].empty()) return Fail(ArgumentFault(s, "Missing expression"));
        if (given[i].size() > 1 && AllValues(given[i])) return Fail(ArgumentFault(s, "Too many expressions"));
        const std::int32_t wanted = s.Kinds[i] == 'n' ? Code::Number : Code::String;
        if (given[i].size() > 1 || given[i][0].Code != wanted) {
            return Fail(ArgumentFault(s, "Inappropriate expression"));
        }
    }
    if (given.size() > s.Kinds.size()) return Fail(ArgumentFault(s, "Too many expressions"));
    return true;
}

std::int32_t Reducer::Argument(const Term& function, std::size_t index) const {
    const auto& given = Arguments[static_cast<std::size_t>(function.Inside)];
    return index < given.size() ? given[index][0].Node : NoNode;
}

bool Reducer::ReduceFunctions(Terms& terms) {
    bool any = false;
    for (const Term& t : terms) any = any || t.Code == Code::Function || t.Code == Code::TargetFunction;
    if (!any) return true;
    Terms out;
    for (std::size_t i = 0; i < terms.size(); ++i) {
        const Term& term = terms[i];
        const bool target = term.Code == Code::TargetFunction;
        if (term.Finished || (!target && term.Code != Code::Function)) {
            out.push_back(term);
        } else if (target || IsPlaceFunction(term.Number)) {
            if (!TakePlaceFunction(terms, i, out)) return false;
        } else if (IsListFunction(term.Number)) {
            if (!TakeListFunction(term, out)) return false;
        } else if (!TakeFunction(term, out)) {
            return false;
        }
    }
    terms.swap(out);
    return true;
}

bool Reducer::TakePlaceFunction(const Terms& terms, std::size_t& i, Terms& out) {
    const Term term = terms[i];
    if (!CheckArguments(term)) return false;
    Reference place;
    place.Function = term.Number;
    place.Index = Argument(term, 0);
    const Node& index = Out.Nodes[static_cast<std::size_t>(place.Index)];
    if (place.Function == 1 && index.Kind == NodeKind::Number) {
        const double point = std::nearbyint(index.Number);
        const bool known = point >= 4 && point <= 10 && IsPointNumber(static_cast<int>(point));
        if (!known) return Fail("Reference to Lay bet out of limits.");
    }
    if (!ReadQualifiers(terms, i, place)) return false;
    if (term.Code == Code::TargetFunction) {
        Term& mark = out.emplace_back();
        mark.Code = Code::TargetFunction;
        mark.Inside = static_cast<std::int32_t>(Places.size());
        mark.Finished = true;
        Places.push_back(place);
        return true;
    }
    Node node;
    node.Kind = NodeKind::Variable;
    node.Type = IsTextFunction(place.Function) ? ValueKind::Text : ValueKind::Number;
    node.A = static_cast<std::int32_t>(Out.References.size());
    Out.References.push_back(place);
    out.push_back(ValueOf(node));
    return true;
}

bool Reducer::TakeFunction(const Term& function, Terms& out) {
    if (!CheckArguments(function)) return false;
    const bool behindVariable =
        !out.empty() && (out.back().Code == Code::Variable || out.back().Code == Code::TargetVariable);
    if (function.Number == 50 && behindVariable) {  // a qualifier: it stays until the variable is read
        Term& player = out.emplace_back();
        player.Code = Code::Player;
        player.Node = Argument(function, 0);
        return true;
    }
    Node node;
    node.Kind = NodeKind::Function;
    node.Type = IsTextFunction(function.Number) ? ValueKind::Text : ValueKind::Number;
    node.Op = static_cast<std::int16_t>(function.Number);
    node.A = Argument(function, 0);
    node.B = Argument(function, 1);
    node.C = Argument(function, 2);
    if (node.A == NoNode) {  // an input without a prompt
        Node prompt;
        prompt.Kind = NodeKind::Text;
        prompt.Type = ValueKind::Text;
        prompt.A = SpecialText::Empty;
        node.A = ValueOf(prompt).Node;
    }
    out.push_back(ValueOf(node));
    return true;
}

/// Takes the qualifiers behind the term `i` and leaves `i` at the last of them.
bool Reducer::ReadQualifiers(const Terms& terms, std::size_t& i, Reference& place) {
    for (; i + 1 < terms.size(); ++i) {
        const Term& next = terms[i + 1];
        if (next.Code == Code::Player) {
            place.Player = next.Number;
            place.PlayerNode = next.Node;
        } else if (next.Code == Code::Function && next.Number == 50) {
            if (!CheckArguments(next)) return false;
            place.PlayerNode = Argument(next, 0);
        } else if (next.Code == Code::Scope) {
            place.Scope = next.Number;
        } else if (next.Code == Code::Result) {
            place.Result = next.Number;
        } else if (next.Code == Code::Statistic) {
            place.Statistic = next.Value;
        } else {
            break;
        }
    }
    return true;
}

}  // namespace tarnwick
