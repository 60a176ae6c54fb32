#include "display/settingfield.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <utility>

#include "display/words.h"
#include "table/format.h"
#include "table/messages.h"

namespace tarnwick {

SettingField::SettingField(Table& t, QString name, Show show, Take take)
    : T(t), ShownText(std::move(show)), TakeText(std::move(take)) {
    setObjectName(std::move(name));
    setAlignment(Qt::AlignRight);
    setMaxLength(40);
}

void SettingField::ShowValue() {
    ComplaintDue = false;
    setText(Words(ShownText()));
}

SettingFault SettingField::TryToTake() {
    SettingFault fault = TakeText(Utf8(text()));
    if (!fault.Text.empty()) return fault;
    ShowValue();
    emit taken();
    return {};
}

bool SettingField::Commit() {
    if (!isModified()) return true;
    const SettingFault fault = TryToTake();
    if (fault.Text.empty()) return true;
    Complain(fault);
    return false;
}

void SettingField::Complain(const SettingFault& fault) {
    ComplaintDue = false;
    ShowNote(T, fault.Title, fault.Text, MsgButton::OkStop);
    setFocus();
    selectAll();
}

void SettingField::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && isModified()) {
        ShowValue();
        selectAll();
        return;
    }
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (Commit()) selectAll();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void SettingField::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (!isModified() || event->reason() == Qt::PopupFocusReason) return;
    if (TryToTake().Text.empty()) return;
    // Another window may be looked at with the field unfinished; it still has the focus in its own.
    if (event->reason() == Qt::ActiveWindowFocusReason) return;
    // Told when the focus has moved: a message in the middle of that would leave it nowhere.
    ComplaintDue = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (ComplaintDue && isVisible()) Commit();
        },
        Qt::QueuedConnection);
}

SettingFault NotANumber(const std::string& title, const std::string& typed) {
    return {title, "\"" + typed + "\" is not a number. Please enter an amount such as 25 or 2.50."};
}

SettingField::Take TakeAmount(const std::string& title, const std::string& what, currency low, currency high,
                              std::function<void(currency)> put) {
    return [=, put = std::move(put)](const std::string& typed) -> SettingFault {
        const auto amount = ParseAmount(typed);
        if (!amount) return NotANumber(title, typed);
        if (*amount < low || *amount > high) {
            return {title, what + " must be from " + FormatCommas(low) + " to " + FormatCommas(high) + "."};
        }
        put(*amount);
        return {};
    };
}

}  // namespace tarnwick
