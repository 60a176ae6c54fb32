// Code that reaches the table: variables, targets, and jumps by what stands there.
#include <cmath>

#include "autobet/element.h"
#include "autobet/emitter.h"

namespace tarnwick {

namespace {

constexpr double MoneyBound = 1e15;
constexpr double IntegerBound = 2'147'483'647;
/// Percentages of amounts and the like.
constexpr double FigureBound = 1e26;
/// Results below it can't overflow when two of them meet once more.
constexpr double SafeBound = 1e300;
constexpr double NoBound = HUGE_VAL;

/// The first row of the bets that a function chooses from: all of them are read alike.
int FirstRowOf(int function) {
    switch (function) {
        case 8:
            return Row::Big6;
        case 9:
            return Row::Hard4;
        case 10:
            return Row::Hop13;
        case 21:
            return Row::FirstStack;
        default:
            return VariableOfFunction(function, 4);
    }
}

bool IsTruthVariable(int v, const Reference& r) {
    if (IsLayoutRow(v)) return r.Result == 1 && 14 <= r.Statistic && r.Statistic <= 16;
    return (700 <= v && v <= 703) || (3000 <= v && v <= 3005) || v == 3300 || v == 3301 || (3704 <= v && v <= 3711);
}

double BoundOfVariable(int v, const Reference& r) {
    if (IsLayoutRow(v)) return r.Statistic == 13 ? MoneyBound : FigureBound;
    if (IsStack(v)) return MoneyBound;
    if (v == 2500 || v == 2501 || (3500 <= v && v <= 3513) || (3200 <= v && v <= 3204)) return IntegerBound;
    return FigureBound;
}

}  // namespace

// --- what is known beforehand ---

void Emitter::FindFacts() {
    Known.reserve(T.Nodes.size());
    for (const Node& node : T.Nodes) Known.push_back(FactsOf(node));
}

Emitter::Facts Emitter::FactsOf(const Node& node) const {
    Facts f;
    switch (node.Kind) {
        case NodeKind::Number:
            f.Bound = std::fabs(node.Number);
            return f;
        case NodeKind::Text:
            f.Quiet = node.A >= SpecialText::AskString || node.A == SpecialText::FromRoll;
            return f;
        case NodeKind::Variable: {
            const Reference& r = T.References[static_cast<std::size_t>(node.A)];
            f.Quiet = r.Function == 0 && r.PlayerNode == NoNode && IsQuietVariable(r.Variable, r);
            f.Truth = r.Function == 0 && r.PlayerNode == NoNode && IsTruthVariable(r.Variable, r);
            f.Bound = r.Function == 0 ? BoundOfVariable(r.Variable, r) : FigureBound;
            return f;
        }
        case NodeKind::Function:
            f.Quiet = (node.Op == 101 || node.Op == 102 || node.Op == 104 || node.Op == 110 || node.Op == 118 ||
                       (801 <= node.Op && node.Op <= 810));
            f.Bound = node.Op == 117 || node.Op == 125 ? NoBound : FigureBound;
            if (node.Op == 101 || node.Op == 102) f.Bound = At(node.A).Bound + 1;
            return f;
        case NodeKind::Negate:
            f.Bound = At(node.A).Bound;
            return f;
        case NodeKind::Join:
            f.Quiet = false;
            return f;
        case NodeKind::Compare:
            f.Truth = true;
            f.Bound = 1;
            return f;
        case NodeKind::ListCompare:
            f.Truth = true;
            f.Bound = 1;
            return f;
        case NodeKind::ListFunction:
            for (std::int32_t i = 0; i < node.B; ++i) {
                f.Bound += At(T.Items[static_cast<std::size_t>(node.A + i)].Left).Bound;
            }
            f.Quiet = node.Op != 128 && node.Op != 129 && f.Bound < SafeBound;
            f.Bound += node.B;
            return f;
        default:
            return ArithmeticFacts(node);
    }
}

/// Operators that can fault: quiet where the sides are known to be small enough.
Emitter::Facts Emitter::ArithmeticFacts(const Node& node) const {
    Facts f;
    const double a = At(node.A).Bound;
    if (node.Kind == NodeKind::Not) {
        f.Quiet = a <= IntegerBound;
        f.Truth = At(node.A).Truth;
        f.Bound = IntegerBound + 1;
        return f;
    }
    const double b = At(node.B).Bound;
    const double right = IsConstant(node.B) ? NodeAt(node.B).Number : 0;
    if (node.Kind == NodeKind::Logic) {
        f.Quiet = a <= IntegerBound && b <= IntegerBound;
        f.Truth = At(node.A).Truth && At(node.B).Truth;
        f.Bound = IntegerBound + 1;
        return f;
    }
    switch (node.Op) {
        case Code::Times:
            f.Bound = a * b;
            break;
        case Code::Divide:
            f.Bound = std::fabs(right) > 1e-200 ? a / std::fabs(right) : NoBound;
            break;
        case Code::WholeDivide:
        case Code::Modulo:
            f.Quiet = std::fabs(right) >= 1 && b <= IntegerBound && a <= IntegerBound;
            f.Bound = IntegerBound;
            return f;
        case Code::Plus:
        case Code::Minus:
            f.Bound = a + b;
            break;
        default:
            f.Bound = NoBound;
            break;
    }
    f.Quiet = f.Bound < SafeBound;
    return f;
}

// --- variables ---

bool Emitter::IsFixed(const Reference& place) {
    return place.Function == 0 && place.PlayerNode == NoNode && (place.Player < 10 || place.Player == 15);
}

/// Where an amount or counter lies whose place never changes; Op::Read for all others.
Op Emitter::DirectOp(const Reference& r, std::int32_t& offset) const {
    if (!IsFixed(r)) return Op::Read;
    const int p = FixedPlayer(r);
    const auto at = [&](const auto& field) {
        offset =
            static_cast<std::int32_t>(reinterpret_cast<const char*>(&field) - reinterpret_cast<const char*>(&Game));
    };
    const auto pos = static_cast<std::size_t>(p + Positions * (r.Scope - 1));
    const int v = r.Variable;
    if ((IsLayoutRow(v) && r.Result == 1 && r.Statistic == 13) || IsStack(v)) {
        at(Game.BetAmount(p, v));
        return Op::Money;
    }
    switch (v) {
        case 655:
            at(Game.RailAmount[static_cast<std::size_t>(p)]);
            return Op::Money;
        case 1300:
            at(Game.BankrollBegin[pos]);
            return Op::Money;
        case 1301:
            at(Game.Bankroll[pos]);
            return Op::Money;
        case 1302:
            at(Game.BankrollHigh[pos]);
            return Op::Money;
        case 1303:
            at(Game.BankrollLow[pos]);
            return Op::Money;
        case 3603:
            at(Game.RollsPerHour);
            return Op::Money;
        case 3610:
            at(Game.MinPlacardBet);
            return Op::Money;
        case 3611:
            at(Game.MaxPlacardBet);
            return Op::Money;
        case 3500:
            at(Game.Point);
            return Op::Integer;
        case 3501:
            at(Game.LastPoint);
            return Op::Integer;
        case 3502:
            at(Game.PrevPoint);
            return Op::Integer;
        case 3510:
            at(Game.DiceTotal);
            return Op::Integer;
        case 3512:
            at(Game.Die1);
            return Op::Integer;
        case 3513:
            at(Game.Die2);
            return Op::Integer;
        case 3655:
            at(Game.LastSeed);
            return Op::Integer;
        default:
            return Op::Read;
    }
}

std::uint16_t Emitter::EmitReference(const Reference& r) {
    std::int32_t offset = 0;
    const Op direct = DirectOp(r, offset);
    if (direct != Op::Read) {
        const std::uint16_t dst = NewNumber();
        Instruction& i = Emit(direct);
        i.Dst = dst;
        i.Y = offset;
        return dst;
    }
    const int variable = r.Function != 0 ? FirstRowOf(r.Function) : r.Variable;
    const std::int32_t reading = ReadingIndex(BindVariable(variable, r));
    Op code = Op::Read;
    std::uint16_t a = 0, b = 0;
    std::int32_t y = FixedPlayer(r);
    if (r.Function != 0) {
        code = Op::ReadRow;
        b = NewNumber();
        EmitRow(r, b);
        a = NewNumber();
        EmitPlayer(r, a);
    } else if (r.PlayerNode != NoNode) {
        code = Op::ReadOf;
        a = NewNumber();
        EmitPlayer(r, a);
    } else if (!IsFixed(r)) {
        code = Op::ReadBy;
        y = r.Player;
    }
    const std::uint16_t dst = NewNumber();
    Instruction& i = Emit(code);
    i.Dst = dst;
    i.A = a;
    i.B = b;
    i.X = reading;
    i.Y = y;
    return dst;
}

void Emitter::EmitPlayer(const Reference& r, std::uint16_t dst) {
    if (r.PlayerNode != NoNode) {
        const std::uint16_t a = Number(r.PlayerNode);
        Instruction& i = Emit(Op::PlayerOf);
        i.Dst = dst;
        i.A = a;
        return;
    }
    Instruction& i = Emit(Op::PlayerOfCode);
    i.Dst = dst;
    i.X = r.Player;
}

void Emitter::EmitRow(const Reference& r, std::uint16_t dst) {
    if (r.Function == 0) {
        const std::int32_t index = ConstantIndex(r.Variable);
        Instruction& i = Emit(Op::Constant);
        i.Dst = dst;
        i.X = index;
        return;
    }
    const std::uint16_t a = Number(r.Index);
    Instruction& i = Emit(Op::RowOf);
    i.Dst = dst;
    i.A = a;
    i.X = r.Function;
}

std::uint16_t Emitter::EmitNameReference(const Reference& r) {
    if (IsFixed(r)) {
        const std::uint16_t dst = NewText();
        Instruction& i = Emit(Op::StackName);
        i.Dst = dst;
        i.X = r.Variable - 800;
        i.Y = FixedPlayer(r);
        return dst;
    }
    const std::uint16_t pair = BeginPlace(r);
    FinishPlace(r, pair);
    const std::uint16_t dst = NewText();
    Instruction& i = Emit(Op::StackNameOf);
    i.Dst = dst;
    i.A = pair;
    return dst;
}

// --- targets ---

std::uint16_t Emitter::BeginPlace(const Reference& place) {
    const std::uint16_t pair = NewNumber(2);
    EmitRow(place, pair);
    if (place.PlayerNode != NoNode) EmitPlayer(place, static_cast<std::uint16_t>(pair + 1));
    return pair;
}

void Emitter::FinishPlace(const Reference& place, std::uint16_t pair) {
    if (place.PlayerNode == NoNode) EmitPlayer(place, static_cast<std::uint16_t>(pair + 1));
}

void Emitter::BranchUnlessFilter(const Target& target, std::uint16_t pair, Label& label) {
    const bool named = (800 <= target.Place.Variable && target.Place.Variable <= 899) || target.Place.Function == 800;
    const std::uint16_t wanted = named ? Text(target.FilterNode) : Number(target.FilterNode);
    const std::uint16_t present = named ? NewText() : NewNumber();
    Instruction& read = Emit(named ? Op::StackNameOf : Op::ReadPlace);
    read.Dst = present;
    read.A = pair;
    const int opposite = OppositeComparison(target.FilterOp);
    if (named) {
        const std::uint16_t dst = NewNumber();
        Instruction& compare = Emit(Op::CompareTexts);
        compare.Sub = static_cast<std::uint8_t>(target.FilterOp);
        compare.Dst = dst;
        compare.A = present;
        compare.B = wanted;
        Instruction& jump = Emit(Op::JumpIfZero);
        jump.A = dst;
    } else {
        Instruction& jump = Emit(Op::JumpIf);
        jump.Sub = static_cast<std::uint8_t>(opposite);
        jump.A = present;
        jump.B = wanted;
    }
    label.Use(P.Code.size() - 1);
}

// --- jumps ---

void Emitter::Branch(std::int32_t index, bool when, Label& label) {
    const Node& node = NodeAt(index);
    if (Home[static_cast<std::size_t>(index)] < 0) {
        switch (node.Kind) {
            case NodeKind::Compare:
                if (!IsText(node.A)) return BranchCompare(node.A, node.Op, node.B, when, label);
                break;
            case NodeKind::ListCompare: {
                RowSet set;
                if (!FindRowSet(node, true, set)) return BranchList(node, when, label);
                break;
            }
            case NodeKind::Variable:
                if (BranchFlag(T.References[static_cast<std::size_t>(node.A)], when, label)) return;
                break;
            case NodeKind::Not:
                if (At(node.A).Truth) return Branch(node.A, !when, label);
                break;
            case NodeKind::Logic:
                if (node.Op == Code::Xor || !At(node.A).Truth || !At(node.B).Truth) break;
                if ((node.Op == Code::Or) == when) {
                    Branch(node.A, when, label);
                } else {
                    Label decided;
                    Branch(node.A, !when, decided);
                    Branch(node.B, when, label);
                    decided.Bind(P);
                    return;
                }
                return Branch(node.B, when, label);
            default:
                break;
        }
    }
    const std::uint16_t a = Number(index);
    Emit(when ? Op::JumpIfNotZero : Op::JumpIfZero).A = a;
    label.Use(P.Code.size() - 1);
}

void Emitter::BranchCompare(std::int32_t left, int op, std::int32_t right, bool when, Label& label) {
    if (!when) op = OppositeComparison(op);
    if (BranchDirect(left, op, right, label) || BranchDirect(right, MirroredComparison(op), left, label)) return;
    const std::uint16_t a = Number(left);
    const std::uint16_t b = Number(right);
    Instruction& i = Emit(Op::JumpIf);
    i.Sub = static_cast<std::uint8_t>(op);
    i.A = a;
    i.B = b;
    label.Use(P.Code.size() - 1);
}

/// A left side that lies in the table or a register, against a constant; or an amount against a register.
bool Emitter::BranchDirect(std::int32_t left, int op, std::int32_t right, Label& label) {
    std::int32_t offset = 0;
    Op direct = Op::Read;
    if (NodeAt(left).Kind == NodeKind::Variable && Home[static_cast<std::size_t>(left)] < 0) {
        direct = DirectOp(T.References[static_cast<std::size_t>(NodeAt(left).A)], offset);
    }
    std::uint16_t a = 0, b = 0;
    Op code = Op::JumpIfConstant;
    if (IsConstant(right)) {
        if (direct == Op::Money) code = Op::JumpIfMoney;
        if (direct == Op::Integer) code = Op::JumpIfInteger;
        if (direct == Op::Read) a = Number(left);
        b = static_cast<std::uint16_t>(ConstantIndex(NodeAt(right).Number));
    } else {
        if (direct != Op::Money) return false;
        code = Op::JumpIfMoneys;
        a = Number(right);
    }
    Instruction& i = Emit(code);
    i.Sub = static_cast<std::uint8_t>(op);
    i.A = a;
    i.B = b;
    i.Y = offset;
    label.Use(P.Code.size() - 1);
    return true;
}

/// Flags that are comparisons of one counter.
bool Emitter::BranchFlag(const Reference& r, bool when, Label& label) {
    int counter = 3500;
    int op = 0;
    switch (r.Variable) {
        case 3704:
        case 3711:
            op = Code::Equal;
            break;
        case 3705:
        case 3710:
            op = Code::Greater;
            break;
        case 3707:
            op = Code::Greater;
            counter = 3502;
            break;
        default:
            return false;
    }
    Reference place;
    place.Variable = counter;
    std::int32_t offset = 0;
    DirectOp(place, offset);
    const auto zero = static_cast<std::uint16_t>(ConstantIndex(0));
    Instruction& i = Emit(Op::JumpIfInteger);
    i.Sub = static_cast<std::uint8_t>(when ? op : OppositeComparison(op));
    i.B = zero;
    i.Y = offset;
    label.Use(P.Code.size() - 1);
    return true;
}

void Emitter::BranchList(const Node& node, bool when, Label& label) {
    const bool all = node.Op == 3;
    Label decided;
    for (std::int32_t i = 0; i < node.B; ++i) {
        const ListItem item = T.Items[static_cast<std::size_t>(node.A + i)];
        // Jump as soon as one item decides: a true one of any, a false one of all.
        Label& next = all != when ? label : decided;
        if (IsText(item.Left)) {
            const std::uint16_t a = Text(item.Left);
            const std::uint16_t b = Text(item.Right);
            const std::uint16_t dst = NewNumber();
            Instruction& compare = Emit(Op::CompareTexts);
            compare.Sub = static_cast<std::uint8_t>(item.Op);
            compare.Dst = dst;
            compare.A = a;
            compare.B = b;
            Emit(all ? Op::JumpIfZero : Op::JumpIfNotZero).A = dst;
            next.Use(P.Code.size() - 1);
        } else {
            BranchCompare(item.Left, item.Op, item.Right, !all, next);
        }
    }
    // No item decided: all holds, any does not.
    if (all == when) {
        Emit(Op::Jump);
        label.Use(P.Code.size() - 1);
    }
    decided.Bind(P);
}

}  // namespace tarnwick
