#include "table/placement.h"

#include "config/payoffs.h"
#include "support/table_fixture.h"
#include "table/format.h"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

struct PlacementTest : TableTest {
    PlacementTest() { Seat(1, "Ann", 10'000); }

    /// Plays a Come or Don't Come bet to the number of `total`; a point must be on.
    void TravelTo(int total, int box, std::int64_t dollars) {
        Bet(1, box, dollars);
        RollTotal(total);
    }
};

constexpr const char* PutNote = "\n\n(Unless you check \"Allow Put Bets\" on the\nConfiguration screen.)";

TEST_F(PlacementTest, RefusalsHaveTheirWordsAndLeaveTheBetAsItWas) {
    struct Case {
        const char* Name;
        int BetRow;
        std::function<void(PlacementTest&)> Prepare;
        std::string Text;
    };
    const auto pointOn = [](PlacementTest& f) { f.RollTotal(8); };
    const auto nothing = [](PlacementTest&) {};
    const std::vector<Case> cases = {
        {"line behind the point without Put bets", Row::PassLine,
         [](PlacementTest& f) {
             f.t.AllowPutBets = false;
             f.RollTotal(8);
         },
         std::string("You may not make or increase a Pass Line bet while a point is established.") + PutNote},
        {"Come on the come-out", Row::Come, nothing, "You may not make a Come bet until a point is established."},
        {"Don't Come on the come-out", Row::DontCome, nothing,
         "You may not make a Don't Come bet until a point is established."},
        {"Don't Pass behind the point", Row::DontPass, pointOn,
         "You may not make or increase a Don't Pass bet while a point is established."},
        {"Don't odds without flat", Row::DontPassOdds, pointOn,
         "You may not make a Don't Pass Odds bet unless you also have a Don't Pass bet and a point is established."},
        {"Don't odds without point", Row::DontPassOdds, [](PlacementTest& f) { f.Bet(1, Row::DontPass, 10); },
         "You may not make a Don't Pass Odds bet unless you also have a Don't Pass bet and a point is established."},
        {"odds without flat", Row::PassLineOdds, pointOn,
         "You may not make a Pass Line Odds bet unless you also have a Pass Line bet and a point is established."},
        {"odds without point", Row::PassLineOdds, [](PlacementTest& f) { f.Bet(1, Row::PassLine, 10); },
         "You may not make a Pass Line Odds bet unless you also have a Pass Line bet and a point is established."},
        {"Come on a number without Put bets", Row::Come4 + 2, [](PlacementTest& f) { f.t.AllowPutBets = false; },
         std::string("You may not make or increase a Come bet directly on a point number.") + PutNote},
        {"Come odds without flat", Row::Come4Odds + 4, nothing,
         "You may not make a Come 9 Odds bet until you've established a Come 9 bet."},
        {"Don't Come on a number, Put bets or not", Row::DontCome4, pointOn,
         "You may not make or increase a Don't Come bet directly on a point number."},
        {"Don't Come odds without flat", Row::DontCome10Odds, nothing,
         "You may not make a Don't Come 10 Odds bet until you've established a Don't Come 10 bet."},
        {"All Small while marked", Row::AllSmall,
         [](PlacementTest& f) {
             f.Bet(1, Row::MakeAll, 5);
             f.RollTotal(3);
         },
         "You may not make or increase an All Small bet while any small numbers are marked."},
        {"All Tall while marked", Row::AllTall,
         [](PlacementTest& f) {
             f.Bet(1, Row::MakeAll, 5);
             f.RollTotal(12);
         },
         "You may not make or increase an All Tall bet while any tall numbers are marked."},
        {"Make All while marked", Row::MakeAll,
         [](PlacementTest& f) {
             f.Bet(1, Row::AllSmall, 5);
             f.RollTotal(2);
         },
         "You may not make or increase a Make All bet while any numbers are marked."},
        {"4 Rolls while counting", Row::FourRollsNo7,
         [](PlacementTest& f) {
             f.Seat(2, "Bo");
             f.Bet(2, Row::FourRollsNo7, 5);
             f.RollTotal(11);
         },
         "You may not make or increase a 4 Rolls No 7 bet if the count is in progress."},
        {"Point 7 behind the point", Row::Point7, pointOn,
         "You may not make or increase a Point 7 bet unless the shooter is on a come-out roll."},
        {"7 Point 7 behind the point", Row::SevenPoint7, pointOn,
         "You may not make or increase a 7 Point 7 bet unless the shooter is on a come-out roll."},
        {"Fire in a hand", Row::Fire, [](PlacementTest& f) { f.RollTotal(11); },
         "You may not make or increase a Fire bet after the shooter has started a hand."},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        SubMain(t, &Front);
        t.ShooterBetRequirement = 0;
        Seat(1, "Ann");
        c.Prepare(*this);
        Messages();
        const currency before = t.BetsOnTable[1];
        const BetChange change = PlaceBet(t, 1, c.BetRow, Dollars(5));
        EXPECT_EQ(change.Delta, currency{});
        EXPECT_EQ(Amount(1, c.BetRow), currency{});
        EXPECT_EQ(t.BetsOnTable[1], before);
        ASSERT_EQ(Front.Shown.size(), 1u);
        EXPECT_EQ(Front.Shown[0].Title, std::string(BetName(c.BetRow)) + " Bet");
        EXPECT_EQ(Front.Shown[0].Text, "Ann,\n\n" + c.Text);
        EXPECT_EQ(Front.Shown[0].Buttons, MsgButton::OkStopHideRefusals);

        // The same without a word.
        Messages();
        t.NotifyBits = 14;
        EXPECT_EQ(PlaceBet(t, 1, c.BetRow, Dollars(5)).Delta, currency{});
        t.NotifyBits = 15;
        EXPECT_EQ(CheckBetRules(t, 1, c.BetRow, Dollars(5), Speak::Silent).Delta, currency{});
        EXPECT_THAT(Messages(), IsEmpty());
    }
}

TEST_F(PlacementTest, BetsThatTheTableDoesNotOffer) {
    struct Case {
        bool Settings::*Option;
        int BetRow;
        const char* Bet;
        const char* OptionName;
    };
    const Case cases[] = {
        {&Settings::UseBig68, Row::Big6, "a Big 6 or Big 8", "Use Big 6 && 8 Bets"},
        {&Settings::UseBig68, Row::Big8, "a Big 6 or Big 8", "Use Big 6 && 8 Bets"},
        {&Settings::UseSpecialPropBets, Row::AllSmall, "an All Small", "Use Special Prop Bets"},
        {&Settings::UseSpecialPropBets, Row::FourRollsNo7, "a 4 Rolls No 7", "Use Special Prop Bets"},
        {&Settings::UseSpecialPropBets, Row::SevenPoint7, "a 7 Point 7", "Use Special Prop Bets"},
        {&Settings::UseMidwayBet, Row::Midway, "a Midway", "Use Midway Bet"},
        {&Settings::UseFireBet, Row::Fire, "a Fire", "Use Fire Bet"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(BetName(c.BetRow));
        Bet(1, c.BetRow, 5);
        t.*c.Option = false;
        PlaceBet(t, 1, c.BetRow, Dollars(1));
        EXPECT_EQ(Amount(1, c.BetRow), Dollars(5));
        EXPECT_THAT(Messages(), ElementsAre("[" + std::string(BetName(c.BetRow)) + " Bet] Ann,\n\nYou may not make " +
                                            c.Bet + " bet at his table.\n\n(Unless you check \"" + c.OptionName +
                                            "\" on the\nConfiguration screen.)"));
        MaxOutBet(t, 1, c.BetRow);
        EXPECT_EQ(Amount(1, c.BetRow), Dollars(5));
        RemoveBet(t, 1, c.BetRow);
        EXPECT_EQ(Amount(1, c.BetRow), currency{}) << "a bet may always come down";
        t.*c.Option = true;
        EXPECT_THAT(Messages(), IsEmpty());
    }
}

TEST_F(PlacementTest, RemovalsCanBeUndoneUpToWhatWasEstablished) {
    struct Case {
        const char* Name;
        int BetRow;
        std::int64_t Remove, Request;
        currency Restored;
        const char* Partially;  ///< null: no message
    };
    const Case cases[] = {
        {"all of Don't Pass", Row::DontPass, 20, 20, Dollars(20), nullptr},
        {"a part", Row::DontPass, 20, 5, Dollars(5), nullptr},
        {"too much", Row::DontPass, 20, 30, Dollars(20), ""},
        {"too much upon a part", Row::DontPass, 15, 30, Dollars(20), "partially "},
        {"Don't Come on a number", Row::DontCome4 + 5, 20, 20, Dollars(20), nullptr},
        {"more Don't Come", Row::DontCome4 + 5, 20, 25, Dollars(20), ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        SubMain(t, &Front);
        t.ShooterBetRequirement = 0;
        Seat(1, "Ann");
        Bet(1, Row::DontPass, 20);
        RollTotal(8);
        TravelTo(10, Row::DontCome, 20);
        RollTotal(9);
        Messages();
        PlaceBet(t, 1, c.BetRow, Dollars(-c.Remove));
        PlaceBet(t, 1, c.BetRow, Dollars(c.Request));
        EXPECT_EQ(Amount(1, c.BetRow), c.Restored);
        if (c.Partially == nullptr) {
            EXPECT_THAT(Messages(), IsEmpty());
        } else {
            ASSERT_EQ(Front.Shown.size(), 1u);
            EXPECT_THAT(Front.Shown[0].Text,
                        HasSubstr("\n\nHowever, you're allowed to restore up to $20 here because it was previously "
                                  "established and the dice have not rolled since you " +
                                  std::string(c.Partially) + "removed it."));
        }
        // The dice end the offer.
        RemoveBet(t, 1, c.BetRow);
        RollTotal(5);
        PlaceBet(t, 1, c.BetRow, Dollars(5));
        EXPECT_EQ(Amount(1, c.BetRow), currency{});
    }
}

TEST_F(PlacementTest, RemovedOddsAndBoxesAreNotRestoredAgainstTheRules) {
    Bet(1, Row::DontPass, 10);
    RollTotal(4);
    Bet(1, Row::DontPassOdds, 10);
    RollTotal(3);
    RemoveBet(t, 1, Row::DontPassOdds);
    RemoveBet(t, 1, Row::DontPass);
    PlaceBet(t, 1, Row::DontPassOdds, Dollars(10));
    EXPECT_EQ(Amount(1, Row::DontPassOdds), currency{});
}

TEST_F(PlacementTest, ContractBetsStay) {
    Bet(1, Row::PassLine, 10);
    Bet(1, Row::SevenPoint7, 5);
    RollTotal(8);
    PlaceBet(t, 1, Row::SevenPoint7, Dollars(-5));
    EXPECT_EQ(Amount(1, Row::SevenPoint7), Dollars(5));
    EXPECT_THAT(Messages(), ElementsAre("[7 Point 7 Bet] Ann,\n\nYou may not decrease or remove a 7 Point 7 bet which "
                                        "is established on a point."));
    TravelTo(6, Row::Come, 15);
    struct Case {
        int BetRow;
        std::int64_t Established;
        const char *Untouched, *Above;
    };
    const Case cases[] = {
        {Row::PassLine, 10, "You may not decrease or remove a Pass Line bet while a point is established.",
         "You may not decrease or remove your Pass Line bet"},
        {Row::Come4 + 2, 15, "You may not decrease or remove a Come bet which is established on a point.",
         "You may not decrease or remove an established Come bet."}};
    for (const Case& c : cases) {
        SCOPED_TRACE(BetName(c.BetRow));
        for (const std::int64_t request : {-1, -5, -500}) {
            PlaceBet(t, 1, c.BetRow, Dollars(request));
            EXPECT_EQ(Amount(1, c.BetRow), Dollars(c.Established));
            EXPECT_THAT(Messages(), ElementsAre("[" + std::string(BetName(c.BetRow)) + " Bet] Ann,\n\n" + c.Untouched));
        }
        // What is put on top may come back off, down to what is established.
        Bet(1, c.BetRow, 20);
        PlaceBet(t, 1, c.BetRow, Dollars(-8));
        EXPECT_EQ(Amount(1, c.BetRow), Dollars(c.Established + 12));
        EXPECT_THAT(Messages(), IsEmpty());
        RemoveBet(t, 1, c.BetRow);
        EXPECT_EQ(Amount(1, c.BetRow), Dollars(c.Established));
        EXPECT_THAT(Messages(), ElementsAre(HasSubstr(c.Above)));
        // An absolute amount is laid on an emptied bet.
        for (const std::int64_t wanted : {0, 3}) {
            t.BetsOnTable[1] -= Amount(1, c.BetRow);
            SetBetAmount(t, 1, c.BetRow, {});
            CheckBetRules(t, 1, c.BetRow, Dollars(wanted));
            EXPECT_EQ(Amount(1, c.BetRow), Dollars(c.Established));
            Messages();
        }
    }
    EXPECT_EQ(t.BetsOnTable[1], BetsOnTableOf(t, 1));
}

TEST_F(PlacementTest, ARefusedDecreaseIsNoOccasionToAdjust) {
    Bet(1, Row::PassLine, 171);
    RollTotal(9);
    t.AutoAdjustMode[1] = 2;
    PlaceBet(t, 1, Row::PassLine, Dollars(-2));
    EXPECT_EQ(Amount(1, Row::PassLine), Dollars(171));
}

TEST_F(PlacementTest, AContractBetOutlivesLimitsThatMovedPastIt) {
    Bet(1, Row::PassLine, 100);
    RollTotal(8);
    TravelTo(6, Row::Come, 3);
    t.MaxPlacardBet = Dollars(50);
    PlaceBet(t, 1, Row::PassLine, Dollars(10));
    EXPECT_EQ(Amount(1, Row::PassLine), Dollars(100));
    EXPECT_THAT(
        Messages(),
        ElementsAre("[Pass Line Bet] Ann,\n\nThe maximum Pass Line bet is $50\n\nHowever, because the Pass "
                    "Line is a contract bet and you established it at $100 before you recently lowered the "
                    "maximum allowed on the Configuration screen, it must remain unchanged until it resolves."));
    // Raised above the minimum of old and not down to nothing, when the new minimum can't be paid.
    t.MinPlacardBet = Dollars(5);
    Bet(1, Row::Come4 + 2, 3);
    PlaceBet(t, 1, Row::Come4 + 2, Dollars(-2));
    EXPECT_EQ(Amount(1, Row::Come4 + 2), Dollars(3)) << "below the minimum it falls back to the contract";
    SetBankroll(t, 1, t.BetsOnTable[1] + Dollars(1));
    PlaceBet(t, 1, Row::Come4 + 2, Dollars(1));
    EXPECT_EQ(Amount(1, Row::Come4 + 2), Dollars(3)) << "a dollar doesn't reach the minimum";
}

TEST_F(PlacementTest, RequestsAreWholeChecksAwayFromZero) {
    t.CheckDenominations = {currency{}, Dollars(5), Dollars(10), Dollars(25), Dollars(100), Dollars(500)};
    struct Case {
        currency Request, Amount;
    };
    for (const Case& c : {Case{{75'000}, Dollars(10)}, Case{Dollars(5), Dollars(5)}, Case{{1}, Dollars(5)}}) {
        CheckBetRules(t, 1, Row::Place4, c.Request, Speak::Silent);
        EXPECT_EQ(Amount(1, Row::Place4), c.Amount) << c.Request;
        RemoveBet(t, 1, Row::Place4);
    }
    Bet(1, Row::Place4, 20);
    PlaceBet(t, 1, Row::Place4, currency{-75'000});
    EXPECT_EQ(Amount(1, Row::Place4), Dollars(10));
    PlaceBet(t, 1, Row::Place4, currency{-125'000});
    EXPECT_EQ(Amount(1, Row::Place4), currency{});
    for (const std::int64_t extreme :
         {std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()}) {
        CheckBetRules(t, 1, Row::Place4, currency{extreme}, Speak::Silent);
        EXPECT_EQ(Amount(1, Row::Place4), extreme < 0 ? currency{} : Dollars(1000));
    }
}

TEST_F(PlacementTest, LimitsOfEveryFamily) {
    t.Bankroll[1] = Dollars(1'000'000);
    t.AllowNegativeBankroll[1] = true;
    t.MinPlacardBet = Dollars(10);
    t.MinPlacardPropBet = Dollars(2);
    t.MaxFireBet = Dollars(25);
    Bet(1, Row::PassLine, 10);
    Bet(1, Row::DontPass, 10);
    RollTotal(4);
    TravelTo(6, Row::Come, 10);
    TravelTo(9, Row::DontCome, 10);
    t.HandStart = t.RollTotal;  // Fire is taken before a hand only
    struct Case {
        int BetRow;
        std::int64_t Min, Max;
    };
    const Case cases[] = {
        {Row::Lay4, 10, 2000},
        {Row::Lay4 + 1, 10, 1500},
        {Row::Lay4 + 2, 10, 1200},
        {Row::Come4 + 1, 10, 1000},
        {Row::Place4, 10, 1000},
        {Row::Buy4 + 5, 10, 1000},
        {Row::Come, 10, 1000},
        {Row::DontCome, 10, 1000},
        {Row::Field, 10, 1000},
        {Row::Big6, 10, 1000},
        {Row::Hard4, 2, 428},
        {Row::Hard6, 2, 333},
        {Row::Two, 2, 100},
        {Row::Three, 2, 200},
        {Row::Seven, 2, 750},
        {Row::Craps, 2, 428},
        {Row::CandE, 2, 428},
        {Row::Horn, 2, 444},
        {Row::World, 2, 576},
        {Row::Over7, 2, 3000},
        {Row::Hop13, 2, 200},
        {Row::Hop22, 2, 100},
        {Row::Hop55, 2, 100},
        {Row::Midway, 2, 1000},
        {Row::Fire, 2, 25},
        {Row::PassLineOdds, 10, 20},
        {Row::DontPassOdds, 10, 40},
        {Row::Come4Odds + 2, 10, 25},
        {Row::DontCome4Odds + 4, 10, 30},
    };
    for (const Case& c : cases) {
        const std::string name(BetName(c.BetRow));
        SCOPED_TRACE(name);
        Messages();
        PlaceBet(t, 1, c.BetRow, Dollars(1));
        EXPECT_EQ(Amount(1, c.BetRow), Dollars(c.Min));
        const std::string title = "[" + name + " Bet] Ann,\n\n";
        EXPECT_THAT(Messages(), testing::Contains(title + "The minimum " + name + " bet is $" + std::to_string(c.Min)));
        PlaceBet(t, 1, c.BetRow, Dollars(5'000'000));
        EXPECT_EQ(Amount(1, c.BetRow), Dollars(c.Max));
        EXPECT_THAT(Messages(),
                    testing::Contains(title + "The maximum " + name + " bet is $" + FormatCommas(Dollars(c.Max))));
        // Less than the minimum left is nothing left.
        PlaceBet(t, 1, c.BetRow, Dollars(1 - c.Max));
        EXPECT_EQ(Amount(1, c.BetRow), currency{});
    }
    EXPECT_EQ(t.BetsOnTable[1], BetsOnTableOf(t, 1));
}

TEST_F(PlacementTest, SpecialsHaveTheirLimits) {
    struct Case {
        int BetRow;
        std::int64_t Max;
    };
    for (const Case& c : {Case{Row::AllSmall, 88}, Case{Row::AllTall, 88}, Case{Row::MakeAll, 17},
                          Case{Row::FourRollsNo7, 3000}, Case{Row::Point7, 428}, Case{Row::SevenPoint7, 1000}}) {
        MaxOutBet(t, 1, c.BetRow);
        EXPECT_EQ(Amount(1, c.BetRow), Dollars(c.Max)) << BetName(c.BetRow);
    }
    t.Payoff[Row::Hard4].Pays = currency{};  // nothing can be won: the table's own maximum
    MaxOutBet(t, 1, Row::Hard4);
    EXPECT_EQ(Amount(1, Row::Hard4), Dollars(1000));
    EXPECT_THAT(Messages(), IsEmpty()) << "MaxOutBet is silent";
}

TEST_F(PlacementTest, AMaximumBelowTheMinimumWins) {
    t.MinPlacardPropBet = Dollars(10);
    t.MaxFireBet = Dollars(5);
    PlaceBet(t, 1, Row::Fire, Dollars(1));
    EXPECT_EQ(Amount(1, Row::Fire), Dollars(5));
}

TEST_F(PlacementTest, ABetBelowARaisedMinimumStandsUntilItIsTouched) {
    Bet(1, Row::Place4, 3);
    t.MinPlacardBet = Dollars(5);
    CheckBetRules(t, 1, Row::Place4, currency{});
    EXPECT_EQ(Amount(1, Row::Place4), Dollars(3));
    CheckBetRules(t, 1, Row::Place4, Dollars(-1));
    EXPECT_EQ(Amount(1, Row::Place4), currency{});
}

TEST_F(PlacementTest, TheBankrollCutsABetWithItsVig) {
    struct Case {
        const char* Name;
        int BetRow;
        currency Bankroll;
        bool UpFront;
        std::int64_t Other, Request, Placed;
        const char* Has;
        const char* HasNot;
    };
    const Case cases[] = {
        {"plain", Row::Field, Dollars(30), true, 0, 50, 30, "which is being bet.", "Bet less"},
        {"beside others", Row::Field, Dollars(30), true, 20, 50, 10, "      - Bet less on other bets.", "already"},
        {"odd cents stay", Row::Field, {155'000}, true, 0, 50, 15, "which is being bet.", "Bet less"},
        {"nothing left", Row::Field, Dollars(20), true, 20, 50, 0, "      - Make a withdrawal from the ATM.",
         "being bet"},
        {"Buy with vig: 95 and 5", Row::Buy4, Dollars(100), true, 0, 100, 95, "being bet", "Bet less"},
        {"Buy, vig of wins: all", Row::Buy4, Dollars(100), false, 0, 120, 100, "being bet", "Bet less"},
        {"Lay 4, vig of the win: 98 and 2", Row::Lay4, Dollars(100), true, 0, 100, 98, "being bet", "Bet less"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        SubMain(t, &Front);
        Seat(1, "Ann");
        t.BuyVigOnAllBets = t.LayVigOnAllBets = c.UpFront;
        SetBankroll(t, 1, c.Bankroll);
        if (c.Other > 0) Bet(1, Row::Place4, c.Other);
        t.NotifyBits = 2;
        PlaceBet(t, 1, c.BetRow, Dollars(c.Request));
        EXPECT_EQ(Amount(1, c.BetRow), Dollars(c.Placed));
        EXPECT_LE(t.BetsOnTable[1], BankrollOf(1));
        EXPECT_EQ(t.BetsOnTable[1], BetsOnTableOf(t, 1));
        ASSERT_EQ(Front.Shown.size(), 1u);
        EXPECT_EQ(Front.Shown[0].Title, std::string(BetName(c.BetRow)) + " Bet");
        EXPECT_THAT(Front.Shown[0].Text, HasSubstr("Your options are: "));
        EXPECT_THAT(Front.Shown[0].Text, HasSubstr("\n      - Allow negative bankroll amounts."));
        EXPECT_THAT(Front.Shown[0].Text, HasSubstr(c.Has));
        EXPECT_THAT(Front.Shown[0].Text, Not(HasSubstr(c.HasNot)));
        Messages();
        // A decrease is never cut, and a player in debt may bet on.
        SetBankroll(t, 1, currency{});
        if (c.Placed > 0) {
            PlaceBet(t, 1, c.BetRow, Dollars(-1));
            EXPECT_EQ(Amount(1, c.BetRow), Dollars(c.Placed - 1));
            EXPECT_THAT(Messages(), IsEmpty());
        }
        t.AllowNegativeBankroll[1] = true;
        Bet(1, Row::Big6, 40);
        EXPECT_THAT(Messages(), IsEmpty());
    }
}

TEST_F(PlacementTest, WhatIsTooLittleForTheMinimumIsNotBet) {
    SetBankroll(t, 1, Dollars(7));
    t.MinPlacardBet = Dollars(10);
    PlaceBet(t, 1, Row::Place4, Dollars(10));
    EXPECT_EQ(Amount(1, Row::Place4), currency{});
    ASSERT_EQ(Front.Shown.size(), 1u);
    EXPECT_THAT(Front.Shown[0].Text, HasSubstr("The minimum Place 4 bet is $10"));
}

TEST_F(PlacementTest, AnIncreaseThatTheBankrollForbidsNamesWhatIsBet) {
    SetBankroll(t, 1, Dollars(26));
    Bet(1, Row::Buy4, 25);
    Messages();
    PlaceBet(t, 1, Row::Buy4, Dollars(10));
    EXPECT_EQ(Amount(1, Row::Buy4), Dollars(25));
    ASSERT_EQ(Front.Shown.size(), 1u);
    EXPECT_THAT(Front.Shown[0].Text, HasSubstr("which is already bet."));
    EXPECT_THAT(Front.Shown[0].Text, Not(HasSubstr("Bet less"))) << "its own vig is no other bet";
}

TEST_F(PlacementTest, VigFollowsTheBet) {
    struct Step {
        std::int64_t Request;
        std::int64_t Vig;
        const char* Note;  ///< null: none
    };
    struct Case {
        int BetRow;
        bool UpFront;
        std::vector<Step> Steps;
    };
    const Case cases[] = {
        {Row::Buy4,
         true,
         {{25, 1, "Total vig charge $1"},
          {25, 2, "Vig increased by $1\n\nTotal vig charge $2"},
          {5, 3, "Vig increased by $1\n\nTotal vig charge $3"},  // 2.75
          {1, 3, nullptr},
          {-31, 1, "Vig decreased by $2\n\nTotal vig charge $1"},
          {-25, 0, "Vig charge returned $1"}}},
        {Row::Buy4 + 3,
         false,
         {{40, 2, "If you win, the vig charge will be $2"},
          {20, 3, "Vig increased by $1\n\nIf you win, the vig charge will be $3"},
          {-60, 0, nullptr}}},
        {Row::Lay4,
         true,
         {{40, 1, "Total vig charge $1"},
          {40, 2, "Vig increased by $1\n\nTotal vig charge $2"},
          {-80, 0, "Vig charge returned $2"}}},
        {Row::Lay4 + 1, true, {{30, 1, "Total vig charge $1"}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(BetName(c.BetRow));
        t.BuyVigOnAllBets = t.LayVigOnAllBets = c.UpFront;
        for (const Step& step : c.Steps) {
            SCOPED_TRACE(step.Request);
            const currency before = t.BetsOnTable[1];
            const currency vigBefore = IsBuy(c.BetRow) ? t.BuyVigCharged[1][At(c.BetRow - Row::Buy4)]
                                                       : t.LayVigCharged[1][At(c.BetRow - Row::Lay4)];
            Bet(1, c.BetRow, step.Request);
            const currency vig = IsBuy(c.BetRow) ? t.BuyVigCharged[1][At(c.BetRow - Row::Buy4)]
                                                 : t.LayVigCharged[1][At(c.BetRow - Row::Lay4)];
            EXPECT_EQ(vig, Dollars(step.Vig));
            EXPECT_EQ(t.BetsOnTable[1] - before, Dollars(step.Request) + (c.UpFront ? vig - vigBefore : currency{}));
            if (step.Note == nullptr) {
                EXPECT_THAT(Messages(), IsEmpty());
            } else {
                EXPECT_THAT(Messages(),
                            ElementsAre("[" + std::string(BetName(c.BetRow)) + " Bet] Ann,\n\n" + step.Note));
            }
        }
        RemoveBet(t, 1, c.BetRow);
        Messages();
    }
}

TEST_F(PlacementTest, NotesAreShownByTheirBits) {
    t.NotifyBits = 13;  // no limits
    PlaceBet(t, 1, Row::Place4, Dollars(5000));
    EXPECT_THAT(Messages(), IsEmpty());
    t.NotifyBits = 11;  // no charges
    PlaceBet(t, 1, Row::Buy4, Dollars(25));
    EXPECT_THAT(Messages(), IsEmpty());
    t.NotifyBits = 15;
    t.ScriptRunning = true;  // only refusals reach a player whose script bets
    PlaceBet(t, 1, Row::Place4 + 1, Dollars(5000));
    PlaceBet(t, 1, Row::Buy4 + 1, Dollars(25));
    EXPECT_THAT(Messages(), IsEmpty());
    PlaceBet(t, 1, Row::Come, Dollars(25));
    EXPECT_EQ(Messages().size(), 1u);
    t.ScriptRunning = false;
    t.HyperDriveActive = true;
    PlaceBet(t, 1, Row::Come, Dollars(25));
    PlaceBet(t, 1, Row::Place4 + 2, Dollars(5000));
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(PlacementTest, CheckStacksHoldAnyValueOfTheirField) {
    const currency limit{999'999'999'999'999'999};
    PlaceBet(t, 1, 107, Dollars(-25));
    EXPECT_EQ(Amount(1, 107), Dollars(-25));
    PlaceBet(t, 1, 107, Dollars(75));
    EXPECT_EQ(Amount(1, 107), Dollars(50));
    EXPECT_THAT(Messages(), IsEmpty());
    PlaceBet(t, 1, 107, limit);
    EXPECT_EQ(Amount(1, 107), limit);
    EXPECT_THAT(Messages(),
                ElementsAre("[CheckStack #7] The maximum CheckStack value is: $99,999,999,999,999.9999\n\nwhich is "
                            "being stacked."));
    PlaceBet(t, 1, 101, -limit);
    PlaceBet(t, 1, 101, -limit);
    EXPECT_EQ(Amount(1, 101), -limit);
    EXPECT_THAT(Messages(), ElementsAre(HasSubstr("[CheckStack #1] The minimum CheckStack value is: $-")));
    EXPECT_EQ(t.BetsOnTable[1], currency{});
    EXPECT_EQ(BankrollOf(1), Dollars(10'000));
}

TEST_F(PlacementTest, OnlyPlaceBetsAreBought) {
    Bet(1, Row::Place4 + 4, 25);
    ASSERT_TRUE(CallBet(t, 1, Row::Place4 + 4, true));
    Messages();
    BuyPlaceBet(t, 1, Row::Place4 + 4);
    EXPECT_EQ(Amount(1, Row::Place4 + 4), currency{});
    EXPECT_EQ(Amount(1, Row::Buy4 + 4), Dollars(25));
    EXPECT_EQ(BetWorking(t, 1, Row::Buy4 + 4), 2) << "its call goes along";
    EXPECT_EQ(t.BetsOnTable[1], Dollars(26));
    Messages();
    BuyPlaceBet(t, 1, Row::Field);
    EXPECT_THAT(Messages(), ElementsAre("[Action not allowed] You may only buy Place bets."));
}

TEST_F(PlacementTest, CallingBets) {
    struct Case {
        const char* Name;
        int Start;
        bool On, FromScript;
        int After;
    };
    const Case cases[] = {{"on", 0, true, false, 2},         {"off", 0, false, false, -1},
                          {"on again", 2, true, false, 2},   {"back to default", 2, false, false, 0},
                          {"back, too", -1, true, false, 0}, {"script off", 2, false, true, -1},
                          {"script on", -1, true, true, 2}};
    Bet(1, Row::Place4, 10);
    for (const Case& c : cases) {
        SetBetWorking(t, 1, Row::Place4, c.Start);
        EXPECT_TRUE(CallBet(t, 1, Row::Place4, c.On, c.FromScript));
        EXPECT_EQ(BetWorking(t, 1, Row::Place4), c.After) << c.Name;
    }
    EXPECT_FALSE(CallBet(t, 1, Row::Place4 + 1, true)) << "no bet stands";
    EXPECT_THAT(Messages(), IsEmpty());

    Bet(1, Row::PassLine, 10);
    Bet(1, Row::DontPass, 10);
    for (int row = Row::AllSmall; row <= Row::SevenPoint7; ++row) Bet(1, row, 1);
    Bet(1, Row::Fire, 1);
    RollTotal(8);
    const auto refused = [&](int row) {
        Messages();
        EXPECT_FALSE(CallBet(t, 1, row, false));
        EXPECT_EQ(BetWorking(t, 1, row), 1);
        EXPECT_THAT(Messages(), ElementsAre("[Action not allowed] You may not call the " + std::string(BetName(row)) +
                                            " bet ON or OFF."));
    };
    for (const int row : {88, 89}) refused(row);
    TravelTo(6, Row::Come, 10);
    TravelTo(5, Row::DontCome, 10);
    Bet(1, Row::Come, 10);
    Bet(1, Row::DontCome, 10);
    for (const int row : {43, 45, 46, 48, 8, 21, 84, 85, 86, 87, 91}) refused(row);
}

TEST_F(PlacementTest, FreshBetsTakeTheStateOfTheLine) {
    Bet(1, Row::Place4, 10);
    EXPECT_EQ(BetWorking(t, 1, Row::Place4), 0);
    Bet(1, Row::Hard4, 10);
    EXPECT_EQ(BetWorking(t, 1, Row::Hard4), 1);
    ASSERT_TRUE(CallBet(t, 1, Row::Hard4, false));
    PlaceBet(t, 1, Row::Hard4, Dollars(5));
    EXPECT_EQ(BetWorking(t, 1, Row::Hard4), -1) << "raised, not made";
    RemoveBet(t, 1, Row::Hard4);
    Bet(1, Row::Hard4, 10);
    EXPECT_EQ(BetWorking(t, 1, Row::Hard4), 1);
    RollTotal(9);
    Bet(1, Row::Place4 + 1, 10);
    EXPECT_EQ(BetWorking(t, 1, Row::Place4 + 1), 1);
    EXPECT_EQ(BetWorking(t, 1, Row::Place4), 1) << "the point turned it on";
}

TEST_F(PlacementTest, MaxOddsFollowTheFlatBets) {
    t.AllowNegativeBankroll[1] = true;
    Bet(1, Row::PassLine, 10);
    Bet(1, Row::DontPass, 10);
    RollTotal(4);
    TravelTo(6, Row::Come, 10);
    TravelTo(5, Row::DontCome, 10);
    MaxAllOdds(t, 1);
    MaxAllDontOdds(t, 1);
    EXPECT_EQ(Amount(1, Row::PassLineOdds), Dollars(20));
    EXPECT_EQ(Amount(1, Row::Come4Odds + 2), Dollars(25));
    EXPECT_EQ(Amount(1, Row::DontPassOdds), Dollars(40));
    EXPECT_EQ(Amount(1, Row::DontCome4Odds + 1), Dollars(30));
    EXPECT_EQ(Amount(1, Row::Come4Odds + 3), currency{}) << "no flat bet";
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(PlacementTest, AMoveIsNoRequest) {
    Bet(1, Row::PassLine, 10);
    RollTotal(8);
    Bet(1, Row::Come, 30);
    t.MaxPlacardBet = Dollars(20);
    t.MinPlacardBet = Dollars(20);
    SetBankroll(t, 1, Dollars(5));
    Bet(1, Row::Hop13, 0);
    RollTotal(6);
    EXPECT_EQ(Amount(1, Row::Come), currency{});
    EXPECT_EQ(Amount(1, Row::Come4 + 2), Dollars(30));
    EXPECT_EQ(t.EstablishedBet(1, Row::Come4 + 2), Dollars(30));
    EXPECT_EQ(t.EstablishedBet(1, Row::Come), currency{});
    EXPECT_EQ(t.ComeFlatNow[1][2], Dollars(30));
    EXPECT_EQ(t.BetsOnTable[1], Dollars(40));
}

TEST_F(PlacementTest, PlaceAndBuyBetsComeDownForAComePoint) {
    t.AutoDownPlaceBets[1] = true;
    Bet(1, Row::PassLine, 10);
    RollTotal(8);
    t.WinnerHandling[1] = 2;
    Bet(1, Row::Place4 + 2, 12);
    Bet(1, Row::Buy4 + 2, 20);
    Bet(1, Row::Place4 + 1, 10);
    TravelTo(6, Row::Come, 10);
    EXPECT_EQ(Amount(1, Row::Place4 + 2), currency{});
    EXPECT_EQ(Amount(1, Row::Buy4 + 2), currency{});
    EXPECT_EQ(Amount(1, Row::Place4 + 1), Dollars(10));
    EXPECT_EQ(t.BetsOnTable[1], BetsOnTableOf(t, 1));
}

TEST_F(PlacementTest, ChangedRulesRecomputeReservedVigs) {
    Bet(1, Row::Buy4, 50);
    Bet(1, Row::Lay4, 40);
    EXPECT_EQ(t.BetsOnTable[1], Dollars(93));
    t.BuyVigRounding = 2;
    t.LayVigOnAllBets = false;
    RecomputeVigs(t);
    EXPECT_EQ(t.BuyVigCharged[1][0], Dollars(3));
    EXPECT_EQ(t.BetsOnTable[1], Dollars(93));
}

}  // namespace
}  // namespace tarnwick
