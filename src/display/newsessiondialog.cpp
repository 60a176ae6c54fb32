#include "display/newsessiondialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

namespace tarnwick {

namespace {

QCheckBox* Box(QVBoxLayout& layout, const QString& caption, const char* name, bool checked = true) {
    auto* box = new QCheckBox(caption);
    box->setObjectName(QLatin1String(name));
    box->setChecked(checked);
    layout.addWidget(box);
    return box;
}

}  // namespace

NewSessionDialog::NewSessionDialog(bool diceFileOpen, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmNew"));
    setWindowTitle(tr("New Session"));
    auto* layout = new QVBoxLayout(this);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(new QLabel(tr("Start a new session with the same players?")));
    KeepData = Box(*layout, QStringLiteral(" Preserve previous sessions data"), "chkKeepData");
    KeepStacks = Box(*layout, QStringLiteral(" Preserve checkstacks"), "chkKeepStacks", false);
    KeepLogs = Box(*layout, QStringLiteral(" Preserve sessions logs"), "chkKeepLogs");
    KeepScripts = Box(*layout, QStringLiteral(" Retain auto-bet scripts"), "chkKeepScripts");
    KeepDiceFile = Box(*layout, QStringLiteral(" Retain dice roll file"), "chkKeepDiceFile", diceFileOpen);
    auto* indented = new QVBoxLayout;
    indented->setContentsMargins(24, 0, 0, 0);
    ContinueFile = new QRadioButton(QStringLiteral(" Continue"));
    ContinueFile->setObjectName(QStringLiteral("optContinue"));
    ContinueFile->setChecked(true);
    RewindFile = new QRadioButton(QStringLiteral(" Rewind and playback"));
    RewindFile->setObjectName(QStringLiteral("optRewind"));
    indented->addWidget(ContinueFile);
    indented->addWidget(RewindFile);
    layout->addLayout(indented);
    KeepDiceFile->setEnabled(diceFileOpen);
    for (QRadioButton* button : {ContinueFile, RewindFile}) {
        button->setEnabled(diceFileOpen);
        connect(KeepDiceFile, &QCheckBox::toggled, button, &QWidget::setEnabled);
    }
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
}

SessionOptions NewSessionDialog::Options() const {
    SessionOptions options;
    options.Ask = true;
    options.KeepData = KeepData->isChecked();
    options.KeepCheckStacks = KeepStacks->isChecked();
    options.KeepLogs = KeepLogs->isChecked();
    options.KeepScripts = KeepScripts->isChecked();
    options.File = !KeepDiceFile->isChecked() ? SessionOptions::DiceFile::Drop
                   : RewindFile->isChecked()  ? SessionOptions::DiceFile::Rewind
                                              : SessionOptions::DiceFile::Continue;
    return options;
}

}  // namespace tarnwick
