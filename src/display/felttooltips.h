// What a tool-tip says over the felt.
#pragma once

#include <QObject>

namespace tarnwick {

class AdvantageCache;
class FeltView;
struct Table;

/// What lies under hot-spot value `value`: a bet in the words of the status line, the player of a seat or "open
/// position". Empty for nothing, and in Hyper-Drive.
QString FeltTip(const Table& t, int value, AdvantageCache& advantages);

/// Shows tool-tips over `view`; each leaves when the mouse leaves its bet.
class FeltToolTips final : public QObject {
    Q_OBJECT

  public:
    FeltToolTips(const Table& t, AdvantageCache& advantages, FeltView* view);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    const Table& T;
    AdvantageCache& Advantages;
    FeltView* View;
    int TipOf = 0;
};

}  // namespace tarnwick
