// The dice roll files in examples/ are what their documentation says, and play.

#include <gmock/gmock.h>

#include "dice/dice.h"
#include "dice/dicefile.h"
#include "dice/dicefileedit.h"
#include "support/table_fixture.h"
#include "support/transcript.h"
#include "table/rundriver.h"

namespace tarnwick {
namespace {

using ExampleDice = TableTest;

TEST_F(ExampleDice, TwoHundredRollsPlayToTheEnd) {
    const std::string bytes = testsupport::ReadWholeFile("examples/two-hundred-rolls.rol");
    ASSERT_EQ(bytes.size(), 200u);
    SeedEverything(t, 36);
    for (const char c : bytes) {
        DrawDice(t);
        ASSERT_EQ(static_cast<std::uint8_t>(c), DiceByte(t.Die1, t.Die2)) << "recorded from seed 36";
    }
    Seat(1, "Ann");
    ASSERT_EQ(OpenDiceRollFile(t, "examples/two-hundred-rolls.rol"), "");
    ASSERT_TRUE(SetDiceFileMode(t, 2));
    ToggleAutoRoll(t);
    EXPECT_EQ(SessionRolls(t), 200);
    std::int32_t sevens = 0;
    for (const char c : bytes) {
        const auto roll = static_cast<std::uint8_t>(c);
        sevens += FirstDie(roll) + SecondDie(roll) == 7 ? 1 : 0;
    }
    EXPECT_EQ(RollCount(t, 18, 7), sevens);
    EXPECT_THAT(Messages(), testing::Contains(testing::HasSubstr("Stopped due to end of Dice Roll File reached.")));
    EXPECT_EQ(testsupport::ReadWholeFile("examples/two-hundred-rolls.rol"), bytes) << "a playback changes nothing";
}

}  // namespace
}  // namespace tarnwick
