// Code for the expressions of one script. A statement's nodes stand in the order in which the language evaluates them;
// those that draw, ask, warn or fault are emitted first in that order, the rest where it is cheapest.
#pragma once

#include <string>
#include <vector>

#include "autobet/program.h"

namespace tarnwick {

/// The comparison 50..55 that holds when `op` does not.
constexpr int OppositeComparison(int op) {
    constexpr int opposite[] = {51, 50, 55, 54, 53, 52};
    return opposite[op - 50];
}
/// The comparison that says the same with the sides exchanged.
constexpr int MirroredComparison(int op) {
    constexpr int mirrored[] = {50, 51, 53, 52, 55, 54};
    return mirrored[op - 50];
}

/// A place in the code that jumps wait for.
class Label {
  public:
    void Use(std::size_t at) { Uses.push_back(at); }
    void Bind(Program& program) const {
        for (const std::size_t at : Uses) program.Code[at].X = static_cast<std::int32_t>(program.Code.size());
    }

    const std::vector<std::size_t>& Places() const { return Uses; }

  private:
    std::vector<std::size_t> Uses;
};

using CheckedTargets = std::vector<Target>;

class Emitter {
  public:
    Emitter(const Table& table, const CheckedScript& script, Program& program);

    /// Starts the code of a statement: its registers are free again, and its nodes with effects are emitted.
    void Begin(const Statement& statement);

    /// Emits what is missing of a node and returns the register that holds it.
    std::uint16_t Number(std::int32_t node);
    std::uint16_t Text(std::int32_t node);
    /// Emits a node now, for all its later uses in the statement; NoNode does nothing.
    void Keep(std::int32_t node);
    /// Jumps to `label` when the truth of `node` (not 0) is `when`.
    void Branch(std::int32_t node, bool when, Label& label);
    /// Jumps to `label` unless what the target in `pair` (see BeginPlace) holds passes the target's filter.
    void BranchUnlessFilter(const Target& target, std::uint16_t pair, Label& label);

    /// A register pair with target and position of `place`: RowOf and PlayerOf are emitted, the position of a code is
    /// left to FinishPlace.
    std::uint16_t BeginPlace(const Reference& place);
    void FinishPlace(const Reference& place, std::uint16_t pair);
    /// Whether target and position are known now.
    static bool IsFixed(const Reference& place);
    static int FixedPlayer(const Reference& place) { return place.Player == 15 ? 0 : place.Player; }

    bool IsText(std::int32_t node) const { return NodeAt(node).Type == ValueKind::Text; }
    const Node& NodeAt(std::int32_t node) const { return T.Nodes[static_cast<std::size_t>(node)]; }
    bool IsConstant(std::int32_t node) const { return NodeAt(node).Kind == NodeKind::Number; }

    const CheckedTargets& Targets() const { return T.Targets; }

    Instruction& Emit(Op code);
    std::uint16_t NewNumber(int count = 1);
    std::uint16_t NewText();
    std::uint16_t ConstantNumber(double value);
    std::uint16_t EmptyText();
    std::int32_t AmountIndex(currency amount);
    bool Failed() const { return TooLarge; }

  private:
    /// What is known of a node before it runs.
    struct Facts {
        bool Quiet = true;   ///< itself draws, asks, warns and faults never
        bool Truth = false;  ///< always -1 or 0
        double Bound = 0;    ///< its number is never further from 0
    };

    void FindFacts();
    Facts FactsOf(const Node& node) const;
    Facts ArithmeticFacts(const Node& node) const;
    const Facts& At(std::int32_t node) const { return Known[static_cast<std::size_t>(node)]; }

    std::uint16_t EmitNumber(std::int32_t node);
    std::uint16_t EmitText(std::int32_t node);
    std::uint16_t EmitReference(const Reference& r);
    std::uint16_t EmitNameReference(const Reference& r);
    void EmitPlayer(const Reference& r, std::uint16_t dst);
    void EmitRow(const Reference& r, std::uint16_t dst);
    std::uint16_t EmitArithmetic(const Node& node);
    std::uint16_t EmitFunction(const Node& node);
    std::uint16_t EmitListFunction(const Node& node);
    std::uint16_t EmitListCompare(const Node& node);
    std::uint16_t EmitTruth(std::int32_t node);
    std::uint16_t EmitTextFunction(const Node& node);
    std::uint16_t Prompt(const Node& node, int special);
    bool FindRowSet(const Node& node, bool compares, RowSet& set) const;
    bool IsStandingBet(std::int32_t node, int& p, int& row) const;
    void BranchCompare(std::int32_t left, int op, std::int32_t right, bool when, Label& label);
    bool BranchDirect(std::int32_t left, int op, std::int32_t right, Label& label);
    Op DirectOp(const Reference& r, std::int32_t& offset) const;
    bool BranchFlag(const Reference& r, bool when, Label& label);
    void BranchList(const Node& node, bool when, Label& label);
    std::int32_t ConstantIndex(double value);
    std::int32_t ReadingIndex(const Reading& reading);

    const Table& Game;
    const Tree& T;
    const std::vector<PoolString>& Pool;
    Program& P;
    std::vector<Facts> Known;
    std::vector<std::int32_t> Home;  ///< register of a node that is emitted already, or -1
    int NextNumber = 0;
    int NextText = 0;
    bool TooLarge = false;
};

}  // namespace tarnwick
