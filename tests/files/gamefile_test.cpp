// Games saved and opened: everything comes back, and play goes on as if nothing had happened.
#include "files/gamefile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

#include "files/gameimage.h"
#include "files/record.h"
#include "stats/bankrollgraph.h"
#include "support/fulltable.h"
#include "support/temporaryfolder.h"
#include "table/format.h"

namespace tarnwick {
namespace {

using testsupport::FullAt;
using testsupport::MakeFullTable;
using testsupport::PlayRolls;
using testsupport::TemporaryFolder;
using testsupport::TestDice;

std::string BytesOf(const Table& t) {
    GameImage image = ImageOf(t);
    std::vector<std::string> lost;
    return GameBytes(image, lost);
}

/// The first fields by name in which two games differ.
std::string Differences(const std::string& a, const std::string& b) {
    if (a == b) return {};
    if (a.size() != b.size()) return "lengths " + std::to_string(a.size()) + " and " + std::to_string(b.size());
    const auto fresh = std::make_unique<Table>();
    GameImage image = ImageOf(*fresh);
    ReadGame(a, image);
    GameLister lister;
    std::string names;
    lister.Take = [&](const GameField& field) {
        const std::size_t place = 256 * FullAt(field.Record - 1) + field.Byte;
        const std::size_t length = field.IsText ? 56 : field.Name.find("Working") != std::string::npos ? 2 : 4;
        if (a.compare(place, length, b, place, length) == 0 || names.size() > 300) return;
        names += std::to_string(field.Record) + " " + field.Name + " was " + field.Value + "; ";
    };
    VisitGame(lister, image);
    return names.empty() ? "bytes of no field" : names;
}

class GameFileTest : public testing::Test {
  protected:
    static Table& Keep(std::unique_ptr<Table>& place) {
        place = std::make_unique<Table>();
        return *place;
    }
    std::vector<std::string> Messages() {
        std::vector<std::string> texts;
        for (const Message& message : Front.Shown) texts.push_back("[" + message.Title + "] " + message.Text);
        Front.Shown.clear();
        return texts;
    }
    std::string Path(const std::string& name) const { return Folder.Path(name); }

    TemporaryFolder Folder;
    std::string UserPath = Folder.Path("");
    SilentScreen Front;
    std::unique_ptr<Table> First, Second;
    Table& A = Keep(First);
    Table& B = Keep(Second);
};

/// Everything that a reader can ask of the game in play.
void ExpectSamePlay(const Table& a, const Table& b) {
    EXPECT_TRUE(static_cast<const Settings&>(a) == static_cast<const Settings&>(b));
    for (int p = 1; p < Positions; ++p) {
        SCOPED_TRACE(p);
        const std::size_t i = FullAt(p);
        EXPECT_EQ(a.PlayerName[i], b.PlayerName[i]);
        EXPECT_EQ(a.CheckStackName[i], b.CheckStackName[i]);
        EXPECT_EQ(a.VisibleStack[i], b.VisibleStack[i]);
        EXPECT_EQ(a.BuyVigCharged[i], b.BuyVigCharged[i]);
        EXPECT_EQ(a.LayVigCharged[i], b.LayVigCharged[i]);
        EXPECT_EQ(a.ComeFlatNow[i], b.ComeFlatNow[i]);
        EXPECT_EQ(a.PrevBankroll[i], b.PrevBankroll[i]);
        EXPECT_EQ(a.RowsOf[i], b.RowsOf[i]);
        for (int row = 1; row <= Row::LastRow; ++row) {
            ASSERT_EQ(a.BetAmount(p, row), b.BetAmount(p, row)) << row;
            ASSERT_EQ(a.PrevBetAmount(p, row), b.PrevBetAmount(p, row)) << row;
            ASSERT_EQ(a.BetAfterRoll(p, row), b.BetAfterRoll(p, row)) << row;
            if (row <= 85) {
                ASSERT_EQ(a.EstablishedBet(p, row), b.EstablishedBet(p, row)) << row;
            }
            if (row > Row::LastBet) continue;
            if (IsSeated(a, p)) {
                ASSERT_EQ(BetWorking(a, p, row), BetWorking(b, p, row)) << row;
            }
            ASSERT_EQ(a.BetStreak(p, row), b.BetStreak(p, row)) << row;
            ASSERT_EQ(a.PrevBetStreak(p, row), b.PrevBetStreak(p, row)) << row;
        }
    }
    EXPECT_EQ(a.SeatsOn, b.SeatsOn);
    EXPECT_EQ(a.RowsUp, b.RowsUp);
    EXPECT_EQ(a.BetsOnTable, b.BetsOnTable);
    EXPECT_TRUE(a.Bankroll == b.Bankroll);
    const auto play = [](const Table& t) {
        return std::vector<std::int32_t>{
            t.Point,          t.PrevPoint,    t.PrevPrevPoint,  t.LastPoint,       t.Die1,
            t.Die2,           t.DiceTotal,    t.Shooter,        t.HandShooter,     t.LastHandShooter,
            t.PlayerCount,    t.ActivePlayer, t.PointsMadeMask, t.PointsMadeCount, t.MarkedNumbers,
            t.FourRollsCount, t.HandComeouts, t.HandPasses,     t.HandMisses,      t.Rng3State};
    };
    EXPECT_EQ(play(a), play(b));
}

void ExpectSameFigures(const Table& a, const Table& b) {
    const auto of = FiguresOf(a);
    const auto with = FiguresOf(b);
    EXPECT_TRUE(of->RollCount == with->RollCount);
    EXPECT_TRUE(of->RollsSince == with->RollsSince);
    EXPECT_TRUE(of->RollGapTally == with->RollGapTally);
    EXPECT_TRUE(of->PointTally == with->PointTally);
    EXPECT_EQ(of->HandCount, with->HandCount);
    EXPECT_EQ(of->PlayerRolls, with->PlayerRolls);
    EXPECT_EQ(of->MostRolls, with->MostRolls);
    EXPECT_EQ(of->MostComeouts, with->MostComeouts);
    EXPECT_EQ(of->MostPasses, with->MostPasses);
    EXPECT_EQ(of->MostMisses, with->MostMisses);
    EXPECT_TRUE(a.BankrollHigh == b.BankrollHigh);
    EXPECT_TRUE(a.BankrollLow == b.BankrollLow);
    EXPECT_TRUE(a.BankrollBegin == b.BankrollBegin);
    if (a.PlayerCount > 0) {
        EXPECT_EQ(GraphCount(a), GraphCount(b));
    }
    for (int p = 1; p < Positions; ++p) {
        SCOPED_TRACE(p);
        ASSERT_EQ(of->Players[FullAt(p)] == nullptr, with->Players[FullAt(p)] == nullptr);
        if (of->Players[FullAt(p)] == nullptr) continue;
        const PlainPlayerFigures& one = *of->Players[FullAt(p)];
        const PlainPlayerFigures& other = *with->Players[FullAt(p)];
        EXPECT_TRUE(one.BetStats == other.BetStats);
        EXPECT_TRUE(one.ComeFlatSum == other.ComeFlatSum);
        EXPECT_TRUE(one.GraphBankroll == other.GraphBankroll);
        EXPECT_EQ(one.BankrollSum, other.BankrollSum);
        EXPECT_EQ(GraphLow(a, p), GraphLow(b, p));
        EXPECT_EQ(GraphHigh(a, p), GraphHigh(b, p));
        EXPECT_TRUE(GraphAverages(a, p) == GraphAverages(b, p));
    }
}

void ExpectSameViews(const Table& a, const Table& b) {
    EXPECT_EQ(a.FormPlacements, b.FormPlacements);
    EXPECT_EQ(a.SavedView, b.SavedView);
    EXPECT_EQ(a.DiceTotalsMatrix, b.DiceTotalsMatrix);
    EXPECT_EQ(a.PathPoints, b.PathPoints);
    EXPECT_EQ(a.ScriptOutputFile, b.ScriptOutputFile);
    EXPECT_EQ(a.EventsLogHeading, b.EventsLogHeading);
    EXPECT_EQ(a.TableOffsetY, b.TableOffsetY);
    EXPECT_DOUBLE_EQ(a.TableCos, b.TableCos);
    EXPECT_DOUBLE_EQ(a.TableScale, b.TableScale);
    EXPECT_EQ(a.DiceRollOutputFormat, b.DiceRollOutputFormat);
    EXPECT_EQ(a.DiceFileNote, b.DiceFileNote);
}

TEST_F(GameFileTest, ARoundTripIsTheIdentityAndPlayGoesOn) {
    for (const int players : {0, 1, 8}) {
        SCOPED_TRACE(players);
        MakeFullTable(A, &Front, players);
        for (int p = 1; p <= players; ++p) Folder.Write(A.SessionsLogName[FullAt(p)], "");
        ASSERT_TRUE(SaveGame(A, Path("game.crp"), UserPath)) << testing::PrintToString(Messages());
        SubMain(B, &Front);
        ASSERT_TRUE(OpenGame(B, Path("game.crp"), UserPath)) << testing::PrintToString(Messages());
        EXPECT_EQ(B.GameFileName, Path("game.crp"));
        EXPECT_FALSE(B.GameChanged);
        ExpectSamePlay(A, B);
        ExpectSameFigures(A, B);
        ExpectSameViews(A, B);
        EXPECT_EQ(Differences(BytesOf(A), BytesOf(B)), "");

        for (const unsigned seed : {1u, 2u, 3u}) {
            TestDice forA(seed), forB(seed);
            PlayRolls(A, forA, 200);
            PlayRolls(B, forB, 200);
            if (seed == 2) {
                for (Table* t : {&A, &B}) {
                    if (players > 1) MovePlayer(*t, 1, 2);
                    NewSession(*t, {});
                }
            }
        }
        ExpectSamePlay(A, B);
        ExpectSameFigures(A, B);
        EXPECT_EQ(Differences(BytesOf(A), BytesOf(B)), "");
    }
}

TEST_F(GameFileTest, EveryPlotAndMomentOfAHandComesBack) {
    MakeFullTable(A, &Front, 3, 40);
    TestDice dice(5), sameDice(5);
    for (int moment = 0; moment < 36; ++moment) {
        SCOPED_TRACE(moment);
        A.GraphPlotType = moment / 7 % 2;
        PlayRolls(A, dice, moment % 5 == 0 ? 130 : 1);
        if (moment % 13 == 5) RemovePlayer(A, 2);
        if (moment % 13 == 9) AddPlayer(A, 2, "Bertil", Dollars(500));
        GameImage image = ImageOf(A);
        std::vector<std::string> lost;
        const std::string bytes = GameBytes(image, lost);
        GameImage read = ImageOf(B);
        ASSERT_TRUE(ReadGame(bytes, read));
        const Table& back = TableOfImage(read);
        ExpectSamePlay(A, back);
        ExpectSameFigures(A, back);
        ASSERT_EQ(Differences(bytes, BytesOf(back)), "");
    }
}

// --- the bytes ---

std::int64_t Number(const std::string& bytes, int record, int at, int size) {
    const Record r(std::string_view(bytes).substr(256 * FullAt(record - 1), 256));
    return size == 8 ? r.Money(FullAt(at)).TenThousandths : size == 4 ? r.Int32(FullAt(at)) : r.Int16(FullAt(at));
}

std::string TextAt(const std::string& bytes, int record, int at, int length) {
    const std::string text = bytes.substr(256 * FullAt(record - 1) + FullAt(at), FullAt(length));
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

TEST_F(GameFileTest, FieldsLieAtTheirPlaces) {
    MakeFullTable(A, &Front, 8);
    RemovePlayer(A, 1);
    for (const int p : {3, 4, 6, 7, 8}) RemovePlayer(A, p);
    A.PathPoints.clear();
    const std::string bytes = BytesOf(A);
    ASSERT_EQ(bytes.size(), (417u + 466u * 2u) * 256u);
    EXPECT_EQ(TextAt(bytes, 1, 0, 200), "Tarnwick Pro Game File, Data Format 1.0f");
    EXPECT_EQ(TextAt(bytes, 1, 200, 56), "Ext1");
    EXPECT_EQ(TextAt(bytes, 412, 0, 256), "a note");
    EXPECT_EQ(TextAt(bytes, 414, 0, 256), "Total, Roll#");
    const int two = 417, five = 417 + 466;
    EXPECT_EQ(TextAt(bytes, two + 2, 0, 200), "Bertil");
    EXPECT_EQ(TextAt(bytes, five + 2, 0, 200), "Eve");
    EXPECT_EQ(TextAt(bytes, five + 5, 0, 200), "log 5.slg");
    EXPECT_EQ(TextAt(bytes, five + 41 + 7, 0, 256), "stack 7 of Eve");
    constexpr std::int64_t one = CurrencyScale;
    const struct {
        const char* Name;
        int Record, Byte, Size;
        std::int64_t Value;
    } fields[] = {
        {"main state", 2, 0, 4, 2},
        {"frmRYON left", 2, 84, 4, A.Placement(Form::frmRYON).Left},
        {"StatusBoxTop[8]", 2, 180, 4, A.StatusBoxTop[8]},
        {"frmFile left", 3, 220, 4, A.Placement(Form::frmFile).Left},
        {"frmMove top", 3, 244, 4, A.Placement(Form::frmMove).Top},
        {"SavedView[9,3]", 4, 156, 4, 63},
        {"PlayerCount", 5, 0, 4, 2},
        {"Point", 5, 20, 4, A.Point},
        {"Die2", 5, 36, 4, A.Die2},
        {"table width, as a single", 5, 64, 4, 0x44DE2000},
        {"GraphPlayer", 5, 84, 4, 2},
        {"MarkedNumbers", 5, 124, 4, A.MarkedNumbers},
        {"RecordRolls", 9, 52, 4, 0},
        {"ClearLogOnNewSession", 9, 4, 4, -1},
        {"RollsPerHour", 10, 40, 8, 1'445'000},
        {"CompBetMasks[1]", 10, 112, 8, -2147483647 * one},
        {"RollsOutOf", 10, 240, 8, 360 * one},
        {"MinPlacardBet", 11, 0, 8, 2 * one},
        {"LayVigRate", 11, 80, 8, 400},
        {"ReturnAbandonedBets", 11, 184, 8, -one},
        {"CheckDenominations[5]", 12, 64, 8, 1000 * one},
        {"Payoff[1,31]", 13, 240, 8, A.Payoff[31].Pays.TenThousandths},
        {"Payoff[3,31]", 13 + 230 / 32, 230 % 32 * 8, 8, A.Payoff[31].For.TenThousandths},
        {"FieldPayoff[1,1]", 26, 0, 8, 3 * one},
        {"TableColors[7]", 28, 28, 4, 0x123456},
        {"SpotlightLevel", 29, 20, 4, 2},
        {"HouseComeOutWorking[31]", 30, 62, 2, 1},
        {"RollCount[18,0]", 31 + 18 * 91 / 64, 18 * 91 % 64 * 4, 4, SessionRolls(A)},
        {"RollCount[44,90]", 94, 62 * 4, 4, 0},
        {"RollsSince[7]", 95, 28, 4, RollsSince(A, 7)},
        {"RollGapTally[7,1]", 98 + (6 * 201 + 1) / 64, (6 * 201 + 1) % 64 * 4, 4, RollGapTally(A, 7, 1)},
        {"PointTally[18,6,2]", 381 + (18 * 33 + 4 * 3 + 1) / 64, (18 * 33 + 4 * 3 + 1) % 64 * 4, 4,
         PointTally(A, 18, 6, 2)},
        {"HandCount[36]", 405, 144, 4, HandCount(A, 36)},
        {"MostMisses[36]", 410, 144, 4, MostMisses(A, 36)},
        {"EventsLogHeading", 411, 28, 4, 6},
        {"HandComeouts", 411, 40, 4, A.HandComeouts},
        {"KeyInMode", 413, 20, 4, -1},
        {"GraphStyle", 413, 96, 4, 2},
        {"AllowActProb[3]", 415, 44, 4, A.AllowActProb[3] ? -1 : 0},
        {"AutoRollDelay", 416, 0, 8, 25'000},
        {"DiceTotalsMatrix[1,1]", 417, 4, 4, 2},
        {"position of the first block", two + 1, 0, 8, 2 * one},
        {"position of the second block", five + 1, 0, 8, 5 * one},
        {"VisibleStack[1]", five + 1, 48, 8, 105 * one},
        {"AtmAmount", five + 6, 24, 8, 50 * one},
        {"DontBias", five + 6, 128, 8, A.DontBias[5] * one},
        {"PrevBankroll", five + 14, 0, 8, A.PrevBankroll[5].TenThousandths},
        {"BetAmount[107]", five + 7 + 107 / 32, 107 % 32 * 8, 8, A.BetAmount(5, 107).TenThousandths},
        {"BetStreak[43], newest", five + 32 + 142 / 32, 142 % 32 * 4, 4, A.BetStreak(5, 43)},
        {"BetWorking[33]", five + 40, 66, 2, BetWorking(A, 5, 33)},
        {"GraphBankroll[0]", five + 141, 0, 8, GraphBankroll(A, 5, 0).TenThousandths},
        {"GraphBankroll[1050]", five + 173, 26 * 8, 8, GraphBankroll(A, 5, 1050).TenThousandths},
        {"BetStatWagers[23,43,2]", five + 174 + (600 * 2 + 42 * 6 + 1) / 32, (600 * 2 + 42 * 6 + 1) % 32 * 8, 8,
         BetStatWagers(A, 23, 43, 2).TenThousandths},
        {"BetStatLosses[41,46,6]", five + 362 + (600 * 4 + 45 * 6 + 5) / 32, (600 * 4 + 45 * 6 + 5) % 32 * 8, 8,
         BetStatLosses(A, 41, 46, 6).TenThousandths},
        {"Bankroll[41]", five + 461, 9 * 8, 8, A.Bankroll[41].TenThousandths},
        {"HandleUnit[5]", five + 466, 17 * 8, 8, A.HandleUnit[5][5] * one},
    };
    for (const auto& field : fields) {
        EXPECT_EQ(Number(bytes, field.Record, field.Byte, field.Size), field.Value) << field.Name;
    }
}

/// FNV-1a of each record, eight a line.
std::string DigestOf(const std::string& bytes) {
    std::string text;
    for (std::size_t record = 0; record < bytes.size() / 256; ++record) {
        std::uint32_t hash = 2'166'136'261u;
        for (std::size_t i = 0; i < 256; ++i) {
            hash = (hash ^ static_cast<std::uint8_t>(bytes[256 * record + i])) * 16'777'619u;
        }
        char word[16];
        std::snprintf(word, sizeof word, "%08x", hash);
        text += word;
        text += record % 8 == 7 ? '\n' : ' ';
    }
    return text;
}

TEST_F(GameFileTest, AnEightPlayerGameHasTheGoldenBytes) {
    constexpr const char* golden = "tests/golden/gamefile/eight-players.txt";
    MakeFullTable(A, &Front, 8);
    const std::string bytes = BytesOf(A);
    ASSERT_EQ(bytes.size(), (417u + 466u * 8u + 2u) * 256u);
    const char* renew = std::getenv("TARNWICK_RENEW_GOLDEN");
    if (renew != nullptr && *renew == '1') {
        std::ofstream(golden, std::ios::binary) << DigestOf(bytes);
        return;
    }
    std::ifstream file(golden, std::ios::binary);
    const std::string wanted{std::istreambuf_iterator<char>(file), {}};
    ASSERT_FALSE(wanted.empty()) << "run once with TARNWICK_RENEW_GOLDEN=1";
    const std::string got = DigestOf(bytes);
    if (got == wanted) return;
    std::size_t at = 0;
    while (got[at] == wanted[at]) ++at;
    FAIL() << "record " << at / 9 + 1 << " is the first that differs";
}

TEST_F(GameFileTest, AFileWithoutTheMarkHasTheDefaultsBeyondTheFormat) {
    MakeFullTable(A, &Front, 2, 50);
    std::string bytes = BytesOf(A);
    bytes.replace(200, 4, "    ");
    Folder.Write("old.crp", bytes);
    SubMain(B, &Front);
    B.LastPoint = 5;
    B.EditorFontSize = 0;
    ASSERT_TRUE(OpenGame(B, Path("old.crp"), UserPath)) << testing::PrintToString(Messages());
    EXPECT_EQ(B.LastPoint, 0);
    EXPECT_EQ(B.EditorFontSize, FontSize::Normal);
    EXPECT_EQ(B.BetResultsScope, 2);
    EXPECT_TRUE(B.CentreTable);
    EXPECT_EQ(B.TableWidth, A.TableWidth);
    EXPECT_EQ(B.GraphPlayer, A.GraphPlayer);
    EXPECT_EQ(B.PlayerName, A.PlayerName);
}

// --- hostile bytes ---

/// Makes a table of the image and plays; then it must save, open and save to the same bytes.
void ExpectPlayable(GameImage& image, const char* what) {
    Table& t = TableOfImage(image);
    SilentScreen front;
    t.Front = &front;
    t.EventsLogOn = false;
    t.AutoStopRolls = currency{};
    TestDice dice(99);
    PlayRolls(t, dice, 200);
    t.Front = nullptr;
    const std::string bytes = BytesOf(t);
    const auto fresh = std::make_unique<Table>();
    GameImage again = ImageOf(*fresh);
    EXPECT_TRUE(ReadGame(bytes, again)) << what;
    EXPECT_EQ(Differences(bytes, BytesOf(TableOfImage(again))), "") << what;
}

TEST_F(GameFileTest, AFileCutAtAnyRecordLeavesATableThatPlays) {
    MakeFullTable(A, &Front, 2, 80);
    MakeFullTable(B, &Front, 3, 20);
    const std::string bytes = BytesOf(A);
    ASSERT_EQ(bytes.size() / 256, 417u + 466u * 2u + 2u);
    std::string last;
    int outcomes = 0;
    for (std::size_t records = 1; records < bytes.size() / 256; ++records) {
        const std::string_view cut = std::string_view(bytes).substr(0, 256 * records + records % 256);
        // Only whole groups are taken over, so most cuts leave the table that the cut before left.
        if (records % 122 != 1 && records > 35 && (records < 400 || records > 420)) continue;
        GameImage image = ImageOf(B);
        ASSERT_FALSE(ReadGame(cut, image)) << records;
        ASSERT_EQ(FullAt(image.PathPointCount), image.T->PathPoints.size()) << records;
        const std::string now = BytesOf(TableOfImage(image));
        if (now == last) continue;
        last = now;
        ++outcomes;
        GameImage played = ImageOf(B);
        ReadGame(cut, played);
        ExpectPlayable(played, ("cut behind record " + std::to_string(records)).c_str());
    }
    EXPECT_GT(outcomes, 12);
}

TEST_F(GameFileTest, FlippedBytesLeaveATableThatPlays) {
    MakeFullTable(A, &Front, 2, 80);
    const std::string bytes = BytesOf(A);
    const auto fresh = std::make_unique<Table>();
    TestDice random(7);
    for (int round = 0; round < 16; ++round) {
        std::string damaged = bytes;
        for (int flips = random.Pick(1, 4000); flips > 0; --flips) {
            // Half of them where the state of play lies.
            const int size = static_cast<int>(bytes.size());
            const auto at = FullAt(random.Pick(256, random.Pick(0, 1) == 0 ? size - 1 : 256 * 30));
            damaged[at] = static_cast<char>(random.Pick(0, 255));
        }
        GameImage image = ImageOf(*fresh);
        ReadGame(damaged, image);
        ExpectPlayable(image, ("round " + std::to_string(round)).c_str());
    }
}

}  // namespace
}  // namespace tarnwick
