#include "display/rollpad.h"

#include <QActionGroup>
#include <QGridLayout>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRandomGenerator>
#include <QSlider>
#include <QVBoxLayout>

#include "display/words.h"
#include "stats/accumulators.h"
#include "table/crapcnst.h"
#include "table/rundriver.h"

namespace tarnwick {

namespace {

constexpr int Faces = 6;

struct Ways {
    int First, Count;  ///< smallest die 1 of the total, and how many it may be
};
constexpr Ways WaysOf(int total) { return total <= 7 ? Ways{1, total - 1} : Ways{total - 6, 13 - total}; }

QString ButtonStyle(int color, int total) {
    static const char* const spread[] = {"#c8d8f0", "#cfe8e0", "#d8ecc8", "#ecefc0", "#f8e3b8", "#f4c6b8",
                                         "#f8e3b8", "#ecefc0", "#d8ecc8", "#cfe8e0", "#c8d8f0"};
    const char* shade = "#dcdcdc";
    if (color == 0) shade = spread[total - 2];
    if (color == 1) shade = total == 7 ? "#f0a8a0" : "#a8e0e8";
    return QStringLiteral(
               "QPushButton{background:%1;color:black;border:1px solid #777;border-radius:3px;}"
               "QPushButton:hover{border-color:#222;}"
               "QPushButton:pressed{background:#f7f7f7;}"
               "QPushButton:checked{border:3px solid #b00020;font-weight:bold;}")
        .arg(QLatin1String(shade));
}

}  // namespace

RollPad::RollPad(Table& t, QWidget* parent) : QWidget(parent, Qt::Tool), T(t), CellBox(new QWidget) {
    setObjectName(QStringLiteral("frmRYON"));
    setWindowTitle(QStringLiteral("Dice Rolls"));
    auto* layout = new QVBoxLayout(this);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->setContentsMargins(8, 4, 8, 8);
    MakeMenu();
    Counter = new QLabel;
    Counter->setObjectName(QStringLiteral("lblCounter"));
    Counter->setAlignment(Qt::AlignCenter);
    layout->addWidget(Counter);
    layout->addWidget(CellBox);
    RandomButton = new QPushButton(QStringLiteral("&Random Roll"));
    RandomButton->setObjectName(QStringLiteral("cmdRandom"));
    connect(RandomButton, &QPushButton::clicked, this, &RollPad::randomWanted);
    layout->addWidget(RandomButton);
    RunButton = new QPushButton;
    RunButton->setObjectName(QStringLiteral("cmdRun"));
    connect(RunButton, &QPushButton::clicked, this, &RollPad::runWanted);
    layout->addWidget(RunButton);
    Throttle = new QSlider(Qt::Horizontal);
    Throttle->setObjectName(QStringLiteral("hsbThrottle"));
    Throttle->setRange(0, AutoRollThrottle);
    Throttle->setInvertedAppearance(true);
    Throttle->setToolTip(tr("Speed: the far right is Hyper-Drive at full speed, the far left Auto-Roll"));
    Throttle->setValue(T.HyperThrottle);
    connect(Throttle, &QSlider::valueChanged, this, [this](int value) {
        SetHyperThrottle(T, value);
        T.GameChanged = true;
        ShowRunState();
    });
    layout->addWidget(Throttle);
    SetForm(T.PadMode);
    ShowRunState();
}

void RollPad::MakeMenu() {
    auto* bar = new QMenuBar(this);
    layout()->setMenuBar(bar);
    QMenu* display = bar->addMenu(QStringLiteral("&Display"));
    auto* forms = new QActionGroup(this);
    const char* const captions[] = {"&11 basic numbers", "&36 combos (triangle)", "36 combos (&box)",
                                    "&Individual dice faces"};
    for (int form = 0; form < 4; ++form) {
        QAction* action = display->addAction(QLatin1String(captions[form]), this, [this, form] { SetForm(form); });
        action->setCheckable(true);
        action->setChecked(form == T.PadMode);
        forms->addAction(action);
    }
    display->addSeparator();
    display->addAction(QStringLiteral("Hide"), this, &QWidget::hide);

    QMenu* options = bar->addMenu(tr("&Options"));
    const auto addSwitch = [this, options](const char* caption, bool& value) {
        QAction* action = options->addAction(QLatin1String(caption));
        action->setCheckable(true);
        action->setChecked(value);
        connect(action, &QAction::toggled, this, [this, &value](bool on) {
            value = on;
            T.GameChanged = true;
            ShowLastRoll();
            ShowRunState();
        });
    };
    addSwitch("Roll &counter", T.PadShowRollCounter);
    addSwitch("&Auto-roll / hyper-drive button", T.PadShowRunButton);
    addSwitch("&Random button", T.PadShowRandomButton);
    QMenu* colors = options->addMenu(QStringLiteral("Set &button color"));
    auto* shades = new QActionGroup(this);
    const char* const names[] = {"&Multi-color", "&Red and cyan", "&Gray"};
    for (int color = 0; color < 3; ++color) {
        QAction* action = colors->addAction(QLatin1String(names[color]), this, [this, color] {
            T.PadButtonColor = color;
            T.GameChanged = true;
            MakeCells();
        });
        action->setCheckable(true);
        action->setChecked(color == T.PadButtonColor);
        shades->addAction(action);
    }
    options->addSeparator();
    options->addAction(QStringLiteral("Set auto-roll &time delay ..."), this, [this] { AskAutoRollDelay(T); });
    options->addAction(QStringLiteral("Set auto-&stop ..."), this, [this] { AskAutoStop(T); });
}

void RollPad::SetForm(int form) {
    if (T.PadMode != form) T.GameChanged = true;
    T.PadMode = form;
    MakeCells();
}

QPushButton* RollPad::AddCell(const QString& caption, int row, int column, int die1, int die2) {
    auto* button = new QPushButton(caption);
    const int total = die1 == 0 && PadForm::Totals == T.PadMode ? die2 : qMax(2, die1 + die2);
    button->setStyleSheet(ButtonStyle(T.PadButtonColor, total));
    button->setCheckable(true);
    button->setFixedSize(fontMetrics().horizontalAdvance(QStringLiteral("6-6")) + 22, fontMetrics().height() + 14);
    button->setObjectName(QStringLiteral("cell%1%2").arg(die1).arg(die2));
    const std::size_t index = Cells.size();
    Cells.push_back({button, die1, die2});
    connect(button, &QPushButton::clicked, this, [this, index] { Press(Cells[index]); });
    Grid->addWidget(button, row, column);
    return button;
}

void RollPad::MakeCells() {
    Cells.clear();
    FirstFace = 0;
    auto* box = new QWidget;
    Grid = new QGridLayout(box);
    Grid->setSpacing(3);
    Grid->setContentsMargins(0, 0, 0, 0);
    if (T.PadMode == PadForm::Totals) {
        for (int total = 2; total <= 12; ++total) {
            AddCell(QString::number(total), total <= 7 ? 0 : 1, total <= 7 ? total - 2 : total - 8, 0, total);
        }
    } else if (T.PadMode == PadForm::Faces) {
        for (int face = 1; face <= Faces; ++face) {
            AddCell(QString::number(face), 0, face - 1, face, 0);
            AddCell(QString::number(face), 1, face - 1, 0, face);
        }
    } else {
        const bool triangle = T.PadMode == PadForm::Triangle;
        for (int die1 = 1; die1 <= Faces; ++die1) {
            for (int die2 = triangle ? die1 : 1; die2 <= Faces; ++die2) {
                AddCell(QStringLiteral("%1-%2").arg(die1).arg(die2), die1 - 1, die2 - 1, die1, die2);
            }
        }
    }
    delete layout()->replaceWidget(CellBox, box);
    delete CellBox;
    CellBox = box;
    ShowLastRoll();
}

void RollPad::Press(const Cell& cell) {
    if (T.PadMode == PadForm::Totals) {
        const Ways ways = WaysOf(cell.Die2);
        const int die1 = ways.First + QRandomGenerator::global()->bounded(ways.Count);
        emit picked(die1, cell.Die2 - die1);
    } else if (T.PadMode != PadForm::Faces) {
        emit picked(cell.Die1, cell.Die2);
    } else if (cell.Die1 != 0) {
        FirstFace = cell.Die1;
        for (const Cell& other : Cells) other.Button->setChecked(other.Die1 == FirstFace);
        return;
    } else if (FirstFace != 0) {
        const int die1 = FirstFace;
        FirstFace = 0;
        emit picked(die1, cell.Die2);
    }
    ShowLastRoll();
}

void RollPad::ShowLastRoll() {
    const bool rolled = SessionRolls(T) > 0;
    const int low = qMin(T.Die1, T.Die2), high = qMax(T.Die1, T.Die2);
    for (const Cell& cell : Cells) {
        bool last = false;
        if (T.PadMode == PadForm::Totals) {
            last = cell.Die2 == T.DiceTotal;
        } else if (T.PadMode == PadForm::Faces) {
            last = cell.Die1 != 0 ? cell.Die1 == T.Die1 : cell.Die2 == T.Die2;
        } else {
            last = qMin(cell.Die1, cell.Die2) == low && qMax(cell.Die1, cell.Die2) == high;
        }
        cell.Button->setChecked(rolled && last);
    }
    Counter->setVisible(T.PadShowRollCounter);
    Counter->setText(QLocale::c().toString(static_cast<qlonglong>(SessionRolls(T))));
    RandomButton->setVisible(T.PadShowRandomButton);
}

void RollPad::ShowRunState() {
    RunButton->setText(Words(RunButtonText(T)));
    RunButton->setVisible(T.PadShowRunButton);
    Throttle->setVisible(T.PadShowRunButton);
}

}  // namespace tarnwick
