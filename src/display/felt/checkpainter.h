// Checks, stacks of them, lammers and the puck: what lies on the felt and at the rail.
#pragma once

#include <QHash>
#include <QPixmap>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <array>
#include <string>
#include <vector>

#include "table/currency.h"

class QPainter;

namespace tarnwick {

struct Table;

/// Checks of an amount, lowest first, as indexes 1..5 of CheckDenominations: the largest that fit, at the bottom.
/// Anything above 0 is at least one check; what is left below the smallest isn't shown. At most `most` checks: then the
/// top ones, so that the small values stay in sight.
std::vector<int> ChecksOf(const std::array<currency, 6>& denominations, currency amount, int most);

/// What stands on a check: "25", "1K", or cents with or without the symbol.
QString DenominationText(currency denomination, bool centsSymbol);

/// A bet as a figure: "$" and the amount with two places.
QString BetFigure(currency amount);

/// What the checks on a table look like.
struct CheckFaces {
    std::array<currency, 6> Denominations{};  ///< 1..5
    bool CentsSymbol = true;
    int Picture = 1;  ///< CheckPicture

    bool operator==(const CheckFaces&) const = default;
};
CheckFaces CheckFacesOf(const Table& t);

/// The looks of checks by CheckPicture; another number stands for one of them.
const std::vector<QString>& CheckPictureNames();
int ShownCheckPicture(int picture);

enum class Lammer { None, On, Off, Buy, Lay };
/// The marker on the bet of player p on row 1..91: what it was called, else BUY or LAY for such a bet.
Lammer LammerOf(const Table& t, int p, int row);

/// Draws checks from pictures of single ones, kept for one size, turn and pixel ratio after another.
class CheckPainter {
  public:
    /// Forgets pictures that no longer fit. `degrees` is how far the table is turned clockwise on the screen.
    void Prepare(const CheckFaces& faces, double degrees, double pixelRatio);

    /// The shadow of a check there.
    void PaintShadow(QPainter& painter, QPointF centre, double diameter);
    /// The empty place of a CheckStack.
    void PaintSlot(QPainter& painter, QPointF centre, double diameter);
    /// One check of denomination 1..5.
    void PaintCheck(QPainter& painter, QPointF centre, double diameter, int denomination);
    /// The stack of an amount with its lowest check on `centre`; returns the centre of the topmost one.
    QPointF PaintStack(QPainter& painter, QPointF centre, double diameter, currency amount);

  private:
    static constexpr int Shadow = 0;  ///< pictures beside those of denominations 1..5
    static constexpr int Slot = 6;

    const QPixmap& Picture(int kind, double diameter);
    void PaintPicture(QPainter& painter, QPointF centre, const QPixmap& picture) const;

    CheckFaces Faces;
    double Degrees = 0;
    double PixelRatio = 1;
    QHash<int, QPixmap> Pictures;  ///< by kind and diameter in device pixels
};

void PaintLammer(QPainter& painter, QPointF centre, double diameter, double degrees, Lammer lammer);
void PaintPuck(QPainter& painter, QPointF centre, double diameter, double degrees, bool on);

/// The figure of a bet, black on a small light plate.
void PaintFigure(QPainter& painter, QPointF centre, double height, currency amount);

}  // namespace tarnwick
