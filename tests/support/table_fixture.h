// A table with players, for the tests of the engine: bets are placed and dice thrown as a person would.
#pragma once

#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "stats/accumulators.h"
#include "table/placement.h"
#include "table/players.h"
#include "table/rolldice.h"
#include "table/screen.h"
#include "table/session.h"

namespace tarnwick {

inline std::ostream& operator<<(std::ostream& out, currency amount) { return out << ToDouble(amount); }

/// Keeps what it was told, and lets a test act while the table serves the user.
struct WatchingScreen : SilentScreen {
    std::function<void()> OnPump;
    int Pumps = 0, Throws = 0, BetRedraws = 0;
    std::vector<std::pair<SoundKind, int>> Sounds;
    std::vector<int> Ended;  ///< positions whose session ended
    std::vector<std::pair<bool, bool>> RunStates;

    void PumpEvents() override {
        ++Pumps;
        if (OnPump) OnPump();
    }
    void DrawDiceThrow() override { ++Throws; }
    void RedrawBet(int, int) override { ++BetRedraws; }
    void PlaySound(SoundKind kind, int number) override { Sounds.emplace_back(kind, number); }
    void SessionEnded(int p) override { Ended.push_back(p); }
    void RunStateChanged(bool running, bool hyperDrive) override { RunStates.emplace_back(running, hyperDrive); }
};

/// A started program. No bet is required of the shooter; every decided bet comes down without a question.
struct TableTest : testing::Test {
    TableTest() {
        SubMain(t, &Front);
        t.ShooterBetRequirement = 0;
    }

    void Seat(int p, const std::string& name, std::int64_t dollars = 1000) {
        ASSERT_EQ(AddPlayer(t, p, name, Dollars(dollars)), "");
        t.WinnerHandling[At(p)] = t.LoserHandling[At(p)] = 1;
    }

    /// A bet that the rules must take whole.
    void Bet(int p, int row, currency amount) {
        const currency before = t.BetAmount(p, row);
        PlaceBet(t, p, row, amount);
        ASSERT_EQ(t.BetAmount(p, row), before + amount) << BetTitle(row) << LastText();
    }
    void Bet(int p, int row, std::int64_t dollars) { Bet(p, row, Dollars(dollars)); }

    void Roll(int die1, int die2) { PadRoll(t, die1, die2); }
    /// The hard or first way of a total 2..12.
    void RollTotal(int total) { Roll(total / 2, total - total / 2); }

    currency Amount(int p, int row) const { return t.BetAmount(p, row); }
    currency BankrollOf(int p) const { return t.Bankroll[At(p)]; }
    std::string LastText() const { return Front.Shown.empty() ? std::string{} : " " + Front.Shown.back().Text; }

    /// The messages since the last call, as "[Title] text".
    std::vector<std::string> Messages() {
        std::vector<std::string> texts;
        for (const Message& message : Front.Shown) texts.push_back("[" + message.Title + "] " + message.Text);
        Front.Shown.clear();
        return texts;
    }

    void AnswerWith(int result, std::string input = {}) {
        Answer answer;
        answer.Result = result;
        answer.Input = std::move(input);
        Front.Answers.push_back(answer);
    }

    static std::size_t At(int i) { return static_cast<std::size_t>(i); }

    std::unique_ptr<Table> Game = std::make_unique<Table>();
    Table& t = *Game;
    WatchingScreen Front;
};

}  // namespace tarnwick
