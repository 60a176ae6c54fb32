// What the console prints of the table: for people, and as JSON objects under the names of the state.
#pragma once

#include <string>

#include "lab/json.h"
#include "table/crapcnst.h"

namespace tarnwick::lab {

/// `{"state":{..}}`. `stopReason` is that of the last run, for when the table has none.
void WriteState(JsonWriter& json, const Table& t, const std::string& stopReason);
std::string StateText(const Table& t);

/// Bets and bankroll of position p 1..8 in a scope 0..4.
void WriteStats(JsonWriter& json, const Table& t, int p, int scope);
std::string StatsText(const Table& t, int p, int scope);

/// Rolls, points and hands of position p 0..8 (0: the table) in a scope 0..4.
void WriteRolls(JsonWriter& json, const Table& t, int p, int scope);
std::string RollsText(const Table& t, int p, int scope);

/// Every setting with its value, by the names that `set` takes.
void WriteSettings(JsonWriter& json, const Table& t);
std::string SettingsText(const Table& t);

/// "$10" or "-$10".
std::string DollarText(currency amount);

}  // namespace tarnwick::lab
