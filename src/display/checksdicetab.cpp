#include "display/checksdicetab.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QRadioButton>
#include <QToolButton>
#include <QVBoxLayout>

#include "config/configure.h"
#include "display/felt/feltcolors.h"
#include "display/options.h"
#include "display/pictures.h"
#include "display/settingfield.h"
#include "display/words.h"
#include "table/format.h"
#include "table/messages.h"

namespace tarnwick {

namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

constexpr int Checks = 5;
constexpr int FaceSize = 64;
constexpr int FieldWidth = 96;
constexpr int StripHeight = 44;
constexpr currency MostCheck = Dollars(999'999'999);

/// A strip of picture buttons of which one is down.
QButtonGroup* MakeStrip(QGroupBox* box, const QStringList& captions, const QString& name) {
    auto* group = new QButtonGroup(box);
    auto* row = new QHBoxLayout;
    for (int i = 0; i < captions.size(); ++i) {
        auto* button = new QToolButton;
        button->setObjectName(name + QString::number(i));
        button->setText(captions[i]);
        button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
        button->setCheckable(true);
        button->setAutoRaise(false);
        button->setMinimumWidth(124);
        group->addButton(button, i);
        row->addWidget(button);
    }
    row->addStretch(1);
    static_cast<QVBoxLayout*>(box->layout())->addLayout(row);
    return group;
}

}  // namespace

ChecksDiceTab::ChecksDiceTab(Table& t, QWidget* parent) : ConfigTab(t, parent), Options(new QMenu(this)) {
    Options->setTitle(QStringLiteral("&Options"));
    Options->addAction(QStringLiteral("&Restore default denominations"), this, &ChecksDiceTab::Restore);
    auto* column = new QVBoxLayout(this);
    column->setSpacing(12);
    column->addWidget(MakeDenominations());
    auto* row = new QHBoxLayout;
    row->setSpacing(14);
    row->addWidget(MakeCheckPictures(), 1);
    row->addWidget(MakeDice(), 1);
    column->addLayout(row);
    column->addWidget(MakeRate(), 0, Qt::AlignLeft);
    column->addStretch(1);
}

QCheckBox* ChecksDiceTab::AddSwitch(const QString& caption, const char* name, bool& setting) {
    auto* check = new QCheckBox(caption);
    check->setObjectName(QString::fromLatin1(name));
    connect(check, &QCheckBox::clicked, this, [this, &setting](bool on) {
        setting = on;
        ShowPictures();
        Changed();
    });
    return check;
}

QGroupBox* ChecksDiceTab::MakeDenominations() {
    auto* box = new QGroupBox(tr("Check denominations"));
    auto* grid = new QGridLayout(box);
    grid->setHorizontalSpacing(18);
    for (int i = 1; i <= Checks; ++i) {
        Faces[At(i)] = new QLabel;
        Faces[At(i)]->setObjectName(QStringLiteral("picFace%1").arg(i));
        Faces[At(i)]->setFixedSize(FaceSize, FaceSize);
        grid->addWidget(Faces[At(i)], 0, i - 1, Qt::AlignHCenter);
        auto* field = new SettingField(
            T, QStringLiteral("txtCheck%1").arg(i), [this, i] { return FormatCommas(Typed[At(i)]); },
            [this, i](const std::string& typed) { return TakeCheck(i, typed); });
        field->setFixedWidth(FieldWidth);
        Fields[At(i)] = field;
        auto* label = new QLabel(tr("Check &%1").arg(i));
        label->setBuddy(field);
        grid->addWidget(label, 1, i - 1, Qt::AlignHCenter);
        grid->addWidget(field, 2, i - 1);
    }
    Pending = new QLabel;
    Pending->setObjectName(QStringLiteral("lblPending"));
    Pending->setTextFormat(Qt::PlainText);
    Pending->setWordWrap(true);
    Pending->setMinimumHeight(2 * Pending->fontMetrics().lineSpacing());
    grid->addWidget(Pending, 3, 0, 1, Checks + 1);
    CentsSymbol = AddSwitch(tr("Use the cents s&ymbol"), "chkCentsSymbol", T.UseCentsSymbol);
    AutoArrange = AddSwitch(QStringLiteral("&Auto-arrange checks"), "chkAutoArrange", T.AutoArrangeChips);
    grid->addWidget(CentsSymbol, 4, 0, 1, 2);
    grid->addWidget(AutoArrange, 4, 2, 1, 2);
    grid->setColumnStretch(Checks, 1);
    return box;
}

QGroupBox* ChecksDiceTab::MakeCheckPictures() {
    auto* box = new QGroupBox(tr("Checks"));
    auto* column = new QVBoxLayout(box);
    CheckLooks = MakeStrip(box, {tr("&Four spots"), tr("Si&x spots"), tr("&Eight spots")}, QStringLiteral("picChecks"));
    connect(CheckLooks, &QButtonGroup::idClicked, this, [this](int look) {
        T.CheckPicture = look;
        ShowPictures();
        Changed();
    });
    column->addStretch(1);
    return box;
}

QGroupBox* ChecksDiceTab::MakeDice() {
    auto* box = new QGroupBox(tr("Dice"));
    auto* column = new QVBoxLayout(box);
    DiceLooks = MakeStrip(box, {tr("S&harp"), tr("Sl&ightly rounded"), tr("Ro&und")}, QStringLiteral("picDice"));
    connect(DiceLooks, &QButtonGroup::idClicked, this, [this](int look) {
        T.DieFacePicture = look;
        Changed();
    });
    Actions = new QButtonGroup(this);
    auto* row = new QHBoxLayout;
    const char* const captions[] = {"&Normal", "&Stationary", "Stationary &Ctr"};
    for (int action = 0; action < 3; ++action) {
        auto* option = new QRadioButton(QString::fromLatin1(captions[action]));
        option->setObjectName(QStringLiteral("optDiceAction%1").arg(action));
        Actions->addButton(option, action);
        row->addWidget(option);
    }
    row->addStretch(1);
    column->addLayout(row);
    column->addStretch(1);
    connect(Actions, &QButtonGroup::idClicked, this, [this](int action) {
        T.DiceAction = action;
        Changed();
    });
    return box;
}

QGroupBox* ChecksDiceTab::MakeRate() {
    auto* box = new QGroupBox(tr("Simulated time"));
    auto* row = new QHBoxLayout(box);
    Rate = new SettingField(
        T, QStringLiteral("txtRate"), [this] { return RollRateText(T); },
        [this](const std::string& typed) {
            const auto rate = ParseAmount(typed);
            const SettingFault fault = rate ? SetRollRate(T, *rate) : NotANumber("Sim Roll Rate Out Of Limits", typed);
            if (fault.Text.empty()) emit settingsChanged();
            return fault;
        });
    Rate->setFixedWidth(FieldWidth + 20);
    auto* label = new QLabel(QStringLiteral("Sim roll &rate: "));
    label->setBuddy(Rate);
    RateUnit = new QComboBox;
    RateUnit->setObjectName(QStringLiteral("cmbRateUnit"));
    RateUnit->setAccessibleName(tr("Unit of the roll rate"));
    for (int unit = 0; !RollRateUnitText(unit).empty(); ++unit) RateUnit->addItem(Words(RollRateUnitText(unit)));
    connect(RateUnit, &QComboBox::activated, this, [this](int unit) {
        if (!Rate->Commit()) return RateUnit->setCurrentIndex(T.RollRateUnit);
        T.RollRateUnit = unit;
        Rate->ShowValue();
        Changed();
    });
    row->addWidget(label);
    row->addWidget(Rate);
    row->addWidget(RateUnit);
    return box;
}

// --- values ---

void ChecksDiceTab::ShowSettings() {
    Typed = T.CheckDenominations;
    for (int i = 1; i <= Checks; ++i) Fields[At(i)]->ShowValue();
    Pending->clear();
    CentsSymbol->setChecked(T.UseCentsSymbol);
    AutoArrange->setChecked(T.AutoArrangeChips);
    CheckOption(*CheckLooks, ShownCheckPicture(T.CheckPicture));
    CheckOption(*DiceLooks, ShownDicePicture(T.DieFacePicture));
    CheckOption(*Actions, qBound(0, T.DiceAction, 2));
    RateUnit->setCurrentIndex(T.RollRateUnit);
    Rate->ShowValue();
    ShowPictures();
}

void ChecksDiceTab::showEvent(QShowEvent* event) {
    // The screen, and with it the size of a pixel, may be another one than before.
    ShowPictures();
    ConfigTab::showEvent(event);
}

void ChecksDiceTab::ShowPictures() {
    const double ratio = devicePixelRatioF();
    CheckFaces faces = CheckFacesOf(T);
    for (int i = 1; i <= Checks; ++i) Faces[At(i)]->setPixmap(CheckPicture(faces, i, FaceSize, ratio));
    for (QAbstractButton* button : CheckLooks->buttons()) {
        faces.Picture = CheckLooks->id(button);
        const QPixmap picture = ChecksPicture(faces, StripHeight, ratio);
        button->setIcon(picture);
        button->setIconSize(picture.deviceIndependentSize().toSize());
    }
    for (QAbstractButton* button : DiceLooks->buttons()) {
        const int look = DiceLooks->id(button);
        const QPixmap picture = DicePicture(
            {FeltColor(T, ColorIndex::Die1), FeltColor(T, ColorIndex::Pips1), true, look},
            {FeltColor(T, ColorIndex::Die2), FeltColor(T, ColorIndex::Pips2), true, look}, StripHeight, ratio);
        button->setIcon(picture);
        button->setIconSize(picture.deviceIndependentSize().toSize());
    }
}

/// A value that doesn't fit the others yet waits for them: several are often changed one after another.
SettingFault ChecksDiceTab::TakeCheck(int i, const std::string& typed) {
    const auto value = ParseAmount(typed);
    if (!value || Abs(*value) > MostCheck) return NotANumber("Check Values", typed);
    Typed[At(i)] = *value;
    const SettingFault fault = SetCheckDenominations(T, Typed);
    Pending->setText(fault.Text.empty() ? QString() : tr("Not in force yet: %1").arg(Words(fault.Text)));
    if (fault.Text.empty()) {
        ShowPictures();
        emit settingsChanged();
    }
    return {};
}

SettingField* ChecksDiceTab::FaultyField() const {
    for (int i = 1; i <= Checks; ++i) {
        if (Typed[At(i)] <= currency{}) return Fields[At(i)];
    }
    for (int i = 2; i <= Checks; ++i) {
        if (Typed[At(i)] <= Typed[At(i - 1)]) return Fields[At(i)];
    }
    for (int i = 2; i <= Checks; ++i) {
        if (!IsMultipleOf(Typed[At(i)], Typed[1])) return Fields[At(i)];
    }
    return Fields[1];
}

bool ChecksDiceTab::MayLeave() {
    for (int i = 1; i <= Checks; ++i) {
        if (!Fields[At(i)]->Commit()) return false;
    }
    const SettingFault fault = SetCheckDenominations(T, Typed);
    if (!fault.Text.empty()) {
        FaultyField()->Complain(fault);
        return false;
    }
    if (!Rate->Commit()) return false;
    const SettingFault rateFault = RollRateFault(T);
    if (!rateFault.Text.empty()) Rate->Complain(rateFault);
    return rateFault.Text.empty();
}

void ChecksDiceTab::Restore() {
    if (!AskRestoreDefaultDenominations(T)) return;
    ShowSettings();
    Changed();
}

void ChecksDiceTab::Changed() {
    T.GameChanged = true;
    emit settingsChanged();
}

}  // namespace tarnwick
