#include "display/misctab.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "config/configure.h"
#include "dice/dice.h"
#include "display/options.h"
#include "display/words.h"
#include "table/rundriver.h"

namespace tarnwick {

namespace {

constexpr const char* GeneratorNames[] = {"RNG #1",
                                          "RNG #2",
                                          "RNG #3",
                                          "RNG #4",
                                          "RNG #5",
                                          "RNG #6 (#1 and #5)",
                                          "RNG #7 (#2 and #4)",
                                          "RNG #8 (#1 single call)"};

constexpr const char* NoticeCaptions[] = {"&Actions not allowed", "Betting &limits reached", "&Charges and/or change",
                                          "Auto-&Bet messages normal play", "Auto-Bet messages &Hyper-Drive"};

/// Numbers of the colors that reports are printed in; all 0 is black.
constexpr std::array<std::int32_t, 3> PrintedInColor = {9, 12, 13};

}  // namespace

MiscTab::MiscTab(Table& t, QWidget* parent) : ConfigTab(t, parent) {
    auto* grid = new QGridLayout(this);
    grid->setSpacing(14);
    grid->addWidget(MakeGenerators(), 0, 0);
    grid->addWidget(MakeNotices(), 0, 1);
    grid->addWidget(MakeOthers(), 1, 0);
    grid->setRowStretch(2, 1);
    grid->setColumnStretch(2, 1);
}

QGroupBox* MiscTab::MakeGenerators() {
    auto* box = new QGroupBox(QStringLiteral("Random Number Generator"));
    auto* grid = new QGridLayout(box);
    auto* label = new QLabel(tr("&Generator:"));
    Generators = new QComboBox;
    Generators->setObjectName(QStringLiteral("cmbRNG"));
    for (const char* name : GeneratorNames) Generators->addItem(QString::fromLatin1(name));
    label->setBuddy(Generators);
    connect(Generators, &QComboBox::activated, this, &MiscTab::ChooseGenerator);
    grid->addWidget(label, 0, 0);
    grid->addWidget(Generators, 0, 1);

    auto* normally = new QRadioButton(QStringLiteral("Seed &normally"));
    normally->setObjectName(QStringLiteral("optSeedNormally"));
    auto* byUser = new QRadioButton(QStringLiteral("&User seed"));
    byUser->setObjectName(QStringLiteral("optUserSeed"));
    byUser->setToolTip(tr("Every seeding asks for a number; the same number gives the same rolls."));
    Seeding = new QButtonGroup(this);
    Seeding->addButton(normally, 0);
    Seeding->addButton(byUser, 1);
    connect(Seeding, &QButtonGroup::idClicked, this, [this](int id) {
        T.UserSeedOn = id == 1;
        Changed();
    });
    grid->addWidget(normally, 1, 0, 1, 2);
    grid->addWidget(byUser, 2, 0, 1, 2);

    auto* seedLabel = new QLabel(QStringLiteral("Last entered seed:"));
    LastSeed = new QLabel;
    LastSeed->setObjectName(QStringLiteral("lblLastSeed"));
    LastSeed->setTextInteractionFlags(Qt::TextSelectableByMouse);
    grid->addWidget(seedLabel, 3, 0);
    grid->addWidget(LastSeed, 3, 1);

    ReSeed = new QCheckBox(QStringLiteral("&Re-seed new sessions"));
    ReSeed->setObjectName(QStringLiteral("chkReSeed"));
    connect(ReSeed, &QCheckBox::clicked, this, [this](bool on) {
        T.ReSeedNewSessions = on;
        Changed();
    });
    grid->addWidget(ReSeed, 4, 0, 1, 2);
    auto* now = new QPushButton(QStringLiteral("&Seed RNG now"));
    now->setObjectName(QStringLiteral("cmdSeedNow"));
    connect(now, &QPushButton::clicked, this, &MiscTab::SeedNow);
    grid->addWidget(now, 5, 0, 1, 2, Qt::AlignLeft);
    grid->setRowStretch(6, 1);
    return box;
}

QGroupBox* MiscTab::MakeNotices() {
    auto* box = new QGroupBox(QStringLiteral("Notices"));
    auto* column = new QVBoxLayout(box);
    for (int bit = 0; bit < static_cast<int>(std::size(NoticeCaptions)); ++bit) {
        auto* check = new QCheckBox(QString::fromLatin1(NoticeCaptions[bit]));
        check->setObjectName(QStringLiteral("chkNotice%1").arg(1 << bit));
        connect(check, &QCheckBox::clicked, this, [this, bit](bool on) {
            T.NotifyBits = (T.NotifyBits & ~(1 << bit)) | (on ? 1 << bit : 0);
            Changed();
        });
        column->addWidget(check);
        Notices.push_back(check);
    }
    column->addStretch(1);
    return box;
}

QWidget* MiscTab::MakeOthers() {
    auto* box = new QGroupBox(tr("Mouse and printer"));
    auto* column = new QVBoxLayout(box);
    SnapMouse = new QCheckBox(QStringLiteral("Snap &mouse-pointer"));
    SnapMouse->setObjectName(QStringLiteral("chkSnapMouse"));
    connect(SnapMouse, &QCheckBox::clicked, this, [this](bool on) {
        T.SnapMouse = on;
        Changed();
    });
    ColorPrinter = new QCheckBox(QStringLiteral("Color &printer"));
    ColorPrinter->setObjectName(QStringLiteral("chkColorPrinter"));
    connect(ColorPrinter, &QCheckBox::clicked, this, [this](bool on) {
        T.PrintColors = on ? PrintedInColor : std::array<std::int32_t, 3>{};
        Changed();
    });
    column->addWidget(SnapMouse);
    column->addWidget(ColorPrinter);
    return box;
}

void MiscTab::ShowSettings() {
    Generators->setCurrentIndex(T.RngIndex);
    CheckOption(*Seeding, T.UserSeedOn ? 1 : 0);
    LastSeed->setText(QString::number(T.LastSeed));
    ReSeed->setChecked(T.ReSeedNewSessions);
    for (int bit = 0; bit < static_cast<int>(Notices.size()); ++bit) {
        Notices[static_cast<std::size_t>(bit)]->setChecked((T.NotifyBits >> bit & 1) != 0);
    }
    SnapMouse->setChecked(T.SnapMouse);
    ColorPrinter->setChecked(T.PrintColors != std::array<std::int32_t, 3>{});
}

void MiscTab::ChooseGenerator(int index) {
    // Gives way by itself to one that can be used.
    SetSetting(T, "RngIndex", std::to_string(index));
    Generators->setCurrentIndex(T.RngIndex);
    emit settingsChanged();
}

void MiscTab::SeedNow() {
    if (GuardCommand(T)) return;
    if (SeedRNG(T, SeedMode::Normal)) Changed();
    LastSeed->setText(QString::number(T.LastSeed));
}

void MiscTab::Changed() {
    T.GameChanged = true;
    emit settingsChanged();
}

}  // namespace tarnwick
