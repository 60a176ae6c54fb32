// A text field of the configuration window: what is typed is taken when the field loses the focus or Enter is pressed.
#pragma once

#include <QLineEdit>
#include <functional>
#include <string>

#include "config/configure.h"

namespace tarnwick {

class SettingField final : public QLineEdit {
    Q_OBJECT

  public:
    using Show = std::function<std::string()>;
    /// Takes a typed text, or returns what is wrong with it and changes nothing.
    using Take = std::function<SettingFault(const std::string& typed)>;

    SettingField(Table& t, QString name, Show show, Take take);

    /// Shows the setting; what was typed and not taken is dropped.
    void ShowValue();
    /// Takes what was typed. False after a message: the field keeps its text and has the focus.
    bool Commit();
    /// Tells a fault and takes the focus, keeping the text.
    void Complain(const SettingFault& fault);

  signals:
    /// What was typed has been taken.
    void taken();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    SettingFault TryToTake();

    Table& T;
    Show ShownText;
    Take TakeText;
    bool ComplaintDue = false;
};

/// The fault of a text that is no number.
SettingFault NotANumber(const std::string& title, const std::string& typed);

/// A taker of amounts within low..high, with `what` as the field's name in its refusal, such as "The ATM amount".
SettingField::Take TakeAmount(const std::string& title, const std::string& what, currency low, currency high,
                              std::function<void(currency)> put);

}  // namespace tarnwick
