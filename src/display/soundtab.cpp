#include "display/soundtab.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QScrollBar>
#include <QSignalBlocker>

#include "display/soundplayer.h"

namespace tarnwick {

namespace {

struct ListWords {
    const char* Name;
    const char* Caption;
};
constexpr std::array<ListWords, 4> WordsOfLists = {{{"StickPersonIndex", "&Stick person"},
                                                    {"DiceSoundIndex", "&Dice"},
                                                    {"CheckSoundIndex", "&Checks"},
                                                    {"WinSoundIndex", "&Wins"}}};

std::size_t At(SoundList list) { return static_cast<std::size_t>(list); }

}  // namespace

SoundTab::SoundTab(Table& t, SoundPlayer& sounds, QWidget* parent) : ConfigTab(t, parent), Sounds(sounds) {
    NoSound = MakeSwitch(QStringLiteral("DisableAllSound"), QStringLiteral("Disable &all game sounds"),
                         &Settings::DisableAllSound);
    NoScriptSounds = MakeSwitch(QStringLiteral("DisableAutoBetSounds"), QStringLiteral("Disable Auto-&Bet sounds"),
                                &Settings::DisableAutoBetSounds);
    NoDevice = new QLabel(tr("This computer has no sound device that plays now."));
    NoDevice->setObjectName(QStringLiteral("lblNoDevice"));
    auto* lists = new QHBoxLayout;
    lists->setSpacing(12);
    for (const SoundList list : AllSoundLists) lists->addWidget(MakeList(list), 1);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(16, 16, 16, 16);
    all->setSpacing(10);
    all->addWidget(NoSound);
    all->addWidget(NoScriptSounds);
    all->addSpacing(6);
    all->addLayout(lists, 1);
    all->addSpacing(6);
    all->addWidget(MakeVolume());
    all->addWidget(NoDevice);
}

QCheckBox* SoundTab::MakeSwitch(const QString& name, const QString& caption, bool Settings::*flag) {
    auto* box = new QCheckBox(caption);
    box->setObjectName(name);
    connect(box, &QCheckBox::toggled, this, [this, flag](bool on) {
        T.*flag = on;
        emit settingsChanged();
    });
    return box;
}

QWidget* SoundTab::MakeList(SoundList list) {
    auto* column = new QWidget;
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* caption = new QLabel(QLatin1String(WordsOfLists[At(list)].Caption));
    auto* names = new QListWidget;
    names->setObjectName(QLatin1String(WordsOfLists[At(list)].Name));
    names->setAccessibleName(caption->text().remove(QLatin1Char('&')));
    names->setMinimumSize(110, 110);
    names->setSpacing(1);
    names->setTextElideMode(Qt::ElideRight);
    names->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    caption->setBuddy(names);
    layout->addWidget(caption);
    layout->addWidget(names, 1);
    connect(names, &QListWidget::currentRowChanged, this, [this, list](int row) { Choose(list, row); });
    // A double click, or Enter: once more.
    connect(names, &QListWidget::itemActivated, this, [this, list] { Sounds.PlaySample(list); });
    Lists[At(list)] = names;
    return column;
}

QWidget* SoundTab::MakeVolume() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(10);
    auto* caption = new QLabel(QStringLiteral("&V O L U M E"));
    Volume = new QScrollBar(Qt::Horizontal);
    Volume->setObjectName(QStringLiteral("Volume"));
    Volume->setAccessibleName(tr("Volume"));
    Volume->setFocusPolicy(Qt::StrongFocus);
    Volume->setRange(0, 100);
    Volume->setPageStep(10);
    Volume->setSingleStep(2);
    Volume->setInvertedControls(false);  // to the left and down is softer, by keys and wheel too
    caption->setBuddy(Volume);
    Level = new QLabel;
    Level->setMinimumWidth(Level->fontMetrics().horizontalAdvance(QStringLiteral("100 %")));
    Level->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    layout->addWidget(caption);
    layout->addWidget(Volume, 1);
    layout->addWidget(Level);
    connect(Volume, &QScrollBar::valueChanged, this, [this](int percent) {
        Level->setText(tr("%1 %").arg(percent));
        Sounds.SetVolume(percent);
    });
    // Heard when the hand lets go.
    connect(Volume, &QScrollBar::sliderReleased, this, [this] { Sounds.PlaySample(SoundList::StickPersons); });
    return row;
}

void SoundTab::Choose(SoundList list, int index) {
    if (index < 0) return;
    SoundIndex(T, list) = index;
    emit settingsChanged();
    Sounds.PlaySample(list);
}

void SoundTab::ShowSettings() {
    const QSignalBlocker quiet1(NoSound), quiet2(NoScriptSounds), quiet3(Volume);
    NoSound->setChecked(T.DisableAllSound);
    NoScriptSounds->setChecked(T.DisableAutoBetSounds);
    for (const SoundList list : AllSoundLists) {
        QListWidget* names = Lists[At(list)];
        const QSignalBlocker quiet(names);
        names->clear();
        names->addItems(Sounds.Sets().Names(list));
        for (int i = 0; i < names->count(); ++i) names->item(i)->setToolTip(names->item(i)->text());
        names->setCurrentRow(Sounds.Sets().Within(list, SoundIndex(T, list)));
    }
    Volume->setValue(Sounds.Volume());
    Level->setText(tr("%1 %").arg(Sounds.Volume()));
    NoDevice->setVisible(!Sounds.HasDevice());
}

}  // namespace tarnwick
