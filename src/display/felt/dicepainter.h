// Dice: those printed on the felt, and the pair that is thrown.
#pragma once

#include <QColor>
#include <QPointF>
#include <QString>
#include <array>
#include <vector>

class QPainter;

namespace tarnwick {

struct Table;

/// How a die looks.
struct DieLook {
    QColor Body;
    QColor Pips;
    bool Casts = false;  ///< has a shadow and a bevel: lies on the felt instead of being printed there
    int Picture = 2;     ///< DieFacePicture: 0 sharp corners, 1 slightly rounded, else round
};

/// The looks of dice by DieFacePicture; another number stands for one of them.
const std::vector<QString>& DicePictureNames();
int ShownDicePicture(int picture);

/// A die's face 1..6, `size` wide, centred on `centre` and turned clockwise by `degrees`, in the painter's units.
void PaintDie(QPainter& painter, QPointF centre, double size, double degrees, int face, const DieLook& look);

/// One of the two dice as it stands at a moment.
struct DiePose {
    QPointF Centre;  ///< pixels of the window
    double Size = 0;
    double Degrees = 0;  ///< clockwise on the screen
    int Face = 1;
};

/// Size of a die in pixels: 32, growing with a table larger than its own units, and never below 24.
double DieSize(double tableScale);

/// Where the dice lie, or fly at `moment` 0..1 of a throw (1: at rest). They show Die1 and Die2 at rest, and lie by the
/// shooter, or in the middle when DiceAction keeps them there.
std::array<DiePose, 2> DicePoses(const Table& t, double moment);

/// Both dice in the colors of the table.
void PaintDice(QPainter& painter, const Table& t, double moment);

/// Whether a throw is to be shown as a movement.
bool DiceFly(const Table& t);

/// The die 1 or 2 at rest under a pixel of the window, 0 for none: within its radius in table units or its square.
int DieUnder(const Table& t, QPointF pixel);

}  // namespace tarnwick
