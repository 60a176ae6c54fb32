#include "table/resolution.h"

namespace tarnwick {

namespace {

/// Builds one list; the member functions read like the table of a dealer's course.
class ListBuilder {
  public:
    constexpr ListBuilder(LineState state, int die1, int die2)
        : State(state), Die1(die1), Die2(die2), Total(die1 + die2) {}

    constexpr RollList Build() {
        PointMadeLosers();
        if (Total == 7) {
            LosersOn7();
        } else {
            LosersByTotal();
        }
        BetsOfEveryRoll();
        PointMadeWinners();
        if (Total == 7) {
            WinnersOn7();
        } else {
            WinnersByTotal();
        }
        return List;
    }

  private:
    LineState State;
    int Die1, Die2, Total;
    RollList List{};

    constexpr bool ComeOut() const { return State == LineState::ComeOut; }
    constexpr bool Hard() const { return Die1 == Die2; }
    constexpr bool Shows(int face) const { return Die1 == face || Die2 == face; }

    constexpr void Add(Step step) {
        const int at = List.Count++;
        List.Steps[static_cast<std::size_t>(at)] = step;
        if (step.Do == Act::Settle || step.Do == Act::Move) {
            Enter(step.Bet, at);
            if (step.Do == Act::Settle && step.With != 0) Enter(step.With, at);
        } else {
            List.Acts[static_cast<std::size_t>(at / 64)] |= std::uint64_t{1} << (at % 64);
        }
    }

    constexpr void Enter(int row, int at) {
        if (row == Row::Fire && List.StepOf[Row::Fire] != 0) {
            List.FireWinStep = at;
            return;
        }
        List.StepOf[static_cast<std::size_t>(row)] = static_cast<std::uint8_t>(at + 1);
        List.Rows[static_cast<std::size_t>(row / 64)] |= std::uint64_t{1} << (row % 64);
    }

    constexpr void Do(Act act, When when = When::Always) { Add({act, when, 0, 0, 0}); }
    constexpr void Lose(int row, When when = When::Always) { Outcome(-1, row, when); }
    constexpr void Win(int row, When when = When::Always) { Outcome(+1, row, when); }
    constexpr void Outcome(int outcome, int row, When when) {
        Add({Act::Settle, when, static_cast<std::int8_t>(outcome), static_cast<std::uint8_t>(row), 0});
    }
    constexpr void LoseWithOdds(int row, int odds) { WithOdds(-1, row, odds); }
    constexpr void WinWithOdds(int row, int odds) { WithOdds(+1, row, odds); }
    constexpr void WithOdds(int outcome, int row, int odds) {
        Add({Act::Settle, When::Always, static_cast<std::int8_t>(outcome), static_cast<std::uint8_t>(row),
             static_cast<std::uint8_t>(odds)});
    }
    constexpr void Move(int from, int to) {
        Add({Act::Move, When::Always, 0, static_cast<std::uint8_t>(from), static_cast<std::uint8_t>(to)});
    }
    constexpr void LoseAll(int first, int last) {
        for (int row = first; row <= last; ++row) Lose(row);
    }

    constexpr void PointMadeLosers() {
        if (State == LineState::PointMade) LoseWithOdds(Row::DontPass, Row::DontPassOdds);
    }

    constexpr void LosersByTotal() {
        switch (Total) {
            case 2:
            case 3:
            case 12:
                if (ComeOut()) Lose(Row::PassLine);
                Lose(Row::Come);
                break;
            case 11:
                if (ComeOut()) Lose(Row::DontPass);
                Lose(Row::DontCome);
                break;
            default: {
                const int n = PointIndex(Total);
                LoseWithOdds(Row::DontCome4 + n, Row::DontCome4Odds + n);
                Lose(Row::Lay4 + n);
                if (Total % 2 == 0 && !Hard()) Lose(HardRow());
            }
        }
    }

    constexpr int HardRow() const {
        return Total == 4 ? Row::Hard4 : Total == 6 ? Row::Hard6 : Total == 8 ? Row::Hard8 : Row::Hard10;
    }

    constexpr void LosersOn7() {
        if (ComeOut()) {
            Lose(Row::DontPass);
        } else {
            LoseWithOdds(Row::PassLine, Row::PassLineOdds);
            Lose(Row::Fire, When::FireLoses);
        }
        for (int n = 0; n < 6; ++n) LoseWithOdds(Row::Come4 + n, Row::Come4Odds + n);
        Lose(Row::DontCome);
        Lose(Row::Big6);
        Lose(Row::Big8);
        LoseAll(Row::Hard4, Row::Hard10);
        LoseAll(Row::Place4, Row::Buy10);
        Do(Act::ClearMarks, When::Specials);
        for (int row : {Row::AllSmall, Row::AllTall, Row::MakeAll, Row::FourRollsNo7}) Lose(row, When::Specials);
    }

    constexpr void BetsOfEveryRoll() {
        Win(Row::Field);  // by its own table, which also holds the losses
        if (Total < 6 || Total > 8) Lose(Row::Midway);
        if (Total != 2) Lose(Row::Two);
        if (Total != 3) Lose(Row::Three);
        if (Total != 7) Lose(Row::Seven);
        if (Total != 11) Lose(Row::Eleven);
        if (Total != 12) Lose(Row::Twelve);
        if (4 <= Total && Total <= 11) Lose(Row::Craps);
        if (4 <= Total && Total <= 10) {
            Lose(Row::CandE);
            Lose(Row::Horn);
            if (Total != 7) Lose(Row::World);
        }
        if (Total < 8) Lose(Row::Over7);
        if (Total > 7) Win(Row::Over7);
        if (Total > 6) Lose(Row::Under7);
        if (Total < 7) Win(Row::Under7);
        LosingHops();
        if (ComeOut() && !IsPointNumber(Total)) {
            Lose(Row::Point7, When::Specials);
            if (Total != 7) Lose(Row::SevenPoint7, When::Specials);
        }
        if (!ComeOut() && Total != 7) {
            Lose(Row::Point7, When::SpecialsEarly);
            Lose(Row::SevenPoint7, When::SpecialsEarly);
        }
    }

    struct Hop {
        int Bet, A, B;
    };
    static constexpr std::array<Hop, 17> Hops = {{{Row::Hop13, 1, 3},
                                                  {Row::Hop22, 2, 2},
                                                  {Row::Hop14, 1, 4},
                                                  {Row::Hop23, 2, 3},
                                                  {Row::Hop15, 1, 5},
                                                  {Row::Hop24, 2, 4},
                                                  {Row::Hop33, 3, 3},
                                                  {Row::Hop16, 1, 6},
                                                  {Row::Hop25, 2, 5},
                                                  {Row::Hop34, 3, 4},
                                                  {Row::Hop26, 2, 6},
                                                  {Row::Hop35, 3, 5},
                                                  {Row::Hop44, 4, 4},
                                                  {Row::Hop36, 3, 6},
                                                  {Row::Hop45, 4, 5},
                                                  {Row::Hop46, 4, 6},
                                                  {Row::Hop55, 5, 5}}};

    constexpr bool Hits(const Hop& hop) const {
        return (Die1 == hop.A && Die2 == hop.B) || (Die1 == hop.B && Die2 == hop.A);
    }

    constexpr void LosingHops() {
        for (const Hop& hop : Hops) {
            if (!Hits(hop)) Lose(hop.Bet);
        }
    }

    constexpr void WinningHop() {
        for (const Hop& hop : Hops) {
            if (Hits(hop)) Win(hop.Bet);
        }
    }

    constexpr void PointMadeWinners() {
        if (State != LineState::PointMade) return;
        WinWithOdds(Row::PassLine, Row::PassLineOdds);
        Do(Act::MarkPointMade);
    }

    constexpr void WinnersByTotal() {
        switch (Total) {
            case 2:
                if (ComeOut()) Win(Row::DontPass, When::Bar12);
                WinProps({Row::Two, Row::Craps, Row::CandE, Row::Horn, Row::World});
                Win(Row::DontCome, When::Bar12);
                break;
            case 3:
                if (ComeOut()) Win(Row::DontPass);
                WinProps({Row::Three, Row::Craps, Row::CandE, Row::Horn, Row::World});
                Win(Row::DontCome);
                break;
            case 11:
                if (ComeOut()) Win(Row::PassLine);
                for (int row : {Row::Eleven, Row::CandE, Row::Come, Row::Horn, Row::World}) Win(row);
                break;
            case 12:
                if (ComeOut()) Win(Row::DontPass, When::Bar2);
                WinProps({Row::Twelve, Row::Craps, Row::CandE, Row::Horn, Row::World});
                Win(Row::DontCome, When::Bar2);
                break;
            default:
                WinnersOnPointNumber();
        }
    }

    constexpr void WinProps(const std::array<int, 5>& rows) {
        for (int row : rows) Win(row);
    }

    constexpr void WinnersOnPointNumber() {
        const int n = PointIndex(Total);
        WinWithOdds(Row::Come4 + n, Row::Come4Odds + n);
        Win(Row::Place4 + n);
        Win(Row::Buy4 + n);
        if (Total == 6) Win(Row::Big6);
        if (Total == 8) Win(Row::Big8);
        if (Total == 6 || Total == 8) Win(Row::Midway);
        if (Hard()) Win(HardRow());
        WinningHop();
        Move(Row::Come, Row::Come4 + n);
        Move(Row::DontCome, Row::DontCome4 + n);
    }

    constexpr void WinnersOn7() {
        if (ComeOut()) {
            Win(Row::PassLine);
        } else {
            Win(Row::Come);
            Win(Row::DontPass);
            Outcome(+2, Row::DontPassOdds, When::Always);
        }
        for (int n = 0; n < 6; ++n) WinWithOdds(Row::DontCome4 + n, Row::DontCome4Odds + n);
        for (int n = 0; n < 6; ++n) Win(Row::Lay4 + n);
        Win(Row::Midway);
        Win(Row::Seven);
        Win(Row::World);
        WinningHop();
        if (ComeOut()) {
            Win(Row::SevenPoint7, When::Specials);
            return;
        }
        Win(Row::Point7, When::SpecialsEarly);
        Outcome(+2, Row::SevenPoint7, When::SpecialsEarly);
        Win(Row::Fire, When::FireWins);
        Do(Act::ClearPointsMade);
    }
};

using StateLists = std::array<RollList, 36>;

constexpr StateLists BuildLists(LineState state) {
    StateLists lists{};
    for (int die1 = 1; die1 <= 6; ++die1) {
        for (int die2 = 1; die2 <= 6; ++die2) {
            if (state == LineState::PointMade && !IsPointNumber(die1 + die2)) continue;
            lists[static_cast<std::size_t>(6 * (die1 - 1) + die2 - 1)] = ListBuilder(state, die1, die2).Build();
        }
    }
    return lists;
}

constexpr std::array<StateLists, 3> Lists = {BuildLists(LineState::ComeOut), BuildLists(LineState::PointMade),
                                             BuildLists(LineState::PointOn)};

using StateHeads = std::array<RollHead, 36>;

constexpr StateHeads HeadsOf(const StateLists& lists) {
    StateHeads heads{};
    for (std::size_t i = 0; i < lists.size(); ++i) {
        heads[i] = {lists[i].Rows, (lists[i].Acts[0] | lists[i].Acts[1]) != 0};
    }
    return heads;
}

constexpr std::array<StateHeads, 3> Heads = {HeadsOf(Lists[0]), HeadsOf(Lists[1]), HeadsOf(Lists[2])};

}  // namespace

const RollHead& RollHeadFor(LineState state, int die1, int die2) {
    return Heads[static_cast<std::size_t>(state)][static_cast<std::size_t>(6 * (die1 - 1) + die2 - 1)];
}

const RollList& RollListFor(LineState state, int die1, int die2) {
    return Lists[static_cast<std::size_t>(state)][static_cast<std::size_t>(6 * (die1 - 1) + die2 - 1)];
}

}  // namespace tarnwick
