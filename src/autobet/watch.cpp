// The run statement by statement: for Steps, and for a limit of statements.
#include "autobet/autobets.h"
#include "table/rundriver.h"

namespace tarnwick {

namespace {

const char* const ConditionBegins = "Beginning of condition block.";
const char* const StructureEnds = "End of If/Then structure.";

const Statement& StatementAt(const std::vector<CheckedScript>& scripts, const StatementPlace& place) {
    return scripts[static_cast<std::size_t>(place.Script)]
        .Statements->Statements[static_cast<std::size_t>(place.Statement)];
}

/// What is said of the statement at which a false condition goes on.
const char* TargetText(StatementKind kind) {
    switch (kind) {
        case StatementKind::Else:
            return "\nBeginning of last action block.";
        case StatementKind::ElseIf:
            return "\nBeginning of condition block.";
        default:
            return "\nEnd of If/Then structure.";
    }
}

}  // namespace

bool AutoBets::CountStatement(Table& t) {
    ++Statements;
    if (StatementLimit <= 0 || Statements <= StatementLimit) return true;
    t.StopReason = "Stopped: the scripts ran more than " + std::to_string(StatementLimit) + " statements.";
    if (t.AutoRollActive) StopAutoRoll(t);
    return false;
}

RunEnd AutoBets::RunWatched(Table& t, const Compiled& compiled, std::int32_t& next) {
    const auto count = static_cast<std::int32_t>(compiled.Watched.Places.size()) - 1;
    std::int32_t at = next;
    while (at < count) {
        const bool midCondition =
            StatementAt(compiled.Checked, compiled.Watched.Places[static_cast<std::size_t>(at)]).Kind ==
            StatementKind::Then;
        // The fast code tests the condition and jumps in one: it can't take over between the two.
        if (!Watches(t) && !midCondition) {
            next = at;
            return RunEnd::Watched;
        }
        if (!CountStatement(t) || Engine.MustStop(State)) return RunEnd::Stopped;
        const std::int32_t here = at;
        State.CollectWarnings = StepsOn && !t.HyperDriveActive;
        State.WarningText.clear();
        State.Taken = false;
        std::string text;
        const StatementPlace& place = compiled.Watched.Places[static_cast<std::size_t>(here)];
        const Statement& statement = StatementAt(compiled.Checked, place);
        const RunEnd end = RunWatchedStatement(compiled.Watched, statement, at, text);
        if (end == RunEnd::Faulted) return end;
        if (statement.Kind == StatementKind::Then && !ConditionTrue && at != here + 1) {
            text += TargetText(
                StatementAt(compiled.Checked, compiled.Watched.Places[static_cast<std::size_t>(at - 1)]).Kind);
        }
        if (State.StepsWanted) StepsOn = true;
        State.StepsWanted = false;
        if (!text.empty() && State.CollectWarnings && !Show(t, compiled, here, std::move(text))) return RunEnd::Stopped;
        if (end == RunEnd::Restarted) return end;
    }
    return RunEnd::Finished;
}

/// Runs the statement at `at`, says what it did, and moves `at` to the next one.
RunEnd AutoBets::RunWatchedStatement(const Program& program, const Statement& statement, std::int32_t& at,
                                     std::string& text) {
    const std::int32_t jump = program.Jumps[static_cast<std::size_t>(at)];
    const std::int32_t here = at++;
    const auto follow = [&] {
        if (jump != NoNode) at = jump + 1;
    };
    switch (statement.Kind) {
        case StatementKind::Player:
            EnterScriptOf(State, statement.Slot);
            return RunEnd::Paused;
        case StatementKind::If:
            text = ConditionBegins;
            return RunEnd::Paused;
        case StatementKind::Then:
            text = "End of condition block and beginning of action block.\n";
            text += ConditionTrue ? "Conditions were true, so next action block will be performed."
                                  : "Conditions were false, so next action block will be skipped.";
            if (!ConditionTrue) follow();
            return RunEnd::Paused;
        case StatementKind::Else:
        case StatementKind::ElseIf:
            text = std::string("End of action block.\n") + StructureEnds;
            follow();
            return RunEnd::Paused;
        case StatementKind::EndIf:
            text = StructureEnds;
            return RunEnd::Paused;
        case StatementKind::Goto:
            text = "A jump will be made to the designated label.\nLabel.";
            follow();
            return RunEnd::Paused;
        case StatementKind::Gosub:
            if (!Engine.PushReturn(here)) {
                Engine.FaultText = "Out of stack space, Error #28";
                return RunEnd::Faulted;
            }
            text = "A jump will be made to the designated subroutine.\nLabel.";
            follow();
            return RunEnd::Paused;
        case StatementKind::Return:
            if (Engine.Returns.empty()) return RunEnd::Paused;
            text = "Return to place where subroutine was initiated.";
            at = Engine.Returns.back() + 1;
            Engine.Returns.pop_back();
            return RunEnd::Paused;
        case StatementKind::Label:
            text = "Label.";
            return RunEnd::Paused;
        case StatementKind::Do:
            text = "Beginning of DO/LOOP structure.";
            return RunEnd::Paused;
        case StatementKind::Loop:
            text = "End of DO/LOOP structure.\nA jump will be made back to the associated DO statement.";
            follow();
            return RunEnd::Paused;
        case StatementKind::ExitDo:
            text = "Exit from DO/LOOP structure.";
            follow();
            return RunEnd::Paused;
        default:
            break;
    }
    const RunEnd end = Engine.RunStatement(program, State, here);
    if (statement.Kind == StatementKind::Condition) {
        if (end == RunEnd::Paused) {
            ConditionTrue = Engine.ConditionResult(program.Places[static_cast<std::size_t>(here)]);
        }
        text = (ConditionTrue ? "Condition is true." : "Condition is false.") + State.WarningText;
    } else {
        if (!State.WarningText.empty()) text = State.WarningText.substr(1) + "\n";
        text += State.Taken ? "Action taken." : "No action taken.";
    }
    return end;
}

bool AutoBets::Show(Table& t, const Compiled& compiled, std::int32_t at, std::string text) {
    if (View == nullptr || t.HyperDriveActive) return true;
    const Statement& statement = StatementAt(compiled.Checked, compiled.Watched.Places[static_cast<std::size_t>(at)]);
    ScriptStep step;
    step.Position = State.RunningPlayer;
    step.FirstLine = statement.FirstLine;
    step.LastLine = statement.LastLine;
    step.FirstCol = statement.FirstCol;
    step.LastCol = statement.LastCol;
    step.Text = std::move(text);
    switch (View->ShowStep(step)) {
        case StepAnswer::Stop:
            return false;
        case StepAnswer::Close:
            StepsOn = false;
            break;
        case StepAnswer::Next:
            break;
    }
    return true;
}

}  // namespace tarnwick
