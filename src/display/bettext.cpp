#include "display/bettext.h"

#include "config/advantage.h"
#include "config/payoffs.h"
#include "display/words.h"
#include "table/format.h"

namespace tarnwick {

namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

QString Money(currency amount) {
    const QString text = Words(FormatCommas(Abs(amount)));
    return (amount < currency{} ? QStringLiteral("-$") : QStringLiteral("$")) + text;
}

/// The odds row that goes with a flat one, or 0.
int OddsOf(int row) {
    if (row == Row::PassLine || row == Row::DontPass) return row + 1;
    const bool onNumber =
        (Row::Come4 <= row && row <= Row::Come10) || (Row::DontCome4 <= row && row <= Row::DontCome10);
    return onNumber ? row + 6 : 0;
}

/// Bets that pay by what was rolled have no single payoff.
bool HasOnePayoff(int row) {
    for (const int several :
         {Row::Field, Row::CandE, Row::Horn, Row::World, Row::SevenPoint7, Row::Midway, Row::Fire}) {
        if (row == several) return false;
    }
    return true;
}

QString AmountText(const Table& t, int p, int row) {
    const int flat = FlatRowOf(row) != 0 ? FlatRowOf(row) : row;
    const currency odds = OddsOf(flat) != 0 ? t.BetAmount(p, OddsOf(flat)) : currency{};
    if (!IsZero(odds)) return QStringLiteral("Flat %1, Odds %2").arg(Money(t.BetAmount(p, flat)), Money(odds));
    const currency amount = t.BetAmount(p, row);
    if (IsZero(amount)) return {};
    const currency vig = BuyVig(t, row, amount) + LayVig(t, row, amount);
    return IsZero(vig) ? Money(amount) : QStringLiteral("%1, vig %2").arg(Money(amount), Money(vig));
}

QString StackText(const Table& t, int row) {
    const auto p = At(t.ActivePlayer);
    const std::string& name = t.CheckStackName[p][At(row - Row::FirstStack)];
    QString text = QStringLiteral("CheckStack #%1").arg(row - Row::FirstStack);
    if (!name.empty()) text += QStringLiteral(" (%1)").arg(Words(name));
    return text + QStringLiteral(":  ") + Money(t.BetAmount(t.ActivePlayer, row));
}

}  // namespace

QStringList BetLines(const Table& t, int row, AdvantageCache& advantages) {
    if (row > Row::LastBet) return {StackText(t, row)};
    QString text = Words(BetName(row));
    const int p = t.ActivePlayer;
    const QString amount = p > 0 ? AmountText(t, p, row) : QString();
    if (!amount.isEmpty()) text += QStringLiteral(":  ") + amount;
    QStringList lines{text};
    if (HasOnePayoff(row)) lines << QStringLiteral("pays ") + Words(PayoffText(PayoffOf(t, row)));
    const double house = -100 * advantages.Of(t, row).EvDec;
    lines << QStringLiteral("%1 advantage %2%")
                 .arg(house < 0 ? QStringLiteral("player's") : QStringLiteral("house"),
                      Words(FormatPattern(house < 0 ? -house : house, "0.00")));
    return lines;
}

QString BetText(const Table& t, int row, AdvantageCache& advantages) {
    QStringList facts = BetLines(t, row, advantages);
    const QString bet = facts.takeFirst();
    return facts.isEmpty() ? bet : bet + QStringLiteral("     ") + facts.join(QStringLiteral(",  "));
}

}  // namespace tarnwick
