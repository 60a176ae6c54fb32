#include "autobet/functions.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "autobet/numbertext.h"
#include "autobet/variables.h"
#include "stats/bankrollgraph.h"
#include "table/format.h"
#include "table/messages.h"

namespace tarnwick {

namespace {

constexpr std::int32_t LongestBlanks = 1'000'000;

/// A count or place of characters; those beyond 32 bits are held at the ends.
std::int32_t Place(double value) {
    const double whole = std::nearbyint(value);
    if (!(whole > std::numeric_limits<std::int32_t>::min())) return std::numeric_limits<std::int32_t>::min();
    if (whole >= std::numeric_limits<std::int32_t>::max()) return std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(whole);
}

constexpr std::int32_t WholeText = std::numeric_limits<std::int32_t>::max();

/// Half-even 32-bit position 1..8, or 0.
int Seat(double position) {
    const int p = RoundToInt32(position).value_or(0);
    return 1 <= p && p <= 8 ? p : 0;
}

Checked DivideWhole(RunState& run, int op, double left, double right, double& result) {
    const auto a = RoundToInt32(left);
    const auto b = RoundToInt32(right);
    if (right == 0 || b == 0) {
        run.Warn("Division by zero.");
        result = 0;
        return true;
    }
    if (!a || !b) return false;
    const std::int64_t dividend = *a;
    if (op == 64) {
        result = static_cast<double>(dividend % *b);
        return true;
    }
    if (dividend == std::numeric_limits<std::int32_t>::min() && *b == -1) return false;
    result = static_cast<double>(dividend / *b);
    return true;
}

}  // namespace

bool CompareNumbers(double left, int op, double right) {
    switch (op) {
        case 50:
            return left == right;
        case 51:
            return left != right;
        case 52:
            return left < right;
        case 53:
            return left > right;
        case 54:
            return left <= right;
        default:
            return left >= right;
    }
}

bool CompareTexts(std::string_view left, int op, std::string_view right) {
    const int order = LowerCase(left).compare(LowerCase(right));
    return CompareNumbers(order, op, 0);
}

Checked Arithmetic(RunState& run, int op, double left, double right, double& result) {
    switch (op) {
        case 60:
            result = std::pow(left, right);
            break;
        case 61:
            result = left * right;
            break;
        case 62:
            if (right == 0) run.Warn("Division by zero.");
            result = right == 0 ? 0 : left / right;
            break;
        case 63:
        case 64:
            return DivideWhole(run, op, left, right, result);
        case 65:
            result = left + right;
            break;
        default:
            result = left - right;
            break;
    }
    return std::isfinite(result);
}

Checked Logic(int op, double left, double right, double& result) {
    const auto a = RoundToInt32(left);
    const auto b = RoundToInt32(right);
    if (!a || !b) return false;
    result = op == 71 ? *a & *b : op == 72 ? *a | *b : *a ^ *b;
    return true;
}

Checked Complement(double value, double& result) {
    const auto a = RoundToInt32(value);
    if (!a) return false;
    result = ~*a;
    return true;
}

double SquareRoot(RunState& run, double value) {
    if (value >= 0) return std::sqrt(value);
    run.Warn("Can't take square root of negative number.");
    return 0;
}

double AverageOfBankroll(RunState& run, double rolls) {
    const Table& t = *run.Game;
    const int p = run.RunningPlayer;
    if (p < 1) return 0;
    return ToDouble(AverageBankroll(t, p, true, GraphCount(t), Place(rolls)));
}

double FaceOfDie(RunState& run, double die) {
    const int n = RoundToInt32(die).value_or(0);
    if (n == 1) return run.Game->Die1;
    if (n == 2) return run.Game->Die2;
    run.Warn(OutOfLimitsText(190));
    return 0;
}

double PositionOf(RunState& run, double position) {
    const int p = Seat(position);
    if (p == 0) run.Warn(OutOfLimitsText(50));
    return p;
}

std::string CutText(int function, std::string_view text, double count) {
    const std::int32_t length = CharacterCount(text);
    const std::int32_t n = std::clamp(Place(count), 0, length);
    switch (function) {
        case 801:
            return std::string(Characters(text, 0, n));
        case 802:
            return std::string(Characters(text, length - n, n));
        case 803:
            return std::string(Characters(text, n, WholeText));
        default:
            return std::string(Characters(text, 0, length - n));
    }
}

std::string MiddleText(int function, std::string_view text, double start, double count) {
    const std::int32_t first = Place(start);
    if (first < 1) return std::string(text);
    const std::string_view middle = Characters(text, first - 1, Place(count));
    if (function == 805) return std::string(middle);
    const auto head = static_cast<std::size_t>(middle.data() - text.data());
    std::string rest(text.substr(0, head));
    rest.append(text.substr(head + middle.size()));
    return rest;
}

std::string InsertText(std::string_view text, double position, std::string_view added) {
    const std::int32_t first = Place(position);
    if (first < 1) return std::string(text);
    const std::string_view head = Characters(text, 0, first - 1);
    std::string result(head);
    result.append(added).append(text.substr(head.size()));
    return result;
}

double PlaceInText(RunState& run, double start, std::string_view text, std::string_view wanted) {
    const std::int32_t first = Place(start);
    if (first < 1 || first > CharacterCount(text)) {
        run.Warn("Instr starting point out of limits.");
        return 0;
    }
    const std::size_t from = Characters(text, 0, first - 1).size();
    const std::size_t found = text.find(wanted, from);
    return found == std::string_view::npos ? 0 : CharacterCount(text.substr(0, found)) + 1;
}

Checked CharacterText(double code, std::string& result) {
    const auto n = RoundToInt32(code);
    if (!n || *n < 0 || *n > 255) return false;
    result = CharacterOfCode(*n);
    return true;
}

Checked Blanks(double count, std::string& result) {
    const std::int32_t n = std::max(Place(count), 0);
    if (n > LongestBlanks) return false;
    result.assign(static_cast<std::size_t>(n), ' ');
    return true;
}

std::string NameOfPlayer(RunState& run, double position) {
    const int p = Seat(position);
    if (p == 0) {
        run.Warn(OutOfLimitsText(850));
        return {};
    }
    return run.Game->PlayerName[static_cast<std::size_t>(p)];
}

std::string ScriptTitle(const RunState& run) {
    return "Auto-Bet (" + run.Game->PlayerName[static_cast<std::size_t>(run.RunningPlayer)] + ")";
}

std::string AskInput(RunState& run, const std::string& prompt) {
    Message message;
    message.Title = ScriptTitle(run);
    message.Text = prompt;
    message.Buttons = MsgButton::InputQuestion;
    const Answer answer = ShowMessage(*run.Game, message);
    return answer.Result == MsgAnswer::Ok ? answer.Input : std::string();
}

}  // namespace tarnwick
