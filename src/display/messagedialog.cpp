#include "display/messagedialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

#include "display/words.h"

namespace tarnwick {

namespace {

struct ButtonOf {
    int Flag;
    int Result;
    QDialogButtonBox::StandardButton Standard;
};

constexpr ButtonOf Buttons[] = {{MsgButton::Ok, MsgAnswer::Ok, QDialogButtonBox::Ok},
                                {MsgButton::Yes, MsgAnswer::Yes, QDialogButtonBox::Yes},
                                {MsgButton::No, MsgAnswer::No, QDialogButtonBox::No},
                                {MsgButton::Cancel, MsgAnswer::Cancel, QDialogButtonBox::Cancel}};

constexpr int Hiding = MsgButton::HideRefusals | MsgButton::HideLimits | MsgButton::HideCharges | MsgButton::HideOther;

QStyle::StandardPixmap PictureOf(int flags) {
    if (flags & MsgButton::Stop) return QStyle::SP_MessageBoxCritical;
    if (flags & MsgButton::Alert) return QStyle::SP_MessageBoxWarning;
    return flags & MsgButton::Question ? QStyle::SP_MessageBoxQuestion : QStyle::SP_MessageBoxInformation;
}

constexpr int PictureSize = 40;
constexpr int NarrowestText = 220;

}  // namespace

MessageDialog::MessageDialog(const Message& message, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmMsg"));
    setWindowTitle(Words(message.Title));
    auto* layout = new QVBoxLayout(this);
    auto* row = new QHBoxLayout;
    auto* picture = new QLabel;
    picture->setPixmap(style()->standardIcon(PictureOf(message.Buttons)).pixmap(PictureSize));
    picture->setAlignment(Qt::AlignTop);
    row->addWidget(picture);
    row->addSpacing(8);

    auto* text = new QLabel(Words(message.Text));
    text->setObjectName(QStringLiteral("lblText"));
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    text->setMinimumWidth(qMax(NarrowestText, message.Width - PictureSize));
    text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    row->addWidget(text, 1);
    layout->addLayout(row);

    if (message.Buttons & (MsgButton::Input | MsgButton::SecondInput)) {
        InputLine = new QLineEdit(Words(message.Input));
        InputLine->setObjectName(QStringLiteral("txtInput"));
        InputLine->selectAll();
        layout->addWidget(InputLine);
    }
    if (message.Buttons & MsgButton::UserList) {
        List = new QComboBox;
        List->setObjectName(QStringLiteral("cmbUser"));
        for (const std::string& choice : message.Choices) List->addItem(Words(choice));
        layout->addWidget(List);
    }
    if (message.Buttons & Hiding) {
        HideBox = new QCheckBox(tr("Don't show &messages like this one again"));
        HideBox->setObjectName(QStringLiteral("chkHide"));
        layout->addWidget(HideBox);
    }
    AddButtons(message.Buttons);
    if (InputLine != nullptr) InputLine->setFocus();
}

void MessageDialog::AddButtons(int flags) {
    if ((flags & (MsgButton::Ok | MsgButton::Yes | MsgButton::No | MsgButton::Cancel)) == 0) flags |= MsgButton::Ok;
    auto* box = new QDialogButtonBox;
    bool first = true;
    for (const ButtonOf& b : Buttons) {
        if ((flags & b.Flag) == 0) continue;
        QPushButton* button = box->addButton(b.Standard);
        button->setDefault(first);
        first = false;
        if (b.Result == MsgAnswer::No || b.Result == MsgAnswer::Cancel) GivingUp = b.Result;
        connect(button, &QPushButton::clicked, this, [this, result = b.Result] {
            Pressed = result;
            accept();
        });
    }
    if (flags & MsgButton::Help) {
        connect(box->addButton(QDialogButtonBox::Help), &QPushButton::clicked, this,
                [this] { emit helpWanted(windowTitle()); });
    }
    layout()->addWidget(box);
}

Answer MessageDialog::TakeAnswer() const {
    Answer answer;
    answer.Result = Pressed != 0 ? Pressed : GivingUp;
    if (InputLine != nullptr) answer.Input = Utf8(InputLine->text());
    if (List != nullptr) answer.Input = Utf8(List->currentText());
    answer.Hide = HideBox != nullptr && HideBox->isChecked();
    return answer;
}

Answer MessageDialog::Ask() {
    exec();
    return TakeAnswer();
}

}  // namespace tarnwick
