#include "display/betstab.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QVBoxLayout>
#include <algorithm>
#include <functional>

#include "config/betlimits.h"
#include "config/settingtable.h"
#include "display/words.h"
#include "display/workinglist.h"
#include "table/crapcnst.h"
#include "table/format.h"
#include "table/messages.h"

namespace tarnwick {

namespace {

constexpr const char* LimitsTitle = "Configuration Limits";
constexpr const char* ChangeTitle = "Configuration";

QString Latin(const char* text) { return QString::fromLatin1(text); }

/// Tells whenever the focus goes elsewhere in the window, also when nothing was typed since it last did.
class FieldBox final : public QLineEdit {
  public:
    std::function<void()> Left;

  protected:
    void focusOutEvent(QFocusEvent* event) override {
        QLineEdit::focusOutEvent(event);
        const Qt::FocusReason reason = event->reason();
        if (Left && reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) Left();
    }
};

/// One line of a form: caption, field, and what stands behind it.
void AddLine(QGridLayout& grid, const char* caption, QLineEdit* box, const char* behind = nullptr) {
    const int row = grid.rowCount();
    auto* label = new QLabel(Latin(caption));
    label->setBuddy(box);
    grid.addWidget(label, row, 0);
    grid.addWidget(box, row, 1);
    if (behind != nullptr) grid.addWidget(new QLabel(Latin(behind)), row, 2);
    grid.setColumnStretch(0, 1);
}

}  // namespace

BetsTab::BetsTab(Table& t, QWidget* parent) : ConfigTab(t, parent) {
    setObjectName(QStringLiteral("tabBets"));
    auto* grid = new QGridLayout(this);
    grid->setHorizontalSpacing(10);
    QWidget* const groups[3][2] = {{MakeLimits(), MakeRules()},
                                   {MakeOdds(), MakeOptionalBets()},
                                   {MakeVig("Lay bets", "Lay"), MakeVig("Buy bets", "Buy")}};
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 2; ++column) grid->addWidget(groups[row][column], row, column);
    }
    grid->addWidget(MakeComeOutList(), 0, 2, 3, 1);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(2, 1);
    ShowSettings();
}

// A field that loses the focus because the window goes has nobody left to take what was typed.
BetsTab::~BetsTab() {
    for (const Field& field : Fields) static_cast<FieldBox*>(field.Box)->Left = nullptr;
}

// --- making the controls ---

QLineEdit* BetsTab::AddField(const char* setting, const char* name, Kind kind) {
    auto* box = new FieldBox;
    box->setObjectName(Latin(setting));
    box->setAlignment(Qt::AlignRight);
    box->setMaxLength(24);
    const int wide = box->fontMetrics().horizontalAdvance(QStringLiteral("999,999,999.9999")) + 18;
    const int narrow = box->fontMetrics().horizontalAdvance(QStringLiteral("9999.9999")) + 18;
    box->setFixedWidth(kind == Kind::Multiple || kind == Kind::Percent || kind == Kind::FireLimit ? narrow : wide);
    const std::size_t at = Fields.size();
    Fields.push_back({box, setting, name, kind});
    box->Left = [this, at] { Commit(Fields[at]); };
    connect(box, &QLineEdit::returnPressed, this, [this, at] { Commit(Fields[at]); });
    return box;
}

QCheckBox* BetsTab::AddCheck(QBoxLayout& layout, const char* caption, const char* setting, bool asks) {
    auto* box = new QCheckBox(Latin(caption));
    box->setObjectName(Latin(setting));
    layout.addWidget(box);
    const std::size_t at = Checks.size();
    Checks.push_back({box, setting, asks});
    connect(box, &QCheckBox::clicked, this, [this, at](bool on) { SwitchCheck(Checks[at], on); });
    return box;
}

QRadioButton* BetsTab::AddOption(const QString& caption, const char* setting, const char* value) {
    auto* button = new QRadioButton(caption);
    button->setObjectName(Latin(setting) + QLatin1Char('_') + Latin(value));
    Options.push_back({button, setting, value});
    connect(button, &QRadioButton::clicked, this, [this, setting, value] { Set(setting, value); });
    return button;
}

QComboBox* BetsTab::AddList(const char* setting, std::initializer_list<const char*> entries) {
    auto* box = new QComboBox;
    box->setObjectName(Latin(setting));
    for (const char* entry : entries) box->addItem(Latin(entry));
    Lists.push_back({box, setting});
    connect(box, &QComboBox::activated, this, [this, setting](int entry) { Set(setting, std::to_string(entry)); });
    return box;
}

QWidget* BetsTab::MakeLimits() {
    auto* group = new QGroupBox(QStringLiteral("Limits"));
    auto* grid = new QGridLayout(group);
    AddLine(*grid, "Minimum bet", AddField("MinPlacardBet", "minimum bet", Kind::Limit));
    AddLine(*grid, "Min prop bet", AddField("MinPlacardPropBet", "minimum prop bet", Kind::Limit));
    AddLine(*grid, "Maximum bet", AddField("MaxPlacardBet", "maximum bet", Kind::Limit));
    AddLine(*grid, "Max prop bet payoff", AddField("MaxPropBetPayoff", "max prop bet payoff", Kind::Amount));
    AddLine(*grid, "Max odds bet", AddField("MaxOddsBet", "max odds bet", Kind::Amount));
    grid->setRowStretch(grid->rowCount(), 1);
    return group;
}

QWidget* BetsTab::MakeOdds() {
    auto* group = new QGroupBox(QStringLiteral("Odds allowed:"));
    auto* grid = new QGridLayout(group);
    AddLine(*grid, "4 and 10", AddField("OddsAllowed410", "odds allowed on 4 and 10", Kind::Multiple), "X");
    AddLine(*grid, "5 and 9", AddField("OddsAllowed59", "odds allowed on 5 and 9", Kind::Multiple), "X");
    AddLine(*grid, "6 and 8", AddField("OddsAllowed68", "odds allowed on 6 and 8", Kind::Multiple), "X");
    auto* caption = new QLabel(QStringLiteral("Odds calculation method:"));
    QComboBox* methods =
        AddList("OddsCalcMethod", {"Auto select", "X Flat - No Push", "X Flat w/ Minor Push", "X Flat w/ Color Push",
                                   "X Flat - Single Odds", "Flat - Single Odds X"});
    caption->setBuddy(methods);
    const int row = grid->rowCount();
    grid->addWidget(caption, row, 0, 1, 3);
    grid->addWidget(methods, row + 1, 0, 1, 3);
    grid->setRowStretch(row + 2, 1);
    return group;
}

QWidget* BetsTab::MakeRules() {
    auto* group = new QGroupBox(QStringLiteral("Rules"));
    auto* layout = new QVBoxLayout(group);
    QComboBox* shooter = AddList("ShooterBetRequirement", {"No bets required to shoot", "Line bet required to shoot",
                                                           "Any bet required to shoot"});
    shooter->setAccessibleName(tr("Bet required to shoot"));
    layout->addWidget(shooter);
    auto* bar = new QHBoxLayout;
    bar->addWidget(new QLabel(QStringLiteral("Don't Pass / Don't Come")));
    bar->addStretch();
    auto* numbers = new QButtonGroup(group);
    for (const char* number : {"2", "12"}) {
        QRadioButton* button = AddOption(QStringLiteral("Bar ") + Latin(number), "BarDont", number);
        numbers->addButton(button);
        bar->addWidget(button);
    }
    layout->addLayout(bar);
    AddCheck(*layout, "Allow \"Put\" bets", "AllowPutBets");
    AddCheck(*layout, "Return abandoned contract bets", "ReturnAbandonedBets");
    layout->addStretch();
    return group;
}

QWidget* BetsTab::MakeOptionalBets() {
    auto* group = new QGroupBox(QStringLiteral("Optional bets"));
    auto* layout = new QVBoxLayout(group);
    AddCheck(*layout, "Use Big 6 && 8 bets", "UseBig68", true);
    AddCheck(*layout, "Use special prop bets", "UseSpecialPropBets", true);
    AddCheck(*layout, "Use Midway bet", "UseMidwayBet", true);
    auto* fire = new QHBoxLayout;
    AddCheck(*fire, "Use Fire bet", "UseFireBet", true);
    fire->addStretch();
    FireLabel = new QLabel(QStringLiteral("Max"));
    FireBox = AddField("MaxFireBet", "max Fire bet", Kind::FireLimit);
    FireLabel->setBuddy(FireBox);
    QSizePolicy keepsRoom = FireBox->sizePolicy();
    keepsRoom.setRetainSizeWhenHidden(true);
    FireBox->setSizePolicy(keepsRoom);
    fire->addWidget(FireLabel);
    fire->addWidget(FireBox);
    layout->addLayout(fire);
    layout->addStretch();
    return group;
}

QWidget* BetsTab::MakeVig(const char* title, const char* family) {
    const bool lay = QLatin1String(family) == QLatin1String("Lay");
    auto* group = new QGroupBox(Latin(title));
    auto* layout = new QVBoxLayout(group);
    auto* rate = new QHBoxLayout;
    auto* caption = new QLabel(QStringLiteral("Vig"));
    QLineEdit* box =
        AddField(lay ? "LayVigRate" : "BuyVigRate", lay ? "vig on Lay bets" : "vig on Buy bets", Kind::Percent);
    caption->setBuddy(box);
    rate->addWidget(caption);
    rate->addStretch();
    rate->addWidget(box);
    rate->addWidget(new QLabel(QStringLiteral("%")));
    layout->addLayout(rate);
    auto* when = new QButtonGroup(group);
    const QString bets = Latin(title);
    const char* setting = lay ? "LayVigOnAllBets" : "BuyVigOnAllBets";
    for (const bool all : {true, false}) {
        const QString text =
            all ? QStringLiteral("Charge all %1").arg(bets) : QStringLiteral("Charge winning %1 only").arg(bets);
        QRadioButton* button = AddOption(text, setting, all ? "true" : "false");
        when->addButton(button);
        layout->addWidget(button);
    }
    QComboBox* rounding =
        AddList(lay ? "LayVigRounding" : "BuyVigRounding", {"Rounded normally", "Rounded down", "Rounded up"});
    rounding->setAccessibleName(tr("Rounding of the vig on %1").arg(bets));
    layout->addWidget(rounding);
    layout->addStretch();
    return group;
}

QWidget* BetsTab::MakeComeOutList() {
    ComeOutList = new WorkingList(QStringLiteral("Working on the come-out roll"));
    connect(ComeOutList, &WorkingList::choiceMade, this, &BetsTab::SetComeOut);
    return ComeOutList;
}

// --- showing ---

void BetsTab::ShowSettings() {
    for (const Field& field : Fields) ShowField(field);
    ShowChoices();
    ShowComeOut();
}

void BetsTab::ShowChoices() {
    for (const Check& check : Checks) check.Box->setChecked(SettingText(T, check.Setting) == "true");
    for (const Option& option : Options) {
        const bool chosen = SettingText(T, option.Setting) == option.Value;
        option.Button->setChecked(chosen);
        // Tab goes to the chosen option of a group, and the arrows go on from there.
        option.Button->setFocusPolicy(chosen ? Qt::StrongFocus : Qt::ClickFocus);
    }
    for (const List& list : Lists) {
        list.Box->setCurrentIndex(ParseInteger(SettingText(T, list.Setting)).value_or(0));
    }
    ShowFireLimit();
}

QString BetsTab::TextOf(const Field& field) const {
    const currency value = ParseAmount(SettingText(T, field.Setting)).value_or(currency{});
    if (field.Is == Kind::Percent) return Words(PlainAmount(value * 100));
    if (field.Is == Kind::Multiple) return Words(PlainAmount(value));
    const bool whole = IsMultipleOf(value, Dollars(1));
    return Words(FormatPattern(value, whole ? "#,0" : "#,0.00##"));
}

void BetsTab::ShowField(const Field& field) {
    field.Box->setText(TextOf(field));
    field.Box->setModified(false);
}

void BetsTab::ShowFireLimit() {
    // What was typed there goes with it.
    for (const Field& field : Fields) {
        if (field.Box == FireBox && !T.UseFireBet) ShowField(field);
    }
    FireLabel->setVisible(T.UseFireBet);
    FireBox->setVisible(T.UseFireBet);
}

/// The table's own list.
void BetsTab::ShowComeOut() {
    std::array<std::optional<bool>, Row::LastBet + 1> working;
    for (int row = 1; row <= Row::LastBet; ++row) {
        working[static_cast<std::size_t>(row)] = T.ComeOutWorking(0, row) != 0;
    }
    ComeOutList->ShowWorking(working);
}

// --- taking ---

std::string BetsTab::TitleOf(const Field& field) {
    return field.Is == Kind::FireLimit ? "Max Fire Bet" : field.Is == Kind::Percent ? ChangeTitle : LimitsTitle;
}

bool BetsTab::Fault(const std::string& title, const std::string& text, QWidget* where) {
    Telling = true;
    ShowNote(T, title, text, MsgButton::OkStop);
    Telling = false;
    where->setFocus();
    if (auto* box = qobject_cast<QLineEdit*>(where)) box->selectAll();
    return false;
}

bool BetsTab::Set(std::string_view setting, std::string_view value) {
    if (SettingText(T, setting) == value) return true;
    const std::string wrong = SetSetting(T, setting, value);
    if (!wrong.empty()) ShowNote(T, ChangeTitle, wrong, MsgButton::OkStop);
    ShowChoices();
    if (wrong.empty()) emit settingsChanged();
    return wrong.empty();
}

void BetsTab::SwitchCheck(const Check& check, bool on) {
    if (!check.Asks) {
        Set(check.Setting, on ? "true" : "false");
        return;
    }
    const bool changed = AskSwitchOption(T, check.Setting, on);
    ShowChoices();
    if (changed) emit settingsChanged();
}

bool BetsTab::Commit(const Field& field) {
    if (Telling || !field.Box->isModified()) return true;
    QString text = field.Box->text().trimmed();
    if (field.Is == Kind::Percent && text.endsWith(QLatin1Char('%'))) text.chop(1);
    const auto value = ParseAmount(Utf8(text));
    const std::string wrong = FormFault(field, value);
    if (!wrong.empty()) return Fault(TitleOf(field), wrong, field.Box);
    if (field.Is == Kind::Limit) {
        TakeLimits();  // what doesn't fit together yet waits for the other limits
        return true;
    }
    return Take(field, *value);
}

std::string BetsTab::FormFault(const Field& field, std::optional<currency> value) const {
    const std::string name = std::string("The ") + field.Name;
    if (!value) {
        return name +
               (field.Is == Kind::Percent ? " must be a percentage such as 5 or 4.75, not \""
                                          : " must be a number such as 5 or 2.5, not \"") +
               Utf8(field.Box->text()) + "\".";
    }
    if (field.Is == Kind::FireLimit && *value <= currency{}) return "The max Fire bet must be greater than zero.";
    const SettingRow& row = *FindSetting(field.Setting);
    const currency low = field.Is == Kind::Limit ? currency{row.Low} : std::max(currency{row.Low}, currency{});
    const currency high = currency{row.High} * (field.Is == Kind::Percent ? 100 : 1);
    if (low <= *value && *value <= high) return {};
    return name + " must be from " + FormatCommas(low) + " to " + FormatCommas(high) +
           (field.Is == Kind::Percent ? " percent." : ".");
}

bool BetsTab::Take(const Field& field, currency value) {
    const std::string before = SettingText(T, field.Setting);
    std::string wrong;
    if (field.Is == Kind::FireLimit) {
        wrong = TryVigChange(T, [value](Table& t) { t.MaxFireBet = value; });
    } else {
        wrong = SetSetting(T, field.Setting, PlainAmount(value) + (field.Is == Kind::Percent ? "%" : ""));
    }
    ShowField(field);
    if (!wrong.empty()) return Fault(ChangeTitle, wrong, field.Box);
    if (SettingText(T, field.Setting) != before) emit settingsChanged();
    return true;
}

SettingFault BetsTab::TakeLimits() {
    const BetLimits before{T.MinPlacardBet, T.MinPlacardPropBet, T.MaxPlacardBet};
    BetLimits limits = before;
    currency* const values[] = {&limits.MinPlacardBet, &limits.MinPlacardPropBet, &limits.MaxPlacardBet};
    std::vector<const Field*> taken;
    for (std::size_t i = 0; i < std::size(values); ++i) {
        const auto typed = ParseAmount(Utf8(Fields[i].Box->text()));
        if (!Fields[i].Box->isModified() || !typed) continue;
        *values[i] = *typed;
        taken.push_back(&Fields[i]);
    }
    SettingFault fault = SetBetLimits(T, limits);
    if (!fault.Text.empty()) return fault;
    for (const Field* field : taken) ShowField(*field);
    if (!(limits == before)) emit settingsChanged();
    return fault;
}

bool BetsTab::MayLeave() {
    for (const Field& field : Fields) {
        if (!Commit(field)) return false;
    }
    const SettingFault fault = TakeLimits();
    if (!fault.Text.empty()) {
        const auto tells = [&](const char* words) { return fault.Text.find(words) != std::string::npos; };
        const std::size_t at = tells("minimum prop bet") ? 1 : tells("The maximum bet") ? 2 : 0;
        return Fault(fault.Title, fault.Text, Fields[at].Box);
    }
    if (T.UseFireBet && T.MaxFireBet <= currency{}) {
        return Fault("Max Fire Bet", "The max Fire bet must be greater than zero.", FireBox);
    }
    return true;
}

/// For the table and all its players.
void BetsTab::SetComeOut(const std::vector<int>& rows, WorkingChoice choice) {
    for (const int row : rows) {
        const bool works =
            choice == WorkingChoice::Default ? WorksOnComeOutByDefault(row) : choice == WorkingChoice::Yes;
        SetSetting(T, "ComeOutWorking[" + std::to_string(row) + "]", works ? "true" : "false");
    }
    ShowComeOut();
    emit settingsChanged();
}

}  // namespace tarnwick
