#include "autobet/reduce.h"

#include <utility>

#include "autobet/classes.h"

namespace tarnwick {

namespace {

bool IsMissing(const Term* term) { return term == nullptr || !(term->IsValue() || term->IsTarget() || term->IsList()); }

const char* LogicWord(std::int32_t op) { return op == Code::And ? "\"AND\"" : op == Code::Or ? "\"OR\"" : "\"XOR\""; }

bool Has(const Terms& terms, std::int32_t first, std::int32_t last) {
    for (const Term& t : terms) {
        if (first <= t.Code && t.Code <= last) return true;
    }
    return false;
}

/// The neighbours of an operator at `i`, of which what lies left is already rewritten.
const Term* LeftOf(const Terms& done) { return done.empty() ? nullptr : &done.back(); }
const Term* RightOf(const Terms& terms, std::size_t i) { return i + 1 < terms.size() ? &terms[i + 1] : nullptr; }

std::vector<Terms> SplitAtCommas(const Terms& content) {
    std::vector<Terms> parts;
    if (content.empty()) return parts;
    parts.emplace_back();
    for (const Term& t : content) {
        if (t.Code == Code::Comma) {
            parts.emplace_back();
        } else {
            parts.back().push_back(t);
        }
    }
    return parts;
}

}  // namespace

bool Reducer::Fail(std::string text) {
    Text = std::move(text);
    return false;
}

Term Reducer::ValueOf(const Node& node) {
    Out.Nodes.push_back(node);
    Term term;
    term.Code = node.Type == ValueKind::Text ? Code::String : Code::Number;
    term.Node = static_cast<std::int32_t>(Out.Nodes.size()) - 1;
    return term;
}

Term Reducer::TermOf(const Element& e) {
    Node node;
    if (e.Code == Code::Number) {
        node.Number = e.Value;
        return ValueOf(node);
    }
    if (e.Code == Code::String) {
        node.Kind = NodeKind::Text;
        node.Type = ValueKind::Text;
        node.A = NumberOf(e);
        return ValueOf(node);
    }
    Term term;
    term.Code = e.Code;
    term.Value = e.Value;
    if (e.Code != Code::Statistic) term.Number = NumberOf(e);
    return term;
}

bool Reducer::Run(const Element* first, const Element* last) {
    Frames.assign(1, {Bracket::Group, {}});
    for (const Element* e = first; e != last; ++e) {
        Terms& content = Frames.back().Content;
        if (e->Code == Code::Open) {
            Bracket kind = Bracket::Group;
            if (!content.empty() && content.back().Inside == NoNode) {
                const Element opener{content.back().Code, static_cast<double>(content.back().Number)};
                const bool function = opener.Code == Code::Function || opener.Code == Code::TargetFunction;
                kind = OpensList(opener) ? Bracket::List : function ? Bracket::Arguments : Bracket::Group;
            }
            Frames.push_back({kind, {}});
        } else if (e->Code == Code::Close) {
            if (!CloseBracket()) return false;
        } else if (e->Code != Code::ListEnd) {
            content.push_back(TermOf(*e));
        }
    }
    Result = std::move(Frames.back().Content);
    return Reduce(Result, Within::Statement);
}

bool Reducer::CloseBracket() {
    Frame closed = std::move(Frames.back());
    Frames.pop_back();
    Terms& outside = Frames.back().Content;
    if (closed.Kind == Bracket::List) return CloseList(closed.Content);
    if (closed.Kind == Bracket::Arguments) return CloseArguments(closed.Content);
    if (!Reduce(closed.Content, Within::Statement)) return false;
    outside.insert(outside.end(), closed.Content.begin(), closed.Content.end());
    return true;
}

bool Reducer::CloseArguments(Terms& content) {
    std::vector<Terms> arguments = SplitAtCommas(content);
    for (Terms& argument : arguments) {
        if (!Reduce(argument, Within::Statement)) return false;
    }
    Frames.back().Content.back().Inside = static_cast<std::int32_t>(Arguments.size());
    Arguments.push_back(std::move(arguments));
    return true;
}

bool Reducer::CloseList(Terms& content) {
    std::vector<ListEntry> entries;
    const Term owner = Frames.back().Content.back();
    for (const Terms& segment : SplitAtCommas(content)) {
        ListEntry entry;
        if (!ReadEntry(segment, owner, entry)) return false;
        entries.push_back(entry);
    }
    bool targets = false;
    for (const ListEntry& entry : entries) targets = targets || entry.Item.IsTarget();
    if (targets) {
        SpliceTargets(entries);
        return true;
    }
    Frames.back().Content.back().Inside = static_cast<std::int32_t>(Lists.size());
    Lists.push_back(std::move(entries));
    return true;
}

bool Reducer::Reduce(Terms& terms, Within within) {
    if (!ReduceFunctions(terms) || !ReadVariables(terms)) return false;
    if (!MathPass(terms, Code::Power, Code::Power) || !NegatePass(terms)) return false;
    if (!MathPass(terms, Code::Times, Code::Divide) || !MathPass(terms, Code::WholeDivide, Code::WholeDivide))
        return false;
    if (!MathPass(terms, Code::Modulo, Code::Modulo) || !MathPass(terms, Code::Plus, Code::Minus)) return false;
    if (!JoinPass(terms)) return false;
    if (InCondition && within == Within::Statement && (!ComparePass(terms) || !ListPass(terms))) return false;
    return NotPass(terms) && LogicPass(terms, Code::And) && LogicPass(terms, Code::Or) && LogicPass(terms, Code::Xor);
}

bool Reducer::ReadVariables(Terms& terms) {
    if (!Has(terms, Code::TargetVariable, Code::Variable)) return true;
    Terms out;
    for (std::size_t i = 0; i < terms.size(); ++i) {
        const Term& term = terms[i];
        const bool target = term.Code == Code::TargetVariable;
        if (term.Finished || (!target && term.Code != Code::Variable)) {
            out.push_back(term);
            continue;
        }
        Reference place;
        place.Variable = term.Number;
        if (!ReadQualifiers(terms, i, place)) return false;
        if (target) {
            Term& mark = out.emplace_back();
            mark.Code = Code::TargetVariable;
            mark.Inside = static_cast<std::int32_t>(Places.size());
            mark.Finished = true;
            Places.push_back(place);
            continue;
        }
        Node node;
        node.Kind = NodeKind::Variable;
        node.Type = IsTextVariable(place.Variable) ? ValueKind::Text : ValueKind::Number;
        node.A = static_cast<std::int32_t>(Out.References.size());
        Out.References.push_back(place);
        out.push_back(ValueOf(node));
    }
    terms.swap(out);
    return true;
}

/// Whether both sides of a math operator are numbers.
bool Reducer::MathSidesFit(const Term* left, const Term* right) {
    if (IsMissing(left) || IsMissing(right)) return Fail("Improper use of math operators.");
    if (left->IsTarget() || right->IsTarget()) return Fail("Cannot do math with a variable that's being assigned.");
    return (left->IsNumber() && right->IsNumber()) || Fail("Math error. Use of non-mathematical terms.");
}

bool Reducer::MathPass(Terms& terms, std::int32_t firstOp, std::int32_t lastOp) {
    if (!Has(terms, firstOp, lastOp)) return true;
    Terms out;
    for (std::size_t i = 0; i < terms.size(); ++i) {
        const std::int32_t op = terms[i].Code;
        if (op < firstOp || op > lastOp) {
            out.push_back(terms[i]);
            continue;
        }
        if (!MathSidesFit(LeftOf(out), RightOf(terms, i))) return false;
        Node node;
        node.Kind = NodeKind::Arithmetic;
        node.Op = static_cast<std::int16_t>(op);
        node.A = out.back().Node;
        node.B = terms[++i].Node;
        out.back() = ValueOf(node);
    }
    terms.swap(out);
    return true;
}

bool Reducer::NegatePass(Terms& terms) {
    if (!Has(terms, Code::Minus, Code::Minus)) return true;
    Terms out;
    for (std::size_t i = 0; i < terms.size(); ++i) {
        const Term* left = LeftOf(out);
        const bool binary = left != nullptr && left->IsNumber();
        if (terms[i].Code != Code::Minus || binary) {
            out.push_back(terms[i]);
            continue;
        }
        const Term* right = RightOf(terms, i);
        // With nothing to its left the sign has only one side.
        if (!MathSidesFit(IsMissing(left) ? right : left, right)) return false;
        Node node;
        node.Kind = NodeKind::Negate;
        node.A = terms[++i].Node;
        out.push_back(ValueOf(node));
    }
    terms.swap(out);
    return true;
}

bool Reducer::JoinPass(Terms& terms) {
    if (!Has(terms, Code::Join, Code::Join)) return true;
    Terms out;
    for (std::size_t i = 0; i < terms.size(); ++i) {
        if (terms[i].Code != Code::Join) {
            out.push_back(terms[i]);
            continue;
        }
        const Term* left = LeftOf(out);
        const Term* right = RightOf(terms, i);
        if (left == nullptr || right == nullptr || !left->IsValue() || !right->IsValue()) {
            return Fail("Unable to concatenate elements.");
        }
        Node node;
        node.Kind = NodeKind::Join;
        node.Type = ValueKind::Text;
        node.A = left->Node;
        node.B = right->Node;
        ++i;
        out.back() = ValueOf(node);
    }
    terms.swap(out);
    return true;
}

bool Reducer::ComparePass(Terms& terms) {
    if (!Has(terms, Code::Equal, Code::GreaterOrEqual)) return true;
    Terms out;
    for (std::size_t i = 0; i < terms.size(); ++i) {
        const Term* left = LeftOf(out);
        const Term* right = RightOf(terms, i);
        const bool besideList = (left != nullptr && left->IsList()) || (right != nullptr && right->IsList());
        if (!terms[i].IsComparison() || besideList) {
            out.push_back(terms[i]);
            continue;
        }
        if (left == nullptr || right == nullptr || !left->IsValue() || !right->IsValue()) {
            return Fail("Improper use of comparison operator.");
        }
        if (left->Code != right->Code) return Fail("Relational error. Terms not comparable.");
        Node node;
        node.Kind = NodeKind::Compare;
        node.Op = static_cast<std::int16_t>(terms[i].Code);
        node.A = left->Node;
        node.B = right->Node;
        ++i;
        out.back() = ValueOf(node);
    }
    terms.swap(out);
    return true;
}

bool Reducer::NotPass(Terms& terms) {
    if (!Has(terms, Code::Not, Code::Not)) return true;
    Terms out;
    for (std::size_t i = 0; i < terms.size(); ++i) {
        if (terms[i].Code != Code::Not) {
            out.push_back(terms[i]);
            continue;
        }
        const Term* right = RightOf(terms, i);
        if (right == nullptr || !right->IsNumber()) return Fail("Improper argument for NOT operation.");
        Node node;
        node.Kind = NodeKind::Not;
        node.Op = Code::Not;
        node.A = terms[++i].Node;
        out.push_back(ValueOf(node));
    }
    terms.swap(out);
    return true;
}

bool Reducer::LogicPass(Terms& terms, std::int32_t op) {
    if (!Has(terms, op, op)) return true;
    const auto fault = [op](const Term* side, const char* where) -> std::string {
        if (side != nullptr && side->IsNumber()) return {};
        return std::string(side == nullptr ? "Missing expression " : "Missing or inappropriate expression ") + where +
               " logical " + LogicWord(op);
    };
    Terms out;
    for (std::size_t i = 0; i < terms.size(); ++i) {
        if (terms[i].Code != op) {
            out.push_back(terms[i]);
            continue;
        }
        if (std::string text = fault(LeftOf(out), "before"); !text.empty()) return Fail(text);
        if (std::string text = fault(RightOf(terms, i), "after"); !text.empty()) return Fail(text);
        Node node;
        node.Kind = NodeKind::Logic;
        node.Op = static_cast<std::int16_t>(op);
        node.A = out.back().Node;
        node.B = terms[++i].Node;
        out.back() = ValueOf(node);
    }
    terms.swap(out);
    return true;
}

}  // namespace tarnwick
