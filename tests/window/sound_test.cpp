// What is heard at the table, on a device that only writes it down.
#include <gmock/gmock.h>
#include <sys/stat.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QWidget>
#include <cstring>
#include <set>

#include "display/desktopscreen.h"
#include "display/game.h"
#include "display/mainwindow.h"
#include "display/soundplayer.h"
#include "display/words.h"
#include "files/wavefile.h"
#include "stats/accumulators.h"
#include "support/temporaryfolder.h"
#include "support/wave.h"
#include "table/bankroll.h"
#include "table/bets.h"
#include "table/placement.h"
#include "table/players.h"
#include "table/rolldice.h"
#include "table/rundriver.h"
#include "table/session.h"
#include "window/recordingdevice.h"
#include "window/windows.h"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testsupport::TemporaryFolder;
using testsupport::Wave;

void WriteEmpty(const TemporaryFolder& folder, std::initializer_list<const char*> names) {
    for (const char* name : names) folder.Write(name, "");
}

std::vector<std::string> NamesIn(const SoundLibrary& sets, SoundList list) {
    std::vector<std::string> names;
    for (const QString& name : sets.Names(list)) names.push_back(Utf8(name));
    return names;
}

// --- the lists ---

TEST(SoundLists, AreMadeOfTheFilesOfAllFolders) {
    const TemporaryFolder carried, own;
    WriteEmpty(carried, {"Zed02.stk", "Zed17.stk", "soft.dce", "clay.chp", "Chips.win", "readme.txt"});
    WriteEmpty(own, {"ann02.STK", "ANN03.stk", "Bob.of.Reno11.stk", "x1.stk", "07.stk", "SOFT.DCE", "Hard.v2.dce",
                     "%1%2.dce", ".dce", "chips.WIN"});
    QDir(Words(own.Path(""))).mkdir("folder.dce");
    const SoundLibrary sets({Words(carried.Path("")), Words(own.Path("")), "/no/such/folder"});
    EXPECT_THAT(NamesIn(sets, SoundList::StickPersons), ElementsAre("< none >", "ANN", "Bob", "Zed"));
    EXPECT_THAT(NamesIn(sets, SoundList::Dice), ElementsAre("< none >", "%1%2", "Hard", "SOFT", "< random >"));
    EXPECT_THAT(NamesIn(sets, SoundList::Checks), ElementsAre("< none >", "clay", "< random >"));
    EXPECT_THAT(NamesIn(sets, SoundList::Wins), ElementsAre("< none >")) << "the bank's sound is no set";

    const auto own2 = [&](const char* name) { return Words(own.Path(name)); };
    EXPECT_EQ(sets.StickCall(1, 2), own2("ann02.STK"));
    EXPECT_EQ(sets.StickCall(1, 3), own2("ANN03.stk"));
    EXPECT_EQ(sets.StickCall(2, 11), own2("Bob.of.Reno11.stk"));
    EXPECT_EQ(sets.StickCall(2, 12), QString()) << "a call that the set lacks";
    EXPECT_EQ(sets.File(SoundList::Dice, 3, 0), own2("SOFT.DCE")) << "the user's file stands for the carried one";
    EXPECT_EQ(sets.File(SoundList::Dice, 1, 0), own2("%1%2.dce"));
    EXPECT_EQ(sets.BankSound(), own2("chips.WIN"));
}

TEST(SoundLists, NoIndexLeadsOutOfThem) {
    const TemporaryFolder folder;
    WriteEmpty(folder, {"ann02.stk", "hard.dce", "soft.dce", "clay.chp"});
    const SoundLibrary sets({Words(folder.Path(""))});
    for (const SoundList list : AllSoundLists) {
        const int count = static_cast<int>(sets.Names(list).size());
        for (const int index : {-2'000'000'000, -1, 0, count, 999, 2'000'000'000}) {
            EXPECT_EQ(sets.File(list, index, 7), QString()) << index;
            EXPECT_EQ(sets.Within(list, index), index <= 0 ? 0 : count - 1);
        }
    }
    for (const int index : {-2'000'000'000, -1, 0, 2, 999}) EXPECT_EQ(sets.StickCall(index, 2), QString()) << index;
    for (const int number : {-1, 0, 1, 19, 100}) EXPECT_EQ(sets.StickCall(1, number), QString());
    std::set<QString> drawn;
    for (std::uint32_t draw = 0; draw < 10; ++draw) drawn.insert(sets.File(SoundList::Dice, 3, draw));
    EXPECT_THAT(drawn, ElementsAre(Words(folder.Path("hard.dce")), Words(folder.Path("soft.dce"))));
}

TEST(SoundLists, AGameBeginsWithTheFirstSetsAndKeepsItsOwn) {
    const TemporaryFolder folder;
    {
        MainWindow window(folder.Path(""));
        Table& t = window.CurrentGame().T();
        const SoundLibrary& sets = window.CurrentGame().Sounds();
        EXPECT_EQ(sets.Names(SoundList::Dice).value(t.DiceSoundIndex), "soft");
        EXPECT_EQ(t.StickPersonIndex, 1);
        EXPECT_EQ(t.CheckSoundIndex, 1);
        EXPECT_EQ(t.WinSoundIndex, 1);
        t.StickPersonIndex = 2;
        t.DiceSoundIndex = 0;
        t.CheckSoundIndex = 900;
        t.WinSoundIndex = -3;
        ASSERT_TRUE(window.CurrentGame().SaveAtExit());
    }
    MainWindow window(folder.Path(""));
    const Table& t = window.CurrentGame().T();
    EXPECT_EQ(t.StickPersonIndex, 2);
    EXPECT_EQ(t.DiceSoundIndex, 0);
    EXPECT_EQ(window.CurrentGame().Sounds().Names(SoundList::Checks).value(t.CheckSoundIndex), "< random >");
    EXPECT_EQ(t.WinSoundIndex, 0);
}

// --- what is carried ---

/// The loudest sample, 0..1, of a file of 16 bits.
double PeakOf(const QByteArray& bytes, const WaveFacts& wave) {
    int peak = 0;
    for (std::int64_t i = 0; i < wave.Frames; ++i) {
        std::int16_t sample;
        std::memcpy(&sample, bytes.constData() + wave.FirstByte + 2 * i, 2);
        peak = std::max(peak, std::abs(int{sample}));
    }
    return peak / 32768.0;
}

TEST(CarriedSounds, AreWhole) {
    const SoundLibrary sets({":/sounds"});
    QStringList files = {sets.BankSound()};
    const int persons = static_cast<int>(sets.Names(SoundList::StickPersons).size()) - 1;
    EXPECT_GE(persons, 3);
    for (int person = 1; person <= persons; ++person) {
        for (int number = 2; number <= 18; ++number) files << sets.StickCall(person, number);
    }
    for (const SoundList list : {SoundList::Dice, SoundList::Checks, SoundList::Wins}) {
        const int count = static_cast<int>(sets.Names(list).size()) - 2;
        EXPECT_GE(count, 2);
        for (int index = 1; index <= count; ++index) files << sets.File(list, index, 0);
    }
    EXPECT_EQ(files.size(), QDir(":/sounds").entryList(QDir::Files).size()) << "a file that nothing plays";
    std::set<QByteArray> different;
    qint64 size = 0;
    for (const QString& name : files) {
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << Utf8(name);
        const QByteArray bytes = file.readAll();
        const auto wave = ReadWaveHeader({bytes.constData(), static_cast<std::size_t>(bytes.size())}, bytes.size());
        ASSERT_TRUE(wave) << Utf8(name);
        EXPECT_EQ(std::tuple(wave->Rate, wave->Bits, wave->Channels), std::tuple(22050, 16, 1)) << Utf8(name);
        EXPECT_TRUE(50 <= wave->Milliseconds() && wave->Milliseconds() <= 4000) << Utf8(name);
        const double peak = PeakOf(bytes, *wave);
        EXPECT_TRUE(0.25 < peak && peak < 0.95) << Utf8(name) << " " << peak;
        EXPECT_TRUE(different.insert(bytes).second) << Utf8(name) << " is another file's twin";
        size += bytes.size();
    }
    EXPECT_LT(size, 4 << 20);
}

// --- at the table ---

struct SoundTest : testing::Test {
    TemporaryFolder Folder;
    SoundLibrary Sets;
    std::unique_ptr<Table> Game = std::make_unique<Table>();
    Table& T = *Game;
    QWidget Owner;
    DesktopScreen Screen{T, &Owner};
    HeardSounds Heard;
    std::unique_ptr<SoundPlayer> Player;

    void SetUp() override {
        for (int number = 2; number <= 18; ++number) {
            Folder.Write((number < 10 ? "ann0" : "ann") + std::to_string(number) + ".stk", Wave(20));
        }
        for (const char* name : {"hard.dce", "soft.dce", "clay.chp", "bell.win", "gong.win", "Chips.win"}) {
            Folder.Write(name, Wave(20));
        }
        Sets = SoundLibrary({Words(Folder.Path(""))});
        SubMain(T, &Screen);
        ChooseFirstSounds(T, Sets);
        Player = std::make_unique<SoundPlayer>(T, Sets, std::make_unique<RecordingDevice>(Heard));
        Player->Listen(Screen);
        T.ShooterBetRequirement = 0;
        ASSERT_EQ(AddPlayer(T, 1, "Ann", Dollars(1000)), "");
        T.WinnerHandling[1] = T.LoserHandling[1] = 1;
        Heard.Take();
    }
    void TearDown() override { T.Front = nullptr; }

    std::vector<std::string> Roll(int die1, int die2) {
        PadRoll(T, die1, die2);
        return Heard.Take();
    }
    /// Everything that can be asked for.
    void PlayAll() {
        for (int number = 2; number <= 18; ++number) Player->Play(SoundKind::StickCall, number);
        Player->Play(SoundKind::Check, T.CheckSoundIndex);
        Player->Play(SoundKind::Win, T.WinSoundIndex);
        Player->Play(SoundKind::AwaitedWin, T.WinSoundIndex);
        Player->Play(SoundKind::Limit, 0);
        Player->PlayDice();
        for (const SoundList list : AllSoundLists) Player->PlaySample(list);
        Player->PlayFile(Words(Folder.Path("Chips.win")));
    }
};

// "+": it waits for the end of what the stick person says.
TEST_F(SoundTest, AHandIsHeard) {
    PlayComeOutCall(T);
    EXPECT_THAT(Heard.Take(), ElementsAre("ann18.stk+", "ann17.stk+"));
    PlaceBet(T, 1, Row::PassLine, Dollars(10));
    EXPECT_THAT(Heard.Take(), ElementsAre("clay.chp"));
    EXPECT_THAT(Roll(4, 4), ElementsAre("soft.dce", "ann08.stk", "ann16.stk+")) << "a point, the hard way";
    EXPECT_THAT(Roll(4, 5), ElementsAre("soft.dce", "ann09.stk"));
    EXPECT_THAT(Roll(5, 3), ElementsAre("soft.dce", "ann08.stk", "ann13.stk+", "bell.win", "ann17.stk+")) << "made";
    EXPECT_THAT(Roll(1, 1), ElementsAre("soft.dce", "ann02.stk", "ann14.stk+", "ann17.stk+"));
    EXPECT_THAT(Roll(6, 6), ElementsAre("soft.dce", "ann12.stk", "ann15.stk+", "ann17.stk+")) << "barred";
    EXPECT_THAT(Roll(5, 6), ElementsAre("soft.dce", "ann11.stk", "ann13.stk+", "ann17.stk+"));
    Roll(2, 3);
    EXPECT_THAT(Roll(5, 2), ElementsAre("soft.dce", "ann07.stk", "ann14.stk+", "ann18.stk+", "ann17.stk+"))
        << "seven-out";
    T.StickPersonIndex = T.DiceSoundIndex = T.CheckSoundIndex = T.WinSoundIndex = 0;
    PlaceBet(T, 1, Row::PassLine, Dollars(10));
    EXPECT_THAT(Roll(5, 2), IsEmpty()) << "none of all";
}

TEST_F(SoundTest, TheGameWaitsForAWinThatIsAskedAbout) {
    T.WinnerHandling[1] = 0;
    for (const int length : {250, 5000}) {
        Folder.Write("bell.win", Wave(length));
        PlaceBet(T, 1, Row::PassLine, Dollars(10));
        Heard.Take();
        DialogDriver driver({[this](QDialog& d) {
            EXPECT_EQ(Heard.Waited.size(), 1u) << "the question comes after the sound";
            QTest::keyClick(d.windowHandle(), Qt::Key_Return);
        }});
        PadRoll(T, 5, 2);
        EXPECT_EQ(driver.Left(), 0u);
        EXPECT_THAT(Heard.Waited, ElementsAre(std::min(length, 3000)));
        Heard.Waited.clear();
    }
    T.WinnerHandling[1] = 1;
    PlaceBet(T, 1, Row::PassLine, Dollars(10));
    PadRoll(T, 5, 2);
    EXPECT_THAT(Heard.Waited, IsEmpty()) << "nobody is asked";
}

TEST_F(SoundTest, TheBankBreaksWithItsOwnSound) {
    DialogDriver driver({[](QDialog& d) { QTest::keyClick(d.windowHandle(), Qt::Key_Return); },
                         [](QDialog& d) { QTest::keyClick(d.windowHandle(), Qt::Key_Return); }});
    SetBankroll(T, 1, Dollars(10'000'000));
    BankrollLimitStop(T, 1);
    EXPECT_THAT(Heard.Take(), ElementsAre("Chips.win"));
    SetBankroll(T, 1, -Dollars(10'000'000));
    BankrollLimitStop(T, 1);
    EXPECT_THAT(Heard.Take(), IsEmpty()) << "nobody cheers a ruined player";
    EXPECT_EQ(driver.Left(), 0u);
}

TEST_F(SoundTest, RandomIsAnyOfTheSets) {
    T.WinSoundIndex = 3;
    T.DiceSoundIndex = 3;
    std::set<std::string> heard;
    for (int i = 0; i < 100; ++i) {
        Player->Play(SoundKind::Win, T.WinSoundIndex);
        Player->PlayDice();
    }
    for (const std::string& name : Heard.Take()) heard.insert(name);
    EXPECT_THAT(heard, ElementsAre("bell.win", "gong.win", "hard.dce", "soft.dce"));
}

TEST_F(SoundTest, SilenceIsWhole) {
    PlayAll();
    EXPECT_EQ(Heard.Take().size(), 17u + 5u + 4u + 1u);
    T.DisableAllSound = true;
    PlayAll();
    PlaceBet(T, 1, Row::PassLine, Dollars(10));
    EXPECT_THAT(Roll(5, 2), IsEmpty()) << "all sounds disabled";
    T.DisableAllSound = false;
    T.HyperDriveActive = true;
    PlayAll();
    EXPECT_THAT(Heard.Take(), IsEmpty()) << "Hyper-Drive";
    T.HyperDriveActive = false;
    Heard.IsThere = false;
    PlayAll();
    EXPECT_THAT(Roll(5, 2), IsEmpty()) << "no device";
    Heard.IsThere = true;
    T.DisableAutoBetSounds = true;
    PlayAll();
    EXPECT_EQ(Heard.Take().size(), 17u + 5u + 4u) << "all but what scripts play";
}

TEST_F(SoundTest, HyperDriveRollsInSilence) {
    AddPlayer(T, 2, "Bob", Dollars(1000));
    T.AutoRollActive = T.HyperDriveActive = true;
    std::vector<std::string> during;
    QTimer::singleShot(60, &Screen, [&] {
        during = Heard.Take();
        StopAutoRoll(T);
    });
    RollDice(T);
    EXPECT_GT(SessionRolls(T), 1);
    EXPECT_THAT(during, IsEmpty());
}

TEST_F(SoundTest, FilesThatCantBePlayedAreSilent) {
    const std::string whole = Wave(20);
    std::string stereoLie = whole;
    stereoLie[22] = '\xff';
    const std::string paths[] = {
        Folder.Path("missing.wav"),
        Folder.Path(""),
        "",
        "relative-and-missing.wav",
        Folder.Write("empty.wav", ""),
        Folder.Write("cut.wav", whole.substr(0, 40)),
        Folder.Write("lie.wav", stereoLie),
        Folder.Write("text.wav", "RIFF, she said."),
    };
    for (const std::string& path : paths) {
        Screen.PlaySoundFile(path);
        EXPECT_THAT(Heard.Take(), IsEmpty()) << path;
    }
    const std::string pipe = Folder.Path("pipe.wav");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    Screen.PlaySoundFile(pipe);
    Screen.PlaySoundFile("/dev/zero");
    EXPECT_THAT(Heard.Take(), IsEmpty());
    Screen.PlaySoundFile(Folder.Write("good.wav", whole));
    EXPECT_THAT(Heard.Take(), ElementsAre("good.wav"));

    Folder.Write("ann07.stk", "broken");
    QFile::remove(Words(Folder.Path("soft.dce")));
    EXPECT_THAT(Roll(5, 2), ElementsAre("ann13.stk+", "ann17.stk+")) << "the others are heard still";
}

// Nothing is heard: the volume is 0, whatever the computer has.
TEST(Speakers, WaitWithoutLettingTheWindowGo) {
    const TemporaryFolder folder;
    const std::unique_ptr<SoundDevice> device = MakeSpeakers();
    device->SetVolume(0);
    const QString path = Words(folder.Write("a.wav", Wave(10)));
    for (int i = 0; i < 100; ++i) {
        device->Play(SoundChannel::StickPerson, path, 10);
        device->PlayNext(SoundChannel::StickPerson, path, 10);
        device->Play(SoundChannel::Scripts, path, 10);
    }
    QWidget window;
    window.show();
    bool closed = true;
    QTimer::singleShot(10, &window, [&] { closed = window.close(); });
    QElapsedTimer clock;
    clock.start();
    device->Wait(60);
    EXPECT_GE(clock.elapsed(), 59);
    EXPECT_FALSE(closed);
    EXPECT_TRUE(window.close()) << "the wait is over";
}

}  // namespace
}  // namespace tarnwick
