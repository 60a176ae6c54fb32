#include "autobet/names.h"
#include "autobet/reduce.h"

namespace tarnwick {

namespace {

std::string Mistake(const char* what, int function) {
    return std::string(what) + " in " + Quoted(FunctionName(function)) + " function.";
}

std::string QualifierMistake(int function) {
    return Mistake("Missing or improper qualifier", function) +
           "\nExpected qualifier format:\n>, <, or = followed by number or non-string variable";
}

}  // namespace

bool Reducer::ListFails(ListFault fault, const Term& owner) {
    const int function = owner.Number;
    if (owner.IsList()) {
        switch (fault) {
            case ListFault::MissingOperand:
                return Fail("Improper or missing comparison element in list.");
            case ListFault::MisplacedComparison:
                return Fail("Improper placement of comparison operator in list.");
            case ListFault::MissingSeparator:
                return Fail("Missing separation character (, or ;) in list.");
            default:
                return Fail("Inappropriate element in list.");
        }
    }
    switch (fault) {
        case ListFault::EmptyItem:
            return Fail(Mistake("Missing expression", function));
        case ListFault::MissingOperand:
            return Fail(QualifierMistake(function));
        case ListFault::MissingSeparator:
            return Fail(Mistake("Too many expressions", function));
        default:
            return Fail(Mistake("Improper expression", function));
    }
}

/// Reduces one item of a list: an optional comparison, and a value or target.
bool Reducer::ReadEntry(const Terms& segment, const Term& owner, ListEntry& entry) {
    if (segment.empty()) return ListFails(ListFault::EmptyItem, owner);
    Terms item = segment;
    if (item.front().IsComparison()) {
        entry.Op = item.front().Code;
        item.erase(item.begin());
        if (item.empty()) return ListFails(ListFault::MissingOperand, owner);
    }
    if (!Reduce(item, Within::List)) return false;
    for (const Term& t : item) {
        if (t.IsComparison()) return ListFails(ListFault::MisplacedComparison, owner);
    }
    if (item.empty()) return ListFails(ListFault::EmptyItem, owner);
    for (const Term& t : item) {
        if (!t.IsValue() && !t.IsTarget()) return ListFails(ListFault::WrongElement, owner);
    }
    if (item.size() > 1) return ListFails(ListFault::MissingSeparator, owner);
    entry.Item = item.front();
    return true;
}

/// All( ) around targets says no more than its items.
void Reducer::SpliceTargets(const std::vector<ListEntry>& entries) {
    Terms& outside = Frames.back().Content;
    outside.pop_back();
    for (std::size_t i = 0; i < entries.size(); ++i) {
        Term sign;
        sign.Code = Code::Comma;
        if (i > 0) outside.push_back(sign);
        sign.Code = entries[i].Op;
        if (entries[i].Op != 0) outside.push_back(sign);
        outside.push_back(entries[i].Item);
    }
}

bool Reducer::TakeListFunction(const Term& function, Terms& out) {
    Node node;
    node.Kind = NodeKind::ListFunction;
    node.Op = static_cast<std::int16_t>(function.Number);
    node.A = static_cast<std::int32_t>(Out.Items.size());
    ListItem item;
    for (const ListEntry& entry : Lists[static_cast<std::size_t>(function.Inside)]) {
        if (entry.Op != 0) {
            if (!entry.Item.IsNumber()) return Fail(QualifierMistake(function.Number));
            item.Op = entry.Op;
            item.Right = entry.Item.Node;
            continue;
        }
        if (!entry.Item.IsNumber()) return Fail(Mistake("Inappropriate expression", function.Number));
        item.Left = entry.Item.Node;
        Out.Items.push_back(item);
    }
    node.B = static_cast<std::int32_t>(Out.Items.size()) - node.A;
    if (node.B == 0) return Fail(Mistake("Missing expression", function.Number));
    out.push_back(ValueOf(node));
    return true;
}

bool Reducer::ListPass(Terms& terms) {
    bool any = false;
    for (const Term& t : terms) any = any || t.IsList();
    if (!any) return true;
    Terms out;
    for (std::size_t i = 0; i < terms.size(); ++i) {
        if (!terms[i].IsList()) {
            out.push_back(terms[i]);
        } else if (!CompareList(terms, i, out)) {
            return false;
        }
    }
    terms.swap(out);
    return true;
}

/// Compares the list at `i` with the value beside it, with or without a sign between them, or among its own items.
bool Reducer::CompareList(Terms& terms, std::size_t& i, Terms& out) {
    const Term list = terms[i];
    const auto rightIs = [&](std::size_t distance) {
        return i + distance < terms.size() ? &terms[i + distance] : nullptr;
    };
    const Term* left = out.empty() ? nullptr : &out.back();
    const Term* right = rightIs(1);
    Node node;
    node.Kind = NodeKind::ListCompare;
    node.Op = static_cast<std::int16_t>(list.Number);
    node.A = static_cast<std::int32_t>(Out.Items.size());
    bool good = false;
    if (list.Inside == NoNode || Lists[static_cast<std::size_t>(list.Inside)].empty()) {
        return Fail("Improper or missing list comparison.");
    }
    if (left != nullptr && left->IsComparison()) {
        if (out.size() < 2 || !out[out.size() - 2].IsValue()) return Fail("Improper or missing list comparison.");
        good = AgainstValue(list, out[out.size() - 2], left->Code, false);
        out.resize(out.size() - 2);
    } else if (right != nullptr && right->IsComparison()) {
        const Term* value = rightIs(2);
        if (value == nullptr || !value->IsValue()) return Fail("Improper or missing list comparison.");
        good = AgainstValue(list, *value, right->Code, true);
        i += 2;
    } else if (left != nullptr && left->IsValue()) {
        good = AgainstValue(list, *left, 0, false);
        out.pop_back();
    } else if (right != nullptr && right->IsValue()) {
        good = AgainstValue(list, *right, 0, false);
        ++i;
    } else {
        good = AmongItems(list);
    }
    if (!good) return false;
    node.B = static_cast<std::int32_t>(Out.Items.size()) - node.A;
    out.push_back(ValueOf(node));
    return true;
}

/// Every item is tested against `value`, by its own comparison (value first) or by `op` in the order written. With `op`
/// 0 every item needs its own.
bool Reducer::AgainstValue(const Term& list, const Term& value, std::int32_t op, bool listOnLeft) {
    for (const ListEntry& entry : Lists[static_cast<std::size_t>(list.Inside)]) {
        if (entry.Op == 0 && op == 0) return Fail("Improper or missing comparison element in list.");
        if (entry.Item.Code != value.Code) return Fail("Improper comparison with item in list.");
        if (entry.Op != 0) {
            Out.Items.push_back({value.Node, entry.Op, entry.Item.Node});
        } else if (listOnLeft) {
            Out.Items.push_back({entry.Item.Node, op, value.Node});
        } else {
            Out.Items.push_back({value.Node, op, entry.Item.Node});
        }
    }
    return true;
}

/// With nothing beside the list, an item with a comparison is what the items behind it are tested against.
bool Reducer::AmongItems(const Term& list) {
    const std::size_t before = Out.Items.size();
    const ListEntry* operand = nullptr;
    for (const ListEntry& entry : Lists[static_cast<std::size_t>(list.Inside)]) {
        if (entry.Op != 0) {
            operand = &entry;
        } else if (operand == nullptr) {
            return Fail("Missing list comparison.");
        } else if (operand->Item.Code != entry.Item.Code) {
            return Fail("List item not comparable with qualifier.");
        } else {
            Out.Items.push_back({entry.Item.Node, operand->Op, operand->Item.Node});
        }
    }
    return Out.Items.size() > before || Fail("Improper or missing list comparison.");
}

}  // namespace tarnwick
