#include "stats/checkstacks.h"

#include <algorithm>

namespace tarnwick {

namespace {

constexpr int StackCount = 100;

std::size_t At(int i) { return static_cast<std::size_t>(i); }

}  // namespace

std::string SetCheckStack(Table& t, int p, int n, currency value) {
    if (value > CheckStackLimit || value < -CheckStackLimit) {
        return "The value of a CheckStack can't be beyond 99,999,999,999,999.9999.";
    }
    SetBetAmount(t, p, Row::FirstStack + n, value);
    t.GameChanged = true;
    return {};
}

void NameCheckStack(Table& t, int p, int n, std::string_view name) {
    std::string& kept = t.CheckStackName[At(p)][At(n)];
    kept = name;
    for (char& c : kept) {
        if (c == '\r' || c == '\n' || c == '\0') c = ' ';
    }
    t.GameChanged = true;
}

std::vector<CheckStackLine> CheckStackLines(const Table& t, int p, bool zeroValues) {
    std::vector<CheckStackLine> lines;
    for (int n = 0; n < StackCount; ++n) {
        const currency value = CheckStack(t, p, n);
        if (zeroValues || !IsZero(value)) lines.push_back({n, t.CheckStackName[At(p)][At(n)], value});
    }
    return lines;
}

std::string SetVisibleStacks(Table& t, int p, const std::array<int, 4>& numbers) {
    for (auto number = numbers.begin(); number != numbers.end(); ++number) {
        if (*number < 0 || *number >= StackCount) return "There is no CheckStack #" + std::to_string(*number) + ".";
        if (std::find(numbers.begin(), number, *number) != number) return std::string(SameVisibleStack);
    }
    for (int slot = 1; slot <= 4; ++slot) {
        t.VisibleStack[At(p)][At(slot)] = Row::FirstStack + numbers[At(slot) - 1];
    }
    t.GameChanged = true;
    return {};
}

void ClearCheckStacks(Table& t, int p, bool values, bool names) {
    for (int n = 0; n < StackCount; ++n) {
        if (values && !IsZero(CheckStack(t, p, n))) SetBetAmount(t, p, Row::FirstStack + n, currency{});
        if (names) t.CheckStackName[At(p)][At(n)].clear();
    }
    t.GameChanged = true;
}

}  // namespace tarnwick
