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
        {"empty table", EmptyTable, 0},
        {"one Pass Line", OnePassLine, 0},
        {"odds and Place bets", OddsAndPlace, 0},
        {"eight Pass Lines", EightPassLines, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        const TablePtr table = c.Build();
        PlaySession(table->T);
        EXPECT_EQ(SessionRolls(table->T), Rolls);
        EXPECT_EQ(Signature(table->T), c.Expected);
    }
}

}  // namespace
}  // namespace tarnwick::bench
