// The lowered form of scripts: flat typed code for a small register machine. All that a statement's elements say is
// decided when the code is made; running it decodes, parses and looks up nothing.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "autobet/element.h"
#include "autobet/expression.h"
#include "autobet/variables.h"

namespace tarnwick {

/// N are the number registers, T the text registers. `Offset` is one in the table. A jump goes to the instruction X.
enum class Op : std::uint8_t {
    // numbers: N[Dst] becomes
    Constant,          ///< Constants[X]
    Money,             ///< the amount at Offset Y
    Integer,           ///< the 32-bit integer at Offset Y
    Read,              ///< Readings[X] of position Y
    ReadBy,            ///< Readings[X] of the player whom code Y means now
    ReadOf,            ///< Readings[X] of position N[A]; 0 when that is below 0
    ReadRow,           ///< Readings[X] for row N[B], of position N[A]; 0 when the row is 0 or the position below 0
    ReadPlace,         ///< what target N[A] of position N[A + 1] holds
    PlayerOfCode,      ///< the position that code X means now
    PlayerOf,          ///< the position N[A], or -1 with a warning when it is out of limits
    RowOf,             ///< the variable that function X means for N[A], or 0 with a warning
    Negate,            ///< -N[A]
    Add,               ///< N[A] + N[B]; these three only where no overflow is possible
    Subtract,          ///< N[A] - N[B]
    Multiply,          ///< N[A] * N[B]
    AddConstant,       ///< N[A] + Constants[X]
    MultiplyConstant,  ///< N[A] * Constants[X]
    DivideConstant,    ///< N[A] / Constants[X], which is not 0
    Arithmetic,        ///< N[A] Sub N[B], op 60..66, with its warnings and faults
    Not,               ///< the complement of N[A]
    Logic,             ///< N[A] Sub N[B], op 71..73
    Compare,           ///< N[A] Sub N[B], op 50..55, as -1 or 0
    CompareTexts,      ///< T[A] Sub T[B]
    Truth,             ///< the number X
    Function,          ///< function X of N[A]
    TextFunction,      ///< function X of T[A]: 104 Asc, 117 Val, 118 Len, 125 Input
    PlaceInText,       ///< Instr(N[A], T[B], T[X])
    RowsTest,          ///< test of RowSets[X]
    RowsSum,           ///< sum of RowSets[X]
    RowsCount,         ///< count of RowSets[X]
    // list functions: N[Dst] .. N[Dst + 3] are count, sum, extreme, sum of squares
    ListStart,
    ListItem,    ///< takes N[A] in; the extreme by function X
    ListSquare,  ///< takes the square of N[A] less the mean in
    ListResult,  ///< N[A] = function X of the sums
    // texts: T[Dst] becomes
    TextConstant,   ///< Texts[X]
    SpecialText,    ///< the special text X
    StackName,      ///< CheckStack name X (0..99) of position Y
    StackNameOf,    ///< name of variable N[A] (800..899; 0: empty) of position N[A + 1]
    NumberText,     ///< N[A] in the general format
    Join,           ///< T[A] & T[B]
    CutText,        ///< function X (801..804) of T[A], N[B]
    MiddleText,     ///< function Y (805, 806) of T[A], N[B], N[X]
    InsertText,     ///< Insert$(T[A], N[B], T[X])
    CharacterText,  ///< Chr$(N[A])
    Blanks,         ///< Space$(N[A])
    PlayerName,     ///< the name of the player at position N[A]
    AskText,        ///< what is typed under T[A]
    // flow
    Jump,
    JumpBack,        ///< serves the user on its way
    JumpIfZero,      ///< when N[A] is 0
    JumpIfNotZero,   ///< when N[A] is not 0
    JumpIf,          ///< when N[A] Sub N[B]
    JumpIfConstant,  ///< when N[A] Sub Constants[B]
    JumpIfMoney,     ///< when the amount at Offset Y Sub Constants[B]
    JumpIfInteger,   ///< when the integer at Offset Y Sub Constants[B]
    JumpIfMoneys,    ///< when the amount at Offset Y Sub N[A]
    Gosub,           ///< remembers statement Y
    Return,
    EnterScript,  ///< player X (0 the bettor) becomes the running one; statement Y
    Leave,        ///< the action may have changed the run; statement X comes next
    Stop,         ///< end of the code of one statement
    End,          ///< end of the program
    // actions
    SetBetConstant,  ///< bet of row X, position Y = Amounts[A]
    SetBet,          ///< bet of row X, position Y = N[A]
    ClearBet,        ///< bet of row X, position Y comes down
    SetStack,        ///< CheckStack row X of position Y = N[A]
    AddStack,        ///< CheckStack row X of position Y goes up by N[A], or down when Sub is 1
    OnNumber,        ///< action 400 + Sub on target X of position Y with N[A]; Sub 0 assigns
    OnText,          ///< the same with T[A]
    OnPlace,         ///< action 400 + Sub on target N[B] of position N[B + 1] with N[A], or T[A] when Dst is 1
    Swap,            ///< target N[A] of position N[A + 1] with N[B], N[B + 1]
    Command,         ///< action X without operand
    CommandNumber,   ///< action X with N[A]
    CommandText,     ///< action X with T[A]
    PlayDiceFile     ///< file T[A], from roll N[B] to N[X]
};

struct Instruction {
    Op Code = Op::End;
    std::uint8_t Sub = 0;
    std::uint16_t Dst = 0;
    std::uint16_t A = 0;
    std::uint16_t B = 0;
    std::int32_t X = 0;
    std::int32_t Y = 0;
};
static_assert(sizeof(Instruction) == 16);

/// Bets of one position whose present amounts are compared with one number: bets that don't stand are never touched.
struct RowSet {
    int Position = 0;
    int FirstRow = 0, LastRow = 0;
    int Op = 0;  ///< 50..55: amount Op Limit; 0 takes all
    double Limit = 0;
    bool All = false;  ///< of a test: all of them must pass, else any
};

/// Where a statement of the joined program lies.
struct StatementPlace {
    std::int32_t Script = 0;     ///< index of the script
    std::int32_t Statement = 0;  ///< in its tree
    std::int32_t Start = 0;      ///< first instruction
    std::int32_t Result = -1;    ///< of a condition in watched code: its register
};

/// One checked script, as it goes into a program. What it points to must live as long as the program.
struct CheckedScript {
    int Slot = 0;
    const Tree* Statements = nullptr;
    const std::vector<PoolString>* Pool = nullptr;
};

struct Program {
    std::vector<Instruction> Code;
    std::vector<StatementPlace> Places;  ///< all statements in order; jumps of statements are joined
    std::vector<std::int32_t> Jumps;     ///< by statement: the joined Jump, or NoNode
    std::vector<double> Constants;
    std::vector<currency> Amounts;
    std::vector<Reading> Readings;
    std::vector<RowSet> RowSets;
    std::vector<std::string> Texts;
    int NumberRegisters = 0;
    int TextRegisters = 0;
    bool Watched = false;  ///< each statement ends with Stop, and its jumps are left to the driver
};

/// Lowers `scripts` in order into `program`. Watched code is for Steps and the statement limit. False when a statement
/// needs more registers or constants than the machine has; `failed` is then its place.
bool LowerScripts(const Table& t, const std::vector<CheckedScript>& scripts, bool watched, Program& program,
                  StatementPlace& failed);

}  // namespace tarnwick
