// The layout of the table: every box, label, line and place of a check, read once from assets/felt.json. Drawing, hot
// spots and the places of checks all come from it. Table units: 1248 wide, x to the right, y -23..537 downward.
#pragma once

#include <QPainterPath>
#include <QPointF>
#include <QString>
#include <array>
#include <optional>
#include <vector>

#include "table/bets.h"

class QByteArray;

namespace tarnwick {

struct Table;

/// Which setting a part of the layout depends on.
enum class LayoutOption { Always, Big68, Midway, NoMidway, Fire, CenterProps };

/// Whether the settings of the table show parts of this option.
bool IsShown(const Table& t, LayoutOption option);

/// A box: a click anywhere in `Path` is a click on bet `BetRow`.
struct FeltRegion {
    QString Name;
    int BetRow = 0;
    int Player = 0;  ///< whose box it is, 0: everybody's
    QPainterPath Path;
    QPointF Seed;  ///< a point inside
    int Color = 0;
    double CheckDiameter = 0;
    LayoutOption Option = LayoutOption::Always;
};

enum class LabelKind {
    Text,
    Caption,     ///< small words inside a number's box, faint
    Payoff,      ///< of bet `Index`
    FieldPays,   ///< "Double" and so on, of FieldPayoff[Index]
    RailLetters  ///< on the padded rail
};

struct FeltLabel {
    QString Text;
    LabelKind Kind = LabelKind::Text;
    QPointF Centre;
    double CapHeight = 0;
    double Width = 0;  ///< of the whole text; 0: as the font has it
    double Angle = 0;  ///< degrees clockwise
    int Color = 0;
    int Index = 0;
    int Mark = 0;   ///< number 2..12 of All Small and All Tall that this belongs to
    int Fire = -1;  ///< point 0..5 of the Fire bet that this belongs to
    LayoutOption Option = LayoutOption::Always;
    QString Region;
};

/// A pair of dice drawn on the felt. Faces 0: those of the barred number.
struct FeltDice {
    std::array<int, 2> Faces{};
    QPointF Centre;
    double Size = 0;
    double Gap = 0;  ///< from centre to centre
    double Angle = 0;
    int Color = 0;
    int PipColor = 0;
    LayoutOption Option = LayoutOption::Always;
    QString Region;
};

/// A line that is no region's edge. A circle has its centre and radius beside the path.
struct FeltLine {
    QPainterPath Path;
    QPointF Centre;
    double Radius = 0;
    double Width = 0;
    int Mark = 0;
    int Fire = -1;
    LayoutOption Option = LayoutOption::Always;
};

/// A player's place at the rail.
struct RailSeat {
    std::array<QPointF, 6> Checks;  ///< 1..5, by denomination
    std::array<QPointF, 5> Stacks;  ///< 1..4, the CheckStacks shown, clockwise
    QPointF NameCentre;
    double NameAngle = 0;
    double NameCapHeight = 0;
    double NameWidth = 0;  ///< the room for it
    QPainterPath Area;
};

struct FeltLayout {
    std::vector<FeltRegion> Regions;
    std::vector<FeltLabel> Labels;
    std::vector<FeltDice> Dice;
    std::vector<FeltLine> Lines;
    std::array<std::array<QPointF, Positions>, Row::LastBet + 1> Spots;  ///< by row 1..91 and position 1..8
    std::array<double, Row::LastBet + 1> CheckDiameter{};                ///< by row 1..91
    std::array<RailSeat, Positions> Seats;                               ///< 1..8
    std::array<std::array<QPointF, 2>, Positions> ThrownDice;            ///< by shooter 0..8
    std::array<std::array<QPointF, 2>, 6> PuckOn;                        ///< by PointIndex, one at each end
    std::array<QPointF, 2> PuckOff;
    double PuckRadius = 0;
};

/// The whole table: its extent, the centre that it turns about, and sizes that hold for every check and die.
namespace FeltSpace {
constexpr double Width = 1248;
constexpr double Top = -23;
constexpr double Bottom = 537;
constexpr double Height = Bottom - Top;
constexpr double CentreX = 624;
constexpr double CentreY = 257;
constexpr double RailCheckDiameter = 23;
constexpr double RailSpotRadius = 12;
}  // namespace FeltSpace

/// Reads a layout. Nothing for text that is none, with the reason in `error`.
std::optional<FeltLayout> ReadFeltLayout(const QByteArray& json, QString& error);

/// The layout that the program carries, read at the first call.
const FeltLayout& TheFelt();

/// Place of the checks of player p (1..8) on row 1..91, where they were left if they aren't arranged, or on CheckStack
/// row 100..199 when it is shown at the rail; else nothing.
std::optional<QPointF> BetSpot(const Table& t, int p, int row);

}  // namespace tarnwick
