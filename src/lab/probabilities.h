// tarnwick-lab probabilities: probability files shown, made and checked.
#pragma once

#include <string>

#include "dice/matrixeditor.h"
#include "lab/commandline.h"

namespace tarnwick::lab {

struct ProbabilityOptions {
    std::string File;
    int Display = 0;  ///< ProbabilityDisplayMode
    double RollsOutOf = 36;
    AxisThrow First, Second;
    bool Json = false;
};

/// "AXIS:EFFECTIVENESS", where the axis is 1-6, 2-5 or 3-4 and the effectiveness a percentage up to 100: "3-4:12.5".
Parsed<AxisThrow> ParseAxisOption(std::string_view text);

/// Prints the matrix of the file. Exit status 0, or 2 when it can't be read.
int ShowProbabilities(const ProbabilityOptions& options);
/// Writes Percentage Dice about an axis each to the file, which is replaced only when it is a probability file itself.
/// Exit status 0, or 2 when it can't be written.
int MakeAxisProbabilities(const ProbabilityOptions& options);
/// Tells what is wrong with the file's matrix, if anything. Exit status 0, 1 when something is, 2 when it can't be
/// read.
int CheckProbabilities(const ProbabilityOptions& options);

}  // namespace tarnwick::lab
