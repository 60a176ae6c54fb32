#include "autobet/machine.h"

#include <cmath>
#include <cstring>

#include "autobet/actions.h"
#include "autobet/functions.h"
#include "autobet/machinelists.h"
#include "autobet/numbertext.h"
#include "table/placement.h"
#include "table/screen.h"

namespace tarnwick {

namespace {

constexpr std::size_t DeepestReturns = 1'000'000;
/// Texts grow no further: a script that doubles one at each roll would take all memory.
constexpr std::size_t LongestText = std::size_t{1} << 24;
constexpr int ActionBase = 400;

/// Pumping costs more than a loop of a script: it is done once in so many polls.
constexpr std::uint32_t PollsPerPump = 64;
constexpr std::uint32_t PollsPerPumpInHyperDrive = 4096;

currency MoneyAt(const Table& t, std::int32_t offset) {
    return *reinterpret_cast<const currency*>(reinterpret_cast<const char*>(&t) + offset);
}
std::int32_t IntegerAt(const Table& t, std::int32_t offset) {
    return *reinterpret_cast<const std::int32_t*>(reinterpret_cast<const char*>(&t) + offset);
}

double TruthOf(bool on) { return on ? -1 : 0; }

int PositionIn(double value) { return static_cast<int>(value); }

/// Functions of one number. False is a fault.
bool NumberFunction(RunState& run, int function, double a, double& result) {
    switch (function) {
        case 50:
            result = PositionOf(run, a);
            break;
        case 100:
            result = SquareRoot(run, a);
            break;
        case 101:
            result = std::floor(a);
            break;
        case 102:
            result = std::fabs(a);
            break;
        case 110:
            result = AverageOfBankroll(run, a);
            break;
        case 190:
            result = FaceOfDie(run, a);
            break;
        default:
            run.Warn("Function error.");
            result = 0;
            break;
    }
    return true;
}

bool TextToNumber(RunState& run, int function, std::string_view a, double& result) {
    switch (function) {
        case 104:
            result = CodeOfCharacter(a);
            break;
        case 117:
            result = NumberAtStart(a);
            break;
        case 118:
            result = CharacterCount(a);
            break;
        default:
            result = NumberAtStart(AskInput(run, std::string(a)));
            break;
    }
    return std::isfinite(result);
}

/// Whether the running player may act on p; the usual case without a call.
bool MayAct(RunState& run, int p) {
    if (p == run.RunningPlayer && IsSeated(*run.Game, p)) return true;
    return MayActOn(run, p);
}

/// A bet that neither stands nor could be put back: taking it down changes nothing.
bool IsClear(const Table& t, int p, int row) { return IsZero(t.BetAmount(p, row)) && IsZero(t.EstablishedBet(p, row)); }

bool Act(RunState& run, int action, int number, int p, const ScriptValue& value) {
    if (number == 0 || p < 0) return false;
    if (action == ActionBase) return SetTarget(run, number, p, value);
    if (action <= 460) return ApplyToTarget(run, action, number, p);
    return ApplyAmount(run, action, number, p, value);
}

}  // namespace

void EnterScriptOf(RunState& run, int slot) {
    run.RunningPlayer = slot == 0 ? run.Game->ActivePlayer : slot;
    run.Game->ScriptPlayer = run.RunningPlayer;
}

void Machine::Prepare(const Program& program) {
    const auto numbers = static_cast<std::size_t>(program.NumberRegisters) + 1;
    const auto texts = static_cast<std::size_t>(program.TextRegisters) + 1;
    if (N.size() < numbers) N.resize(numbers);
    if (T.size() < texts) T.resize(texts);
    if (Kept.size() < texts) Kept.resize(texts);
}

RunEnd Machine::Fault(const char* what) {
    FaultText = what;
    return RunEnd::Faulted;
}

bool Machine::MustStop(RunState& run) {
    Table& t = *run.Game;
    if (StopRequested != nullptr && StopRequested->load(std::memory_order_relaxed)) return true;
    if (++Polls % (t.HyperDriveActive ? PollsPerPumpInHyperDrive : PollsPerPump) == 0 && t.Front != nullptr) {
        t.Front->PumpEvents();
    }
    return t.ScriptStopRequested;
}

bool Machine::PushReturn(std::int32_t statement) {
    if (Returns.size() >= DeepestReturns) return false;
    Returns.push_back(statement);
    return true;
}

RunEnd Machine::Run(const Program& program, RunState& run, std::int32_t from) {
    return Execute(program, run, static_cast<std::size_t>(program.Places[static_cast<std::size_t>(from)].Start));
}

RunEnd Machine::RunStatement(const Program& program, RunState& run, std::int32_t statement) {
    return Run(program, run, statement);
}

// One case an instruction: the switch is the machine, and reads best whole.
RunEnd Machine::Execute(const Program& program, RunState& run, std::size_t pc) {
    const Instruction* const code = program.Code.data();
    const double* const constants = program.Constants.data();
    const Table& t = *run.Game;
    double* const n = N.data();
    std::string_view* const text = T.data();
    const auto keep = [&](std::uint16_t dst, std::string value) {
        Kept[dst] = std::move(value);
        text[dst] = Kept[dst];
    };
    for (;;) {
        const Instruction& i = code[pc++];
        switch (i.Code) {
            case Op::Constant:
                n[i.Dst] = constants[i.X];
                break;
            case Op::Money:
                n[i.Dst] = ToDouble(MoneyAt(t, i.Y));
                break;
            case Op::Integer:
                n[i.Dst] = IntegerAt(t, i.Y);
                break;
            case Op::Read:
                n[i.Dst] = program.Readings[static_cast<std::size_t>(i.X)](run, i.Y);
                break;
            case Op::ReadBy:
                n[i.Dst] = program.Readings[static_cast<std::size_t>(i.X)](run, PlayerOfCode(run, i.Y));
                break;
            case Op::ReadOf: {
                const int p = PositionIn(n[i.A]);
                n[i.Dst] = p < 0 ? 0 : program.Readings[static_cast<std::size_t>(i.X)](run, p);
                break;
            }
            case Op::ReadRow: {
                const int p = PositionIn(n[i.A]);
                Reading reading = program.Readings[static_cast<std::size_t>(i.X)];
                reading.Row = PositionIn(n[i.B]);
                n[i.Dst] = p < 0 || reading.Row == 0 ? 0 : reading(run, p);
                break;
            }
            case Op::ReadPlace: {
                std::string kept;
                n[i.Dst] = NumberOfValue(ReadTarget(run, PositionIn(n[i.A]), PositionIn(n[i.A + 1]), kept));
                break;
            }
            case Op::PlayerOfCode:
                n[i.Dst] = PlayerOfCode(run, i.X);
                break;
            case Op::PlayerOf: {
                const double p = PositionOf(run, n[i.A]);
                n[i.Dst] = p == 0 ? -1 : p;
                break;
            }
            case Op::RowOf: {
                const int row = VariableOfFunction(i.X, n[i.A]);
                if (row == 0) run.Warn(OutOfLimitsText(i.X));
                n[i.Dst] = row;
                break;
            }
            case Op::Negate:
                n[i.Dst] = -n[i.A];
                break;
            case Op::Add:
                n[i.Dst] = n[i.A] + n[i.B];
                break;
            case Op::Subtract:
                n[i.Dst] = n[i.A] - n[i.B];
                break;
            case Op::Multiply:
                n[i.Dst] = n[i.A] * n[i.B];
                break;
            case Op::AddConstant:
                n[i.Dst] = n[i.A] + constants[i.X];
                break;
            case Op::MultiplyConstant:
                n[i.Dst] = n[i.A] * constants[i.X];
                break;
            case Op::DivideConstant:
                n[i.Dst] = n[i.A] / constants[i.X];
                break;
            case Op::Arithmetic:
                if (!Arithmetic(run, i.Sub, n[i.A], n[i.B], n[i.Dst])) return Fault("Overflow, Error #6");
                break;
            case Op::Not:
                if (!Complement(n[i.A], n[i.Dst])) return Fault("Overflow, Error #6");
                break;
            case Op::Logic:
                if (!Logic(i.Sub, n[i.A], n[i.B], n[i.Dst])) return Fault("Overflow, Error #6");
                break;
            case Op::Compare:
                n[i.Dst] = TruthOf(CompareNumbers(n[i.A], i.Sub, n[i.B]));
                break;
            case Op::CompareTexts:
                n[i.Dst] = TruthOf(CompareTexts(text[i.A], i.Sub, text[i.B]));
                break;
            case Op::Truth:
                n[i.Dst] = i.X;
                break;
            case Op::Function:
                if (!NumberFunction(run, i.X, n[i.A], n[i.Dst])) return Fault("Overflow, Error #6");
                break;
            case Op::TextFunction:
                if (!TextToNumber(run, i.X, text[i.A], n[i.Dst])) return Fault("Overflow, Error #6");
                break;
            case Op::PlaceInText:
                n[i.Dst] = PlaceInText(run, n[i.A], text[i.B], text[i.X]);
                break;
            case Op::RowsTest:
                n[i.Dst] = TruthOf(TestRows(t, program.RowSets[static_cast<std::size_t>(i.X)]));
                break;
            case Op::RowsSum:
                n[i.Dst] = SumRows(t, program.RowSets[static_cast<std::size_t>(i.X)]);
                break;
            case Op::RowsCount:
                n[i.Dst] = CountRows(t, program.RowSets[static_cast<std::size_t>(i.X)]);
                break;
            case Op::ListStart:
                StartList(n + i.Dst);
                break;
            case Op::ListItem:
                TakeListItem(n + i.Dst, i.X, n[i.A]);
                break;
            case Op::ListSquare:
                TakeListSquare(n + i.Dst, n[i.A]);
                break;
            case Op::ListResult:
                n[i.A] = ListResult(run, n + i.Dst, i.X);
                if (!std::isfinite(n[i.A])) return Fault("Overflow, Error #6");
                break;

            case Op::TextConstant:
                text[i.Dst] = program.Texts[static_cast<std::size_t>(i.X)];
                break;
            case Op::SpecialText:
                keep(i.Dst, SpecialTextOf(run, i.X));
                break;
            case Op::StackName:
                Kept[i.Dst] = StackNameOf(t, i.Y, i.X);
                text[i.Dst] = Kept[i.Dst];
                break;
            case Op::StackNameOf: {
                std::string kept;
                ReadTarget(run, PositionIn(n[i.A]), PositionIn(n[i.A + 1]), kept);
                keep(i.Dst, std::move(kept));
                break;
            }
            case Op::NumberText:
                keep(i.Dst, GeneralNumber(n[i.A]));
                break;
            case Op::Join:
                if (text[i.A].size() + text[i.B].size() > LongestText) return Fault("Out of string space, Error #14");
                Kept[i.Dst].assign(text[i.A]).append(text[i.B]);
                text[i.Dst] = Kept[i.Dst];
                break;
            case Op::CutText:
                keep(i.Dst, CutText(i.X, text[i.A], n[i.B]));
                break;
            case Op::MiddleText:
                keep(i.Dst, MiddleText(i.Y, text[i.A], n[i.B], n[i.X]));
                break;
            case Op::InsertText:
                if (text[i.A].size() + text[i.X].size() > LongestText) return Fault("Out of string space, Error #14");
                keep(i.Dst, InsertText(text[i.A], n[i.B], text[i.X]));
                break;
            case Op::CharacterText:
                if (!CharacterText(n[i.A], Kept[i.Dst])) return Fault("Invalid procedure call, Error #5");
                text[i.Dst] = Kept[i.Dst];
                break;
            case Op::Blanks:
                if (!Blanks(n[i.A], Kept[i.Dst])) return Fault("Out of string space, Error #14");
                text[i.Dst] = Kept[i.Dst];
                break;
            case Op::PlayerName:
                keep(i.Dst, NameOfPlayer(run, n[i.A]));
                break;
            case Op::AskText:
                keep(i.Dst, AskInput(run, std::string(text[i.A])));
                break;

            case Op::Jump:
                pc = static_cast<std::size_t>(i.X);
                break;
            case Op::JumpBack:
                if (MustStop(run)) return RunEnd::Stopped;
                pc = static_cast<std::size_t>(i.X);
                break;
            case Op::JumpIfZero:
                if (n[i.A] == 0) pc = static_cast<std::size_t>(i.X);
                break;
            case Op::JumpIfNotZero:
                if (n[i.A] != 0) pc = static_cast<std::size_t>(i.X);
                break;
            case Op::JumpIf:
                if (CompareNumbers(n[i.A], i.Sub, n[i.B])) pc = static_cast<std::size_t>(i.X);
                break;
            case Op::JumpIfConstant:
                if (CompareNumbers(n[i.A], i.Sub, constants[i.B])) pc = static_cast<std::size_t>(i.X);
                break;
            case Op::JumpIfMoney:
                if (CompareNumbers(ToDouble(MoneyAt(t, i.Y)), i.Sub, constants[i.B])) {
                    pc = static_cast<std::size_t>(i.X);
                }
                break;
            case Op::JumpIfInteger:
                if (CompareNumbers(IntegerAt(t, i.Y), i.Sub, constants[i.B])) pc = static_cast<std::size_t>(i.X);
                break;
            case Op::JumpIfMoneys:
                if (CompareNumbers(ToDouble(MoneyAt(t, i.Y)), i.Sub, n[i.A])) pc = static_cast<std::size_t>(i.X);
                break;
            case Op::Gosub:
                if (MustStop(run)) return RunEnd::Stopped;
                if (!PushReturn(i.Y)) return Fault("Out of stack space, Error #28");
                pc = static_cast<std::size_t>(i.X);
                break;
            case Op::Return:
                if (Returns.empty()) break;
                pc = static_cast<std::size_t>(program.Places[static_cast<std::size_t>(Returns.back()) + 1].Start);
                Returns.pop_back();
                break;
            case Op::EnterScript:
                if (MustStop(run)) return RunEnd::Stopped;
                EnterScriptOf(run, i.X);
                break;
            case Op::Leave:
                if (run.Restart) return RunEnd::Restarted;
                if (run.StepsWanted) {
                    Next = i.X;
                    return RunEnd::Watched;
                }
                break;
            case Op::Stop:
                return run.Restart ? RunEnd::Restarted : RunEnd::Paused;
            case Op::End:
                return RunEnd::Finished;

            case Op::SetBetConstant:
                if (!MayAct(run, i.Y)) break;
                SetBet(*run.Game, i.Y, i.X, program.Amounts[i.A]);
                run.Taken = true;
                break;
            case Op::SetBet:
                if (!MayAct(run, i.Y)) break;
                SetBet(*run.Game, i.Y, i.X, ToCurrency(n[i.A]));
                run.Taken = true;
                break;
            case Op::ClearBet:
                if (!MayAct(run, i.Y)) break;
                if (!IsClear(t, i.Y, i.X)) SetBet(*run.Game, i.Y, i.X, {});
                run.Taken = true;
                break;
            case Op::SetStack:
                if (!MayAct(run, i.Y)) break;
                SetStack(*run.Game, i.Y, i.X, ToCurrency(n[i.A]));
                run.Taken = true;
                break;
            case Op::AddStack: {
                if (!MayAct(run, i.Y)) break;
                const currency change = ToCurrency(n[i.A]);
                SetStack(*run.Game, i.Y, i.X, SaturatedSum(t.BetAmount(i.Y, i.X), i.Sub == 1 ? -change : change));
                run.Taken = true;
                break;
            }
            case Op::OnNumber:
                run.Taken |= Act(run, ActionBase + i.Sub, i.X, i.Y, {false, n[i.A], {}});
                break;
            case Op::OnText:
                run.Taken |= Act(run, ActionBase + i.Sub, i.X, i.Y, {true, 0, text[i.A]});
                break;
            case Op::OnPlace: {
                const ScriptValue value = i.Dst == 1 ? ScriptValue{true, 0, text[i.A]} : ScriptValue{false, n[i.A], {}};
                run.Taken |= Act(run, ActionBase + i.Sub, PositionIn(n[i.B]), PositionIn(n[i.B + 1]), value);
                break;
            }
            case Op::Swap:
                run.Taken |= SwapTargets(run, PositionIn(n[i.A]), PositionIn(n[i.A + 1]), PositionIn(n[i.B]),
                                         PositionIn(n[i.B + 1]));
                break;
            case Op::Command:
                run.Taken |= Command(run, i.X);
                break;
            case Op::CommandNumber:
                run.Taken |= Command(run, i.X, {false, n[i.A], {}});
                break;
            case Op::CommandText:
                run.Taken |= Command(run, i.X, {true, 0, text[i.A]});
                break;
            case Op::PlayDiceFile:
                run.Taken |= PlayDiceFile(run, text[i.A], n[i.B], n[i.X]);
                break;
        }
    }
}

}  // namespace tarnwick
