#include "table/bankroll.h"

#include "support/table_fixture.h"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct BankrollTest : TableTest {
    BankrollTest() { Seat(1, "Ann", 1000); }
};

TEST_F(BankrollTest, TransactionsAreCutToWhatIsAllowed) {
    struct Case {
        const char* Name;
        currency Bankroll, OnTable;
        bool Negative;
        currency Request, Moved;
        bool Told;
    };
    const Case cases[] = {
        {"withdrawal", Dollars(1000), {}, false, Dollars(500), Dollars(500), false},
        {"withdrawal to the limit", Dollars(9'999'000), {}, false, Dollars(999), Dollars(999), false},
        {"withdrawal past the limit", Dollars(9'999'000), {}, false, Dollars(1000), Dollars(999), true},
        {"withdrawal beyond the limit", Dollars(10'000'500), {}, false, Dollars(1), {}, true},
        {"deposit", Dollars(1000), Dollars(400), false, Dollars(-600), Dollars(-600), false},
        {"deposit of what is bet", Dollars(1000), Dollars(400), false, Dollars(-601), Dollars(-600), true},
        {"deposit with bets uncovered", Dollars(300), Dollars(400), false, Dollars(-1), {}, true},
        {"deposit into debt", Dollars(1000), Dollars(400), true, Dollars(-5000), Dollars(-5000), false},
        {"deposit to the lower limit", {}, {}, true, Dollars(-10'000'000), Dollars(-9'999'999), false},
        {"the least number",
         Dollars(1000),
         {},
         false,
         {std::numeric_limits<std::int64_t>::min()},
         Dollars(-1000),
         true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        Messages();
        SetBankroll(t, 1, c.Bankroll);
        t.BetsOnTable[1] = c.OnTable;
        t.AllowNegativeBankroll[1] = c.Negative;
        t.BankrollInvested[1] = Dollars(1000);
        EXPECT_EQ(AtmTransaction(t, 1, c.Request), c.Moved);
        for (const int scope : {0, 2, 4}) EXPECT_EQ(t.Bankroll[At(1 + 9 * scope)], c.Bankroll + c.Moved);
        EXPECT_EQ(t.BankrollInvested[1], Dollars(1000) + c.Moved);
        EXPECT_EQ(t.BetsOnTable[1], c.OnTable);
        EXPECT_EQ(Messages().size(), c.Told ? 1u : 0u);
    }
}

TEST_F(BankrollTest, WordsOfACutTransaction) {
    const std::string debt =
        "The full amount of this transaction was not allowed since it would have resulted in a negative current "
        "bankroll.\n\nYou can deposit more by checking the box marked, \"Allow negative bankroll amounts\"";
    struct Case {
        currency OnTable, Request;
        bool Configuration;
        std::vector<std::string> Shown;
    };
    const Case cases[] = {
        {{},
         Dollars(9'999'500),
         false,
         {"[ATM Withdrawal] Requested amount:  $9,999,500\nAllowed amount:  $9,998,999\n\nThe full amount of this "
          "transaction was not allowed since it would have caused the current bankroll to exceed the bank limit of "
          "$9,999,999"}},
        {{}, Dollars(9'999'500), true, {}},
        {{},
         Dollars(-1001),
         false,
         {"[ATM Deposit] Requested amount:  $1,001\nAllowed amount:  $1,000\n\n" + debt +
          " on the Configuration screen."}},
        {{},
         Dollars(-1001),
         true,
         {"[ATM Deposit] Requested amount:  $1,001\nAllowed amount:  $1,000\n\n" + debt + "."}},
        {Dollars(10),
         Dollars(-1001),
         false,
         {"[ATM Deposit] Requested amount:  $1,001\nAllowed amount:  $990\n\n" + debt +
          " on the Configuration screen, and/or by reducing the amount of your current bets."}},
    };
    for (const Case& c : cases) {
        SetBankroll(t, 1, Dollars(1000));
        t.BetsOnTable[1] = c.OnTable;
        AtmTransaction(t, 1, c.Request, c.Configuration);
        EXPECT_EQ(Messages(), c.Shown);
    }
    t.HyperDriveActive = true;
    AtmTransaction(t, 1, Dollars(-5000));
    t.HyperDriveActive = false;
    t.NotifyBits = 14;
    AtmTransaction(t, 1, Dollars(-5000));
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(BankrollTest, BeyondTheLimitNobodyRolls) {
    struct Case {
        currency Bankroll;
        bool Rolls;
        const char* Message;
    };
    const char* hint = "\n\nSelect \"New\" from the \"Game\" menu to reset the table.";
    const Case cases[] = {
        {Dollars(9'999'999), true, ""},
        {Dollars(-9'999'999), true, ""},
        {Dollars(9'999'999) + currency{1}, false,
         "[Tarnwick] Congratulations!\n\nAnn broke the max bankroll limit of $9,999,999"},
        {Dollars(-10'000'000), false, "[Tarnwick] Sorry ... \n\nAnn has exceeded the min bankroll limit of $9,999,999"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Bankroll);
        SetBankroll(t, 1, c.Bankroll);
        const int rolls = SessionRolls(t);
        Roll(1, 2);
        EXPECT_EQ(SessionRolls(t), rolls + (c.Rolls ? 1 : 0));
        EXPECT_FALSE(t.RollInProgress);
        if (c.Rolls) {
            EXPECT_THAT(Messages(), IsEmpty());
        } else {
            EXPECT_THAT(Messages(), ElementsAre(std::string(c.Message) + hint));
        }
    }
}

TEST_F(BankrollTest, TheRollThatBreaksTheLimitIsPaid) {
    SetBankroll(t, 1, Dollars(9'999'990));
    Bet(1, Row::PassLine, 10);
    Roll(3, 4);
    EXPECT_EQ(BankrollOf(1), Dollars(10'000'000));
    EXPECT_EQ(SessionRolls(t), 1);
    EXPECT_THAT(Messages(), ElementsAre(HasSubstr("broke the max bankroll limit")));
}

}  // namespace
}  // namespace tarnwick
