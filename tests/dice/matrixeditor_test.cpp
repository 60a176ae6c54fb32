// Editing the probability matrix: what a typed number does to the others, what is refused, and that the sums stay exact
// whatever is typed.
#include "dice/matrixeditor.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <numeric>
#include <string>
#include <vector>

#include "dice/dice.h"
#include "dice/matrix.h"

namespace tarnwick {
namespace {

class MatrixEditor : public testing::Test {
  protected:
    MatrixEditor() { ResetProbabilityMatrix(T); }

    std::int32_t Value(CellPlace at) const {
        return T.ProbabilityMatrix[1][static_cast<std::size_t>(at.Col)][static_cast<std::size_t>(at.Row)];
    }
    void Put(CellPlace at, std::int32_t value) {
        T.ProbabilityMatrix[1][static_cast<std::size_t>(at.Col)][static_cast<std::size_t>(at.Row)] = value;
    }
    std::vector<int> Faces(int die) const {
        std::vector<int> faces;
        for (int face = 1; face <= 6; ++face) faces.push_back(Value(FacePlace(die, face)));
        return faces;
    }
    std::int64_t SumOfTotal(int total) const {
        std::int64_t sum = 0;
        for (const MatrixCell& cell : MatrixWalk)
            sum += cell.Die1 + cell.Die2 == total ? Value({cell.Col, cell.Row}) : 0;
        return sum;
    }
    std::int64_t SumOfResults() const {
        std::int64_t sum = 0;
        for (int total = 2; total <= 12; ++total) sum += SumOfTotal(total);
        return sum;
    }
    /// What can't be shared equally goes to some cells as a thousandth more.
    void ExpectFaces(int die, const std::vector<int>& wanted) const {
        const std::vector<int> faces = Faces(die);
        for (std::size_t i = 0; i < 6; ++i) EXPECT_NEAR(faces[i], wanted[i], 1) << "face " << i + 1;
    }
    /// All that holds after any edit.
    void ExpectWhole() const {
        EXPECT_EQ(SumOfResults(), 100'000);
        for (const int die : {1, 2}) {
            const std::vector<int> faces = Faces(die);
            EXPECT_EQ(std::accumulate(faces.begin(), faces.end(), 0), 100'000);
        }
        for (int total = 2; total <= 12; ++total) EXPECT_EQ(Value(TotalPlace(total)), SumOfTotal(total)) << total;
        for (const MatrixCell& cell : MatrixWalk) {
            EXPECT_GE(Value({cell.Col, cell.Row}), 0);
            if (IsFreeForm(T)) continue;
            const double product =
                static_cast<double>(Value(FacePlace(1, cell.Die1))) * Value(FacePlace(2, cell.Die2)) / 100'000;
            EXPECT_NEAR(Value({cell.Col, cell.Row}), product, 1.5) << int{cell.Die1} << "." << int{cell.Die2};
        }
    }

    Table T;
};

TEST_F(MatrixEditor, EveryCellHasOneKind) {
    int results = 0, totals = 0, faces = 0;
    for (int col = -1; col <= 9; ++col) {
        for (int row = -1; row <= 15; ++row) {
            const CellKind kind = KindOfCell({col, row});
            results += kind == CellKind::Result;
            totals += kind == CellKind::Total;
            faces += kind == CellKind::Face;
        }
    }
    EXPECT_EQ(results, 36);
    EXPECT_EQ(totals, 11);
    EXPECT_EQ(faces, 12);
    for (const MatrixCell& cell : MatrixWalk) {
        const CellPlace at = ResultPlace(cell.Die1, cell.Die2);
        EXPECT_EQ(at.Col, cell.Col);
        EXPECT_EQ(at.Row, TotalRow(cell.Die1 + cell.Die2)) << "results lie in the row of their total";
    }
}

TEST_F(MatrixEditor, CellsAsTheModesShowThem) {
    Put(ResultPlace(1, 1), 2'778);
    Put(ResultPlace(2, 1), 12'345);
    Put(TotalPlace(7), 10'000);
    Put(FacePlace(2, 6), 20'000);
    struct Case {
        CellPlace At;
        std::array<const char*, 4> Texts;  ///< by mode
    };
    const Case cases[] = {{ResultPlace(1, 1), {"2.778", "0.000", "1.000", "0.000"}},
                          {ResultPlace(2, 1), {"12.345", "+9.567", "4.444", "3.444"}},
                          {TotalPlace(7), {"10.000", "-6.667", "3.600", "-2.400"}},
                          {FacePlace(2, 6), {"20.000", "+3.333", "7.200", "1.200"}},
                          {{1, 12}, {"", "", "", ""}}};
    for (const Case& c : cases) {
        for (int mode = 0; mode < 4; ++mode) {
            T.ProbabilityDisplayMode = mode;
            EXPECT_EQ(CellText(T, c.At), c.Texts[static_cast<std::size_t>(mode)]) << c.At.Col << "," << c.At.Row;
        }
    }
    T.ProbabilityDisplayMode = 2;
    T.RollsOutOf = 36'000'000;
    EXPECT_EQ(CellText(T, TotalPlace(7)), "3,600,000.000");
}

TEST_F(MatrixEditor, TypedNumbersComeBackAsShown) {
    SetFreeForm(T, true);
    struct Case {
        int Mode;
        double RollsOutOf;
        const char* Typed;
        int Value;
    };
    const Case cases[] = {{0, 36, "12.5", 12'500},      {0, 36, " 12.5 % ", 12'500}, {0, 36, "0", 0},
                          {1, 36, "+1", 3'778},         {1, 36, "-1", 1'778},        {2, 36, "4", 11'111},
                          {2, 1'000, "1,000", 100'000}, {3, 36, "1", 5'556},         {3, 36, "-1", 0},
                          {0, 36, "2.7784", 2'778},     {0, 36, "2.7786", 2'779},    {0, 36, "1e1", 10'000}};
    for (const Case& c : cases) {
        ResetProbabilityMatrix(T);
        SetFreeForm(T, true);
        T.ProbabilityDisplayMode = c.Mode;
        T.RollsOutOf = c.RollsOutOf;
        EXPECT_EQ(EnterCell(T, ResultPlace(3, 4), c.Typed), "") << c.Typed;
        EXPECT_EQ(Value(ResultPlace(3, 4)), c.Value) << c.Typed;
        EXPECT_TRUE(IsLocked(T, ResultPlace(3, 4)));
        ExpectWhole();
    }
}

TEST_F(MatrixEditor, TextsThatAreNoNumber) {
    const MatrixCells before = T.ProbabilityMatrix;
    for (const char* text : {"", "abc", "1.2.3", "nan", "inf", "-inf", "1e999", "%", "+", "+-1", "5 6", "0x10"}) {
        EXPECT_EQ(EnterCell(T, FacePlace(1, 1), text), "\"" + std::string(text) + "\" is no number.");
    }
    T.ProbabilityDisplayMode = 2;
    for (const double rolls : {0.0, -1.0, std::numeric_limits<double>::quiet_NaN()}) {
        T.RollsOutOf = rolls;
        EXPECT_EQ(EnterCell(T, FacePlace(1, 1), "1"), "\"1\" is no number.");
    }
    EXPECT_EQ(T.ProbabilityMatrix, before);
    EXPECT_FALSE(T.ProbabilitiesChanged);
}

TEST_F(MatrixEditor, AFaceIsSharedByTheOtherFacesOfItsDie) {
    EXPECT_EQ(EnterCell(T, FacePlace(1, 6), "50"), "");
    ExpectFaces(1, {10'000, 10'000, 10'000, 10'000, 10'000, 50'000});
    EXPECT_EQ(Faces(2)[0], 16'667);
    EXPECT_EQ(EnterCell(T, FacePlace(1, 1), "30"), "");
    ExpectFaces(1, {30'000, 5'000, 5'000, 5'000, 5'000, 50'000});  // the 6 is locked
    EXPECT_EQ(EnterCell(T, FacePlace(1, 2), "20"), "");
    ExpectFaces(1, {30'000, 20'000, 0, 0, 0, 50'000});
    EXPECT_EQ(EnterCell(T, FacePlace(1, 3), "0.001"), "The locked cells leave only 0.000 for this cell.");
    ExpectWhole();
    EXPECT_TRUE(T.ProbabilitiesChanged);
    EXPECT_TRUE(T.GameChanged);
}

TEST_F(MatrixEditor, FacesNeverFallBelowZero) {
    ASSERT_EQ(EnterCell(T, FacePlace(2, 1), "80"), "");
    UnlockAllCells(T);
    ASSERT_EQ(EnterCell(T, FacePlace(2, 2), "50"), "");
    // 46 are missing: each of five gives 9.2, and what four haven't the first gives.
    ExpectFaces(2, {50'000, 50'000, 0, 0, 0, 0});
    ExpectWhole();
}

TEST_F(MatrixEditor, LockedCellsLeaveBounds) {
    ASSERT_EQ(EnterCell(T, FacePlace(1, 1), "40"), "");
    ASSERT_EQ(EnterCell(T, FacePlace(1, 2), "35"), "");
    const MatrixCells before = T.ProbabilityMatrix;
    EXPECT_EQ(EnterCell(T, FacePlace(1, 3), "26"), "This cell takes from 0.000 to 25.000.");
    EXPECT_EQ(EnterCell(T, FacePlace(1, 3), "-1"), "This cell takes from 0.000 to 25.000.");
    EXPECT_EQ(EnterCell(T, FacePlace(1, 1), "70"), "This cell takes from 0.000 to 65.000.");
    EXPECT_EQ(T.ProbabilityMatrix, before);
    for (int face = 3; face <= 6; ++face) ToggleLock(T, FacePlace(1, face));
    EXPECT_EQ(EnterCell(T, FacePlace(1, 1), "39"), "The locked cells leave only 40.000 for this cell.");
    EXPECT_EQ(EnterCell(T, FacePlace(1, 1), "40"), "");
    ToggleLock(T, FacePlace(1, 3));
    EXPECT_EQ(EnterCell(T, FacePlace(1, 1), "39"), "");
    ExpectFaces(1, {39'000, 35'000, 7'250, 6'250, 6'250, 6'250});
}

TEST_F(MatrixEditor, EachModeHasItsCells) {
    EXPECT_EQ(EnterCell(T, ResultPlace(1, 1), "5"), "In Percentage Dice the results follow the faces of the dice.");
    EXPECT_EQ(EnterCell(T, TotalPlace(7), "5"), "In Percentage Dice the results follow the faces of the dice.");
    EXPECT_EQ(EnterCell(T, {1, 12}, "5"), "There is no such cell.");
    ToggleLock(T, ResultPlace(1, 1));
    EXPECT_FALSE(IsLocked(T, ResultPlace(1, 1)));
    ToggleLock(T, FacePlace(1, 1));
    EXPECT_TRUE(IsLocked(T, FacePlace(1, 1)));
    SetFreeForm(T, true);
    EXPECT_FALSE(IsLocked(T, FacePlace(1, 1))) << "faces follow the results";
    EXPECT_EQ(EnterCell(T, FacePlace(1, 1), "5"), "In Free Form Dice the faces follow the results.");
    EXPECT_EQ(EnterCell(T, ResultPlace(1, 1), "5"), "");
}

TEST_F(MatrixEditor, AResultIsSharedByAllOthers) {
    SetFreeForm(T, true);
    ASSERT_EQ(EnterCell(T, ResultPlace(6, 6), "37.778"), "");
    // 35 others give 35 of 100 between them, one percent each.
    for (const MatrixCell& cell : MatrixWalk) {
        if (cell.Die1 + cell.Die2 == 12) continue;
        EXPECT_NEAR(Value({cell.Col, cell.Row}), 1'778, 1) << int{cell.Die1} << "." << int{cell.Die2};
    }
    ExpectWhole();
    EXPECT_NEAR(Faces(1)[5], 37'778 + 5 * 1'778, 5) << "faces show what the results make of them";
    ASSERT_EQ(EnterCell(T, ResultPlace(1, 1), "62.222"), "");
    EXPECT_EQ(Value(ResultPlace(6, 6)), 37'778) << "locked";
    EXPECT_EQ(Value(ResultPlace(3, 4)), 0);
    ExpectWhole();
}

TEST_F(MatrixEditor, ATotalScalesItsResults) {
    SetFreeForm(T, true);
    ASSERT_EQ(EnterCell(T, ResultPlace(3, 4), "5.778"), "");
    UnlockAllCells(T);
    const double share = Value(ResultPlace(3, 4)) / static_cast<double>(Value(TotalPlace(7)));
    const int hard4 = Value(ResultPlace(2, 2)), four = Value(ResultPlace(1, 3));
    ASSERT_EQ(EnterCell(T, TotalPlace(7), "10"), "");
    EXPECT_EQ(Value(TotalPlace(7)), 10'000);
    EXPECT_NEAR(Value(ResultPlace(3, 4)) / 10'000.0, share, 1e-3) << "results keep their proportions";
    EXPECT_GT(Value(ResultPlace(2, 2)), hard4);
    EXPECT_NEAR(Value(ResultPlace(2, 2)) - hard4, Value(ResultPlace(1, 3)) - four, 1) << "others take equal parts";
    ExpectWhole();
    // A locked total keeps its sum, whichever way the change comes.
    ASSERT_EQ(EnterCell(T, TotalPlace(2), "20"), "");
    EXPECT_EQ(Value(TotalPlace(7)), 10'000);
    ASSERT_EQ(EnterCell(T, ResultPlace(5, 6), "9"), "");
    EXPECT_EQ(Value(TotalPlace(7)), 10'000);
    ASSERT_EQ(EnterCell(T, ResultPlace(1, 6), "4"), "");
    EXPECT_EQ(Value(TotalPlace(7)), 10'000);
    EXPECT_EQ(EnterCell(T, ResultPlace(6, 1), "7"), "This cell takes from 0.000 to 6.000.");
    ExpectWhole();
    // Locked results bound their total.
    EXPECT_EQ(EnterCell(T, TotalPlace(7), "3"), "This cell takes from 4.000 to 71.000.");
    ASSERT_EQ(EnterCell(T, TotalPlace(7), "4"), "");
    EXPECT_EQ(Value(ResultPlace(6, 1)), 0);
    ASSERT_EQ(EnterCell(T, TotalPlace(7), "5.001"), "") << "cells of 0 get equal parts";
    EXPECT_NEAR(Value(ResultPlace(6, 1)), 200, 1);
    ExpectWhole();
}

TEST_F(MatrixEditor, ModesChangeIntoEachOther) {
    ASSERT_EQ(EnterCell(T, FacePlace(1, 6), "50"), "");
    const MatrixCells percentage = T.ProbabilityMatrix;
    SetFreeForm(T, true);
    EXPECT_EQ(SumOfTotal(12), percentage[1][1][11]) << "the results stay";
    ASSERT_EQ(EnterCell(T, ResultPlace(1, 1), "20"), "");
    const std::vector<int> faces = Faces(1);
    SetFreeForm(T, false);
    EXPECT_EQ(Faces(1), faces);
    EXPECT_LT(Value(ResultPlace(1, 1)), 20'000) << "as its faces make it";
    ExpectWhole();
}

TEST_F(MatrixEditor, TrueFacesGiveTheTrueTable) {
    const MatrixCells fresh = T.ProbabilityMatrix;
    SetFreeForm(T, true);
    ASSERT_EQ(EnterCell(T, ResultPlace(1, 1), "20"), "");
    SetFreeForm(T, false);
    for (const int die : {1, 2})
        for (int face = 1; face <= 6; ++face) Put(FacePlace(die, face), EqualChance(face - 1, 6));
    ASSERT_EQ(EnterCell(T, FacePlace(1, 1), "16.667"), "");
    for (const MatrixCell& cell : MatrixWalk) {
        EXPECT_EQ(Value({cell.Col, cell.Row}), fresh[1][cell.Col][cell.Row]);
    }
}

TEST_F(MatrixEditor, DiceAboutAnAxis) {
    struct Case {
        AxisThrow First, Second;
        std::vector<int> FirstDie, SecondDie;
    };
    const std::vector<int> fair{16'667, 16'666, 16'667, 16'667, 16'666, 16'667};
    const std::vector<int> no1{0, 20'000, 20'000, 20'000, 20'000, 20'000};
    const std::vector<int> no3{20'000, 20'000, 0, 20'000, 20'000, 20'000};
    const Case cases[] = {{{1, 100}, {3, 100}, no1, no3},
                          {{1, 250}, {1, 0}, no1, fair},
                          {{1, -5}, {1, std::nan("")}, fair, fair},
                          {{2, 40},
                           {1, 40},
                           {18'000, 10'000, 18'000, 18'000, 18'000, 18'000},
                           {10'000, 18'000, 18'000, 18'000, 18'000, 18'000}}};
    for (const Case& c : cases) {
        ResetProbabilityMatrix(T);
        ToggleLock(T, FacePlace(1, 6));
        ComputeAxisDice(T, c.First, c.Second);
        for (const int die : {1, 2}) {
            const std::vector<int>& wanted = die == 1 ? c.FirstDie : c.SecondDie;
            ExpectFaces(die, wanted);
        }
        EXPECT_TRUE(IsLocked(T, FacePlace(1, c.First.Axis)));
        EXPECT_FALSE(IsLocked(T, FacePlace(1, 6))) << "all locks go first";
        ExpectWhole();
    }
    SetFreeForm(T, true);
    ComputeAxisDice(T, {1, 50}, {2, 50});
    EXPECT_FALSE(IsFreeForm(T));
    ExpectWhole();
}

TEST_F(MatrixEditor, UnlockingChangesOnlyLocks) {
    UnlockAllCells(T);
    EXPECT_FALSE(T.ProbabilitiesChanged) << "nothing was locked";
    ASSERT_EQ(EnterCell(T, FacePlace(1, 1), "40"), "");
    T.ProbabilitiesChanged = false;
    const std::vector<int> faces = Faces(1);
    UnlockAllCells(T);
    EXPECT_FALSE(IsLocked(T, FacePlace(1, 1)));
    EXPECT_EQ(Faces(1), faces);
    EXPECT_TRUE(T.ProbabilitiesChanged);
}

TEST_F(MatrixEditor, MatricesThatAreNotWholeAreScaled) {
    for (const bool freeForm : {false, true}) {
        for (const std::int32_t value : {2'778, 0, 1, 1'000'000'000, -7}) {
            ResetProbabilityMatrix(T);
            T.ProbabilityMatrix[0][0][0] = freeForm ? -1 : 0;
            for (auto& column : T.ProbabilityMatrix[1]) column.fill(value);
            ASSERT_EQ(EnterCell(T, freeForm ? ResultPlace(2, 5) : FacePlace(1, 1), "10"), "") << value;
            ExpectWhole();
        }
    }
}

TEST_F(MatrixEditor, AnyEditsKeepTheSums) {
    std::uint32_t state = 12345;
    const auto next = [&state](int n) {
        state = state * 1664525u + 1013904223u;
        return static_cast<int>((state >> 8) % static_cast<std::uint32_t>(n));
    };
    int entered = 0;
    for (int step = 0; step < 3000; ++step) {
        const CellPlace at{1 + next(7), 1 + next(13)};
        switch (next(20)) {
            case 0:
                SetFreeForm(T, !IsFreeForm(T));
                break;
            case 1:
                UnlockAllCells(T);
                break;
            case 2:
                ComputeAxisDice(T, {1 + next(3), static_cast<double>(next(120))}, {1 + next(3), 50.5});
                break;
            case 3:
            case 4:
                ToggleLock(T, at);
                break;
            default:
                entered += EnterCell(T, at, std::to_string(next(40'000) / 1000.0)).empty();
        }
        ExpectWhole();
        if (HasFailure()) FAIL() << "after step " << step;
    }
    EXPECT_GT(entered, 400);
}

}  // namespace
}  // namespace tarnwick
