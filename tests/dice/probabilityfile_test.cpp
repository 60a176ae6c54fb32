// Probability files: every byte, damaged files, names and the questions about unsaved changes.
#include "dice/probabilityfile.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "dice/dice.h"
#include "dice/matrix.h"
#include "dice/matrixeditor.h"
#include "support/temporaryfolder.h"
#include "table/screen.h"

namespace tarnwick {
namespace {

using testsupport::TemporaryFolder;

class ProbabilityFiles : public testing::Test {
  protected:
    ProbabilityFiles() {
        T.Front = &Front;
        ResetProbabilityMatrix(T);
    }
    static std::string Number(std::int32_t value) {
        std::string bytes;
        for (int i = 0; i < 4; ++i) bytes += static_cast<char>(static_cast<std::uint32_t>(value) >> 8 * i & 0xFF);
        return bytes;
    }
    static std::string Head() {
        std::string head = "Tarnwick Probability File, Data Format 4.6";
        head.resize(200, ' ');
        head.resize(256, '\0');
        return head;
    }
    /// A matrix in which every value is known by its place.
    static MatrixCells Numbered() {
        MatrixCells cells{};
        for (int col = 0; col < 8; ++col) {
            for (int row = 0; row < 14; ++row) {
                cells[1][static_cast<std::size_t>(col)][static_cast<std::size_t>(row)] = 1000 * col + row;
                if (col > 0) cells[0][static_cast<std::size_t>(col)][static_cast<std::size_t>(row)] = row % 2 * 128;
            }
        }
        cells[0][0] = {-1, 3, 5, 7};
        return cells;
    }

    TemporaryFolder Folder;
    SilentScreen Front;
    Table T;
};

TEST_F(ProbabilityFiles, EveryByteAtItsPlace) {
    const MatrixCells cells = Numbered();
    std::string bytes = Head();
    for (const auto& kind : cells)
        for (const auto& column : kind)
            for (const std::int32_t value : column) bytes += Number(value);
    bytes.resize(5 * 256, '\0');
    EXPECT_EQ(ProbabilityFileBytes(cells), bytes);
    MatrixCells read{};
    ASSERT_TRUE(ProbabilitiesFromBytes(bytes, read));
    EXPECT_EQ(read, cells);
    // Whatever fills the rest of the last record is no part of it.
    EXPECT_TRUE(ProbabilitiesFromBytes(bytes.substr(0, 256 + 224 * 4), read));
    EXPECT_TRUE(ProbabilitiesFromBytes(bytes + std::string(1000, 'x'), read));
    EXPECT_EQ(read, cells);
}

TEST_F(ProbabilityFiles, AFileCutShortLeavesTheRest) {
    const std::string bytes = ProbabilityFileBytes(Numbered());
    for (std::size_t length = 200; length <= 256 + 224 * 4; ++length) {
        MatrixCells cells{};
        for (auto& kind : cells)
            for (auto& column : kind) column.fill(128);
        ASSERT_TRUE(ProbabilitiesFromBytes(bytes.substr(0, length), cells));
        const std::size_t whole = length < 256 ? 0 : (length - 256) / 4;
        std::size_t n = 0;
        const MatrixCells numbered = Numbered();
        for (std::size_t kind = 0; kind < 2; ++kind)
            for (std::size_t col = 0; col < 8; ++col)
                for (std::size_t row = 0; row < 14; ++row, ++n) {
                    if (kind == 0 && col == 0) continue;  // mode and selected cell
                    ASSERT_EQ(cells[kind][col][row], n < whole ? numbered[kind][col][row] : 128) << length;
                }
    }
}

TEST_F(ProbabilityFiles, OtherFilesAreRefused) {
    const MatrixCells before = Numbered();
    const std::string good = ProbabilityFileBytes(before);
    struct Case {
        const char* Name;
        std::string Bytes;
    };
    std::string older = good, negative = good, tail = good;
    older[41] = '5';
    tail[199] = 'x';
    negative.replace(256 + 4 * (112 + 14 * 2 + 1), 4, Number(-1));  // 1.1
    const Case cases[] = {{"no bytes", ""},
                          {"an older version", older},
                          {"more text behind the head", tail},
                          {"half a head", good.substr(0, 20)},
                          {"a chance below 0", negative},
                          {"a game", "Tarnwick Pro Game File, Data Format 1.0f"}};
    for (const Case& c : cases) {
        MatrixCells cells = before;
        EXPECT_FALSE(ProbabilitiesFromBytes(c.Bytes, cells)) << c.Name;
        EXPECT_EQ(cells, before) << c.Name;
    }
    std::string blanks = good;
    blanks.replace(0, 200, "  " + good.substr(0, 198));
    MatrixCells cells{};
    EXPECT_TRUE(ProbabilitiesFromBytes(blanks, cells)) << "the head is trimmed";
}

TEST_F(ProbabilityFiles, StatesAreMadeSound) {
    MatrixCells cells = Numbered();
    cells[0][3][4] = 135;
    cells[0][5][5] = -1;
    cells[0][6][6] = 7;
    cells[0][0][1] = 99;
    MatrixCells read{};
    ASSERT_TRUE(ProbabilitiesFromBytes(ProbabilityFileBytes(cells), read));
    EXPECT_EQ(read[0][3][4], 128);
    EXPECT_EQ(read[0][5][5], 128);
    EXPECT_EQ(read[0][6][6], 0);
    EXPECT_EQ(read[0][0][1], 1);
    EXPECT_EQ(read[0][0][2], 6);
}

TEST_F(ProbabilityFiles, SavingAndOpening) {
    ComputeAxisDice(T, {1, 50}, {3, 70});
    EXPECT_TRUE(T.ProbabilitiesChanged);
    const MatrixCells saved = T.ProbabilityMatrix;
    EXPECT_EQ(ProbabilityTitle(T), "untitled");
    ASSERT_EQ(SaveProbabilities(T, Folder.Path("axis.prb")), "");
    EXPECT_FALSE(T.ProbabilitiesChanged);
    EXPECT_EQ(ProbabilityTitle(T), Folder.Path("axis.prb"));
    NewProbabilities(T);
    EXPECT_EQ(ProbabilityTitle(T), "untitled");
    EXPECT_NE(T.ProbabilityMatrix, saved);
    ASSERT_TRUE(OpenChosenProbabilities(T, Folder.Path("axis.prb")));
    EXPECT_EQ(T.ProbabilityMatrix, saved);
    EXPECT_EQ(T.ProbabilityFileName, Folder.Path("axis.prb"));
    EXPECT_TRUE(Front.Shown.empty());
    EXPECT_FALSE(T.UseSkewedProbability) << "a matrix is thrown when the user says so";
}

TEST_F(ProbabilityFiles, FaultsLeaveTheTableAsItWas) {
    ASSERT_EQ(SaveProbabilities(T, Folder.Path("good.prb")), "");
    ComputeAxisDice(T, {1, 50}, {3, 70});
    const MatrixCells before = T.ProbabilityMatrix;
    Folder.Write("bad.prb", "Tarnwick Probability File, Data Format 4.5");
    struct Case {
        std::string Path;
        const char *Title, *Text;
    };
    const Case cases[] = {{Folder.Path("bad.prb"), "Unable to Open Probability File",
                           "bad.prb\nis either from an older version, has been corrupted, or is not a true Tarnwick "
                           "Probability File."},
                          {Folder.Path("missing.prb"), "Error", "Path, file, or device error."},
                          {Folder.Path("."), "Error", "Path, file, or device error."}};
    for (const Case& c : cases) {
        for (const bool tell : {false, true}) {
            EXPECT_FALSE(tell ? OpenChosenProbabilities(T, c.Path) : OpenProbabilities(T, c.Path)) << c.Path;
            ASSERT_EQ(Front.Shown.size(), tell ? 1u : 0u) << c.Path;
        }
        EXPECT_EQ(Front.Shown[0].Title, c.Title);
        EXPECT_EQ(Front.Shown[0].Text, c.Text);
        Front.Shown.clear();
    }
    const std::string missing = Folder.Path("missing/axis.prb");
    EXPECT_EQ(SaveProbabilities(T, missing), missing + " can't be written: No such file or directory.");
    EXPECT_EQ(T.ProbabilityMatrix, before);
    EXPECT_EQ(T.ProbabilityFileName, Folder.Path("good.prb"));
    EXPECT_TRUE(T.ProbabilitiesChanged);
}

TEST_F(ProbabilityFiles, AnUnsavedMatrixIsCarriedToTheNextStart) {
    ComputeAxisDice(T, {2, 10}, {2, 20});
    T.ProbabilityFileName = "named.prb";
    const MatrixCells unsaved = T.ProbabilityMatrix;
    ASSERT_EQ(SaveUnsavedMatrix(T, Folder.Path("default.prb")), "");
    EXPECT_EQ(T.ProbabilityFileName, "named.prb");
    EXPECT_TRUE(T.ProbabilitiesChanged);
    Table next;
    ResetProbabilityMatrix(next);
    EXPECT_FALSE(OpenUnsavedMatrix(next, Folder.Path("missing.prb")));
    EXPECT_FALSE(next.ProbabilitiesChanged);
    ASSERT_TRUE(OpenUnsavedMatrix(next, Folder.Path("default.prb")));
    EXPECT_EQ(next.ProbabilityMatrix, unsaved);
    EXPECT_EQ(ProbabilityTitle(next), "untitled") << "or the user's changes would go into the standing file";
    EXPECT_TRUE(next.ProbabilitiesChanged);
}

TEST_F(ProbabilityFiles, QuestionAboutUnsavedChanges) {
    EXPECT_EQ(AskAboutUnsaved(T), UnsavedChoice::Nothing);
    EXPECT_TRUE(Front.Shown.empty());
    T.ProbabilitiesChanged = true;
    const std::pair<int, UnsavedChoice> answers[] = {{MsgAnswer::Yes, UnsavedChoice::Save},
                                                     {MsgAnswer::No, UnsavedChoice::Discard},
                                                     {MsgAnswer::Cancel, UnsavedChoice::Cancel}};
    for (const auto& [button, choice] : answers) {
        Answer answer;
        answer.Result = button;
        Front.Answers.push_back(answer);
        EXPECT_EQ(AskAboutUnsaved(T), choice);
        EXPECT_EQ(Front.Shown.back().Title, "Save Probabilities?");
        EXPECT_EQ(Front.Shown.back().Text, "These numbers have not been saved.\nDo you want to save them now?");
    }
    EXPECT_TRUE(T.ProbabilitiesChanged);
}

TEST_F(ProbabilityFiles, NamesWithoutAPathLieInTheUsersFolder) {
    const char* const cases[][3] = {{"/home/ann", "a.prb", "/home/ann/a.prb"},
                                    {"/home/ann", "x/a.prb", "x/a.prb"},
                                    {"/home/ann", "C:a.prb", "C:a.prb"},
                                    {"/home/ann", "x\\a.prb", "x\\a.prb"},
                                    {"", "a.prb", "a.prb"}};
    for (const auto& [folder, name, path] : cases) EXPECT_EQ(ProbabilityPath(folder, name), path);
}

}  // namespace
}  // namespace tarnwick
