#include "stats/restore.h"

#include <algorithm>

#include "stats/accumulators.h"
#include "stats/bankrollgraph.h"

namespace tarnwick {

using namespace StatsDetail;

namespace {

// --- reading ---

void ReadRolls(const Table& t, PlainFigures& f) {
    for (int k = 0; k < RollEvents; ++k) {
        f.RollsSince[At(k)] = RollsSince(t, k);
        for (int gap = 0; gap < static_cast<int>(GapSlots); ++gap)
            f.RollGapTally[At(k)][At(gap)] = RollGapTally(t, k, gap);
    }
    for (int pos = 0; pos < StatPositions; ++pos) {
        for (int k = 0; k < RollEvents; ++k) f.RollCount[At(pos)][At(k)] = RollCount(t, pos, k);
        for (int total = 2; total <= 12; ++total) {
            for (int c = 1; c <= 3; ++c) f.PointTally[At(pos)][At(total)][At(c)] = PointTally(t, pos, total, c);
        }
        f.HandCount[At(pos)] = HandCount(t, pos);
        f.PlayerRolls[At(pos)] = PlayerRolls(t, pos);
        f.MostRolls[At(pos)] = MostRolls(t, pos);
        f.MostComeouts[At(pos)] = MostComeouts(t, pos);
        f.MostPasses[At(pos)] = MostPasses(t, pos);
        f.MostMisses[At(pos)] = MostMisses(t, pos);
    }
}

std::unique_ptr<PlainPlayerFigures> ReadPlayer(const Table& t, int p) {
    auto f = std::make_unique<PlainPlayerFigures>();
    using Reader = currency (*)(const Table&, int, int, int);
    constexpr std::array<Reader, 3> readers = {BetStatWagers, BetStatWins, BetStatLosses};
    for (int scope = 0; scope < Scopes; ++scope) {
        const int pos = p + Positions * scope;
        for (std::size_t kind = 0; kind < readers.size(); ++kind) {
            for (int row = 1; row <= Row::LastBet; ++row) {
                for (int stat = 1; stat <= 6; ++stat) {
                    f->BetStats[kind][At(scope)][At(row - 1)][At(stat - 1)] = readers[kind](t, pos, row, stat);
                }
            }
        }
        for (int i = 0; i < 6; ++i) f->ComeFlatSum[At(scope)][At(i)] = ComeFlatSum(t, pos, Row::Come4 + i);
    }
    for (int i = 0; i <= 2 * GraphPage; ++i) f->GraphBankroll[At(i)] = GraphBankroll(t, p, i);
    f->BankrollSum = BankrollSum(t, p);
    f->GraphExtra = t.GraphExtra[At(p)];
    f->GraphHasExtra = ((t.GraphHasExtra >> p) & 1u) != 0;
    return f;
}

// --- rolls ---

/// The event that is the ordered pair and nothing else.
constexpr std::array<std::size_t, DicePairs> EventOfPair = [] {
    std::array<std::size_t, DicePairs> events{};
    for (std::size_t pair = 0; pair < DicePairs; ++pair) {
        for (std::size_t k = 1; k < RollEvents; ++k) {
            if (PairsOfEvent[k] == PairMask{1} << pair) events[pair] = k;
        }
    }
    return events;
}();

std::int64_t NotBelow0(std::int64_t n) { return std::max<std::int64_t>(n, 0); }

/// Sets the cells of one figure: those of the seated players as given, the table's to what they leave of its sum.
/// `less` is what is counted elsewhere already.
template <class Rows, class Count, class Less>
void SetShares(const Table& t, Rows& rows, std::size_t cell, Count count, Less less) {
    using Cell = std::decay_t<decltype(rows[0][0])>;
    std::int64_t others = 0;
    for (std::size_t p = 1; p < Positions; ++p) {
        const std::int64_t own = IsSeated(t, static_cast<int>(p)) ? NotBelow0(count(p) - less(p)) : 0;
        rows[p][cell] = static_cast<Cell>(own);
        others += own + less(p);
    }
    const std::int64_t rest = NotBelow0(count(std::size_t{0}) - others - less(std::size_t{0}));
    rows[0][cell] = static_cast<Cell>(rest);
}

template <class Count, class Less>
void SetRows(const Table& t, const PlainFigures& f, int scope, RollRows<Count>& rows, Less less) {
    const std::size_t first = At(Positions * scope);
    rows = {};
    for (std::size_t pair = 0; pair < DicePairs; ++pair) {
        SetShares(
            t, rows.Pairs, pair,
            [&](std::size_t p) -> std::int64_t { return f.RollCount[first + p][EventOfPair[pair]]; },
            [&](std::size_t p) -> std::int64_t { return less(p, pair, true); });
    }
    for (int total = 2; total <= 12; ++total) {
        for (int c = 1; c <= 3; ++c) {
            const std::size_t slot = LineSlot(total, c);
            SetShares(
                t, rows.Lines, slot,
                [&](std::size_t p) -> std::int64_t { return f.PointTally[first + p][At(total)][At(c)]; },
                [&](std::size_t p) -> std::int64_t { return less(p, slot, false); });
        }
    }
}

void SetRollRows(Table& t, const PlainFigures& f) {
    const auto nothing = [](std::size_t, std::size_t, bool) { return std::int64_t{0}; };
    SetRows(t, f, Scope::Hand, t.Folded.Hand, nothing);
    SetRows(t, f, Scope::LastHand, t.Folded.LastHand, nothing);
    SetRows(t, f, Scope::Session, t.Folded.Session, nothing);
    SetRows(t, f, Scope::LastSession, t.LastSessionRolls, nothing);
    const auto session = [&](std::size_t p, std::size_t cell, bool pair) -> std::int64_t {
        return pair ? t.Folded.Session.Pairs[p][cell] : t.Folded.Session.Lines[p][cell];
    };
    SetRows(t, f, Scope::All, t.AllRolls, session);
}

void SetCounts(Table& t, const PlainFigures& f) {
    const std::int64_t rolls = std::clamp(f.RollCount[18][0], 0, MaxSessionRolls);
    const std::int64_t handRolls = std::clamp<std::int64_t>(f.RollCount[0][0], 0, rolls);
    t.RollTotal = rolls;
    t.SessionStart = t.GapStart = 0;
    t.HandStart = rolls - handRolls;
    for (std::size_t p = 0; p < Positions; ++p) {
        t.SeenHandFrom[p] = rolls - NotBelow0(f.PlayerRolls[p]);
        t.SeenLastHand[p] = std::max(f.PlayerRolls[p + 9], 0);
        t.SeenSessionFrom[p] = rolls - NotBelow0(f.PlayerRolls[p + 18]);
        t.SeenLastSession[p] = std::max(f.PlayerRolls[p + 27], 0);
        t.SeenAllFrom[p] = rolls - NotBelow0(f.PlayerRolls[p + 36]);
    }
    GapFigures& gaps = t.Folded.Gaps;
    gaps = {};
    for (std::size_t k = 0; k < RollEvents; ++k) {
        for (std::size_t gap = 0; gap < GapSlots; ++gap) {
            gaps.Counts[k][gap] = static_cast<std::uint32_t>(std::max(f.RollGapTally[k][gap], 0));
        }
        gaps.LastAt[k] = static_cast<std::uint32_t>(rolls - std::clamp<std::int64_t>(f.RollsSince[k], 0, rolls));
    }
}

/// The hand so far belongs to those who rolled it; a new stretch begins.
void SetHand(Table& t, const PlainFigures& f) {
    FoldedFigures& folded = t.Folded;
    folded.RollsFolded = folded.LiveFrom = t.RollTotal;
    folded.LiveShooter = t.HandShooter;
    folded.LiveComeouts = t.HandComeouts;
    folded.LivePasses = t.HandPasses;
    folded.LiveMisses = t.HandMisses;
    folded.HandCredited = HandRolls(t) > 0;
    folded.HandRollsOf = {HandRolls(t)};
    for (std::size_t p = 1; p < Positions; ++p) {
        std::int64_t rolls = 0;
        for (const std::int32_t count : folded.Hand.Pairs[p]) rolls += count;
        folded.HandRollsOf[p] = static_cast<std::int32_t>(std::min<std::int64_t>(rolls, HandRolls(t)));
    }
    for (std::size_t pos = 0; pos < StatPositions; ++pos) {
        folded.HandCounts[pos] = NotBelow0(f.HandCount[pos]);
        folded.Most[MostOf::Rolls][pos] = std::max(f.MostRolls[pos], 0);
        folded.Most[MostOf::Comeouts][pos] = std::max(f.MostComeouts[pos], 0);
        folded.Most[MostOf::Passes][pos] = std::max(f.MostPasses[pos], 0);
        folded.Most[MostOf::Misses][pos] = std::max(f.MostMisses[pos], 0);
    }
}

// --- bets ---

BetSide SideFrom(const std::array<currency, 6>& stats) {
    // A side that counts nothing has nothing.
    if (stats[0] < Dollars(1)) return {};
    const auto whole = [](currency n) { return NotBelow0(n.TenThousandths / CurrencyScale); };
    return {whole(stats[0]),
            stats[1].TenThousandths,
            NotBelow0(stats[2].TenThousandths),
            NotBelow0(stats[3].TenThousandths),
            whole(stats[4]),
            stats[5].TenThousandths};
}

/// What `all` holds beside `session`. High and low may stay those of both.
BetSide Without(const BetSide& all, const BetSide& session) {
    BetSide rest = all;
    rest.Count = NotBelow0(all.Count - session.Count);
    if (rest.Count == 0) return {};
    rest.Sum = Saturate(static_cast<int128>(all.Sum) - session.Sum);
    return rest;
}

bool IsEmpty(const BetFigures& f) {
    const auto empty = [](const BetSide& side) {
        return side.Count == 0 && side.Sum == 0 && side.High == 0 && side.Low == 0 && side.LastRoll == 0 &&
               side.Last == 0;
    };
    return empty(f.Wagers) && empty(f.Wins) && empty(f.Losses) && f.ComeFlat == 0;
}

void Store(BetBook& book, int p, int row, const BetFigures& figures) {
    if (!IsEmpty(figures)) OpenRecord(book, p, row) = figures;
}

void SetBets(Table& t, int p, const PlainPlayerFigures& f) {
    const std::array<BetBook*, 4> books = {&t.HandBooks[0], &t.HandBooks[1], &t.SessionBooks[0], &t.SessionBooks[1]};
    for (int row = 1; row <= Row::LastBet; ++row) {
        std::array<BetFigures, Scopes> figures;
        for (std::size_t scope = 0; scope < Scopes; ++scope) {
            BetFigures& of = figures[scope];
            of.Wagers = SideFrom(f.BetStats[0][scope][At(row - 1)]);
            of.Wins = SideFrom(f.BetStats[1][scope][At(row - 1)]);
            of.Losses = SideFrom(f.BetStats[2][scope][At(row - 1)]);
            if (IsComeNumber(row)) of.ComeFlat = f.ComeFlatSum[scope][At(row - Row::Come4)].TenThousandths;
        }
        for (std::size_t scope = 0; scope < books.size(); ++scope) Store(*books[scope], p, row, figures[scope]);
        const BetFigures& all = figures[Scope::All];
        const BetFigures& session = figures[Scope::Session];
        const std::int64_t comeFlat = Saturate(static_cast<int128>(all.ComeFlat) - session.ComeFlat);
        Store(t.AllBook, p, row,
              {Without(all.Wagers, session.Wagers), Without(all.Wins, session.Wins),
               Without(all.Losses, session.Losses), comeFlat});
    }
}

void ClearBooks(Table& t) {
    for (BetBook* book : {&t.HandBooks[0], &t.HandBooks[1], &t.SessionBooks[0], &t.SessionBooks[1], &t.AllBook}) {
        book->Used = {};
    }
    t.HandBook = {};
    t.SessionBook = 0;
}

// --- the graph ---

/// The page's place: whoever is seated has it.
void SetPage(Table& t, const PlainFigures& f) {
    const int rolls = SessionRolls(t);
    t.GraphPoints = rolls;
    t.GraphStart = rolls + 1;
    for (std::size_t p = Positions; p-- > 1;) {
        if (f.Players[p] == nullptr) continue;
        const std::int64_t start = f.Players[p]->GraphBankroll[0].TenThousandths / CurrencyScale;
        t.GraphStart =
            static_cast<std::int32_t>(std::clamp<std::int64_t>(start, std::max(rolls - GraphPage + 1, 1), rolls + 1));
    }
}

void SetGraph(Table& t, int p, const PlainPlayerFigures* f) {
    GraphSeries& series = t.GraphOf[At(p)];
    series.Newest = 0;
    series.Count = 1;
    series.Runs[0] = {1, f == nullptr ? 0 : t.Bankroll[At(p)].TenThousandths, 0};
    t.GraphExtra[At(p)] = f == nullptr ? currency{} : f->GraphExtra;
    const std::uint32_t bit = 1u << p;
    t.GraphHasExtra = f == nullptr || f->GraphHasExtra ? t.GraphHasExtra | bit : t.GraphHasExtra & ~bit;
    if (f == nullptr) return;
    bool first = true;
    for (int roll = std::max(t.GraphStart - GraphPage, 1); roll <= t.GraphPoints; ++roll) {
        const int point = roll - t.GraphStart + 1;
        const int place = point > 0 ? point : point + 2 * GraphPage;
        const std::int64_t value = f->GraphBankroll[At(place)].TenThousandths;
        if (first) {
            series.Runs[0] = {roll, value, 0};
        } else if (series.Runs[series.Newest].Value != value) {
            BeginGraphRun(series, roll, value);
        }
        first = false;
    }
    const std::int64_t now = t.Bankroll[At(p)].TenThousandths;
    if (series.Runs[series.Newest].Value != now) BeginGraphRun(series, std::int64_t{t.GraphPoints} + 1, now);
}

}  // namespace

std::unique_ptr<PlainFigures> FiguresOf(const Table& t) {
    auto figures = std::make_unique<PlainFigures>();
    ReadRolls(t, *figures);
    for (int p = 1; p < Positions; ++p) {
        if (IsSeated(t, p)) figures->Players[At(p)] = ReadPlayer(t, p);
    }
    return figures;
}

void SetFigures(Table& t, const PlainFigures& figures) {
    SetCounts(t, figures);
    SetRollRows(t, figures);
    SetHand(t, figures);
    ClearBooks(t);
    SetPage(t, figures);
    t.BankrollSamples = 0;
    t.SumFrom = {};
    t.SumSettled = {};
    t.BankrollsToSample = 0;
    for (int p = 1; p < Positions; ++p) {
        const PlainPlayerFigures* player = IsSeated(t, p) ? figures.Players[At(p)].get() : nullptr;
        SetGraph(t, p, player);
        if (player == nullptr) continue;
        SetBets(t, p, *player);
        t.SumSettled[At(p)] = player->BankrollSum;
        t.BankrollsToSample |= 1u << p;
    }
}

}  // namespace tarnwick
