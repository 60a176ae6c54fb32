// frmRYON: the pad on which the user picks the next roll.
#pragma once

#include <QWidget>
#include <vector>

class QGridLayout;
class QLabel;
class QPushButton;
class QSlider;

namespace tarnwick {

struct Table;

/// The forms of the pad, as Table::PadMode keeps them.
namespace PadForm {
enum : int { Totals = 0, Triangle = 1, Box = 2, Faces = 3 };
}

class RollPad final : public QWidget {
    Q_OBJECT

  public:
    RollPad(Table& t, QWidget* parent);

    /// Takes another form 0..3, which the game keeps.
    void SetForm(int form);
    /// Marks the last roll and counts it.
    void ShowLastRoll();
    /// The captions of the run button follow the run and the throttle.
    void ShowRunState();

  signals:
    /// A pick was made: dice 1..6 each.
    void picked(int die1, int die2);
    void randomWanted();
    void runWanted();

  private:
    struct Cell {
        QPushButton* Button;
        int Die1, Die2;  ///< of a total: 0 and the total; of a single face: the face and 0, or 0 and the face
    };
    void MakeMenu();
    void MakeCells();
    void Press(const Cell& cell);
    QPushButton* AddCell(const QString& caption, int row, int column, int die1, int die2);

    Table& T;
    QWidget* CellBox;
    QGridLayout* Grid = nullptr;
    std::vector<Cell> Cells;
    QLabel* Counter;
    QPushButton* RandomButton;
    QPushButton* RunButton;
    QSlider* Throttle;
    int FirstFace = 0;  ///< die 1 of the faces form, once picked
};

}  // namespace tarnwick
