#include "autobet/literal_evaluator.h"

#include <algorithm>
#include <cmath>
#include <sstream>

#include "autobet/functions.h"
#include "autobet/numbertext.h"
#include "autobet/variables.h"

namespace tarnwick {

namespace {

bool IsValue(const Element& e) { return e.Code == Code::Number || e.Code == Code::String; }
bool IsTargetAt(const Element& e) { return IsTarget(e); }
Element NumberElement(double value) { return {Code::Number, value}; }

/// Elements of arguments that a function takes, commas not counted.
std::size_t ArgumentCount(int function) {
    if (function == 203 || function == 805 || function == 806 || function == 809) return 3;
    return 801 <= function && function <= 804 ? 2 : 1;
}

void Erase(std::vector<Element>& b, std::size_t first, std::size_t count, std::size_t& last) {
    b.erase(b.begin() + static_cast<std::ptrdiff_t>(first), b.begin() + static_cast<std::ptrdiff_t>(first + count));
    last -= count;
}

}  // namespace

LiteralEvaluator::LiteralEvaluator(const Compilation& script, Table& game) : Script(script) {
    State.Game = &game;
    State.CollectWarnings = true;
    for (const PoolString& entry : script.Pool) Pool.push_back(entry.Text);
}

bool LiteralEvaluator::Run() {
    const std::vector<Element>& list = Script.Elements;
    Held.reserve(1000);
    for (Counter = 1; Counter < list.size(); ++Counter) {
        Buffer statement;
        while (Counter < list.size() && list[Counter].Code < 100) {
            statement.push_back(list[Counter]);
            // A keyword other than a jump to a label stands for itself, with nothing behind it.
            const int code = list[Counter].Code;
            if (statement.size() == 1 && IsKeyword(list[Counter]) && code != Code::Goto && code != Code::Gosub) break;
            ++Counter;
        }
        if (statement.empty()) continue;
        State.WarningText.clear();
        State.Taken = false;
        Held.clear();
        RunStatement(std::move(statement));
        if (Faulted) return false;
    }
    return true;
}

void LiteralEvaluator::RunStatement(Buffer b) {
    const auto jump = [&](const Element& e) {
        if (e.Value > 0) Counter = static_cast<std::size_t>(e.Value);
    };
    switch (b[0].Code) {
        case Code::If:
            InCondition = true;
            return;
        case Code::Then:
            InCondition = false;
            if (ConditionTrue) return;
            jump(b[0]);
            if (Script.Elements[Counter].Code == Code::ElseIf) InCondition = true;
            return;
        case Code::Else:
        case Code::ElseIf:
        case Code::Loop:
        case Code::ExitDo:
            jump(b[0]);
            return;
        case Code::EndIf:
        case Code::Do:
        case Code::Label:
            return;
        case Code::Goto:
            jump(b[1]);
            return;
        case Code::Gosub:
            Returns.push_back(Counter);
            jump(b[1]);
            return;
        case Code::Return:
            if (Returns.empty()) return;
            Counter = Returns.back();
            Returns.pop_back();
            return;
        case Code::ScriptStart: {
            const int slot = NumberOf(b[0]);
            State.RunningPlayer = slot == 0 ? State.Game->ActivePlayer : slot;
            return;
        }
        default:
            break;
    }
    Reduce(b);
    if (Faulted) return;
    if (InCondition) {
        ConditionTrue = b[0].Value != 0;
        Note(ConditionTrue ? "Condition is true." : "Condition is false.");
    } else {
        TakeAction(b);
        if (!Faulted) Note(State.Taken ? "Action taken." : "No action taken.");
    }
}

void LiteralEvaluator::Note(std::string outcome) {
    std::vector<std::string> lines{std::move(outcome)};
    std::istringstream warnings(State.WarningText);
    for (std::string line; std::getline(warnings, line);) {
        if (!line.empty()) lines.push_back(line);
    }
    std::sort(lines.begin(), lines.end());
    Outcomes.push_back(lines);
}

// --- reduction ---

void LiteralEvaluator::Reduce(Buffer& b) {
    while (!Faulted) {
        std::size_t close = 0;
        while (close < b.size() && b[close].Code != Code::Close) ++close;
        if (close == b.size()) break;
        std::size_t open = close;
        while (b[open].Code != Code::Open) --open;
        b.erase(b.begin() + static_cast<std::ptrdiff_t>(close));
        b.erase(b.begin() + static_cast<std::ptrdiff_t>(open));
        Passes(b, open, close - 1);
    }
    if (!Faulted) Passes(b, 0, b.size());
}

void LiteralEvaluator::Passes(Buffer& b, std::size_t first, std::size_t last) {
    const auto pass = [&](int low, int high) { OperatorPass(b, first, last, low, high); };
    FunctionPass(b, first, last);
    VariablePass(b, first, last);
    pass(Code::Power, Code::Power);
    NegatePass(b, first, last);
    pass(Code::Times, Code::Divide);
    pass(Code::WholeDivide, Code::WholeDivide);
    pass(Code::Modulo, Code::Modulo);
    pass(Code::Plus, Code::Minus);
    pass(Code::Join, Code::Join);
    if (InCondition) {
        pass(Code::Equal, Code::GreaterOrEqual);
        ListPass(b, first, last);
    }
    NotPass(b, first, last);
    pass(Code::And, Code::And);
    pass(Code::Or, Code::Or);
    pass(Code::Xor, Code::Xor);
}

void LiteralEvaluator::OperatorPass(Buffer& b, std::size_t first, std::size_t& last, int lowOp, int highOp) {
    for (std::size_t i = first + 1; i + 1 < last && !Faulted;) {
        const bool wanted = lowOp <= b[i].Code && b[i].Code <= highOp;
        if (!wanted || !IsValue(b[i - 1]) || !IsValue(b[i + 1])) {
            ++i;
            continue;
        }
        Operate(b[i - 1], b[i].Code, b[i + 1]);
        Erase(b, i, 2, last);
    }
}

void LiteralEvaluator::NegatePass(Buffer& b, std::size_t first, std::size_t& last) {
    for (std::size_t i = first; i + 1 < last; ++i) {
        if (b[i].Code != Code::Minus || b[i + 1].Code != Code::Number) continue;
        if (i > first && b[i - 1].Code == Code::Number) continue;
        b[i + 1].Value = -b[i + 1].Value;
        Erase(b, i, 1, last);
    }
}

void LiteralEvaluator::NotPass(Buffer& b, std::size_t first, std::size_t& last) {
    // A chain of them is worked off from the right, as each needs a number behind it.
    for (std::size_t i = last; i-- > first;) {
        if (b[i].Code != Code::Not || i + 1 >= last || b[i + 1].Code != Code::Number) continue;
        if (!Complement(b[i + 1].Value, b[i + 1].Value)) Faulted = true;
        Erase(b, i, 1, last);
    }
}

void LiteralEvaluator::Operate(Element& left, int op, const Element& right) {
    if (op == Code::Join) {
        left = StringElement(TextOf(left) + TextOf(right));
    } else if (op <= Code::GreaterOrEqual) {
        left = NumberElement(Compare(left, op, right) ? -1 : 0);
    } else {
        double result = 0;
        const bool done = op >= Code::And ? Logic(op, left.Value, right.Value, result)
                                          : Arithmetic(State, op, left.Value, right.Value, result);
        if (!done) Faulted = true;
        left = NumberElement(result);
    }
}

bool LiteralEvaluator::Compare(const Element& left, int op, const Element& right) {
    if (left.Code == Code::String) return CompareTexts(TextOf(left), op, TextOf(right));
    return CompareNumbers(left.Value, op, right.Value);
}

// --- lists ---

void LiteralEvaluator::ListPass(Buffer& b, std::size_t first, std::size_t& last) {
    for (std::size_t i = first; i < last; ++i) {
        if (b[i].Code != Code::Quantifier) continue;
        const bool all = b[i].Value == 3;
        std::size_t end = i;
        while (b[end].Code != Code::ListEnd) ++end;
        std::size_t from = i, to = end + 1;  // what the result replaces
        Element value{}, outer{};
        bool hasValue = true, valueLeft = true;
        if (i >= first + 2 && IsComparison(b[i - 1])) {
            outer = b[i - 1];
            value = b[i - 2];
            from = i - 2;
        } else if (end + 2 < last + 1 && end + 1 < last && IsComparison(b[end + 1])) {
            outer = b[end + 1];
            value = b[end + 2];
            valueLeft = false;
            to = end + 3;
        } else if (i > first && IsValue(b[i - 1])) {
            value = b[i - 1];
            from = i - 1;
        } else if (end + 1 < last && IsValue(b[end + 1])) {
            value = b[end + 1];
            to = end + 2;
        } else {
            hasValue = false;
        }
        int result = -2;
        Element own{}, inner{};
        for (std::size_t k = i + 1; k < end; ++k) {
            if (IsComparison(b[k])) {
                own = b[k];
                if (!hasValue) inner = b[++k];
                continue;
            }
            if (!IsValue(b[k])) {
                if (hasValue) own = {};
                continue;
            }
            bool test = false;
            if (!hasValue) {
                test = Compare(b[k], own.Code, inner);
            } else if (own.Code != 0) {
                test = Compare(value, own.Code, b[k]);
            } else {
                test = valueLeft ? Compare(value, outer.Code, b[k]) : Compare(b[k], outer.Code, value);
            }
            if (result == -2) result = all ? -1 : 0;
            result = all ? result & (test ? -1 : 0) : result | (test ? -1 : 0);
        }
        b[from] = NumberElement(result);
        Erase(b, from + 1, to - from - 1, last);
        i = from;
    }
}

void LiteralEvaluator::ListFunction(Buffer& b, std::size_t at, std::size_t& last) {
    const int function = NumberOf(b[at]);
    std::size_t end = at;
    while (b[end].Code != Code::ListEnd) ++end;
    const auto walk = [&](auto take) {
        Element test{}, operand{};
        for (std::size_t k = at + 1; k < end; ++k) {
            if (IsComparison(b[k])) {
                test = b[k];
                operand = b[++k];
            } else if (IsValue(b[k]) && (test.Code == 0 || Compare(b[k], test.Code, operand))) {
                take(b[k].Value);
            }
        }
    };
    double count = 0, sum = 0, highest = 0, lowest = 0, squares = 0;
    walk([&](double value) {
        highest = count == 0 ? value : std::max(highest, value);
        lowest = count == 0 ? value : std::min(lowest, value);
        ++count;
        sum += value;
    });
    double result = 0;
    if (count == 0 && (function == 128 || function == 129)) State.Warn("Division by zero.");
    if (function == 126) result = highest;
    if (function == 127) result = lowest;
    if (function == 128 && count > 0) result = sum / count;
    if (function == 129 && count > 0) {
        walk([&](double value) { squares += (value - sum / count) * (value - sum / count); });
        result = std::sqrt(squares / count);
    }
    if (function == 130) result = sum;
    if (function == 131) result = count;
    if (!std::isfinite(result)) Faulted = true;
    b[at] = NumberElement(result);
    Erase(b, at + 1, end - at, last);
}

// --- functions and variables ---

void LiteralEvaluator::FunctionPass(Buffer& b, std::size_t first, std::size_t& last) {
    for (std::size_t i = first; i < last && !Faulted; ++i) {
        if (b[i].Code != Code::Function && b[i].Code != Code::TargetFunction) continue;
        const int function = NumberOf(b[i]);
        if (126 <= function && function <= 131) {
            ListFunction(b, i, last);
            continue;
        }
        if (function <= 21 || function == 800) {
            b[i] = BetFunction(b, i);
            Erase(b, i + 1, 1, last);
            continue;
        }
        const bool asks = function == 125 || function == 825;
        const bool noArgument = asks && (i + 1 >= last || b[i + 1].Code != Code::String);
        const std::size_t arguments = noArgument ? 0 : ArgumentCount(function);
        const bool qualifies =
            function == 50 && i > first && (b[i - 1].Code == Code::Variable || b[i - 1].Code == Code::TargetVariable);
        Element result = PlainFunction(b, i, arguments);
        if (qualifies) result = {Code::Player, result.Value == 0 ? -1 : result.Value};
        b[i] = result;
        if (arguments > 0) Erase(b, i + 1, 2 * arguments - 1, last);
    }
}

/// The bet, CheckStack or name that the argument chooses; variable 0 when it is out of limits.
Element LiteralEvaluator::BetFunction(const Buffer& b, std::size_t at) {
    const int function = NumberOf(b[at]);
    const int number = VariableOfFunction(function, b[at + 1].Value);
    if (number == 0) State.Warn(OutOfLimitsText(function));
    // An unknown name is a text still.
    const double value = number == 0 && function == 800 ? -800 : number;
    return {b[at].Code == Code::Function ? Code::Variable : Code::TargetVariable, value};
}

Element LiteralEvaluator::PlainFunction(const Buffer& b, std::size_t at, std::size_t arguments) {
    const int function = NumberOf(b[at]);
    const auto number = [&](std::size_t n) { return b[at + 2 * n - 1].Value; };
    const auto text = [&](std::size_t n) { return TextOf(b[at + 2 * n - 1]); };
    const auto asked = [&](const char* usual) {
        const bool given = arguments > 0 && b[at + 1].Value != 0;
        return given ? text(1) : std::string(usual);
    };
    std::string made;
    switch (function) {
        case 50:
            return NumberElement(PositionOf(State, number(1)));
        case 100:
            return NumberElement(SquareRoot(State, number(1)));
        case 101:
            return NumberElement(std::floor(number(1)));
        case 102:
            return NumberElement(std::fabs(number(1)));
        case 104:
            return NumberElement(CodeOfCharacter(text(1)));
        case 110:
            return NumberElement(AverageOfBankroll(State, number(1)));
        case 117:
            return NumberElement(NumberAtStart(text(1)));
        case 118:
            return NumberElement(CharacterCount(text(1)));
        case 125:
            return NumberElement(NumberAtStart(AskInput(State, asked("Please enter a value"))));
        case 190:
            return NumberElement(FaceOfDie(State, number(1)));
        case 203:
            return NumberElement(PlaceInText(State, number(1), text(2), text(3)));
        case 805:
        case 806:
            return StringElement(MiddleText(function, text(1), number(2), number(3)));
        case 809:
            return StringElement(InsertText(text(1), number(2), text(3)));
        case 810:
            return StringElement(GeneralNumber(number(1)));
        case 811:
            if (!CharacterText(number(1), made)) Faulted = true;
            return StringElement(made);
        case 812:
            if (!Blanks(number(1), made)) Faulted = true;
            return StringElement(made);
        case 825:
            return StringElement(AskInput(State, asked("Please enter a string")));
        case 850:
            return StringElement(NameOfPlayer(State, number(1)));
        default:
            return StringElement(CutText(function, text(1), number(2)));
    }
}

void LiteralEvaluator::VariablePass(Buffer& b, std::size_t first, std::size_t& last) {
    for (std::size_t i = first; i < last; ++i) {
        if (b[i].Code != Code::Variable) continue;
        std::size_t qualifiers = 0;
        b[i] = ReadVariable(b, i, last, qualifiers);
        Erase(b, i + 1, qualifiers, last);
    }
}

Element LiteralEvaluator::ReadVariable(const Buffer& b, std::size_t at, std::size_t last, std::size_t& count) {
    Reference q;
    int p = 0;
    for (count = 0; at + count + 1 < last && IsQualifier(b[at + count + 1]); ++count) {
        const Element& e = b[at + count + 1];
        if (e.Code == Code::Player) p = e.Value < 0 ? -1 : PlayerOfCode(State, NumberOf(e));
        if (e.Code == Code::Scope) q.Scope = NumberOf(e);
        if (e.Code == Code::Result) q.Result = NumberOf(e);
        if (e.Code == Code::Statistic) q.Statistic = e.Value;
    }
    const int number = NumberOf(b[at]);
    if (number == -800) return StringElement("");
    if (800 <= number && number <= 899) return StringElement(p < 0 ? "" : StackNameOf(*State.Game, p, number - 800));
    if (number == 0 || p < 0) return NumberElement(0);
    return NumberElement(BindVariable(number, q)(State, p));
}

Element LiteralEvaluator::StringElement(std::string text) {
    Pool.push_back(std::move(text));
    return {Code::String, static_cast<double>(Pool.size() - 1)};
}

std::string LiteralEvaluator::TextOf(const Element& e) {
    if (e.Code == Code::Number) return GeneralNumber(e.Value);
    return e.Value > 0 ? Pool[static_cast<std::size_t>(e.Value)] : SpecialTextOf(State, e.Value);
}

ScriptValue LiteralEvaluator::ValueOf(const Element& e) {
    if (e.Code == Code::Number) return {false, e.Value, {}};
    Held.push_back(TextOf(e));
    return {true, 0, Held.back()};
}

// --- actions ---

void LiteralEvaluator::TakeAction(const Buffer& b) {
    const int action = b[0].Code == Code::Action ? NumberOf(b[0]) : 0;
    if (action >= 450 && action <= 460) return TakeTargets(b, 1, action, {});
    if (action == 0 || action >= 481) {
        std::size_t sign = 0;
        while (b[sign].Code != Code::Equal) ++sign;
        // "Bet n on targets" has its value ahead of the sign, an assignment behind the last one.
        if (action != 0) return TakeTargets(b, sign + 1, action, ValueOf(b[1]));
        return TakeTargets(b, 0, 0, ValueOf(b.back()));
    }
    if (action == 300) {
        std::vector<std::pair<int, int>> places;
        for (std::size_t i = 1; i < b.size(); ++i) {
            if (!IsTargetAt(b[i])) continue;
            const double player = i + 1 < b.size() && b[i + 1].Code == Code::Player ? b[i + 1].Value : 0;
            places.emplace_back(NumberOf(b[i]), player < 0 ? -1 : PlayerOfCode(State, static_cast<int>(player)));
        }
        State.Taken |= SwapTargets(State, places[0].first, places[0].second, places[1].first, places[1].second);
        return;
    }
    State.Taken |= b.size() == 1 ? Command(State, action) : Command(State, action, ValueOf(b[1]));
}

void LiteralEvaluator::TakeTargets(const Buffer& b, std::size_t first, int action, const ScriptValue& value) {
    Element test{}, operand{};
    for (std::size_t i = first; i < b.size(); ++i) {
        if (IsComparison(b[i])) {
            // The sign of an assignment ends its targets.
            if (action == 0 && i + 2 == b.size()) return;
            test = b[i];
            operand = b[++i];
            continue;
        }
        if (!IsTargetAt(b[i])) continue;
        const int number = NumberOf(b[i]);
        const double code = i + 1 < b.size() && b[i + 1].Code == Code::Player ? b[i + 1].Value : 0;
        const int p = code < 0 ? -1 : PlayerOfCode(State, static_cast<int>(code));
        if (test.Code != 0) {
            std::string kept;
            const ScriptValue present = ReadTarget(State, number, p, kept);
            const bool passes = operand.Code == Code::String
                                    ? CompareTexts(present.Text, test.Code, TextOf(operand))
                                    : CompareNumbers(NumberOfValue(present), test.Code, operand.Value);
            if (!passes) continue;
        }
        if (number <= 0 || p < 0) continue;
        if (action == 0) {
            State.Taken |= SetTarget(State, number, p, value);
        } else if (action <= 460) {
            State.Taken |= ApplyToTarget(State, action, number, p);
        } else {
            State.Taken |= ApplyAmount(State, action, number, p, value);
        }
    }
}

}  // namespace tarnwick
