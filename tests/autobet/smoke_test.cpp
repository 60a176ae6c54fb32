#include <gtest/gtest.h>
#include "autobet/scripttable.h"
using namespace tarnwick;
TEST(Smoke, Runs) {
    ScriptTable s;
    EXPECT_EQ(s.Do("bet 5 on passline"), "");
    EXPECT_EQ(s.Bet(1, 43), Dollars(5));
    EXPECT_EQ(s.Worth("2 + 3 * 4"), 14);
    EXPECT_EQ(s.LastStep("cs1 = 5"), "x");
    EXPECT_EQ(s.LastStep("if passline = 5 then : cs2 = 7 : endif"), "x");
    EXPECT_EQ(s.Steps.AllText(), "x");
}
