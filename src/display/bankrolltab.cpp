#include "display/bankrolltab.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "config/configure.h"
#include "display/options.h"
#include "display/settingfield.h"
#include "display/words.h"
#include "table/bankroll.h"
#include "table/format.h"
#include "table/messages.h"
#include "table/rundriver.h"

namespace tarnwick {

namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

constexpr currency MostBankroll = Dollars(9'999'999);
constexpr int AmountWidth = 130;

QLabel* Figure(const char* name) {
    auto* label = new QLabel;
    label->setObjectName(QString::fromLatin1(name));
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setMinimumWidth(AmountWidth);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

QString MoneyText(currency amount) { return Words(FormatPattern(amount, "$#,0.00;-$#,0.00;$0.00")); }

}  // namespace

BankrollTab::BankrollTab(Table& t, QWidget* parent) : ConfigTab(t, parent), Players(new QComboBox) {
    auto* column = new QVBoxLayout(this);
    auto* top = new QHBoxLayout;
    auto* label = new QLabel(tr("&Player:"));
    label->setBuddy(Players);
    Players->setObjectName(QStringLiteral("cmbPlayer"));
    Players->setMinimumWidth(220);
    connect(Players, &QComboBox::activated, this, &BankrollTab::Choose);
    top->addWidget(label);
    top->addWidget(Players);
    top->addStretch(1);
    column->addLayout(top);

    Panel = new QWidget;
    auto* grid = new QGridLayout(Panel);
    grid->setContentsMargins(0, 6, 0, 0);
    grid->setSpacing(14);
    grid->addWidget(MakeFigures(), 0, 0);
    grid->addWidget(MakeAtm(), 0, 1);
    grid->addWidget(MakeSessionStart(), 1, 0, 1, 2);
    Negative = new QCheckBox(QStringLiteral("Allow &negative bankroll amounts"));
    Negative->setObjectName(QStringLiteral("chkNegative"));
    connect(Negative, &QCheckBox::clicked, this, &BankrollTab::AllowNegative);
    grid->addWidget(Negative, 2, 0, 1, 2);
    grid->setColumnStretch(2, 1);
    column->addWidget(Panel);
    column->addStretch(1);
}

QGroupBox* BankrollTab::MakeFigures() {
    auto* box = new QGroupBox(tr("Bankroll"));
    auto* grid = new QGridLayout(box);
    Current = Figure("lblBankroll");
    Invested = Figure("lblInvested");
    Net = Figure("lblNet");
    NetLabel = new QLabel;
    NetLabel->setObjectName(QStringLiteral("lblNetCaption"));
    // The caption changes with the money; its place doesn't.
    NetLabel->setMinimumWidth(NetLabel->fontMetrics().horizontalAdvance(QStringLiteral("Won/Lost:")));
    grid->addWidget(new QLabel(QStringLiteral("Current Bankroll:")), 0, 0);
    grid->addWidget(Current, 0, 1);
    grid->addWidget(new QLabel(QStringLiteral("Amount Invested:")), 1, 0);
    grid->addWidget(Invested, 1, 1);
    grid->addWidget(NetLabel, 2, 0);
    grid->addWidget(Net, 2, 1);
    return box;
}

QGroupBox* BankrollTab::MakeAtm() {
    auto* box = new QGroupBox(tr("ATM"));
    auto* grid = new QGridLayout(box);
    AtmField = new SettingField(
        T, QStringLiteral("txtAtmAmount"), [this] { return FormatCommas(T.AtmAmount[At(Shown)]); },
        TakeAmount("ATM", "The ATM amount", {}, MostBankroll, [this](currency amount) {
            T.AtmAmount[At(Shown)] = amount;
            Changed();
        }));
    AtmField->setFixedWidth(AmountWidth);
    auto* label = new QLabel(tr("&Amount:"));
    label->setBuddy(AtmField);
    grid->addWidget(label, 0, 0);
    grid->addWidget(AtmField, 0, 1);
    auto* deposit = new QPushButton(QStringLiteral("&Deposit"));
    deposit->setObjectName(QStringLiteral("cmdDeposit"));
    deposit->setToolTip(tr("From the bankroll into the ATM"));
    auto* withdraw = new QPushButton(QStringLiteral("&Withdraw"));
    withdraw->setObjectName(QStringLiteral("cmdWithdraw"));
    withdraw->setToolTip(tr("From the ATM to the bankroll"));
    connect(deposit, &QPushButton::clicked, this, [this] { MoveMoney(-1); });
    connect(withdraw, &QPushButton::clicked, this, [this] { MoveMoney(1); });
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(deposit, 1);
    buttons->addWidget(withdraw, 1);
    grid->addLayout(buttons, 1, 0, 1, 2);
    grid->setRowStretch(2, 1);
    return box;
}

QGroupBox* BankrollTab::MakeSessionStart() {
    auto* box = new QGroupBox(QStringLiteral("For every new session:"));
    auto* grid = new QGridLayout(box);
    Rules = new QButtonGroup(this);
    const char* const captions[] = {"&Start bankroll with:", "P&rompt for starting bankroll",
                                    "&Carry forward bankroll from previous session"};
    for (int rule = 0; rule < 3; ++rule) {
        auto* option = new QRadioButton(QString::fromLatin1(captions[rule]));
        option->setObjectName(QStringLiteral("optStartRule%1").arg(rule));
        Rules->addButton(option, rule);
        grid->addWidget(option, rule, 0, 1, rule == 0 ? 1 : 3);
        if (rule > 0) continue;
        StartField = new SettingField(
            T, QStringLiteral("txtStartAmount"), [this] { return FormatCommas(T.BankrollStartAmount[At(Shown)]); },
            TakeAmount("Bankroll", "The starting bankroll", -MostBankroll, MostBankroll, [this](currency amount) {
                T.BankrollStartAmount[At(Shown)] = amount;
                Changed();
            }));
        StartField->setAccessibleName(tr("Starting bankroll"));
        StartField->setFixedWidth(AmountWidth);
        grid->addWidget(StartField, 0, 1);
    }
    grid->setColumnStretch(2, 1);
    connect(Rules, &QButtonGroup::idClicked, this, [this](int rule) {
        T.BankrollStartRule[At(Shown)] = rule;
        StartField->setEnabled(rule == 0);
        Changed();
    });
    return box;
}

void BankrollTab::ListPlayers() {
    Players->clear();
    for (int p = 1; p < Positions; ++p) {
        if (IsSeated(T, p)) Players->addItem(Words(T.PlayerName[At(p)]), p);
    }
    int index = Players->findData(T.ConfigBankrollPlayer);
    if (index < 0) index = Players->findData(T.ActivePlayer);
    Players->setCurrentIndex(Players->count() > 0 ? qMax(0, index) : -1);
    Shown = Players->currentData().toInt();
    Panel->setEnabled(Shown != 0);
}

void BankrollTab::ShowSettings() {
    ListPlayers();
    ShowPlayer();
}

void BankrollTab::ShowPlayer() {
    const std::size_t p = At(Shown);
    AtmField->ShowValue();
    StartField->ShowValue();
    const int rule = T.BankrollStartRule[p];
    CheckOption(*Rules, rule);
    StartField->setEnabled(rule == 0);
    Negative->setChecked(T.AllowNegativeBankroll[p]);
    ShowFigures();
}

void BankrollTab::ShowFigures() {
    int listed = 0;
    bool same = true;
    for (int p = 1; p < Positions; ++p) {
        if (!IsSeated(T, p)) continue;
        const bool here = Players->itemData(listed).toInt() == p;
        same = same && here && Players->itemText(listed) == Words(T.PlayerName[At(p)]);
        ++listed;
    }
    if (!same || listed != Players->count()) {
        ListPlayers();
        return ShowPlayer();
    }
    const std::size_t p = At(Shown);
    const currency net = T.Bankroll[p] - T.BankrollInvested[p];
    Current->setText(MoneyText(T.Bankroll[p]));
    Invested->setText(MoneyText(T.BankrollInvested[p]));
    NetLabel->setText(net > currency{}   ? QStringLiteral("Won:")
                      : net < currency{} ? QStringLiteral("Lost:")
                                         : QStringLiteral("Won/Lost:"));
    Net->setText(MoneyText(Abs(net)));
}

bool BankrollTab::MayOpen() {
    const SettingFault fault = BankrollTabFault(T);
    if (fault.Text.empty()) return true;
    ShowNote(T, fault.Title, fault.Text, MsgButton::OkStop);
    return false;
}

bool BankrollTab::MayLeave() { return Shown == 0 || (AtmField->Commit() && StartField->Commit()); }

void BankrollTab::Choose(int index) {
    // What is typed belongs to the player that was shown.
    if (!MayLeave()) return Players->setCurrentIndex(Players->findData(Shown));
    Shown = T.ConfigBankrollPlayer = Players->itemData(index).toInt();
    ShowPlayer();
}

void BankrollTab::MoveMoney(int sign) {
    if (!AtmField->Commit() || GuardCommand(T)) return;
    const int p = Shown;
    AtmTransaction(T, p, T.AtmAmount[At(p)] * sign, true);
    ShowFigures();
    emit settingsChanged();
}

void BankrollTab::AllowNegative(bool on) {
    const int p = Shown;
    const SettingFault fault = on ? SettingFault{} : NegativeBankrollFault(T, p);
    if (fault.Text.empty()) {
        T.AllowNegativeBankroll[At(p)] = on;
        return Changed();
    }
    ShowNote(T, fault.Title, fault.Text, MsgButton::OkStop);
    Negative->setChecked(true);
}

void BankrollTab::Changed() {
    T.GameChanged = true;
    emit settingsChanged();
}

}  // namespace tarnwick
