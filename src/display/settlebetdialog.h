// frmSettleBet: one decided bet, how it was figured, and what to do with it.
#pragma once

#include <QDialog>

#include "table/crapcnst.h"
#include "table/screen.h"

class QLineEdit;
class QPushButton;
class QVBoxLayout;

namespace tarnwick {

class SettleBetDialog final : public QDialog {
    Q_OBJECT

  public:
    /// The operators, amounts and units of the two arithmetic rows are read from and kept in the player's slots of `t`.
    SettleBetDialog(Table& t, const SettleQuestion& question, QWidget* parent);

    /// Waits for the user; the code of a choice. Closing the dialog means the first.
    int Ask();

  private:
    void AddLines(QVBoxLayout& layout);
    void AddChoices(QVBoxLayout& layout);
    void AddArithmetic(QVBoxLayout& layout, const SettleQuestion::Choice& choice);
    void Choose(int code);

    Table& T;
    SettleQuestion Question;
    int Chosen = 0;
};

}  // namespace tarnwick
