#include "lab/runscripts.h"

#include <algorithm>

#include "autobet/scriptfile.h"
#include "lab/interrupt.h"
#include "lab/scriptreports.h"
#include "lab/texttable.h"
#include "table/rundriver.h"

namespace tarnwick::lab {

namespace {

bool OpensFile(const Element& e) {
    const int action = NumberOf(e);
    return e.Code == Code::Action && (action == 220 || action == 221);
}

}  // namespace

std::string ScriptPlan::Load(Table& t, const std::vector<PlayerOption>& players) {
    AutoBets bets;
    for (const PlayerOption& player : players) {
        if (player.Script.empty()) continue;
        const auto p = static_cast<std::size_t>(player.Position);
        ScriptText script;
        std::string fault = ReadScriptFile(player.Script, script);
        if (!fault.empty()) return fault;
        Lines[p] = std::move(script.Lines);
        bets.SetScript(t, player.Position, Lines[p], player.Script);
        Compilation c = bets.CompilationOf(t, player.Position);
        const ScriptVerdict verdict = CheckScript(c);
        if (!verdict.Proper && verdict.FirstLine > 0) return FaultText(player.Script, verdict);
        Any = t.ScriptOn[p] = true;
        Write = Write || std::any_of(c.Elements.begin(), c.Elements.end(), OpensFile);
    }
    return {};
}

void GiveScripts(const ScriptPlan& plan, Table& t, std::unique_ptr<AutoBets>& bets) {
    if (bets == nullptr || plan.Write) {
        bets = std::make_unique<AutoBets>();
        const auto on = t.ScriptOn;
        for (int p = 1; p < Positions; ++p) {
            const auto i = static_cast<std::size_t>(p);
            if (on[i]) bets->SetScript(t, p, plan.Lines[i], t.ScriptName[i]);
        }
        t.ScriptOn = on;
        bets->StatementLimit = plan.StatementLimit;
        bets->SetStopFlag(&InterruptFlag());
    }
    bets->StepsOn = false;
    bets->LastError.clear();
    t.Scripts = bets.get();
}

bool ScriptedRun::Initialize() {
    const bool compiled = Bets.Initialize(T);
    std::string reason = T.StopReason;
    if (!compiled) reason = "A script can't be run.";
    if (!Bets.LastError.empty()) reason = "Script error: " + OneLine(Bets.LastError);
    if (Interrupted()) reason = "Interrupted.";
    if (reason.empty()) return true;
    Screen.StopReason = reason;
    return false;
}

void ScriptedRun::AfterRoll() {
    RollGoal::AfterRoll();
    if (Interrupted()) Screen.PumpEvents();
    if (Bets.LastError.empty() || !T.AutoRollActive) return;
    if (Screen.StopReason.empty()) Screen.StopReason = "Script error: " + OneLine(Bets.LastError);
    StopAutoRoll(T);
}

}  // namespace tarnwick::lab
