#include "display/amountbox.h"

#include <QKeyEvent>
#include <QRegularExpressionValidator>

#include "display/words.h"
#include "table/format.h"

namespace tarnwick {

namespace {

constexpr int BoxWidth = 110;

}  // namespace

AmountBox::AmountBox(QWidget* parent) : QLineEdit(parent) {
    setObjectName(QStringLiteral("txtAmount"));
    setAlignment(Qt::AlignRight);
    setFixedWidth(BoxWidth);
    setValidator(new QRegularExpressionValidator(
        QRegularExpression(QStringLiteral(R"(-?\$?-?[0-9,]{0,15}(\.[0-9]{0,4})?)")), this));
    hide();
}

void AmountBox::Open(int row, QPoint place, currency amount) {
    RowOf = row;
    setText(Words(PlainAmount(amount)));
    selectAll();
    const QSize room = parentWidget() != nullptr ? parentWidget()->size() : QSize(10000, 10000);
    move(qBound(0, place.x() - BoxWidth / 2, qMax(0, room.width() - BoxWidth)),
         qBound(0, place.y() - sizeHint().height() / 2, qMax(0, room.height() - sizeHint().height())));
    show();
    setFocus();
}

void AmountBox::Commit() {
    if (!IsOpen()) return;
    const int row = RowOf;
    const auto amount = ParseAmount(Utf8(text()));
    GiveUp();
    if (amount) emit committed(row, amount->TenThousandths);
}

void AmountBox::GiveUp() {
    RowOf = 0;
    hide();
    if (parentWidget() != nullptr) parentWidget()->setFocus();
}

bool AmountBox::event(QEvent* event) {
    // Keys that the menus know, such as Enter, belong to the box while it is open.
    if (event->type() == QEvent::ShortcutOverride) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if ((key->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == 0) {
            event->accept();
            return true;
        }
    }
    return QLineEdit::event(event);
}

void AmountBox::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return Commit();
    if (event->key() == Qt::Key_Escape) return GiveUp();
    QLineEdit::keyPressEvent(event);
}

void AmountBox::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (IsOpen() && event->reason() == Qt::TabFocusReason) Commit();
}

}  // namespace tarnwick
