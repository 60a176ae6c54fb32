// What a run records reaches the file while it goes on.

#include <gmock/gmock.h>

#include <filesystem>

#include "dice/dicefile.h"
#include "support/table_fixture.h"
#include "support/temporaryfolder.h"
#include "table/rundriver.h"

namespace tarnwick {
namespace {

struct Recording : TableTest {
    void Record(int throttle, std::int32_t rolls) {
        ASSERT_EQ(OpenDiceRollFile(t, Path), "");
        ASSERT_TRUE(SetDiceFileMode(t, 1));
        t.HyperThrottle = throttle;
        t.AutoRollDelay = {};
        t.RunUntilRoll = rolls;
        Seat(1, "Ann");
        ToggleAutoRoll(t);
    }
    std::int64_t Length() const { return static_cast<std::int64_t>(std::filesystem::file_size(Path)); }

    testsupport::TemporaryFolder Folder;
    std::string Path = Folder.Path("a.rol");
};

TEST_F(Recording, AHyperDriveWritesWheneverItServesTheUser) {
    std::int64_t behind = 0;
    std::int32_t before = 0;
    Front.OnPump = [&] {
        behind += before - Length();  // what was rolled by the last pump must be there now
        before = SessionRolls(t);
    };
    Record(0, 20'000);
    EXPECT_GT(Front.Pumps, 3);
    EXPECT_EQ(behind, 0);
    EXPECT_EQ(Length(), 20'000);
}

TEST_F(Recording, AnAutoRollWritesEveryRoll) {
    std::vector<std::int64_t> missing;
    Front.OnPump = [&] { missing.push_back(SessionRolls(t) - Length()); };
    Record(12, 5);
    EXPECT_EQ(Length(), 5);
    EXPECT_THAT(missing, testing::Each(0));
    EXPECT_GE(missing.size(), 4u);
}

TEST_F(Recording, AFileThatIsGoneEndsTheRun) {
    for (const int throttle : {0, 12}) {
        Front.Shown.clear();
        Front.OnPump = [&] { std::filesystem::remove(Path); };
        Record(throttle, 1'000'000);
        EXPECT_FALSE(t.AutoRollActive);
        EXPECT_LT(SessionRolls(t), 20'000);
        EXPECT_EQ(t.DiceFileMode, 0);
        EXPECT_FALSE(Messages().empty());
        RemovePlayer(t, 1);
        CloseDiceRollFile(t);
    }
}

}  // namespace
}  // namespace tarnwick
