// frmNew: what a new session keeps.
#pragma once

#include <QDialog>

#include "table/session.h"

class QCheckBox;
class QRadioButton;

namespace tarnwick {

class NewSessionDialog final : public QDialog {
    Q_OBJECT

  public:
    /// `diceFileOpen`: a dice roll file can be retained.
    NewSessionDialog(bool diceFileOpen, QWidget* parent);

    SessionOptions Options() const;

  private:
    QCheckBox* KeepData;
    QCheckBox* KeepStacks;
    QCheckBox* KeepLogs;
    QCheckBox* KeepScripts;
    QCheckBox* KeepDiceFile;
    QRadioButton* ContinueFile;
    QRadioButton* RewindFile;
};

}  // namespace tarnwick
