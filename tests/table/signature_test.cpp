// Pins what the benchmarked sessions come to: a faster roll is the same roll. Whoever moves a number says why.

#include <gmock/gmock.h>

#include "../bench/tables.h"
#include "stats/accumulators.h"

namespace tarnwick::bench {
namespace {

TEST(Signatures, BenchmarkedSessionsComeToWhatTheyDid) {
    struct Case {
        const char* Name;
        TablePtr (*Build)();
        std::uint64_t Expected;
    };
    const Case cases[] = {
        {"empty table", EmptyTable, 0xb9b23f3a46fd0825},
        {"one Pass Line", OnePassLine, 0xa68c050a07355dde},
        {"odds and Place bets", OddsAndPlace, 0x321fc628fd6ee4e1},
        {"eight Pass Lines", EightPassLines, 0x11e4728f978e96f5},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        const TablePtr table = c.Build();
        PlaySession(table->T);
        EXPECT_EQ(SessionRolls(table->T), Rolls);
        EXPECT_EQ(Signature(table->T), c.Expected) << std::hex << Signature(table->T);
    }
}

TEST(Signatures, PassLineComesToWhatTheDiceAloneSay) {
    const TablePtr table = OnePassLine();
    const TablePtr dice = OnePassLine();
    PlaySession(table->T);
    currency bankroll = dice->T.Bankroll[1];
    int point = 0;
    for (std::int32_t i = 0; i < Rolls; ++i) {
        DrawDice(dice->T);
        const int total = dice->T.Die1 + dice->T.Die2;
        const bool wins = point == 0 ? total == 7 || total == 11 : total == point;
        const bool loses = point == 0 ? total == 2 || total == 3 || total == 12 : total == 7;
        if (wins) bankroll += Dollars(10);
        if (loses) bankroll -= Dollars(10);
        point = wins || loses ? 0 : point == 0 ? total : point;
    }
    EXPECT_EQ(table->T.Bankroll[1], bankroll);
}

}  // namespace
}  // namespace tarnwick::bench
