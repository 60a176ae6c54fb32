// The tab "Sound".
#include "display/soundtab.h"

#include <gmock/gmock.h>

#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QScrollBar>

#include "display/soundplayer.h"
#include "support/temporaryfolder.h"
#include "support/wave.h"
#include "table/screen.h"
#include "table/session.h"
#include "window/recordingdevice.h"
#include "window/windows.h"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct SoundTabTest : testing::Test {
    testsupport::TemporaryFolder Folder;
    SoundLibrary Sets;
    std::unique_ptr<Table> Game = std::make_unique<Table>();
    Table& T = *Game;
    SilentScreen Screen;
    HeardSounds Heard;
    std::unique_ptr<SoundPlayer> Player;
    std::unique_ptr<SoundTab> Tab;
    int Changes = 0;

    void SetUp() override {
        for (const char* name : {"ann11.stk", "bob11.stk", "hard.dce", "soft.dce", "clay.chp"}) {
            Folder.Write(name, testsupport::Wave(20));
        }
        Sets = SoundLibrary({Words(Folder.Path(""))});
        SubMain(T, &Screen);
        ChooseFirstSounds(T, Sets);
        Player = std::make_unique<SoundPlayer>(T, Sets, std::make_unique<RecordingDevice>(Heard));
        Tab = std::make_unique<SoundTab>(T, *Player);
        QObject::connect(Tab.get(), &ConfigTab::settingsChanged, [this] { ++Changes; });
        Tab->ShowSettings();
        Tab->show();
        Tab->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(Tab.get()));
    }
    QListWidget& List(const char* name) const { return *Tab->findChild<QListWidget*>(name); }
    void Press(QWidget& control, Qt::Key key, Qt::KeyboardModifiers with = {}) {
        control.setFocus();
        QTest::keyClick(Tab->windowHandle(), key, with);
    }
};

TEST_F(SoundTabTest, ShowsTheSettingsWithoutChangingOrPlaying) {
    T.DisableAutoBetSounds = true;
    T.StickPersonIndex = 2;
    Tab->ShowSettings();
    EXPECT_EQ(List("StickPersonIndex").currentItem()->text(), "bob");
    EXPECT_EQ(List("DiceSoundIndex").currentItem()->text(), "soft");
    EXPECT_EQ(List("CheckSoundIndex").count(), 3);
    EXPECT_EQ(List("WinSoundIndex").currentItem()->text(), "< none >");
    EXPECT_TRUE(Tab->findChild<QCheckBox*>("DisableAutoBetSounds")->isChecked());
    EXPECT_FALSE(Tab->findChild<QCheckBox*>("DisableAllSound")->isChecked());
    EXPECT_FALSE(Tab->findChild<QLabel*>("lblNoDevice")->isVisible());
    EXPECT_EQ(Changes, 0);
    EXPECT_THAT(Heard.Take(), IsEmpty());
    Heard.IsThere = false;
    Tab->ShowSettings();
    EXPECT_TRUE(Tab->findChild<QLabel*>("lblNoDevice")->isVisible());
}

TEST_F(SoundTabTest, AChosenSetIsHeard) {
    QListWidget& persons = List("StickPersonIndex");
    const QPoint bob = persons.viewport()->mapTo(Tab.get(), persons.visualItemRect(persons.item(2)).center());
    QTest::mouseClick(Tab->windowHandle(), Qt::LeftButton, {}, bob);
    EXPECT_EQ(T.StickPersonIndex, 2);
    EXPECT_THAT(Heard.Take(), ElementsAre("bob11.stk"));
    Press(persons, Qt::Key_Return);
    EXPECT_THAT(Heard.Take(), ElementsAre("bob11.stk")) << "once more";
    Press(List("DiceSoundIndex"), Qt::Key_Home);
    EXPECT_EQ(T.DiceSoundIndex, 0);
    EXPECT_THAT(Heard.Take(), IsEmpty());
    Press(List("CheckSoundIndex"), Qt::Key_End);
    EXPECT_EQ(T.CheckSoundIndex, 2);
    EXPECT_THAT(Heard.Take(), ElementsAre("clay.chp"));
    EXPECT_EQ(Changes, 3);
}

TEST_F(SoundTabTest, SwitchesAndVolumeActAtOnce) {
    Press(*Tab, Qt::Key_A, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return T.DisableAllSound; }));
    Press(List("StickPersonIndex"), Qt::Key_Down);
    EXPECT_EQ(T.StickPersonIndex, 2);
    EXPECT_THAT(Heard.Take(), IsEmpty());
    Press(*Tab, Qt::Key_B, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return T.DisableAutoBetSounds; }));
    auto& volume = *Tab->findChild<QScrollBar*>("Volume");
    EXPECT_EQ(volume.value(), 100);
    Press(volume, Qt::Key_Left);
    EXPECT_EQ(Heard.Volume, volume.value());
    EXPECT_LT(Player->Volume(), 100);
    Press(volume, Qt::Key_Home);
    EXPECT_EQ(Heard.Volume, 0);
}

}  // namespace
}  // namespace tarnwick
