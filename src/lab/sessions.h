// tarnwick-lab sessions: what a Sessions Log says.
#pragma once

#include <string>

#include "lab/commandline.h"
#include "stats/sessionstatistics.h"

namespace tarnwick::lab {

struct SessionsOptions {
    std::string File;
    SessionsQuery View;
    bool Histogram = false;
    int BarWidth = 25;  ///< bins: 1, 5, 25 or 105
    bool RawData = false;
    bool Json = false;
};

/// --stat 0..31, or the field's name.
Parsed<int> ParseSessionStat(std::string_view text);
/// --include: any of won, even, lost with commas between. Changes only that part of `view`; returns what is wrong.
std::string ReadInclude(std::string_view text, SessionsQuery& view);
/// --break LOW:HIGH, in either order, or one amount.
std::string ReadBreakPoint(std::string_view text, SessionsQuery& view);

/// Returns the exit status: 0, or 2 when the file can't be read.
int Sessions(const SessionsOptions& options);

}  // namespace tarnwick::lab
