// What the checker leaves of a script: its statements, each with a tree of typed nodes.
//
// The checker reduces a statement exactly as the language evaluates it, and each reduction makes one node. Hence the
// order of the nodes IS the order of evaluation: evaluating the nodes [FirstNode, EndNode) of a statement in ascending
// order reads "rnd" and asks "Input" when the language does. A node's operands always stand before it. All indexes
// count from 0; NoNode says "none".
#pragma once

#include <cstdint>
#include <vector>

namespace tarnwick {

constexpr std::int32_t NoNode = -1;

enum class ValueKind : std::uint8_t { Number, Text };

enum class NodeKind : std::uint8_t {
    Number,        ///< Number
    Text,          ///< A: pool index above 0, or a SpecialText
    Variable,      ///< A: index in Tree::References; a V, or one of F1..F10, F21, F800
    Function,      ///< Op: function number of any other function; A, B, C: its arguments in order
    ListFunction,  ///< Op: 126..131; A: first of Tree::Items, B: their number
    Negate,        ///< A
    Arithmetic,    ///< Op: 60..66; A, B
    Join,          ///< A, B of any kind; the result is a text
    Compare,       ///< Op: 50..55; A, B of one kind; numbers -1 or 0
    ListCompare,   ///< Op: 2 any, 3 all; A: first of Tree::Items, B: their number
    Not,           ///< A
    Logic          ///< Op: 71..73; A, B
};

struct Node {
    NodeKind Kind = NodeKind::Number;
    ValueKind Type = ValueKind::Number;
    std::int16_t Op = 0;
    std::int32_t A = NoNode;
    std::int32_t B = NoNode;
    std::int32_t C = NoNode;
    double Number = 0;
};

/// A variable with its qualifiers, or a bet, CheckStack or name by argument. What its class does not use is 0.
struct Reference {
    std::int32_t Variable = 0;         ///< V number; 0 when Function names it
    std::int32_t Function = 0;         ///< F1..F10, F21, F800; 0 for a V
    std::int32_t Index = NoNode;       ///< node of the function's argument (a number)
    std::int32_t Player = 0;           ///< P code 0..15 as written; counts when PlayerNode is NoNode
    std::int32_t PlayerNode = NoNode;  ///< node of the argument of "player( )" (a number), not yet rounded or tested
    std::int32_t Scope = 0;            ///< H 1..5
    std::int32_t Result = 0;           ///< X 1..8
    double Statistic = 0;              ///< Y reduced (current $ is 13); a number behind roll counts and points
};

/// An item of a list. ListCompare: tests Left Op Right (both of one kind), with the operand already on its side.
/// ListFunction: Left is the item (a number); with Op 50..55 it counts only if Left Op Right is true, Op 0 always.
struct ListItem {
    std::int32_t Left = NoNode;
    std::int32_t Op = 0;
    std::int32_t Right = NoNode;
};

/// A target of an action or assignment. With FilterOp 50..55 it is acted on only if its own present value compares
/// true: value FilterOp FilterNode.
struct Target {
    bool IsValue = false;         ///< a mere number or text in the list of targets: nothing is done to it
    std::int32_t Value = NoNode;  ///< its node
    Reference Place;              ///< otherwise what is acted on
    std::int32_t FilterOp = 0;    ///< 0 none
    std::int32_t FilterNode = NoNode;
};

enum class StatementKind : std::uint8_t {
    Player,  ///< Slot begins
    Label,   ///< nothing to do
    If,      ///< nothing to do
    Then,    ///< if the last condition was false, goes on behind Jump
    Else,    ///< reached from a block that ran: goes on behind Jump (the ENDIF)
    ElseIf,  ///< as Else; as a Then's target nothing to do
    EndIf,   ///< nothing to do
    Return,
    Goto,       ///< goes on behind Jump
    Gosub,      ///< remembers itself, goes on behind Jump
    Do,         ///< nothing to do; Jump is its LOOP
    Loop,       ///< goes on behind Jump (the DO)
    ExitDo,     ///< goes on behind Jump (the LOOP)
    Condition,  ///< Operands[0] becomes the condition result
    Assign,     ///< each target = Operands[0]
    Amount,     ///< Action 481..489: on each target with Operands[0]
    OnTargets,  ///< Action 450..460: on each target
    Swap,       ///< Action 300: the two targets
    Command     ///< Action 100..226, 310 with its operands
};

struct Statement {
    StatementKind Kind = StatementKind::Label;
    std::int16_t Action = 0;
    std::int32_t Slot = 0;  ///< of Player: 0..8, 0 the bettor
    /// Index of a statement; the next one to run is the one behind it. NoNode: no jump is known, go on.
    std::int32_t Jump = NoNode;
    std::int32_t FirstElement = 0;  ///< index from 1 in the element list
    std::int32_t EndElement = 0;    ///< its end marker
    std::int32_t FirstNode = 0, EndNode = 0;
    std::int32_t FirstTarget = 0, EndTarget = 0;
    /// Value of Condition, Assign, Amount; operand of Command. Action 310: file name, first roll, last roll, each of
    /// which may be NoNode.
    std::int32_t Operands[3] = {NoNode, NoNode, NoNode};
    std::int32_t FirstLine = 0, LastLine = 0;  ///< in the source, from 1
    std::int32_t FirstCol = 0, LastCol = 0;    ///< from 0; last column 0: the end of the line
};

struct Tree {
    std::vector<Statement> Statements;
    std::vector<Node> Nodes;
    std::vector<Reference> References;
    std::vector<ListItem> Items;
    std::vector<Target> Targets;
};

}  // namespace tarnwick
