// What the status line says of the bet under the mouse.
#pragma once

#include <QString>
#include <QStringList>

namespace tarnwick {

class AdvantageCache;
struct Table;

/// Name, the bettor's amount with its odds and its vig, what the bet pays, and the house's advantage on a decision:
/// row 1..91. Of a CheckStack 100..199 its name, if it has one, and its value.
QString BetText(const Table& t, int row, AdvantageCache& advantages);

/// The same, one fact a line.
QStringList BetLines(const Table& t, int row, AdvantageCache& advantages);

}  // namespace tarnwick
