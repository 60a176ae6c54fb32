// The language evaluated the slow way, for comparison: each statement is copied from the element list and reduced in
// place, operator by operator, the way a reader of the language would do it with pencil and rubber.
#pragma once

#include <string>
#include <vector>

#include "autobet/actions.h"
#include "autobet/compilation.h"

namespace tarnwick {

class LiteralEvaluator {
  public:
    /// `script` must have compiled; `game` is changed by the run.
    LiteralEvaluator(const Compilation& script, Table& game);

    /// One run of the script. False when a fault ended it.
    bool Run();

    /// Of each condition and action in the order in which they ran: its warnings and its outcome, sorted.
    std::vector<std::vector<std::string>> Outcomes;
    RunState State;

  private:
    using Buffer = std::vector<Element>;

    void RunStatement(Buffer b);
    void Reduce(Buffer& b);
    void Passes(Buffer& b, std::size_t first, std::size_t last);
    void FunctionPass(Buffer& b, std::size_t first, std::size_t& last);
    void ListFunction(Buffer& b, std::size_t at, std::size_t& last);
    void VariablePass(Buffer& b, std::size_t first, std::size_t& last);
    void OperatorPass(Buffer& b, std::size_t first, std::size_t& last, int lowOp, int highOp);
    void NegatePass(Buffer& b, std::size_t first, std::size_t& last);
    void NotPass(Buffer& b, std::size_t first, std::size_t& last);
    void ListPass(Buffer& b, std::size_t first, std::size_t& last);
    void Operate(Element& left, int op, const Element& right);
    bool Compare(const Element& left, int op, const Element& right);
    Element BetFunction(const Buffer& b, std::size_t at);
    Element PlainFunction(const Buffer& b, std::size_t at, std::size_t arguments);
    Element ReadVariable(const Buffer& b, std::size_t at, std::size_t last, std::size_t& count);
    void TakeAction(const Buffer& b);
    void TakeTargets(const Buffer& b, std::size_t first, int action, const ScriptValue& value);
    void Note(std::string outcome);
    Element StringElement(std::string text);
    std::string TextOf(const Element& e);
    ScriptValue ValueOf(const Element& e);

    const Compilation& Script;
    std::vector<std::string> Pool;
    std::vector<std::string> Held;  ///< texts that values point to, until the statement ends
    std::size_t Counter = 0;
    std::vector<std::size_t> Returns;
    bool InCondition = false;
    bool ConditionTrue = false;
    bool Faulted = false;
};

}  // namespace tarnwick
