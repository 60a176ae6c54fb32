#include "display/felttooltips.h"

#include <QHelpEvent>
#include <QToolTip>

#include "display/bettext.h"
#include "display/felt/feltview.h"
#include "display/tableactions.h"
#include "display/words.h"
#include "table/crapcnst.h"

namespace tarnwick {

QString FeltTip(const Table& t, int value, AdvantageCache& advantages) {
    if (t.HyperDriveActive) return {};
    if (IsRail(value)) {
        const int p = RailPosition(value);
        return IsSeated(t, p) ? Words(t.PlayerName[static_cast<std::size_t>(p)]) : QObject::tr("open position");
    }
    const int row = RowOfHotSpot(t, value);
    return row != 0 ? BetLines(t, row, advantages).join(QLatin1Char('\n')) : QString();
}

FeltToolTips::FeltToolTips(const Table& t, AdvantageCache& advantages, FeltView* view)
    : QObject(view), T(t), Advantages(advantages), View(view) {
    view->installEventFilter(this);
    connect(view, &FeltView::hotSpotMoved, this, [this](int value) {
        if (TipOf != 0 && value != TipOf) {
            TipOf = 0;
            QToolTip::hideText();
        }
    });
}

bool FeltToolTips::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QObject::eventFilter(watched, event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const int value = View->hotSpot(help->pos());
    const QString tip = FeltTip(T, value, Advantages);
    if (tip.isEmpty()) {
        QToolTip::hideText();
        event->ignore();
    } else {
        TipOf = value;
        // Names are shown as they are, whatever they look like.
        QToolTip::showText(help->globalPos(),
                           QStringLiteral("<div style='white-space:pre'>%1</div>").arg(tip.toHtmlEscaped()), View);
    }
    return true;
}

}  // namespace tarnwick
