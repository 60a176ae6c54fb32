#include "autobet/emitter.h"

#include <algorithm>
#include <cmath>

#include "autobet/element.h"

namespace tarnwick {

namespace {

constexpr int RegisterLimit = 60'000;
constexpr std::size_t IndexLimit = 65'535;
/// A statement of more nodes is emitted node by node: nesting must not exhaust the stack.
constexpr std::int32_t NestingLimit = 400;

}  // namespace

Emitter::Emitter(const Table& table, const CheckedScript& script, Program& program)
    : Game(table), T(*script.Statements), Pool(*script.Pool), P(program), Home(T.Nodes.size(), -1) {
    FindFacts();
}

void Emitter::Begin(const Statement& statement) {
    NextNumber = 0;
    NextText = 0;
    const bool flat = statement.EndNode - statement.FirstNode > NestingLimit;
    for (std::int32_t node = statement.FirstNode; node < statement.EndNode; ++node) {
        if (flat || !At(node).Quiet) Keep(node);
    }
}

// --- registers and constants ---

Instruction& Emitter::Emit(Op code) {
    P.Code.emplace_back().Code = code;
    return P.Code.back();
}

std::uint16_t Emitter::NewNumber(int count) {
    if (NextNumber + count > RegisterLimit) TooLarge = true;
    const int first = TooLarge ? 0 : NextNumber;
    NextNumber = first + count;
    P.NumberRegisters = std::max(P.NumberRegisters, NextNumber);
    return static_cast<std::uint16_t>(first);
}

std::uint16_t Emitter::NewText() {
    if (NextText + 1 > RegisterLimit) TooLarge = true;
    const int first = TooLarge ? 0 : NextText;
    NextText = first + 1;
    P.TextRegisters = std::max(P.TextRegisters, NextText);
    return static_cast<std::uint16_t>(first);
}

std::int32_t Emitter::ConstantIndex(double value) {
    constexpr std::size_t memory = 32;
    const std::size_t count = P.Constants.size();
    for (std::size_t i = count > memory ? count - memory : 0; i < count; ++i) {
        if (P.Constants[i] == value) return static_cast<std::int32_t>(i);
    }
    if (count >= IndexLimit) {
        TooLarge = true;
        return 0;
    }
    P.Constants.push_back(value);
    return static_cast<std::int32_t>(count);
}

std::int32_t Emitter::AmountIndex(currency amount) {
    if (P.Amounts.size() >= IndexLimit) {
        TooLarge = true;
        return 0;
    }
    P.Amounts.push_back(amount);
    return static_cast<std::int32_t>(P.Amounts.size()) - 1;
}

std::int32_t Emitter::ReadingIndex(const Reading& reading) {
    P.Readings.push_back(reading);
    return static_cast<std::int32_t>(P.Readings.size()) - 1;
}

std::uint16_t Emitter::ConstantNumber(double value) {
    const std::uint16_t dst = NewNumber();
    const std::int32_t index = ConstantIndex(value);
    Instruction& i = Emit(Op::Constant);
    i.Dst = dst;
    i.X = index;
    return dst;
}

std::uint16_t Emitter::EmptyText() {
    const std::uint16_t dst = NewText();
    Instruction& i = Emit(Op::SpecialText);
    i.Dst = dst;
    i.X = SpecialText::Empty;
    return dst;
}

// --- expressions ---

std::uint16_t Emitter::Number(std::int32_t node) {
    const std::int32_t home = Home[static_cast<std::size_t>(node)];
    return home >= 0 ? static_cast<std::uint16_t>(home) : EmitNumber(node);
}

std::uint16_t Emitter::Text(std::int32_t node) {
    if (IsText(node)) {
        const std::int32_t home = Home[static_cast<std::size_t>(node)];
        return home >= 0 ? static_cast<std::uint16_t>(home) : EmitText(node);
    }
    const std::uint16_t number = Number(node);
    const std::uint16_t dst = NewText();
    Instruction& i = Emit(Op::NumberText);
    i.Dst = dst;
    i.A = number;
    return dst;
}

void Emitter::Keep(std::int32_t node) {
    if (node == NoNode || Home[static_cast<std::size_t>(node)] >= 0) return;
    const std::uint16_t home = IsText(node) ? EmitText(node) : EmitNumber(node);
    Home[static_cast<std::size_t>(node)] = home;
}

std::uint16_t Emitter::EmitNumber(std::int32_t index) {
    const Node& node = NodeAt(index);
    switch (node.Kind) {
        case NodeKind::Number:
            return ConstantNumber(node.Number);
        case NodeKind::Variable:
            return EmitReference(T.References[static_cast<std::size_t>(node.A)]);
        case NodeKind::Function:
            return EmitFunction(node);
        case NodeKind::ListFunction:
            return EmitListFunction(node);
        case NodeKind::ListCompare:
            return EmitListCompare(node);
        case NodeKind::Logic:
            // Two truths of which the right one may be skipped unseen.
            if (node.Op != Code::Xor && At(node.A).Truth && At(node.B).Truth) return EmitTruth(index);
            return EmitArithmetic(node);
        default:
            return EmitArithmetic(node);
    }
}

/// Operators: one or two registers to one.
std::uint16_t Emitter::EmitArithmetic(const Node& node) {
    const bool binary = node.Kind != NodeKind::Negate && node.Kind != NodeKind::Not;
    const bool texts = node.Kind == NodeKind::Compare && IsText(node.A);
    const bool constantRight = binary && !texts && IsConstant(node.B);
    const bool plain = node.Kind == NodeKind::Arithmetic && ArithmeticFacts(node).Quiet;
    const double right = constantRight ? NodeAt(node.B).Number : 0;
    Op code = Op::Negate;
    bool foldsRight = false;
    switch (node.Kind) {
        case NodeKind::Negate:
            break;
        case NodeKind::Not:
            code = Op::Not;
            break;
        case NodeKind::Compare:
            code = texts ? Op::CompareTexts : Op::Compare;
            break;
        case NodeKind::Logic:
            code = Op::Logic;
            break;
        default:
            code = Op::Arithmetic;
            if (!plain) break;
            foldsRight = constantRight;
            if (node.Op == Code::Plus) code = constantRight ? Op::AddConstant : Op::Add;
            if (node.Op == Code::Minus) code = constantRight ? Op::AddConstant : Op::Subtract;
            if (node.Op == Code::Times) code = constantRight ? Op::MultiplyConstant : Op::Multiply;
            if (node.Op == Code::Divide) code = Op::DivideConstant;
            if (code == Op::Arithmetic) foldsRight = false;
            break;
    }
    const std::uint16_t a = texts ? Text(node.A) : Number(node.A);
    std::uint16_t b = 0;
    std::int32_t x = 0;
    if (foldsRight) {
        x = ConstantIndex(node.Op == Code::Minus ? -right : right);
    } else if (binary) {
        b = texts ? Text(node.B) : Number(node.B);
    }
    const std::uint16_t dst = NewNumber();
    Instruction& i = Emit(code);
    i.Sub = static_cast<std::uint8_t>(node.Op);
    i.Dst = dst;
    i.A = a;
    i.B = b;
    i.X = x;
    return dst;
}

/// -1 or 0 by jumps.
std::uint16_t Emitter::EmitTruth(std::int32_t node) {
    const std::uint16_t dst = NewNumber();
    const auto set = [&](int value) {
        Instruction& i = Emit(Op::Truth);
        i.Dst = dst;
        i.X = value;
    };
    Label done;
    set(0);
    Branch(node, false, done);
    set(-1);
    done.Bind(P);
    return dst;
}

std::uint16_t Emitter::EmitFunction(const Node& node) {
    Op code = Op::Function;
    std::uint16_t a = 0, b = 0, c = 0;
    if (node.Op == 203) {
        code = Op::PlaceInText;
        a = Number(node.A);
        b = Text(node.B);
        c = Text(node.C);
    } else if (node.Op == 125) {
        code = Op::TextFunction;
        a = Prompt(node, SpecialText::AskValue);
    } else if (node.Op == 104 || node.Op == 117 || node.Op == 118) {
        code = Op::TextFunction;
        a = Text(node.A);
    } else {
        a = Number(node.A);
    }
    const std::uint16_t dst = NewNumber();
    Instruction& i = Emit(code);
    i.Dst = dst;
    i.A = a;
    i.B = b;
    i.X = code == Op::PlaceInText ? c : node.Op;
    return dst;
}

std::uint16_t Emitter::Prompt(const Node& node, int special) {
    const bool given = node.A != NoNode && !(NodeAt(node.A).Kind == NodeKind::Text && NodeAt(node.A).A == 0);
    if (given) return Text(node.A);
    const std::uint16_t dst = NewText();
    Instruction& i = Emit(Op::SpecialText);
    i.Dst = dst;
    i.X = special;
    return dst;
}

std::uint16_t Emitter::EmitText(std::int32_t index) {
    const Node& node = NodeAt(index);
    if (node.Kind == NodeKind::Variable) return EmitNameReference(T.References[static_cast<std::size_t>(node.A)]);
    if (node.Kind == NodeKind::Function) return EmitTextFunction(node);
    if (node.Kind == NodeKind::Join) {
        const std::uint16_t a = Text(node.A);
        const std::uint16_t b = Text(node.B);
        const std::uint16_t dst = NewText();
        Instruction& i = Emit(Op::Join);
        i.Dst = dst;
        i.A = a;
        i.B = b;
        return dst;
    }
    const std::uint16_t dst = NewText();
    const bool pooled = node.A > 0 && static_cast<std::size_t>(node.A) < Pool.size();
    if (pooled) P.Texts.push_back(Pool[static_cast<std::size_t>(node.A)].Text);
    Instruction& i = Emit(pooled ? Op::TextConstant : Op::SpecialText);
    i.Dst = dst;
    i.X = pooled ? static_cast<std::int32_t>(P.Texts.size()) - 1 : std::min(node.A, 0);
    return dst;
}

std::uint16_t Emitter::EmitTextFunction(const Node& node) {
    if (node.Op == 810) return Text(node.A);
    Op code = Op::CutText;
    std::uint16_t a = 0, b = 0;
    std::int32_t x = node.Op;
    switch (node.Op) {
        case 805:
        case 806:
        case 809:
            code = node.Op == 809 ? Op::InsertText : Op::MiddleText;
            a = Text(node.A);
            b = Number(node.B);
            x = node.Op == 809 ? Text(node.C) : Number(node.C);
            break;
        case 811:
        case 812:
        case 850:
            code = node.Op == 811 ? Op::CharacterText : node.Op == 812 ? Op::Blanks : Op::PlayerName;
            a = Number(node.A);
            break;
        case 825:
            code = Op::AskText;
            a = Prompt(node, SpecialText::AskString);
            break;
        default:
            a = Text(node.A);
            b = Number(node.B);
            break;
    }
    const std::uint16_t dst = NewText();
    Instruction& i = Emit(code);
    i.Dst = dst;
    i.A = a;
    i.B = b;
    i.X = x;
    i.Y = node.Op;
    return dst;
}

// --- lists ---

bool Emitter::IsStandingBet(std::int32_t node, int& p, int& row) const {
    if (NodeAt(node).Kind != NodeKind::Variable) return false;
    const Reference& r = T.References[static_cast<std::size_t>(NodeAt(node).A)];
    if (r.Function != 0 || !IsFixed(r)) return false;
    if (!IsLayoutRow(r.Variable) || r.Result != 1 || r.Statistic != 13) return false;
    p = FixedPlayer(r);
    row = r.Variable;
    return true;
}

bool Emitter::FindRowSet(const Node& node, bool compares, RowSet& set) const {
    constexpr std::int32_t worthIt = 3;
    if (node.B < worthIt) return false;
    for (std::int32_t i = 0; i < node.B; ++i) {
        const ListItem& item = T.Items[static_cast<std::size_t>(node.A + i)];
        int p = 0, row = 0;
        if (!IsStandingBet(item.Left, p, row)) return false;
        if (item.Op == 0 ? compares : !IsConstant(item.Right)) return false;
        const double limit = item.Op == 0 ? 0 : NodeAt(item.Right).Number;
        if (i == 0) set = {p, row, row, item.Op, limit, node.Op == 3};
        if (p != set.Position || row != set.FirstRow + i || item.Op != set.Op || limit != set.Limit) return false;
        set.LastRow = row;
    }
    return true;
}

std::uint16_t Emitter::EmitListFunction(const Node& node) {
    RowSet set;
    const bool overRows = (node.Op == 130 || node.Op == 131) && FindRowSet(node, false, set);
    if (overRows) {
        P.RowSets.push_back(set);
        const std::uint16_t dst = NewNumber();
        Instruction& i = Emit(node.Op == 130 ? Op::RowsSum : Op::RowsCount);
        i.Dst = dst;
        i.X = static_cast<std::int32_t>(P.RowSets.size()) - 1;
        return dst;
    }
    const std::uint16_t sums = NewNumber(4);
    const auto list = [&](Op code, std::uint16_t a) {
        Instruction& i = Emit(code);
        i.Dst = sums;
        i.A = a;
        i.X = node.Op;
    };
    std::vector<std::uint16_t> lefts, rights;
    for (std::int32_t i = 0; i < node.B; ++i) {
        const ListItem& item = T.Items[static_cast<std::size_t>(node.A + i)];
        lefts.push_back(Number(item.Left));
        const bool sameRight = i > 0 && item.Right == T.Items[static_cast<std::size_t>(node.A + i - 1)].Right;
        rights.push_back(item.Op == 0 ? std::uint16_t{0} : sameRight ? rights.back() : Number(item.Right));
    }
    const auto walk = [&](Op code) {
        for (std::size_t i = 0; i < lefts.size(); ++i) {
            const int op = T.Items[static_cast<std::size_t>(node.A) + i].Op;
            Label skip;
            if (op != 0) {
                Instruction& jump = Emit(Op::JumpIf);
                jump.Sub = static_cast<std::uint8_t>(OppositeComparison(op));
                jump.A = lefts[i];
                jump.B = rights[i];
                skip.Use(P.Code.size() - 1);
            }
            list(code, lefts[i]);
            skip.Bind(P);
        }
    };
    list(Op::ListStart, 0);
    walk(Op::ListItem);
    if (node.Op == 129) walk(Op::ListSquare);
    const std::uint16_t dst = NewNumber();
    list(Op::ListResult, dst);
    return dst;
}

/// All items are looked at: only quiet ones could be left out, and those are tested by jumps.
std::uint16_t Emitter::EmitListCompare(const Node& node) {
    RowSet set;
    const std::uint16_t dst = NewNumber();
    if (FindRowSet(node, true, set)) {
        P.RowSets.push_back(set);
        Instruction& i = Emit(Op::RowsTest);
        i.Dst = dst;
        i.X = static_cast<std::int32_t>(P.RowSets.size()) - 1;
        return dst;
    }
    const bool all = node.Op == 3;
    const auto setTruth = [&](int value) {
        Instruction& i = Emit(Op::Truth);
        i.Dst = dst;
        i.X = value;
    };
    Label decided;
    setTruth(all ? 0 : -1);
    BranchList(node, !all, decided);
    setTruth(all ? -1 : 0);
    decided.Bind(P);
    return dst;
}

}  // namespace tarnwick
