#include "display/settlebetdialog.h"

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

#include "display/words.h"
#include "table/format.h"
#include "table/settledialog.h"

namespace tarnwick {

namespace {

constexpr int SameBet = 6;
constexpr int ExactBet = 7;
const char* const AmountPattern = R"(\$?[0-9,]{0,9}(\.[0-9]{0,4})?)";

std::size_t At(int i) { return static_cast<std::size_t>(i); }

}  // namespace

SettleBetDialog::SettleBetDialog(Table& t, const SettleQuestion& question, QWidget* parent)
    : QDialog(parent), T(t), Question(question) {
    setObjectName(QStringLiteral("frmSettleBet"));
    setWindowTitle(question.Winner ? QStringLiteral("* * *  Winner  * * *") : QStringLiteral("Settle Bet"));
    auto* layout = new QVBoxLayout(this);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    AddLines(*layout);
    AddChoices(*layout);
}

void SettleBetDialog::AddLines(QVBoxLayout& layout) {
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(24);
    for (int i = 0; i < static_cast<int>(Question.Lines.size()); ++i) {
        const SettleQuestion::Line& line = Question.Lines[At(i)];
        auto* left = new QLabel(Words(line.Left));
        left->setTextFormat(Qt::PlainText);
        if (i == 0) {
            QFont heading = left->font();
            heading.setBold(true);
            heading.setPointSizeF(heading.pointSizeF() * 1.2);
            left->setFont(heading);
        }
        grid->addWidget(left, i, 0);
        auto* right = new QLabel(Words(line.Right));
        right->setTextFormat(Qt::PlainText);
        grid->addWidget(right, i, 1, Qt::AlignRight);
    }
    grid->setColumnStretch(0, 1);
    layout.addLayout(grid);
    auto* rule = new QFrame;
    rule->setFrameShape(QFrame::HLine);
    rule->setFrameShadow(QFrame::Sunken);
    layout.addWidget(rule);
}

void SettleBetDialog::AddChoices(QVBoxLayout& layout) {
    bool first = true;
    for (const SettleQuestion::Choice& choice : Question.Choices) {
        if (choice.Code == SameBet || choice.Code == ExactBet) {
            AddArithmetic(layout, choice);
            continue;
        }
        auto* button = new QPushButton(Words(choice.Caption));
        button->setObjectName(QStringLiteral("cmdHandle%1").arg(choice.Code));
        button->setAutoDefault(first);
        button->setDefault(first);
        first = false;
        connect(button, &QPushButton::clicked, this, [this, code = choice.Code] { Choose(code); });
        layout.addWidget(button);
    }
}

void SettleBetDialog::AddArithmetic(QVBoxLayout& layout, const SettleQuestion::Choice& choice) {
    const int p = Question.Position;
    const int slot = (Question.Winner ? 0 : 2) + (choice.Code == SameBet ? 0 : 1);
    auto* row = new QHBoxLayout;
    auto* button = new QPushButton(choice.Code == SameBet ? QStringLiteral("Sa&me Bet:") : QStringLiteral("&Bet:"));
    button->setObjectName(QStringLiteral("cmdHandle%1").arg(choice.Code));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, code = choice.Code] { Choose(code); });
    row->addWidget(button, 1);

    if (choice.Code == SameBet) {
        auto* sign = new QPushButton(Words(OperatorText(T.HandleOperator[At(p)][At(slot)])));
        sign->setObjectName(QStringLiteral("cmdMathOperator"));
        sign->setAutoDefault(false);
        sign->setFixedWidth(36);
        sign->setToolTip(tr("Steps through +, -, x and /"));
        connect(sign, &QPushButton::clicked, this, [this, sign, p, slot] {
            std::int32_t& value = T.HandleOperator[At(p)][At(slot)];
            value = NextOperator(value);
            sign->setText(Words(OperatorText(value)));
            T.GameChanged = true;
        });
        row->addWidget(sign);
    }
    auto* amount = new QLineEdit(Words(PlainAmount(T.HandleAmount[At(p)][At(slot)])));
    amount->setObjectName(QStringLiteral("txtModifyAmount%1").arg(choice.Code));
    amount->setAlignment(Qt::AlignRight);
    amount->setMaximumWidth(110);
    amount->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QString::fromLatin1(AmountPattern)), amount));
    connect(amount, &QLineEdit::textChanged, this, [this, amount, p, slot] {
        const auto value = ParseAmount(Utf8(amount->text()));
        if (!value || *value >= Dollars(10'000'000)) return;
        T.HandleAmount[At(p)][At(slot)] = *value;
        T.GameChanged = true;
    });
    row->addWidget(amount);

    auto* unit = new QPushButton(Words(UnitText(T, T.HandleUnit[At(p)][At(slot)])));
    unit->setObjectName(QStringLiteral("cmdUnits%1").arg(choice.Code));
    unit->setAutoDefault(false);
    unit->setMinimumWidth(80);
    unit->setToolTip(tr("Steps through dollars, percent and the checks"));
    connect(unit, &QPushButton::clicked, this, [this, unit, p, slot] {
        std::int32_t& value = T.HandleUnit[At(p)][At(slot)];
        value = NextUnit(value);
        unit->setText(Words(UnitText(T, value)));
        T.GameChanged = true;
    });
    row->addWidget(unit);
    layout.addLayout(row);
}

void SettleBetDialog::Choose(int code) {
    Chosen = code;
    accept();
}

int SettleBetDialog::Ask() {
    exec();
    return Chosen != 0 ? Chosen : Question.Choices.front().Code;
}

}  // namespace tarnwick
