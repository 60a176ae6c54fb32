// The registry of settings: what each is called, where it lies, what it may be and what hangs on it.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "config/configure.h"

namespace tarnwick {

/// Where one value lies. Its type says how it is read and written.
struct ColorCell {
    std::uint32_t* Value;
};
struct RateCell {
    currency* Value;
};
struct BitsCell {
    std::uint32_t* Value;
};
using SettingCell =
    std::variant<std::monostate, bool*, std::int32_t*, currency*, double*, ColorCell, BitsCell, RateCell, PayoffEntry*>;

/// The checks that a change must pass.
enum class CheckGroup { None, Checks, Limits, RollRate, Payoffs };

struct SettingRow {
    std::string_view Name;
    std::string_view Meaning;
    SettingCell (*At)(Settings& s, int index, int index2) = nullptr;  ///< null: ComeOutWorking, which has no cells
    std::int64_t Low = 0, High = 0;  ///< whole numbers, or ten-thousandths of an amount; both 0: no limits
    std::int64_t Step = 1;           ///< values are Low, Low + Step, ...
    int FirstIndex = 0, LastIndex = -1;
    int FirstIndex2 = 0, LastIndex2 = -1;
    CheckGroup Group = CheckGroup::None;
    bool MovesVig = false;                                     ///< units of payoffs and reserved vigs follow it
    std::string (*Afterwards)(Table& t, int index) = nullptr;  ///< runs behind a change; may still refuse it
};

/// All settings in the order of the configuration window.
std::span<const SettingRow> SettingTable();

/// Null for an unknown name; any case.
const SettingRow* FindSetting(std::string_view name);

/// Every fault of a group, in the order in which the checks are made.
std::vector<SettingFault> FaultsOf(const Table& t, CheckGroup group);

}  // namespace tarnwick
