#include "display/workinglist.h"

#include <QGridLayout>
#include <QListWidget>
#include <QPushButton>

#include "display/words.h"

namespace tarnwick {

namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

int RowOf(const QListWidgetItem& item) { return item.data(Qt::UserRole).toInt(); }

}  // namespace

WorkingList::WorkingList(const QString& caption, QWidget* parent) : QGroupBox(caption, parent), List(new QListWidget) {
    auto* grid = new QGridLayout(this);
    List->setObjectName(QStringLiteral("lstWorking"));
    List->setAlternatingRowColors(true);
    List->setAccessibleName(tr("Bets working on the come-out roll"));
    List->setSelectionMode(QAbstractItemView::ExtendedSelection);
    List->setUniformItemSizes(true);
    for (int row = 1; row <= Row::LastBet; ++row) {
        auto* item = new QListWidgetItem(Words(BetName(row)), List);
        item->setData(Qt::UserRole, row);
    }
    connect(List, &QListWidget::itemActivated, this, [this](const QListWidgetItem* item) { TurnOver(*item); });
    grid->addWidget(List, 0, 0, 1, 2);

    const auto add = [this, grid](const char* name, const QString& text, int row, int column) {
        auto* button = new QPushButton(text);
        button->setObjectName(QLatin1String(name));
        grid->addWidget(button, row, column);
        return button;
    };
    connect(add("cmdSelectAll", QStringLiteral("S&elect All"), 1, 0), &QPushButton::clicked, this, [this] {
        List->selectAll();
        List->setFocus();
    });
    const auto addChoice = [this, &add](const char* name, const QString& text, int row, int column,
                                        WorkingChoice choice) {
        QPushButton* button = add(name, text, row, column);
        button->setEnabled(false);
        connect(button, &QPushButton::clicked, this, [this, choice] { ChooseForSelected(choice); });
        connect(List, &QListWidget::itemSelectionChanged, button,
                [this, button] { button->setEnabled(!List->selectedItems().isEmpty()); });
    };
    addChoice("cmdYes", QStringLiteral("&Yes"), 1, 1, WorkingChoice::Yes);
    addChoice("cmdDefault", QStringLiteral("De&fault"), 2, 0, WorkingChoice::Default);
    addChoice("cmdNo", QStringLiteral("&No"), 2, 1, WorkingChoice::No);
}

void WorkingList::ShowWorking(const std::array<std::optional<bool>, Row::LastBet + 1>& working) {
    Shown = working;
    for (int row = 1; row <= Row::LastBet; ++row) {
        const auto works = working[At(row)];
        QString text = Words(BetName(row));
        if (works) text += *works ? QStringLiteral(" - Yes") : QStringLiteral(" - No");
        QListWidgetItem* item = List->item(row - 1);
        if (item->text() != text) item->setText(text);
    }
}

void WorkingList::ChooseForSelected(WorkingChoice choice) {
    std::vector<int> rows;
    for (const QListWidgetItem* item : List->selectedItems()) rows.push_back(RowOf(*item));
    if (!rows.empty()) emit choiceMade(rows, choice);
}

void WorkingList::TurnOver(const QListWidgetItem& item) {
    const bool works = Shown[At(RowOf(item))].value_or(false);
    emit choiceMade({RowOf(item)}, works ? WorkingChoice::No : WorkingChoice::Yes);
}

}  // namespace tarnwick
