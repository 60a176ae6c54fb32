#include "display/autoplaywindow.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTimer>
#include <QVBoxLayout>

#include "display/handlingbox.h"
#include "display/words.h"
#include "display/workinglist.h"
#include "table/messages.h"

namespace tarnwick {

namespace {

constexpr int HeadingWidth = 350;

std::size_t At(int i) { return static_cast<std::size_t>(i); }
std::size_t At(OrderFlag flag) { return static_cast<std::size_t>(flag); }
std::size_t At(OrderCode code) { return static_cast<std::size_t>(code); }

/// A box that may show that players differ; a press on that one sets it for all.
class SharedCheckBox final : public QCheckBox {
  public:
    using QCheckBox::QCheckBox;
    void Show(std::optional<bool> state) {
        setCheckState(!state ? Qt::PartiallyChecked : *state ? Qt::Checked : Qt::Unchecked);
    }

  protected:
    void nextCheckState() override { setCheckState(checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked); }
};

}  // namespace

AutoPlayWindow::AutoPlayWindow(Table& t, QWidget* parent) : QWidget(parent, Qt::Dialog), T(t) {
    setObjectName(QStringLiteral("frmAutoPlay"));
    setWindowTitle(QStringLiteral("Auto-Play"));
    auto* grid = new QGridLayout(this);
    grid->setSizeConstraint(QLayout::SetFixedSize);
    grid->addWidget(MakePlayers(), 0, 0);
    auto* top = new QVBoxLayout;
    top->addWidget(MakeHeading());
    top->addWidget(AddOrders(MakeSwitches()));
    top->addWidget(AddOrders(MakeAdjustment()), 1);
    grid->addLayout(top, 0, 1);
    grid->addWidget(AddOrders(Winners = MakeHandling(true)), 1, 0);
    grid->addWidget(AddOrders(Losers = MakeHandling(false)), 1, 1);
    Working = new WorkingList(QStringLiteral("&Working on the Come-out Roll"));
    grid->addWidget(AddOrders(Working), 0, 2, 2, 1);
    connect(Working, &WorkingList::choiceMade, this, [this](const std::vector<int>& rows, WorkingChoice choice) {
        Give([&](SeatMask players) { SetOrderWorking(T, players, rows, choice); });
    });
    ConfigAutoPlayForm();
}

// --- making ---

QWidget* AutoPlayWindow::AddOrders(QWidget* orders) {
    Orders.push_back(orders);
    return orders;
}

QWidget* AutoPlayWindow::MakeHeading() {
    Heading = new QLabel;
    Heading->setObjectName(QStringLiteral("lblHeading"));
    Heading->setTextFormat(Qt::PlainText);
    QFont bold = Heading->font();
    bold.setBold(true);
    Heading->setFont(bold);
    Heading->setMinimumWidth(HeadingWidth);
    return Heading;
}

QWidget* AutoPlayWindow::MakePlayers() {
    auto* box = new QWidget;
    auto* layout = new QVBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* label = new QLabel(tr("Player&s"));
    lstPlayer = new QListWidget;
    lstPlayer->setObjectName(QStringLiteral("lstPlayer"));
    lstPlayer->setSelectionMode(QAbstractItemView::ExtendedSelection);
    lstPlayer->setTextElideMode(Qt::ElideRight);
    lstPlayer->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    lstPlayer->setToolTip(tr("Ctrl or Shift with a click selects several, Ctrl+A all"));
    label->setBuddy(lstPlayer);
    layout->addWidget(label);
    layout->addWidget(lstPlayer);
    connect(lstPlayer, &QListWidget::itemSelectionChanged, this, &AutoPlayWindow::TakeSelection);
    return box;
}

QWidget* AutoPlayWindow::MakeSwitches() {
    struct Switch {
        OrderFlag Flag;
        const char* Name;
        const char* Caption;
    };
    constexpr Switch switches[] = {
        {OrderFlag::TakeFullOdds, "chkAutoTakeFullOdds", "Auto-&Take Full Odds"},
        {OrderFlag::LayFullOdds, "chkAutoLayFullOdds", "Auto-&Lay Full Odds"},
        {OrderFlag::DownPlaceBets, "chkAutoDownPlaceBets", "Auto-&Down Place Bets"},
        {OrderFlag::PassDice, "chkAutoPassDice", "Auto-&Pass the Dice"},
    };
    auto* box = new QWidget;
    auto* grid = new QGridLayout(box);
    for (const Switch& entry : switches) {
        auto* check = new SharedCheckBox(QLatin1String(entry.Caption));
        check->setObjectName(QLatin1String(entry.Name));
        connect(check, &QCheckBox::clicked, this, [this, flag = entry.Flag](bool on) {
            Give([&](SeatMask players) { SetOrderFlag(T, players, flag, on); });
        });
        const int place = static_cast<int>(entry.Flag);
        grid->addWidget(check, place % 2, place / 2);
        Flags[At(entry.Flag)] = check;
    }
    return box;
}

QWidget* AutoPlayWindow::MakeAdjustment() {
    auto* box = new QGroupBox(QStringLiteral("Auto-&Adjust Bet Amounts"));
    auto* grid = new QGridLayout(box);
    grid->setVerticalSpacing(4);
    Modes = new QButtonGroup(this);
    const char* const captions[] = {" Manual", " Auto w/ minor correction", " Auto w/ color correction"};
    for (int mode = 0; mode < 3; ++mode) {
        auto* choice = new QRadioButton(QString::fromLatin1(captions[mode]).trimmed());
        choice->setObjectName(QStringLiteral("optAutoAdjust%1").arg(mode));
        Modes->addButton(choice, mode);
        grid->addWidget(choice, mode, 0, 1, 2);
    }
    connect(Modes, &QButtonGroup::idClicked, this, [this](int mode) {
        Give([&](SeatMask players) { SetOrderCode(T, players, OrderCode::AdjustMode, mode); });
    });
    AddBias(*box, 3, OrderCode::LayBias, "cmbLayBias", QStringLiteral("Lay bets bias: "));
    AddBias(*box, 4, OrderCode::PlaceBias, "cmbPlaceBias", QStringLiteral("Place bets bias: "));
    AddBias(*box, 5, OrderCode::DoBias, "cmbDoBias", QStringLiteral("Do odds bias: "));
    AddBias(*box, 6, OrderCode::DontBias, "cmbDontBias", QStringLiteral("Don't odds bias: "));
    return box;
}

void AutoPlayWindow::AddBias(QWidget& box, int row, OrderCode code, const char* name, const QString& text) {
    auto* list = new QComboBox;
    list->setObjectName(QLatin1String(name));
    list->addItems({QStringLiteral("nearest"), QStringLiteral("increase"), QStringLiteral("decrease")});
    auto* label = new QLabel(text);
    label->setBuddy(list);
    connect(list, &QComboBox::activated, this,
            [this, code](int bias) { Give([&](SeatMask players) { SetOrderCode(T, players, code, bias); }); });
    auto* grid = static_cast<QGridLayout*>(box.layout());
    grid->addWidget(label, row, 0);
    grid->addWidget(list, row, 1);
    Biases[At(code)] = list;
}

HandlingBox* AutoPlayWindow::MakeHandling(bool winners) {
    auto* box = new HandlingBox(T, winners);
    const OrderCode code = winners ? OrderCode::WinnerHandling : OrderCode::LoserHandling;
    connect(box, &HandlingBox::codeChosen, this,
            [this, code](int value) { Give([&](SeatMask players) { SetOrderCode(T, players, code, value); }); });
    connect(box, &HandlingBox::operatorWanted, this, [this](int slot, int value) {
        Give([&](SeatMask players) { SetOrderOperator(T, players, slot, value); });
    });
    connect(box, &HandlingBox::unitWanted, this,
            [this](int slot, int value) { Give([&](SeatMask players) { SetOrderUnit(T, players, slot, value); }); });
    connect(box, &HandlingBox::amountTyped, this, &AutoPlayWindow::TakeAmount);
    return box;
}

// --- giving orders ---

void AutoPlayWindow::Give(const Order& order) {
    // The players whom the user saw selected, whatever happens while he is asked.
    const SeatMask players = OrderPlayers(T);
    if (players != 0 && MayChangeOrders(T)) {
        order(players);
        emit ordersChanged();
    }
    Shown.reset();  // a refused change is still on its control
    ShowAutoPlayData();
}

void AutoPlayWindow::TakeAmount(QLineEdit* box, int slot, const QString& text) {
    if (AmountInQuestion) return;
    const SeatMask players = OrderPlayers(T);
    if (players == 0) return;
    const bool undisturbed = !T.AutoRollActive && !T.ScriptRunning;
    if (undisturbed && SetOrderAmount(T, players, slot, Utf8(text)).empty()) {
        box->setModified(false);
        emit ordersChanged();
        Shown.reset();
        ShowAutoPlayData();
        return;
    }
    // What asks must wait until the press that took the focus away is over.
    AmountInQuestion = true;
    QTimer::singleShot(0, this, [this, box, slot, text, players] { AskForAmount(box, slot, text, players); });
}

void AutoPlayWindow::AskForAmount(QLineEdit* box, int slot, const QString& text, SeatMask players) {
    // What is wrong comes first: nobody shall stop a run for an amount that can't be taken.
    const std::string fault = SetOrderAmount(T, 0, slot, Utf8(text));
    if (!fault.empty()) {
        ShowNote(T, "Auto-Play", fault);
        if (box->isModified() && isVisible()) {
            activateWindow();
            box->setFocus();
            box->selectAll();
        }
    } else {
        box->setModified(false);
        if (MayChangeOrders(T)) {
            SetOrderAmount(T, players, slot, Utf8(text));
            emit ordersChanged();
        }
    }
    AmountInQuestion = false;
    Shown.reset();
    ShowAutoPlayData();
}

/// False while an amount is still in question.
bool AutoPlayWindow::TakeTyped() {
    Winners->TakeTyped();
    Losers->TakeTyped();
    return !AmountInQuestion;
}

void AutoPlayWindow::TakeSelection() {
    Winners->DropTyped();
    Losers->DropTyped();
    std::int32_t players = 0;
    for (const QListWidgetItem* item : lstPlayer->selectedItems()) players |= 1 << item->data(Qt::UserRole).toInt();
    T.AutoPlayPlayers = players;
    ShowAutoPlayData();
}

// --- showing ---

void AutoPlayWindow::ConfigAutoPlayForm() {
    std::vector<std::pair<int, QString>> players;
    for (int p = 1; p < Positions; ++p) {
        if (IsSeated(T, p)) players.emplace_back(p, Words(T.PlayerName[At(p)]));
    }
    const QSignalBlocker quiet(lstPlayer);
    bool same = lstPlayer->count() == static_cast<int>(players.size());
    for (int i = 0; same && i < lstPlayer->count(); ++i) {
        const QListWidgetItem* item = lstPlayer->item(i);
        same = item->data(Qt::UserRole).toInt() == players[At(i)].first && item->text() == players[At(i)].second;
    }
    if (!same) {
        lstPlayer->clear();
        for (const auto& [p, name] : players) {
            auto* item = new QListWidgetItem(name, lstPlayer);
            item->setData(Qt::UserRole, p);
            item->setToolTip(name.toHtmlEscaped());
        }
    }
    for (int i = 0; i < lstPlayer->count(); ++i) {
        QListWidgetItem* item = lstPlayer->item(i);
        const bool selected = (T.AutoPlayPlayers >> item->data(Qt::UserRole).toInt() & 1) != 0;
        if (item->isSelected() != selected) item->setSelected(selected);
    }
    ShowAutoPlayData();
}

void AutoPlayWindow::ShowAutoPlayData() {
    const QString heading = Words(OrdersHeading(T));
    Heading->setText(Heading->fontMetrics().elidedText(heading, Qt::ElideRight, HeadingWidth));
    Heading->setToolTip(heading.toHtmlEscaped());
    const SeatMask players = OrderPlayers(T);
    for (QWidget* part : Orders) part->setEnabled(players != 0);
    SharedOrders orders = OrdersOf(T, players);
    if (Shown == orders && ShownChecks == T.CheckDenominations) return;
    ShowFlags(orders);
    ShowCodes(orders);
    Winners->ShowOrders(orders);
    Losers->ShowOrders(orders);
    Working->ShowWorking(orders.Working);
    Shown = std::move(orders);
    ShownChecks = T.CheckDenominations;
}

void AutoPlayWindow::ShowFlags(const SharedOrders& orders) {
    const bool nobody = OrderPlayers(T) == 0;
    for (std::size_t i = 0; i < Flags.size(); ++i) {
        static_cast<SharedCheckBox*>(Flags[i])->Show(nobody ? std::optional(false) : orders.Flags[i]);
    }
}

void AutoPlayWindow::ShowCodes(const SharedOrders& orders) {
    const auto mode = orders.Code(OrderCode::AdjustMode);
    Modes->setExclusive(false);
    for (QAbstractButton* choice : Modes->buttons()) choice->setChecked(mode && Modes->id(choice) == *mode);
    Modes->setExclusive(true);
    for (std::size_t i = 0; i < Biases.size(); ++i) {
        if (Biases[i] != nullptr) Biases[i]->setCurrentIndex(orders.Codes[i].value_or(-1));
    }
}

// --- events ---

bool AutoPlayWindow::event(QEvent* event) {
    // An amount counts as soon as the user turns to the table.
    if (event->type() == QEvent::WindowDeactivate && isVisible()) TakeTyped();
    return QWidget::event(event);
}

void AutoPlayWindow::showEvent(QShowEvent* event) {
    if (OrderPlayers(T) == 0 && IsSeated(T, T.ActivePlayer)) T.AutoPlayPlayers = 1 << T.ActivePlayer;
    ConfigAutoPlayForm();
    QWidget::showEvent(event);
}

void AutoPlayWindow::closeEvent(QCloseEvent* event) { event->setAccepted(TakeTyped()); }

void AutoPlayWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape) return QWidget::keyPressEvent(event);
    const bool winners = Winners->DropTyped();
    if (!Losers->DropTyped() && !winners) close();
}

}  // namespace tarnwick
