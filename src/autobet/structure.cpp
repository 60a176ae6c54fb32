// Brackets, ends of lists, labels.
#include <algorithm>
#include <map>

#include "autobet/classes.h"
#include "autobet/compilation.h"
#include "autobet/names.h"
#include "autobet/numbertext.h"
#include "autobet/places.h"
#include "autobet/text.h"

namespace tarnwick {

namespace {

using Result = std::optional<CompileError>;

/// Brackets must match within a statement.
Result CheckBrackets(const std::vector<Element>& list) {
    int depth = 0;
    std::size_t opened = 0;  // where depth left zero
    for (std::size_t i = 1; i < list.size(); ++i) {
        if (list[i].Code == Code::Open && depth++ == 0) opened = i;
        if (list[i].Code == Code::Close && depth-- == 0) opened = i;
        if (depth < 0 || (depth > 0 && IsMarker(list[i]))) {
            return ErrorAt(list, opened, "Missing or improperly placed parenthesis.");
        }
    }
    return std::nullopt;
}

Result CheckFunctions(const std::vector<Element>& list) {
    for (std::size_t i = 1; i + 1 < list.size(); ++i) {
        if (list[i].Code != Code::Function || list[i + 1].Code == Code::Open) continue;
        const int function = NumberOf(list[i]);
        return ErrorAt(list, i,
                       "Missing or inappropriate reference to " + Quoted(FunctionName(function)) +
                           (function < 20 ? " bet." : "."));
    }
    return std::nullopt;
}

/// An All( ) without brackets around a group says no more than the group.
void DropAllAheadOfGroups(std::vector<Element>& list) {
    ConditionFlag condition;
    std::size_t kept = 0;
    for (std::size_t i = 0; i < list.size(); ++i) {
        condition.See(list[i]);
        const bool all = list[i].Code == Code::Quantifier && NumberOf(list[i]) == 3;
        const bool group = i + 1 < list.size() && list[i + 1].Code == Code::Variable && IsGroup(NumberOf(list[i + 1]));
        if (all && group && !condition.IsOn()) continue;
        list[kept++] = list[i];
    }
    list.resize(kept);
}

Result CheckQuantifiers(const std::vector<Element>& list) {
    for (std::size_t i = 1; i + 1 < list.size(); ++i) {
        if (list[i].Code != Code::Quantifier || list[i + 1].Code == Code::Open) continue;
        const std::string word = NumberOf(list[i]) == 2 ? "Any" : "All";
        return ErrorAt(
            list, i,
            "Lists defined by " + Quoted(word) +
                " must be enclosed in brackets.\nFor example:\n   Any(4,5,6,8,9,10)\n"
                "   Any(Big6, Field, Checkstacks)\n   All[Field, PassLine, Hard4]\n   All(inside place bets)");
    }
    return std::nullopt;
}

/// An end of list goes behind the closing bracket of every list function and quantifier.
void AddListEnds(std::vector<Element>& list) {
    std::vector<Element> out;
    out.reserve(list.size() + 8);
    std::vector<bool> isList;  // of each open bracket
    for (const Element& e : list) {
        if (e.Code == Code::Open) isList.push_back(OpensList(out.back()));
        out.push_back(e);
        if (e.Code != Code::Close) continue;
        if (isList.back()) out.push_back({Code::ListEnd, 0});
        isList.pop_back();
    }
    list.swap(out);
}

/// A text or number alone between two markers is a label, unless it is the whole of a condition.
void FindLabels(Compilation& c) {
    std::vector<Element>& list = c.Elements;
    ConditionFlag condition;
    for (std::size_t i = 2; i + 1 < list.size(); ++i) {
        condition.See(list[i]);
        const bool literal = list[i].Code == Code::String || list[i].Code == Code::Number;
        if (!literal || !IsMarker(list[i - 1]) || !IsMarker(list[i + 1])) continue;
        const Element& ahead = list[i - 2];
        const bool opensCondition = ahead.Code == Code::If || ahead.Code == Code::ElseIf;
        if (condition.IsOn() && opensCondition && i + 2 < list.size() && list[i + 2].Code == Code::Then) continue;
        if (list[i].Code == Code::Number) {
            c.Pool.push_back({GeneralNumber(list[i].Value), static_cast<double>(i)});
            list[i].Value = static_cast<double>(c.Pool.size() - 1);
        } else if (NumberOf(list[i]) > 0) {
            c.Pool[static_cast<std::size_t>(NumberOf(list[i]))].Value = static_cast<double>(i);
        }
        list[i].Code = Code::Label;
    }
}

/// The first label, in the order of the script, that stands twice.
Result CheckDuplicates(const Compilation& c) {
    std::map<std::string, std::size_t> first;  // element index by name
    std::size_t duplicate = 0, original = 0;
    for (std::size_t i = 1; i < c.Elements.size(); ++i) {
        const Element& e = c.Elements[i];
        if (e.Code != Code::Label || e.Value <= 0) continue;
        const std::string& text = c.Pool[static_cast<std::size_t>(NumberOf(e))].Text;
        const auto [at, isNew] = first.emplace(LowerText(TrimBlanks(text)), i);
        if (isNew || (original != 0 && at->second >= original)) continue;
        original = at->second;
        duplicate = i;
    }
    if (original == 0) return std::nullopt;
    CompileError error = ErrorAt(c.Elements, original, "");
    const CompileError second = ErrorAt(c.Elements, duplicate, "");
    const std::string& text = c.Pool[static_cast<std::size_t>(NumberOf(c.Elements[original]))].Text;
    const bool numeric = ReadNumber(TrimBlanks(text)).has_value();
    error.Text = (numeric ? "A duplicate line number exists in line " : "A duplicate label exists in line ") +
                 std::to_string(error.FirstLine);
    error.LastLine = second.LastLine;
    error.LastCol = second.LastCol;
    return error;
}

}  // namespace

std::optional<CompileError> CompileStructure(Compilation& c) {
    if (auto error = CheckBrackets(c.Elements)) return error;
    if (auto error = CheckFunctions(c.Elements)) return error;
    DropAllAheadOfGroups(c.Elements);
    if (auto error = CheckQuantifiers(c.Elements)) return error;
    AddListEnds(c.Elements);
    FindLabels(c);
    return CheckDuplicates(c);
}

}  // namespace tarnwick
