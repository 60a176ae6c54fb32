#include "display/handlingbox.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "display/words.h"
#include "table/format.h"
#include "table/settledialog.h"

namespace tarnwick {

namespace {

constexpr int SameBetCode = 6, BetCode = 7;
constexpr int AmountWidth = 96, AmountLength = 20;

constexpr std::array<const char*, 8> WinnerCaptions = {" Manual",
                                                       " Take Bet and Winnings",
                                                       " Same Bet/Take Winnings",
                                                       " Press 1 Unit",
                                                       " Press Double",
                                                       " Parlay",
                                                       " Same Bet",
                                                       " Bet"};
constexpr std::array<const char*, 8> LoserCaptions = {" Manual",
                                                      " No Bet/Take Remainder (if any)",
                                                      " Same Bet",
                                                      " Bet Remainder (if any)",
                                                      " Same Bet Plus 1 Unit",
                                                      " Double Bet",
                                                      " Same Bet",
                                                      " Bet"};

std::size_t At(int i) { return static_cast<std::size_t>(i); }

/// The step after what is shown; the first one where nothing is.
int After(std::optional<std::int32_t> shown, int (*next)(int)) { return shown ? next(*shown) : 0; }

}  // namespace

HandlingBox::HandlingBox(const Table& t, bool winners, QWidget* parent)
    : QGroupBox(winners ? QStringLiteral("Auto-Handle Winning &Bets") : QStringLiteral("Auto-Handle Los&ing Bets"),
                parent),
      T(t),
      Codes(new QButtonGroup(this)) {
    setObjectName(winners ? QStringLiteral("fraWinners") : QStringLiteral("fraLosers"));
    auto* grid = new QGridLayout(this);
    grid->setVerticalSpacing(4);
    grid->setColumnStretch(0, 1);
    const auto& captions = winners ? WinnerCaptions : LoserCaptions;
    for (int code = 0; code < static_cast<int>(captions.size()); ++code) {
        auto* choice = new QRadioButton(QString::fromLatin1(captions[At(code)]).trimmed());
        choice->setObjectName(
            QStringLiteral("%1%2").arg(winners ? QStringLiteral("optWinner") : QStringLiteral("optLoser")).arg(code));
        Codes->addButton(choice, code);
        grid->addWidget(choice, code, 0, 1, code < SameBetCode ? 4 : 1);
        if (code == SameBetCode) {
            Lines[0].Slot = winners ? WinnersSameBetSlot : LosersSameBetSlot;
            AddArithmetic(*grid, code, Lines[0], true);
        } else if (code == BetCode) {
            Lines[1].Slot = winners ? WinnersBetSlot : LosersBetSlot;
            AddArithmetic(*grid, code, Lines[1], false);
        }
    }
    connect(Codes, &QButtonGroup::idClicked, this, &HandlingBox::codeChosen);
}

QPushButton* HandlingBox::AddStepButton(const char* name, const Line& line, const QString& tip) {
    auto* button = new QPushButton;
    button->setObjectName(QLatin1String(name) + QString::number(line.Slot));
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    return button;
}

void HandlingBox::AddArithmetic(QGridLayout& grid, int gridRow, Line& line, bool withOperator) {
    const int slot = line.Slot;
    if (withOperator) {
        line.Operator = AddStepButton("cmdMathOperator", line, tr("Steps through +, -, x and /"));
        line.Operator->setFixedWidth(36);
        connect(line.Operator, &QPushButton::clicked, this, [this, slot] {
            emit operatorWanted(slot, After(Shown.Operators[At(slot)], [](int value) { return NextOperator(value); }));
        });
        grid.addWidget(line.Operator, gridRow, 1);
    }
    line.Amount = new QLineEdit;
    line.Amount->setObjectName(QStringLiteral("txtModifyAmount%1").arg(slot));
    line.Amount->setAccessibleName(tr("Amount"));
    line.Amount->setAlignment(Qt::AlignRight);
    line.Amount->setFixedWidth(AmountWidth);
    line.Amount->setMaxLength(AmountLength);
    connect(line.Amount, &QLineEdit::editingFinished, this, [this, &line] { TakeTyped(line); });
    grid.addWidget(line.Amount, gridRow, 2);

    line.Unit = AddStepButton("cmdUnits", line, tr("Steps through dollars, percent and the checks"));
    line.Unit->setMinimumWidth(AmountWidth);
    connect(line.Unit, &QPushButton::clicked, this, [this, slot] {
        emit unitWanted(slot, After(Shown.Units[At(slot)], [](int value) { return NextUnit(value); }));
    });
    grid.addWidget(line.Unit, gridRow, 3);
}

void HandlingBox::ShowAmount(const Line& line) {
    const auto amount = Shown.Amounts[At(line.Slot)];
    line.Amount->setText(amount ? Words(PlainAmount(*amount)) : QString());
}

void HandlingBox::ShowOrders(const SharedOrders& orders) {
    Shown = orders;
    const bool winner = Lines[0].Slot == WinnersSameBetSlot;
    const auto code = orders.Code(winner ? OrderCode::WinnerHandling : OrderCode::LoserHandling);
    Codes->setExclusive(false);
    for (QAbstractButton* choice : Codes->buttons()) choice->setChecked(code && Codes->id(choice) == *code);
    Codes->setExclusive(true);
    for (const Line& line : Lines) {
        const auto slot = At(line.Slot);
        if (line.Operator != nullptr) {
            line.Operator->setText(orders.Operators[slot] ? Words(OperatorText(*orders.Operators[slot])) : QString());
        }
        line.Unit->setText(orders.Units[slot] ? Words(UnitText(T, *orders.Units[slot])) : QString());
        if (!line.Amount->isModified()) ShowAmount(line);
    }
}

void HandlingBox::TakeTyped(const Line& line) {
    if (!line.Amount->isModified()) return;
    const QString typed = line.Amount->text().trimmed();
    const bool mixed = !Shown.Amounts[At(line.Slot)];
    if (typed.isEmpty() && mixed) {
        line.Amount->setModified(false);
        return;
    }
    emit amountTyped(line.Amount, line.Slot, typed.isEmpty() ? QStringLiteral("0") : typed);
}

void HandlingBox::TakeTyped() {
    for (const Line& line : Lines) TakeTyped(line);
}

bool HandlingBox::DropTyped() {
    bool dropped = false;
    for (const Line& line : Lines) {
        dropped = dropped || line.Amount->isModified();
        ShowAmount(line);  // which leaves it unmodified
    }
    return dropped;
}

}  // namespace tarnwick
