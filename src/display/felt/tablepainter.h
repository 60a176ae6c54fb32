// What moves during play: checks, markers, puck, marks of the multi-roll bets, names at the rail and dice.
#pragma once

#include "display/felt/checkpainter.h"

class QPainter;

namespace tarnwick {

struct Table;

/// What one picture shows beside the state of the table.
struct TableMoment {
    double Throw = 1;     ///< 0..1 of a throw of the dice, 1 at rest
    bool RingLit = true;  ///< the ring at the selected check and around the active player's bets
};

/// Draws everything over the felt, in pixels of the window.
class TablePainter {
  public:
    void Paint(QPainter& painter, const Table& t, double pixelRatio, const TableMoment& moment);

  private:
    void PaintRail(QPainter& painter, const Table& t, const TableMoment& moment);
    void PaintBets(QPainter& painter, const Table& t, const TableMoment& moment);
    void PaintBet(QPainter& painter, const Table& t, int p, int row, const TableMoment& moment);

    CheckPainter Checks;
};

/// The pixels that the bet of player p on row 1..91 or a shown CheckStack may cover; empty where none is drawn.
QRectF BetExtent(const Table& t, int p, int row);

}  // namespace tarnwick
