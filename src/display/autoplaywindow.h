// frmAutoPlay: the standing orders of the players selected.
#pragma once

#include <QWidget>
#include <array>
#include <functional>
#include <optional>
#include <vector>

#include "autoplay/sharedorders.h"

class QCheckBox;
class QComboBox;
class QButtonGroup;
class QLabel;
class QLineEdit;
class QListWidget;

namespace tarnwick {

class HandlingBox;
class WorkingList;

/// A change is made at once, for every player selected; in a run the user is asked first. What the players don't share
/// is shown unset.
class AutoPlayWindow final : public QWidget {
    Q_OBJECT

  public:
    AutoPlayWindow(Table& t, QWidget* parent);

    /// Fills the list of players from the table, and shows their orders.
    void ConfigAutoPlayForm();
    /// Shows the orders of the players selected.
    void ShowAutoPlayData();

  signals:
    /// Orders have changed, and bets with them.
    void ordersChanged();

  protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QWidget* AddOrders(QWidget* orders);
    QWidget* MakeHeading();
    QWidget* MakePlayers();
    QWidget* MakeSwitches();
    QWidget* MakeAdjustment();
    HandlingBox* MakeHandling(bool winners);
    void AddBias(QWidget& box, int row, OrderCode code, const char* name, const QString& text);

    using Order = std::function<void(SeatMask players)>;
    /// Gives `order` to the players selected if the user agrees, and shows what came of it.
    void Give(const Order& order);
    void TakeAmount(QLineEdit* box, int slot, const QString& text);
    void AskForAmount(QLineEdit* box, int slot, const QString& text, SeatMask players);
    void TakeSelection();
    bool TakeTyped();
    void ShowFlags(const SharedOrders& orders);
    void ShowCodes(const SharedOrders& orders);

    Table& T;
    QListWidget* lstPlayer = nullptr;
    QLabel* Heading = nullptr;
    std::vector<QWidget*> Orders;  ///< all that is of no use without players
    std::array<QCheckBox*, OrderFlagCount> Flags{};
    QButtonGroup* Modes = nullptr;
    std::array<QComboBox*, OrderCodeCount> Biases{};  ///< by OrderCode; null for the others
    HandlingBox* Winners = nullptr;
    HandlingBox* Losers = nullptr;
    WorkingList* Working = nullptr;
    std::optional<SharedOrders> Shown;      ///< nothing: to be shown anew, whatever it is
    std::array<currency, 6> ShownChecks{};  ///< whose values the units bear
    bool AmountInQuestion = false;
};

}  // namespace tarnwick
