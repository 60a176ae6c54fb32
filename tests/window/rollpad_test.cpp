// The pad of dice rolls.
#include "display/rollpad.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <QRegularExpression>
#include <QSlider>
#include <set>

#include "table/players.h"
#include "table/rolldice.h"
#include "table/screen.h"
#include "table/session.h"

namespace tarnwick {
namespace {

struct RollPadTest : testing::Test {
    Table T;
    SilentScreen Screen;
    std::unique_ptr<RollPad> Pad;
    std::vector<std::pair<int, int>> Picks;

    void SetUp() override {
        SubMain(T, &Screen);
        Pad = std::make_unique<RollPad>(T, nullptr);
        QObject::connect(Pad.get(), &RollPad::picked, [this](int a, int b) { Picks.emplace_back(a, b); });
    }
    void Click(const char* name) {
        auto* button = Pad->findChild<QPushButton*>(name);
        ASSERT_NE(button, nullptr) << name;
        button->click();
    }
    std::size_t Cells() const {
        return static_cast<std::size_t>(Pad->findChildren<QPushButton*>(QRegularExpression("^cell")).size());
    }
};

TEST_F(RollPadTest, EachFormHasItsCellsAndGivesTheirDice) {
    Pad->SetForm(PadForm::Triangle);
    EXPECT_EQ(Cells(), 21u);
    Click("cell25");
    Pad->SetForm(PadForm::Box);
    EXPECT_EQ(Cells(), 36u);
    Click("cell52");
    EXPECT_EQ(Picks, (std::vector<std::pair<int, int>>{{2, 5}, {5, 2}}));

    Picks.clear();
    Pad->SetForm(PadForm::Faces);
    EXPECT_EQ(Cells(), 12u);
    Click("cell04");
    EXPECT_TRUE(Picks.empty()) << "the second die alone rolls nothing";
    Click("cell30");
    EXPECT_TRUE(Picks.empty());
    Click("cell04");
    EXPECT_EQ(Picks, (std::vector<std::pair<int, int>>{{3, 4}}));
}

TEST_F(RollPadTest, ATotalTakesOneOfItsWays) {
    Pad->SetForm(PadForm::Totals);
    EXPECT_EQ(Cells(), 11u);
    for (int total = 2; total <= 12; ++total) {
        Picks.clear();
        for (int i = 0; i < 200; ++i) Click(("cell0" + std::to_string(total)).c_str());
        std::set<std::pair<int, int>> ways;
        for (const auto& [a, b] : Picks) {
            EXPECT_TRUE(1 <= a && a <= 6 && 1 <= b && b <= 6 && a + b == total) << a << "-" << b;
            ways.emplace(a, b);
        }
        EXPECT_EQ(ways.size(), static_cast<std::size_t>(6 - std::abs(total - 7))) << total;
    }
}

TEST_F(RollPadTest, TheLastRollIsMarked) {
    AddPlayer(T, 1, "Ann", Dollars(100));
    T.ShooterBetRequirement = 0;
    PadRoll(T, 4, 2);
    struct Case {
        int form;
        std::set<QString> marked;
    };
    for (const Case& c : {Case{PadForm::Totals, {"cell06"}}, Case{PadForm::Triangle, {"cell24"}},
                          Case{PadForm::Box, {"cell24", "cell42"}}, Case{PadForm::Faces, {"cell40", "cell02"}}}) {
        Pad->SetForm(c.form);
        std::set<QString> marked;
        for (const QPushButton* b : Pad->findChildren<QPushButton*>(QRegularExpression("^cell"))) {
            if (b->isChecked()) marked.insert(b->objectName());
        }
        EXPECT_EQ(marked, c.marked) << c.form;
    }
}

TEST_F(RollPadTest, TheRunButtonTellsWhatItWillDo) {
    auto* run = Pad->findChild<QPushButton*>("cmdRun");
    auto* speed = Pad->findChild<QSlider*>("hsbThrottle");
    speed->setValue(12);
    EXPECT_EQ(run->text(), "Start &Auto-Roll");
    EXPECT_EQ(T.HyperThrottle, 12);
    speed->setValue(3);
    EXPECT_EQ(run->text(), "Start &Hyper-Drive");
    T.AutoRollActive = true;
    Pad->ShowRunState();
    EXPECT_EQ(run->text(), "Stop &Hyper-Drive");
    T.AutoRollActive = false;
}

}  // namespace
}  // namespace tarnwick
