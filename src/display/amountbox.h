// The box in which an amount is typed over a bet.
#pragma once

#include <QLineEdit>
#include <optional>

#include "table/currency.h"

namespace tarnwick {

/// Opens over a bet with its amount. Enter commits, Escape and a move of the mouse to another bet give up.
class AmountBox final : public QLineEdit {
    Q_OBJECT

  public:
    explicit AmountBox(QWidget* parent);

    /// Opens for `row` near `place`, with `amount` selected.
    void Open(int row, QPoint place, currency amount);
    bool IsOpen() const { return RowOf != 0; }
    int row() const { return RowOf; }
    /// Closes the box; what was typed goes out by `committed`, if it is an amount.
    void Commit();
    void GiveUp();

  signals:
    void committed(int row, qint64 tenThousandths);

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    int RowOf = 0;
};

}  // namespace tarnwick
