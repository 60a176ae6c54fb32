// frmMsg: every message, question and input of the program.
#pragma once

#include <QDialog>

#include "table/screen.h"

class QCheckBox;
class QComboBox;
class QLineEdit;

namespace tarnwick {

/// Shows one message with the buttons, the picture, the input and the hide box that its flags ask for. Enter takes the
/// first button, Escape what gives up: Cancel, else No, else OK.
class MessageDialog final : public QDialog {
    Q_OBJECT

  public:
    MessageDialog(const Message& message, QWidget* parent);

    /// Waits for the user.
    Answer Ask();

  signals:
    /// The button Help was pressed; the dialog stays open.
    void helpWanted(const QString& title);

  private:
    void AddButtons(int flags);
    Answer TakeAnswer() const;

    QLineEdit* InputLine = nullptr;
    QComboBox* List = nullptr;
    QCheckBox* HideBox = nullptr;
    int GivingUp = MsgAnswer::Ok;
    int Pressed = 0;
};

}  // namespace tarnwick
