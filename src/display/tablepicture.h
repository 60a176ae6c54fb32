// `tarnwick --picture FILE`: a picture of a table in play, or of the main window (`--window`), made without a screen.
#pragma once

#include <QImage>
#include <QSize>
#include <optional>

namespace tarnwick {

struct Table;

/// The table with everything on it, as the main window shows it.
QImage TablePicture(Table& t, QSize size, double pixelRatio);

/// Brings a fresh table to the middle of a lively game of eight players.
void PlayTypicalGame(Table& t);

/// Runs the command when the arguments ask for a picture, and says how it ended; nothing when they don't.
std::optional<int> RunPictureCommand(int argc, char** argv);

}  // namespace tarnwick
