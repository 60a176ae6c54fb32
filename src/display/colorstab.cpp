#include "display/colorstab.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QRadioButton>
#include <QScrollBar>
#include <QVBoxLayout>

#include "display/colorpalette.h"
#include "display/felt/feltcolors.h"
#include "display/feltpreview.h"
#include "display/options.h"
#include "display/pictures.h"
#include "table/crapcnst.h"

namespace tarnwick {

namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

/// By index of TableColors.
constexpr const char* Captions[] = {
    "Felt",       "Lines",        "Rail (int)",  "Rail (ext)", "Floor",      "Die 1",    "Pips",         "Die 2",
    "Pips",       "Hardway dice", "Pips",        "Prop dice",  "Pips",       "Passline", "Come",         "Don't Pass",
    "Don't Come", "Point 4",      "Point 5",     "Point 6",    "Point 8",    "Point 9",  "Point 10",     "Field",
    "Midway",     "Seven",        "Any craps",   "C (craps)",  "E (eleven)", "World",    "Horn",         "Big 6",
    "Big 8",      "Over 7",       "Under 7",     "All Small",  "All Tall",   "Make All", "4 Rolls No 7", "7 Point 7",
    "Point 7",    "Fire",         "Prop payoffs"};
constexpr int LastElement = 42;
static_assert(std::size(Captions) == LastElement + 1);

constexpr int SwatchHeight = 14;

/// A color as TableColors holds it, red in the low byte.
std::uint32_t ValueOf(const QColor& color) {
    return static_cast<std::uint32_t>(color.red() | color.green() << 8 | color.blue() << 16);
}

}  // namespace

ColorsTab::ColorsTab(Table& t, QWidget* parent)
    : ConfigTab(t, parent), Options(new QMenu(this)), Elements(new QButtonGroup(this)), Preview(new FeltPreview(t)) {
    MakeMenu();
    auto* row = new QHBoxLayout(this);
    row->setSpacing(14);
    auto* left = new QVBoxLayout;
    left->addWidget(MakeElements(tr("Table"), 0, 4, 5));
    left->addWidget(MakeElements(tr("Dice"), 5, 12, 8));
    left->addStretch(1);
    row->addLayout(left);
    auto* middle = new QVBoxLayout;
    middle->addWidget(MakeElements(tr("Lettering"), 13, LastElement, 15));
    middle->addStretch(1);
    row->addLayout(middle);
    auto* right = new QVBoxLayout;
    auto* top = new QHBoxLayout;
    top->addWidget(MakeMixer());
    top->addWidget(MakeSpotlight());
    top->addStretch(1);
    right->addLayout(top);
    right->addWidget(Preview, 1);
    row->addLayout(right, 1);
    CheckOption(*Elements, 0);
    connect(Elements, &QButtonGroup::idToggled, this, [this](int, bool on) {
        if (on) ShowSelected();
    });
}

void ColorsTab::MakeMenu() {
    Options->setTitle(QStringLiteral("&Options"));
    for (int preset = 0; preset < static_cast<int>(ColorPresets().size()); ++preset) {
        Options->addAction(ColorPresets()[At(preset)].Caption, this, [this, preset] {
            SetColorPreset(T, preset);
            ShowSettings();
            Changed();
        });
    }
}

QGroupBox* ColorsTab::MakeElements(const QString& title, int first, int last, int rows) {
    auto* box = new QGroupBox(title);
    auto* grid = new QGridLayout(box);
    grid->setVerticalSpacing(3);
    grid->setHorizontalSpacing(14);
    for (int element = first; element <= last; ++element) {
        const bool isPips = first == ColorIndex::Die1 && (element - first) % 2 == 1;
        auto* option = new QRadioButton(QString::fromLatin1(Captions[element]));
        option->setObjectName(QStringLiteral("optColor%1").arg(element));
        if (isPips) option->setAccessibleName(tr("Pips of %1").arg(QString::fromLatin1(Captions[element - 1])));
        Elements->addButton(option, element);
        grid->addWidget(option, (element - first) % rows, (element - first) / rows);
    }
    return box;
}

QGroupBox* ColorsTab::MakeMixer() {
    auto* box = new QGroupBox(tr("Color"));
    auto* grid = new QGridLayout(box);
    Palette = new ColorPalette;
    connect(Palette, &ColorPalette::picked, this, &ColorsTab::SetColor);
    grid->addWidget(Palette, 0, 0, 1, 3);
    const char* const captions[] = {"&Red ", "&Green ", "&Blue "};
    const char* const names[] = {"hsbRed", "hsbGreen", "hsbBlue"};
    for (int i = 0; i < 3; ++i) {
        Primary& primary = Primaries[At(i)];
        primary.Bar = new QScrollBar(Qt::Horizontal);
        primary.Bar->setObjectName(QString::fromLatin1(names[i]));
        primary.Bar->setRange(0, 255);
        primary.Bar->setPageStep(16);
        primary.Bar->setFocusPolicy(Qt::StrongFocus);
        primary.Bar->setInvertedControls(false);  // to the right is more, by key and wheel too
        primary.Figure = new QLabel;
        primary.Figure->setObjectName(QStringLiteral("lblColor%1").arg(i));
        primary.Figure->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        primary.Figure->setMinimumWidth(primary.Figure->fontMetrics().horizontalAdvance(QStringLiteral("0000")));
        auto* label = new QLabel(QString::fromLatin1(captions[i]));
        label->setBuddy(primary.Bar);
        grid->setRowMinimumHeight(i + 1, label->fontMetrics().height() + 6);
        grid->addWidget(label, i + 1, 0);
        grid->addWidget(primary.Bar, i + 1, 1);
        grid->addWidget(primary.Figure, i + 1, 2);
        connect(primary.Bar, &QScrollBar::valueChanged, this, [this] {
            SetColor({Primaries[0].Bar->value(), Primaries[1].Bar->value(), Primaries[2].Bar->value()});
        });
    }
    grid->setColumnStretch(1, 1);
    return box;
}

QGroupBox* ColorsTab::MakeSpotlight() {
    auto* box = new QGroupBox(QStringLiteral("Spotlight"));
    auto* column = new QVBoxLayout(box);
    Spotlight = new QButtonGroup(this);
    const char* const captions[] = {"O&ff", "&Low", "&Med", "&Hi"};
    for (int level = 0; level < 4; ++level) {
        auto* option = new QRadioButton(QString::fromLatin1(captions[level]));
        option->setObjectName(QStringLiteral("optSpotlight%1").arg(level));
        Spotlight->addButton(option, level);
        column->addWidget(option);
    }
    column->addStretch(1);
    connect(Spotlight, &QButtonGroup::idClicked, this, [this](int level) {
        T.SpotlightLevel = level;
        Changed();
    });
    return box;
}

int ColorsTab::Selected() const { return qMax(0, Elements->checkedId()); }

void ColorsTab::ShowSettings() {
    ShowSwatches();
    ShowSelected();
    CheckOption(*Spotlight, qBound(0, T.SpotlightLevel, 3));
    Preview->Refresh();
}

void ColorsTab::showEvent(QShowEvent* event) {
    // The screen, and with it the size of a pixel, may be another one than before.
    ShowSwatches();
    ConfigTab::showEvent(event);
}

void ColorsTab::ShowSwatch(int element) {
    const QPixmap picture = SwatchPicture(FeltColor(T, element), SwatchHeight, devicePixelRatioF());
    Elements->button(element)->setIcon(picture);
    Elements->button(element)->setIconSize(picture.deviceIndependentSize().toSize());
}

void ColorsTab::ShowSwatches() {
    for (int element = 0; element <= LastElement; ++element) ShowSwatch(element);
}

void ColorsTab::ShowSelected() {
    const QColor color = FeltColor(T, Selected());
    const int values[] = {color.red(), color.green(), color.blue()};
    for (int i = 0; i < 3; ++i) {
        const QSignalBlocker quiet(Primaries[At(i)].Bar);
        Primaries[At(i)].Bar->setValue(values[i]);
        Primaries[At(i)].Figure->setText(QString::number(values[i]));
    }
    Palette->ShowColor(color);
}

void ColorsTab::SetColor(const QColor& color) {
    const int element = Selected();
    if (T.TableColors[At(element)] == ValueOf(color)) return;
    T.TableColors[At(element)] = ValueOf(color);
    ShowSwatch(element);
    ShowSelected();
    Changed();
}

void ColorsTab::Changed() {
    T.GameChanged = true;
    Preview->Refresh();
    emit settingsChanged();
}

}  // namespace tarnwick
