// tarnwick-lab summary, hands, totals, frequencies, results, trends: the figures of a saved game.
#pragma once

#include <string>
#include <vector>

namespace tarnwick::lab {

struct FigureOptions {
    std::string Report;  ///< the command's name
    std::string Game;
    std::vector<std::string> Words;  ///< as behind the console's command of that name
    bool Json = false;
};

/// Prints the report. Returns the exit status: 0, or 2 when the game or a word can't be used.
int PrintFigures(const FigureOptions& options);

}  // namespace tarnwick::lab
