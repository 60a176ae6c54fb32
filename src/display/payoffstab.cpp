#include "display/payoffstab.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "config/fieldpayoffs.h"
#include "config/payoffs.h"
#include "display/payoffgrid.h"
#include "display/words.h"
#include "table/crapcnst.h"
#include "table/messages.h"

namespace tarnwick {

namespace {

/// Shows where the change was made.
int LineOfField() {
    const auto& lines = PayoffLines();
    const auto field =
        std::find_if(lines.begin(), lines.end(), [](const PayoffLine& line) { return line.In == PayoffTable::Field; });
    return static_cast<int>(field - lines.begin()) - 1;
}

}  // namespace

PayoffsTab::PayoffsTab(Table& t, QWidget* parent)
    : ConfigTab(t, parent), Model(new PayoffModel(t, this)), Grid(new PayoffView(*Model, this)), Options(nullptr) {
    setObjectName(QStringLiteral("tabPayoffs"));
    setFocusProxy(Grid);
    auto* layout = new QHBoxLayout(this);
    layout->setSpacing(12);
    layout->addWidget(Grid);
    auto* side = new QVBoxLayout;
    side->addWidget(MakeHelp());
    side->addWidget(MakeGroups(), 1);
    layout->addLayout(side, 1);
    MakeMenu();
    connect(Model, &PayoffModel::payoffChanged, this, &ConfigTab::settingsChanged);
    connect(Grid, &PayoffView::numberRefused, this, [this](const QString& title, const QString& text) {
        ShowNote(T, Utf8(title), Utf8(text), MsgButton::OkStop);
    });
    connect(Grid->verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int value) {
        if (ScrollFollows) T.PayoffsScroll = value;
    });
}

// A number being typed goes with the window.
PayoffsTab::~PayoffsTab() { Grid->AbandonEditor(); }

void PayoffsTab::MakeMenu() {
    Options = new QMenu(QStringLiteral("&Options"), this);
    auto* field = Options->addMenu(QStringLiteral("&Set Field payoffs to"));
    for (int i = 0; i < FieldFillings; ++i) {
        QAction* action = field->addAction(Words(FieldFillingCaption(i)));
        connect(action, &QAction::triggered, this, [this, i] {
            ChangeMany(FillFieldPayoffs, i);
            Grid->GoTo(LineOfField());
        });
    }
    Options->addSeparator();
    QAction* restore = Options->addAction(QStringLiteral("&Restore default payoffs"));
    connect(restore, &QAction::triggered, this,
            [this] { ChangeMany([](Table& t, int) { return AskRestoreDefaultPayoffs(t); }, 0); });
}

QWidget* PayoffsTab::MakeHelp() {
    auto* group = new QGroupBox(tr("Typing payoffs"));
    auto* grid = new QGridLayout(group);
    grid->setColumnStretch(1, 1);
    grid->setHorizontalSpacing(14);
    grid->setVerticalSpacing(8);
    const std::pair<QString, QString> rows[] = {
        {tr("T"), tr("to: 9 to 5 wins 9 for a bet of 5, and the bet is kept")},
        {tr("F"), tr("for: 14 for 5 pays 14, the bet of 5 among it")},
        {tr("Space"), tr("the other word; what is paid stays the same")},
        {tr("Enter"), tr("takes the number and goes down")},
        {tr("Tab"), tr("takes the number and goes to the next one")},
        {tr("Esc"), tr("leaves the number as it was")},
        {tr("-1 to 1"), tr("in the Field and Fire lists a loss; 0 decides nothing")},
    };
    int row = 0;
    for (const auto& [key, meaning] : rows) {
        auto* name = new QLabel(key);
        QFont bold = name->font();
        bold.setBold(true);
        name->setFont(bold);
        auto* text = new QLabel(meaning);
        text->setWordWrap(true);
        text->setMinimumWidth(text->fontMetrics().averageCharWidth() * 26);
        grid->addWidget(name, row, 0, Qt::AlignTop);
        grid->addWidget(text, row++, 1, Qt::AlignTop);
    }
    return group;
}

QWidget* PayoffsTab::MakeGroups() {
    auto* group = new QGroupBox(tr("Go to"));
    auto* layout = new QVBoxLayout(group);
    auto* list = new QListWidget;
    list->setObjectName(QStringLiteral("lstGroups"));
    list->setAccessibleName(tr("Groups of bets"));
    list->setUniformItemSizes(true);
    for (int line = 0; line < static_cast<int>(PayoffLines().size()); ++line) {
        if (!PayoffModel::IsHeading(line)) continue;
        auto* item = new QListWidgetItem(Words(PayoffModel::LineAt(line).Label), list);
        item->setData(Qt::UserRole, line);
    }
    const auto go = [this](const QListWidgetItem* item) {
        if (Grid->CommitEditor()) Grid->GoTo(item->data(Qt::UserRole).toInt());
    };
    connect(list, &QListWidget::itemClicked, this, [this, go](const QListWidgetItem* item) {
        go(item);
        Grid->setFocus();
    });
    connect(list, &QListWidget::currentItemChanged, this, [go](const QListWidgetItem* item) {
        if (item != nullptr) go(item);
    });
    layout->addWidget(list);
    return group;
}

void PayoffsTab::ShowSettings() {
    Grid->AbandonEditor();
    Model->Refresh();
    if (isVisible()) RestoreScroll();
}

void PayoffsTab::showEvent(QShowEvent* event) {
    ConfigTab::showEvent(event);
    ScrollFollows = false;
    QTimer::singleShot(0, this, &PayoffsTab::RestoreScroll);  // once the list is laid out
}

void PayoffsTab::RestoreScroll() {
    Grid->verticalScrollBar()->setValue(T.PayoffsScroll);
    ScrollFollows = true;
}

bool PayoffsTab::MayLeave() {
    if (!Grid->CommitEditor()) return false;
    const PayoffLineFault found = FirstPayoffFault(T);
    if (found.Fault.Text.empty()) return true;
    ShowNote(T, found.Fault.Title, found.Fault.Text, MsgButton::OkStop);
    if (!isVisible()) T.PayoffsScroll = std::max(0, found.Line - 3);  // where the list will open
    Grid->GoTo(found.Line);
    Grid->setFocus();
    return false;
}

void PayoffsTab::ChangeMany(bool (*change)(Table& t, int which), int which) {
    if (!Grid->CommitEditor() || !change(T, which)) return;
    Model->Refresh();
    emit settingsChanged();
}

}  // namespace tarnwick
