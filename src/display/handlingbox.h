// The choices of what becomes of winning or of losing bets, as standing orders.
#pragma once

#include <QGroupBox>
#include <array>

#include "autoplay/sharedorders.h"

class QButtonGroup;
class QGridLayout;
class QLineEdit;
class QPushButton;

namespace tarnwick {

/// One line for each code 0..7. Beside code 6 stand an operator, an amount and a unit, beside 7 an amount and a unit.
/// What players don't share is shown unset. The box changes nothing itself.
class HandlingBox final : public QGroupBox {
    Q_OBJECT

  public:
    HandlingBox(const Table& t, bool winners, QWidget* parent = nullptr);

    /// An amount that is being typed stays.
    void ShowOrders(const SharedOrders& orders);
    /// Gives out what was typed and not taken yet.
    void TakeTyped();
    /// Drops it. False when nothing was being typed.
    bool DropTyped();

  signals:
    void codeChosen(int code);
    void operatorWanted(int slot, int value);
    void unitWanted(int slot, int value);
    void amountTyped(QLineEdit* box, int slot, const QString& text);

  private:
    struct Line {
        int Slot = 0;
        QPushButton* Operator = nullptr;  ///< only beside code 6
        QLineEdit* Amount = nullptr;
        QPushButton* Unit = nullptr;
    };

    void AddArithmetic(QGridLayout& grid, int gridRow, Line& line, bool withOperator);
    QPushButton* AddStepButton(const char* name, const Line& line, const QString& tip);
    void TakeTyped(const Line& line);
    void ShowAmount(const Line& line);

    const Table& T;
    QButtonGroup* Codes;
    std::array<Line, 2> Lines;
    SharedOrders Shown;
};

}  // namespace tarnwick
