// The compiled unit of a script. A script is a list of elements; each pass of the compiler reads and rewrites the same
// list. The numbers are part of the language: the phrases are written in them, and users may print them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tarnwick {

/// One element. Lists are counted from 1: place 0 is never used, so that 0 can say "none".
struct Element {
    std::int32_t Code = 0;
    double Value = 0;

    friend bool operator==(const Element&, const Element&) = default;
};

/// Values of Element::Code.
namespace Code {
enum : std::int32_t {
    ListEnd = 0,
    Function = -1,        ///< Value: function number
    TargetFunction = -2,  ///< a function that is assigned to
    ScriptStart = -3,     ///< Value: player slot 0..8
    Variable = -11,       ///< Value: variable number
    TargetVariable = -12,
    Player = -13,     ///< qualifiers; Value: their codes
    Scope = -14,      ///< H
    Result = -15,     ///< X
    Statistic = -16,  ///< Y
    Number = -31,
    String = -51,      ///< Value: pool index above 0, or a special text
    Action = -61,      ///< Value: action number
    Label = -71,       ///< Value: pool index of its name
    Quantifier = -81,  ///< Value: 2 any, 3 all
    If = 1,            ///< statement keywords 1..19; Value: jump target
    Then = 9,
    Else = 10,
    ElseIf = 11,
    EndIf = 12,
    Return = 13,
    Goto = 14,
    Gosub = 15,
    Do = 16,
    Loop = 17,
    ExitDo = 18,
    LastKeyword = 19,
    Open = 20,
    Close = 21,
    Equal = 50,
    Unequal = 51,
    Less = 52,
    Greater = 53,
    LessOrEqual = 54,
    GreaterOrEqual = 55,
    Power = 60,
    Times = 61,
    Divide = 62,
    WholeDivide = 63,
    Modulo = 64,
    Plus = 65,
    Minus = 66,
    Not = 70,
    And = 71,
    Or = 72,
    Xor = 73,
    Join = 74,
    Comma = 75,
    Marker = 100  ///< and above: 100 + source line; Value: 0-based column of the raw line
};
}  // namespace Code

/// Texts that stand for themselves: Element::Value of a string at or below 0.
namespace SpecialText {
enum : std::int32_t {
    Empty = 0,
    Date = -1,
    Time = -2,
    AskValue = -10,
    AskString = -11,
    FromRoll = -15,
    PlayerName = -900,  ///< less the position 1..8
};
}  // namespace SpecialText

constexpr bool IsMarker(const Element& e) { return e.Code >= Code::Marker; }
constexpr bool IsKeyword(const Element& e) { return Code::If <= e.Code && e.Code <= Code::LastKeyword; }
constexpr bool IsComparison(const Element& e) { return Code::Equal <= e.Code && e.Code <= Code::GreaterOrEqual; }
constexpr bool IsTarget(const Element& e) { return e.Code == Code::TargetVariable || e.Code == Code::TargetFunction; }
constexpr bool IsQualifier(const Element& e) { return Code::Statistic <= e.Code && e.Code <= Code::Player; }
constexpr int LineOf(const Element& marker) { return marker.Code - Code::Marker; }
constexpr int ColumnOf(const Element& marker) { return static_cast<int>(marker.Value); }
/// The number in an element's value: codes and indexes are whole. Of a plain number that no index can be it is 0.
constexpr int NumberOf(const Element& e) { return e.Value > -2e9 && e.Value < 2e9 ? static_cast<int>(e.Value) : 0; }

/// One text of a script. Pools are counted from 1; place 0 is the empty text.
struct PoolString {
    std::string Text;
    double Value = 0;  ///< of a label: the index of its element
};

/// Why a script does not compile, and where: lines from 1, columns from 0 in the raw line. A last column of 0 means
/// the end of the last line.
struct CompileError {
    std::string Text;
    int FirstLine = 0;
    int LastLine = 0;
    int FirstCol = 0;
    int LastCol = 0;
};

}  // namespace tarnwick
