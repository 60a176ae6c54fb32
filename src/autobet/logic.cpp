// Statement structure: what jumps where.
//
// The jump target of a statement word is the index of the element at which execution goes on: an ELSE, ELSEIF or ENDIF
// for THEN, the ENDIF for ELSE and ELSEIF, the DO for LOOP, the LOOP for DO and EXITDO. GOTO and GOSUB keep theirs in
// the element behind them. Jumps may lead into and out of structures; nobody checks that.
#include <map>

#include "autobet/compilation.h"
#include "autobet/numbertext.h"
#include "autobet/places.h"
#include "autobet/text.h"

namespace tarnwick {

namespace {

using Index = std::size_t;

class Structure {
  public:
    explicit Structure(Compilation& compilation) : C(compilation), List(compilation.Elements) {}

    std::optional<CompileError> Run() {
        FindLabels();
        for (Index i = 1; i < List.size(); ++i) {
            if (!IsKeyword(List[i])) continue;
            if (const std::string fault = Statement(i); !fault.empty()) return ErrorAt(List, i, fault);
        }
        if (Between) return ErrorAt(List, Ifs.back(), "Missing THEN statement.");
        if (!Ifs.empty()) return ErrorAt(List, Ifs.back(), "Missing ENDIF statement.");
        if (!Dos.empty()) return ErrorAt(List, Dos.back(), "Missing LOOP statement.");
        return std::nullopt;
    }

  private:
    /// Earlier passes have moved the labels.
    void FindLabels() {
        for (Index i = 1; i < List.size(); ++i) {
            if (List[i].Code != Code::Label || List[i].Value <= 0) continue;
            PoolString& name = C.Pool[static_cast<Index>(NumberOf(List[i]))];
            name.Value = static_cast<double>(i);
            Labels.emplace(LowerText(TrimBlanks(name.Text)), i);
        }
    }

    std::string Statement(Index i) {
        switch (List[i].Code) {
            case Code::If:
                return If(i);
            case Code::Then:
                return Then(i);
            case Code::Else:
                return Else(i);
            case Code::ElseIf:
                return ElseIf(i);
            case Code::EndIf:
                return EndIf(i);
            case Code::Goto:
            case Code::Gosub:
                return Goto(i);
            case Code::Do:
                return Do(i);
            case Code::ExitDo:
                return ExitDo(i);
            case Code::Loop:
                return Loop(i);
            default:
                return {};
        }
    }

    static Index Top(const std::vector<Index>& stack) { return stack.empty() ? 0 : stack.back(); }
    void JumpTo(Index from, Index to) { List[from].Value = static_cast<double>(to); }

    /// The THEN that is open behind the last IF; 0 when there is none.
    Index OpenThen() const { return Top(Thens) > Top(Ifs) ? Top(Thens) : 0; }

    /// Everything in `list` from the back that stands behind `start` jumps to `target`.
    void Close(std::vector<Index>& list, Index start, Index target) {
        while (Top(list) > start) {
            JumpTo(list.back(), target);
            list.pop_back();
        }
    }

    std::string If(Index i) {
        if (Between) return "IF statement out of position.";
        Between = true;
        Ifs.push_back(i);
        return {};
    }

    std::string Then(Index i) {
        if (!Between) return "THEN statement out of position.";
        Between = false;
        Thens.push_back(i);
        return {};
    }

    std::string Else(Index i) {
        if (OpenThen() == 0 || Between) return "Expected THEN before ELSE.";
        TurnFromThen(i);
        return {};
    }

    std::string ElseIf(Index i) {
        if (Thens.empty() || Between) return "ELSEIF out of position.";
        if (OpenThen() == 0) {
            return "ELSEIF out of position.\nCannot be placed after ELSE within the same IF/THEN statement.";
        }
        Between = true;
        TurnFromThen(i);
        return {};
    }

    /// The open THEN jumps to the ELSE or ELSEIF at `i`, which will jump to the ENDIF.
    void TurnFromThen(Index i) {
        JumpTo(Thens.back(), i);
        Thens.pop_back();
        Elses.push_back(i);
    }

    std::string EndIf(Index i) {
        if (Between) return "Missing THEN between IF and ENDIF.";
        if (Top(Dos) > Top(Ifs)) return "Missing or out of position LOOP statement.";
        if (Ifs.empty() || (OpenThen() == 0 && Top(Elses) < Top(Ifs))) return "Unassociated ENDIF.";
        Close(Thens, Ifs.back(), i);
        Close(Elses, Ifs.back(), i);
        Ifs.pop_back();
        return {};
    }

    std::string Goto(Index i) {
        if (Between) return "GOTO or GOSUB out of position.";
        if (i + 1 >= List.size() || IsMarker(List[i + 1])) return "GOTO or GOSUB missing reference.";
        Element& to = List[i + 1];
        if (to.Code != Code::Number && to.Code != Code::String) return "Improper reference after GOTO or GOSUB.";
        const Element& ahead = List[i - 1];
        if (!IsMarker(ahead) && !(Code::If <= ahead.Code && ahead.Code < Code::EndIf)) {
            return "GOTO or GOSUB here should be preceded with a colon :";
        }
        const std::string name = NameOf(to);
        const auto label = Labels.find(LowerText(TrimBlanks(name)));
        if (label == Labels.end()) return "Label \"" + name + "\" not found.";
        to.Value = static_cast<double>(label->second);
        return {};
    }

    std::string NameOf(const Element& reference) const {
        if (reference.Code == Code::Number) return GeneralNumber(reference.Value);
        return reference.Value > 0 ? C.Pool[static_cast<Index>(NumberOf(reference))].Text : std::string{};
    }

    std::string Do(Index i) {
        if (Between) return "DO statement out of position.";
        Dos.push_back(i);
        return {};
    }

    std::string ExitDo(Index i) {
        if (Dos.empty()) return "EXIT DO statement outside of DO/LOOP.";
        if (Between) return "EXIT DO statement out of position.";
        Exits.push_back(i);
        return {};
    }

    std::string Loop(Index i) {
        if (Dos.empty() || Between) return "Missing DO statement or LOOP statement out of position.";
        if (Top(Ifs) > Dos.back()) return "ENDIF missing or out of position, or LOOP statement out of position.";
        JumpTo(i, Dos.back());
        JumpTo(Dos.back(), i);
        Close(Exits, Dos.back(), i);
        Dos.pop_back();
        return {};
    }

    Compilation& C;
    std::vector<Element>& List;
    std::map<std::string, Index> Labels;
    // Element indexes of what is open, in ascending order each.
    std::vector<Index> Ifs, Thens, Elses, Dos, Exits;
    bool Between = false;  // between IF or ELSEIF and THEN
};

}  // namespace

std::optional<CompileError> CompileLogic(Compilation& c) { return Structure(c).Run(); }

}  // namespace tarnwick
