// Statements to code.
#include <algorithm>

#include "autobet/emitter.h"
#include "autobet/program.h"

namespace tarnwick {

namespace {

/// Actions travel in a byte: 0 assigns, 50..60 are 450..460, 81..89 are 481..489.
constexpr int ActionBase = 400;

class Lowering {
  public:
    Lowering(const Table& t, bool watched, Program& program) : Game(t), Watched(watched), P(program) {}

    /// False when a statement is too large; it is the last of P.Places then.
    bool Add(const CheckedScript& script, int index) {
        Emitter emitter(Game, script, P);
        const auto first = static_cast<std::int32_t>(P.Places.size());
        const std::vector<Statement>& statements = script.Statements->Statements;
        for (std::size_t s = 0; s < statements.size(); ++s) {
            const Statement& statement = statements[s];
            StatementPlace place;
            place.Script = index;
            place.Statement = static_cast<std::int32_t>(s);
            place.Start = static_cast<std::int32_t>(P.Code.size());
            P.Places.push_back(place);
            P.Jumps.push_back(statement.Jump == NoNode ? NoNode : first + statement.Jump);
            emitter.Begin(statement);
            if (Watched) {
                EmitWatched(emitter, statement);
            } else {
                const bool last = s + 1 == statements.size() || statements[s + 1].Kind != StatementKind::Condition;
                EmitFlow(emitter, statement, last);
            }
            if (emitter.Failed()) return false;
        }
        return true;
    }

    /// Jumps to statements become jumps to instructions.
    void Finish() {
        P.Places.push_back({-1, -1, static_cast<std::int32_t>(P.Code.size()), -1});
        P.Jumps.push_back(NoNode);
        P.Code.emplace_back().Code = Op::End;
        for (const auto& [at, statement] : Pending) {
            P.Code[at].X = P.Places[static_cast<std::size_t>(statement)].Start;
        }
    }

  private:
    const Table& Game;
    const bool Watched;
    Program& P;
    std::vector<std::pair<std::size_t, std::int32_t>> Pending;

    std::int32_t Here() const { return static_cast<std::int32_t>(P.Places.size()) - 1; }

    void JumpBehind(Op code, std::int32_t target) {
        Instruction& i = P.Code.emplace_back();
        i.Code = code == Op::Jump && target < Here() ? Op::JumpBack : code;
        i.Y = Here();
        Pending.emplace_back(P.Code.size() - 1, target + 1);
    }

    /// The condition that THEN tests is the last one of its block; of those before it only the effects count, and
    /// Begin has emitted them.
    void EmitCondition(Emitter& e, const Statement& s, bool lastOfBlock) {
        if (!lastOfBlock) return;
        Label skip;
        e.Branch(s.Operands[0], false, skip);
        Skips = skip;
    }

    void EmitThen() {
        const std::int32_t target = P.Jumps.back();
        if (target == NoNode) {
            Skips.Bind(P);
        } else {
            for (const std::size_t at : Skips.Places()) Pending.emplace_back(at, target + 1);
        }
        Skips = {};
    }

    void EmitFlow(Emitter& e, const Statement& s, bool lastOfBlock) {
        const std::int32_t target = P.Jumps.back();
        switch (s.Kind) {
            case StatementKind::Player: {
                Instruction& i = e.Emit(Op::EnterScript);
                i.X = s.Slot;
                i.Y = Here();
                break;
            }
            case StatementKind::Then:
                EmitThen();
                break;
            case StatementKind::Else:
            case StatementKind::ElseIf:
            case StatementKind::Goto:
            case StatementKind::Loop:
            case StatementKind::ExitDo:
                if (target != NoNode) JumpBehind(Op::Jump, target);
                break;
            case StatementKind::Gosub:
                if (target != NoNode) JumpBehind(Op::Gosub, target);
                break;
            case StatementKind::Return:
                e.Emit(Op::Return).Y = Here();
                break;
            case StatementKind::Condition:
                EmitCondition(e, s, lastOfBlock);
                break;
            case StatementKind::Label:
            case StatementKind::If:
            case StatementKind::EndIf:
            case StatementKind::Do:
                break;
            default:
                EmitAction(e, s);
                break;
        }
    }

    void EmitWatched(Emitter& e, const Statement& s) {
        if (s.Kind == StatementKind::Condition) P.Places.back().Result = e.Number(s.Operands[0]);
        if (s.Kind == StatementKind::Assign || s.Kind == StatementKind::Amount || s.Kind == StatementKind::OnTargets ||
            s.Kind == StatementKind::Swap || s.Kind == StatementKind::Command) {
            EmitAction(e, s);
        }
        e.Emit(Op::Stop);
    }

    void EmitAction(Emitter& e, const Statement& s) {
        switch (s.Kind) {
            case StatementKind::Assign:
                EmitTargets(e, s, 0);
                break;
            case StatementKind::Amount:
            case StatementKind::OnTargets:
                EmitTargets(e, s, s.Action);
                break;
            case StatementKind::Swap:
                EmitSwap(e, s);
                break;
            default:
                EmitCommand(e, s);
                break;
        }
    }

    // --- targets ---

    const Target& TargetAt(const CheckedTargets& targets, std::int32_t i) const {
        return targets[static_cast<std::size_t>(i)];
    }

    /// All that targets and filters say is worked out before the first of them is acted on.
    void EmitTargets(Emitter& e, const Statement& s, int action) {
        const CheckedTargets& targets = e.Targets();
        e.Keep(s.Operands[0]);
        std::vector<std::uint16_t> pairs(static_cast<std::size_t>(s.EndTarget - s.FirstTarget));
        for (std::int32_t i = s.FirstTarget; i < s.EndTarget; ++i) {
            const Target& target = TargetAt(targets, i);
            if (target.IsValue) continue;
            e.Keep(target.FilterNode);
            if (NeedsPair(target)) pairs[static_cast<std::size_t>(i - s.FirstTarget)] = e.BeginPlace(target.Place);
        }
        for (std::int32_t i = s.FirstTarget; i < s.EndTarget; ++i) {
            const Target& target = TargetAt(targets, i);
            if (target.IsValue) continue;
            EmitTarget(e, s, target, action, pairs[static_cast<std::size_t>(i - s.FirstTarget)]);
        }
    }

    static bool NeedsPair(const Target& target) { return target.FilterOp != 0 || !Emitter::IsFixed(target.Place); }

    void EmitTarget(Emitter& e, const Statement& s, const Target& target, int action, std::uint16_t pair) {
        Label skip;
        if (NeedsPair(target)) e.FinishPlace(target.Place, pair);
        if (target.FilterOp != 0) e.BranchUnlessFilter(target, pair, skip);
        if (Emitter::IsFixed(target.Place)) {
            EmitFixed(e, s, target.Place.Variable, Emitter::FixedPlayer(target.Place), action);
        } else {
            const std::int32_t operand = s.Operands[0];
            const bool text = operand != NoNode && e.IsText(operand);
            const std::uint16_t a = operand == NoNode ? std::uint16_t{0} : text ? e.Text(operand) : e.Number(operand);
            Instruction& i = e.Emit(Op::OnPlace);
            i.Sub = ActionByte(action);
            i.Dst = text ? 1 : 0;
            i.A = a;
            i.B = pair;
        }
        skip.Bind(P);
    }

    static std::uint8_t ActionByte(int action) {
        return static_cast<std::uint8_t>(action == 0 ? 0 : action - ActionBase);
    }

    /// A target and position known now: the common ones have instructions of their own.
    void EmitFixed(Emitter& e, const Statement& s, int number, int p, int action) {
        const std::int32_t operand = s.Operands[0];
        const bool text = operand != NoNode && e.IsText(operand);
        const bool sets = action == 0 || action == 481;
        Op code = text ? Op::OnText : Op::OnNumber;
        std::uint16_t a = 0;
        std::uint8_t sub = ActionByte(action);
        if (!text && sets && IsLayoutRow(number) && e.IsConstant(operand)) {
            code = Op::SetBetConstant;
            a = static_cast<std::uint16_t>(e.AmountIndex(ToCurrency(e.NodeAt(operand).Number)));
        } else if (operand != NoNode) {
            a = text ? e.Text(operand) : e.Number(operand);
        }
        if (!text && code == Op::OnNumber) {
            if (sets && IsLayoutRow(number)) code = Op::SetBet;
            if (sets && IsStack(number)) code = Op::SetStack;
            if ((action == 484 || action == 485) && IsStack(number)) {
                code = Op::AddStack;
                sub = action == 485 ? 1 : 0;
            }
            if (action == 460 && IsLayoutRow(number)) code = Op::ClearBet;
        }
        Instruction& i = e.Emit(code);
        i.Sub = sub;
        i.A = a;
        i.X = number;
        i.Y = p;
    }

    void EmitSwap(Emitter& e, const Statement& s) {
        if (s.EndTarget - s.FirstTarget != 2) return;
        const Reference& first = TargetAt(e.Targets(), s.FirstTarget).Place;
        const Reference& second = TargetAt(e.Targets(), s.FirstTarget + 1).Place;
        const std::uint16_t a = e.BeginPlace(first);
        const std::uint16_t b = e.BeginPlace(second);
        e.FinishPlace(first, a);
        e.FinishPlace(second, b);
        Instruction& i = e.Emit(Op::Swap);
        i.A = a;
        i.B = b;
    }

    // --- commands ---

    void EmitCommand(Emitter& e, const Statement& s) {
        if (s.Action == 310) {
            EmitPlayback(e, s);
        } else if (s.Operands[0] == NoNode) {
            e.Emit(Op::Command).X = s.Action;
        } else {
            const bool text = e.IsText(s.Operands[0]);
            const std::uint16_t a = text ? e.Text(s.Operands[0]) : e.Number(s.Operands[0]);
            Instruction& i = e.Emit(text ? Op::CommandText : Op::CommandNumber);
            i.A = a;
            i.X = s.Action;
        }
        // These end the run, start it again or show its steps.
        const bool leaves = (100 <= s.Action && s.Action <= 103) || s.Action == 116;
        if (leaves && !Watched) e.Emit(Op::Leave).X = Here() + 1;
    }

    void EmitPlayback(Emitter& e, const Statement& s) {
        const auto number = [&](std::int32_t node) { return node == NoNode ? e.ConstantNumber(0) : e.Number(node); };
        const std::uint16_t a = s.Operands[0] == NoNode ? e.EmptyText() : e.Text(s.Operands[0]);
        const std::uint16_t b = number(s.Operands[1]);
        const std::uint16_t x = number(s.Operands[2]);
        Instruction& i = e.Emit(Op::PlayDiceFile);
        i.A = a;
        i.B = b;
        i.X = x;
    }

    Label Skips;  ///< jumps of the condition at hand, to behind its block
};

}  // namespace

bool LowerScripts(const Table& t, const std::vector<CheckedScript>& scripts, bool watched, Program& program,
                  StatementPlace& failed) {
    program = {};
    program.Watched = watched;
    Lowering lowering(t, watched, program);
    for (std::size_t i = 0; i < scripts.size(); ++i) {
        if (!lowering.Add(scripts[i], static_cast<int>(i))) {
            failed = program.Places.back();
            return false;
        }
    }
    lowering.Finish();
    return true;
}

}  // namespace tarnwick
