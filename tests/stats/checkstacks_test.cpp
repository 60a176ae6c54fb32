#include "stats/checkstacks.h"

#include "support/table_fixture.h"

namespace tarnwick {
namespace {

using testing::ElementsAre;

struct CheckStacksTest : TableTest {
    CheckStacksTest() { Seat(2, "Ann", 100); }
    std::vector<std::string> Lines(bool zeroValues) const {
        std::vector<std::string> lines;
        for (const CheckStackLine& line : CheckStackLines(t, 2, zeroValues)) {
            lines.push_back(std::to_string(line.Number) + line.Name + std::to_string(line.Value.TenThousandths));
        }
        return lines;
    }
};

TEST_F(CheckStacksTest, ValuesTouchNoMoney) {
    EXPECT_EQ(SetCheckStack(t, 2, 0, Dollars(-50)), "");
    EXPECT_EQ(SetCheckStack(t, 2, 99, currency{1}), "");
    EXPECT_EQ(CheckStack(t, 2, 0), Dollars(-50));
    EXPECT_EQ(t.Bankroll[2], Dollars(100));
    EXPECT_EQ(t.BetsOnTable[2], currency{});
    const currency most = Dollars(99'999'999'999'999) + currency{9'999};
    for (const currency value : {most, -most}) {
        EXPECT_EQ(SetCheckStack(t, 2, 5, value), "");
        EXPECT_EQ(CheckStack(t, 2, 5), value);
        const currency beyond = value > currency{} ? value + currency{1} : value - currency{1};
        EXPECT_NE(SetCheckStack(t, 2, 5, beyond), "");
        EXPECT_EQ(CheckStack(t, 2, 5), value);
    }
}

TEST_F(CheckStacksTest, ListsAndClearing) {
    SetCheckStack(t, 2, 3, currency{7});
    SetCheckStack(t, 2, 40, currency{-7});
    NameCheckStack(t, 2, 40, "a\r\nb");
    NameCheckStack(t, 2, 41, "named only");
    EXPECT_THAT(Lines(false), ElementsAre("37", "40a  b-7"));
    EXPECT_EQ(Lines(true).size(), 100u);
    ClearCheckStacks(t, 2, true, false);
    EXPECT_TRUE(Lines(false).empty());
    EXPECT_EQ(t.CheckStackName[2][41], "named only");
    SetCheckStack(t, 2, 3, currency{7});
    ClearCheckStacks(t, 2, false, true);
    EXPECT_THAT(Lines(false), ElementsAre("37"));
    EXPECT_EQ(t.CheckStackName[2][41], "");
}

TEST_F(CheckStacksTest, FourDifferentOnesAtTheRail) {
    EXPECT_EQ(SetVisibleStacks(t, 2, {0, 99, 1, 50}), "");
    EXPECT_THAT((std::vector<int>{VisibleStackRow(t, 2, 1), VisibleStackRow(t, 2, 2), VisibleStackRow(t, 2, 3),
                                  VisibleStackRow(t, 2, 4)}),
                ElementsAre(100, 199, 101, 150));
    EXPECT_EQ(SetVisibleStacks(t, 2, {1, 2, 3, 1}), SameVisibleStack);
    EXPECT_NE(SetVisibleStacks(t, 2, {1, 2, 3, 100}), "");
    EXPECT_NE(SetVisibleStacks(t, 2, {-1, 2, 3, 4}), "");
    EXPECT_EQ(VisibleStackRow(t, 2, 2), 199) << "a list that is refused changes nothing";
    EXPECT_EQ(VisibleStackRow(t, 3, 1), 101);
}

}  // namespace
}  // namespace tarnwick
