// Passing the dice down the seats.
#include <string>

#include "stats/accumulators.h"
#include "stats/eventslog.h"
#include "table/messages.h"
#include "table/players.h"
#include "table/screen.h"

namespace tarnwick {

namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

/// What the search down the seats found.
struct Search {
    int Fallback = 0;   ///< the next player, willing or not; 0 when there is none but the shooter
    int Candidate = 0;  ///< the next player who may shoot now
    int Barred = 0;     ///< players who would shoot but lack a line bet
};

Search SearchShooter(const Table& t) {
    Search found;
    const bool lineBetNeeded = t.ShooterBetRequirement == 1 && t.Point != 0 && !t.AllowPutBets;
    int p = t.Shooter == 0 ? 1 : t.Shooter;
    const int seats = t.Shooter == 0 ? 8 : 7;
    for (int i = 0; i < seats; ++i) {
        p = p == 1 ? 8 : p - 1;
        if (!IsSeated(t, p)) continue;
        if (found.Fallback == 0) found.Fallback = p;
        if (t.AutoPassDice[At(p)]) continue;
        if (lineBetNeeded && !HasLineBet(t, p)) {
            ++found.Barred;
            continue;
        }
        found.Candidate = p;
        break;
    }
    return found;
}

/// Notes of a request only, never in Hyper-Drive; `text` makes the words when they are needed.
template <class Text>
void Tell(Table& t, PassMode mode, Text text) {
    if (mode == PassMode::Request && !t.HyperDriveActive) ShowNote(t, "Pass the Dice", text());
}

void GiveTo(Table& t, int p) {
    t.Shooter = p;
    if (HandRolls(t) == 0) t.HandShooter = p;
}

std::string NobodyText(const Table& t, const Search& found) {
    std::string text = "Unable to pass the dice at this time.\n\n";
    if (found.Barred == 0) {
        const bool named = t.PlayerCount == 2 && t.Shooter != 0;
        return text + (named ? t.PlayerName[At(found.Fallback)] + " doesn't want to shoot."
                             : "None of the other players want to shoot.");
    }
    text += found.Barred == 1 ? "There's one other player who wants to shoot "
                              : "There are " + std::to_string(found.Barred) + " other players who want to shoot ";
    return text +
           "but can't because a line bet is required and Put bets are not allowed.\n\nPlease wait for a come-out roll "
           "or check the 'Allow Put bets' option on the 'Bets tab' of the configuration screen.";
}

std::string MidHandText(const Table& t, int old, int candidate) {
    const std::string& from = t.PlayerName[At(old)];
    const std::string& to = t.PlayerName[At(candidate)];
    if (candidate == t.HandShooter) {
        return from + " is passing the dice back to " + to + " who originally started this hand.";
    }
    return from + " is passing the dice to " + to + " who may finish the current hand and then roll his/her own hand.";
}

void PassTo(Table& t, PassMode mode, int candidate) {
    const int old = t.Shooter;
    if (mode == PassMode::Request) LogDicePassed(t, candidate);
    GiveTo(t, candidate);
    t.GameChanged = true;
    if (t.Front != nullptr && !t.HyperDriveActive) t.Front->RedrawTable();
    if (HandRolls(t) > 0) Tell(t, mode, [&] { return MidHandText(t, old, candidate); });
}

}  // namespace

void PassTheDice(Table& t, PassMode mode) {
    if (t.PlayerCount == 0) {
        Tell(t, mode, [] { return "Unable to pass the dice.\n\nThere are no players at the table."; });
        t.Shooter = t.HandShooter = 0;
        return;
    }
    const Search found = SearchShooter(t);
    if (t.PlayerCount == 1) {
        Tell(t, mode, [] { return "Unable to pass the dice.\n\nThere are no other players at the table."; });
        if (mode == PassMode::PlayerLeft && found.Fallback != 0) GiveTo(t, found.Fallback);
        return;
    }
    if (found.Candidate != 0) return PassTo(t, mode, found.Candidate);
    Tell(t, mode, [&] { return NobodyText(t, found); });
    if (mode == PassMode::PlayerLeft) GiveTo(t, found.Fallback);
}

}  // namespace tarnwick
