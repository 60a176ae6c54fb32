// The list of bets that work on a come-out roll, with its buttons.
#pragma once

#include <QGroupBox>
#include <array>
#include <optional>
#include <vector>

#include "autoplay/sharedorders.h"

class QListWidget;
class QListWidgetItem;

namespace tarnwick {

/// Shows each bet with " - Yes" or " - No" behind its name, or with neither where players differ. The buttons are for
/// the selected lines; a double click or Enter turns one over.
class WorkingList final : public QGroupBox {
    Q_OBJECT

  public:
    explicit WorkingList(const QString& caption, QWidget* parent = nullptr);

    /// By row 1..91. The selection stays.
    void ShowWorking(const std::array<std::optional<bool>, Row::LastBet + 1>& working);

  signals:
    void choiceMade(const std::vector<int>& rows, tarnwick::WorkingChoice choice);

  private:
    void ChooseForSelected(WorkingChoice choice);
    void TurnOver(const QListWidgetItem& item);

    QListWidget* List;
    std::array<std::optional<bool>, Row::LastBet + 1> Shown;
};

}  // namespace tarnwick
