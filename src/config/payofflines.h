// The list of all payoffs, as it is shown, edited and printed.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "config/configure.h"

namespace tarnwick {

enum class PayoffTable { Heading, Bets, Field, SevenPoint7, Midway, Fire };

struct PayoffLine {
    PayoffTable In = PayoffTable::Heading;
    int Index = 0;       ///< row of the bet, or entry of its table
    std::string Label;   ///< "Place 6", or "  -- Point 7" under the heading of its table
    std::string Name;    ///< what messages call it
    bool Fixed = false;  ///< shown only: a Fire bet without a point made always loses
};

/// All lines under their headings. Bets that are paid by the entries of others have none.
const std::vector<PayoffLine>& PayoffLines();

/// The entry of a line that is no heading.
PayoffEntry& EntryOf(Settings& s, const PayoffLine& line);
const PayoffEntry& EntryOf(const Settings& s, const PayoffLine& line);

/// The first number as it is shown: with "for", the bet is part of it.
currency ShownPays(const PayoffEntry& payoff);

enum class PayoffWord { To, For, Other };
/// Shows a payoff with the other word. What it pays stays. Nothing for headings and fixed lines.
void SetPayoffWord(Table& t, const PayoffLine& line, PayoffWord word);

/// Takes a typed number as the first (of what is shown) or second number of a payoff; the other one stays as shown.
/// Units and reserved vigs follow. Returns what is wrong (no number; the second not above 0; beyond 9,999,999; a loss
/// where only the Field and Fire, or a line that PayoffLineFault checks, may have one; a vig that a player couldn't
/// pay), and then has changed nothing. Not for headings and fixed lines.
enum class PayoffNumber { First, Second };
SettingFault SetPayoffNumber(Table& t, const PayoffLine& line, PayoffNumber which, std::string_view text);

/// What must be mended before the list may be left, and where in PayoffLines; an empty text when nothing.
struct PayoffLineFault {
    SettingFault Fault;
    int Line = -1;
};
PayoffLineFault FirstPayoffFault(const Table& t);

}  // namespace tarnwick
