#include "display/configurewindow.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>
#include <QShortcut>
#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>

#include "display/bankrolltab.h"
#include "display/betstab.h"
#include "display/checksdicetab.h"
#include "display/colorstab.h"
#include "display/misctab.h"
#include "display/payoffstab.h"
#include "display/soundtab.h"
#include "table/crapcnst.h"

namespace tarnwick {

namespace {

template <class Tab>
ConfigTab* Make(const ConfigSources& sources) {
    return new Tab(sources.T);
}

ConfigTab* MakeSoundTab(const ConfigSources& sources) { return new SoundTab(sources.T, sources.Sounds); }

/// What the tabs stand in. Painted here, since the frames of the style lose lines where pixels are scaled.
class Pane final : public QWidget {
  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
    }
};

}  // namespace

const std::vector<ConfigPage>& ConfigPages() {
    static const std::vector<ConfigPage> pages = {
        {0, "Checks/Dice", "Chec&ks/dice ...", Make<ChecksDiceTab>},
        {1, "Colors", "Co&lors ...", Make<ColorsTab>},
        {3, "Sound", "&Sound ...", MakeSoundTab},
        {4, "Misc.", "&Misc. ...", Make<MiscTab>},
        {5, "Bankroll", "Bank&roll ...", Make<BankrollTab>},
        {6, "Bets", "&Bets ...", Make<BetsTab>},
        {7, "Payoffs", "&Payoffs ...", Make<PayoffsTab>},
    };
    return pages;
}

ConfigureWindow::ConfigureWindow(const ConfigSources& sources, QWidget* parent)
    : QWidget(parent, Qt::Window), T(sources.T), Bar(new QMenuBar), Tabs(new QTabBar), Pages(new QStackedWidget) {
    setObjectName(QStringLiteral("frmConfigure"));
    setWindowTitle(tr("Configure"));
    auto* layout = new QVBoxLayout(this);
    layout->setMenuBar(Bar);
    layout->setSpacing(0);
    Bar->setNativeMenuBar(false);
    // As high as with menus, or the window would jump from tab to tab.
    Bar->setMinimumHeight(fontMetrics().height() + 10);

    Tabs->setObjectName(QStringLiteral("tabs"));
    Tabs->setExpanding(false);
    Tabs->setDrawBase(false);
    auto* frame = new Pane;
    auto* inside = new QVBoxLayout(frame);
    inside->addWidget(Pages);
    layout->addWidget(Tabs);
    layout->addWidget(frame, 1);
    for (const ConfigPage& page : ConfigPages()) {
        ConfigTab* tab = page.Make(sources);
        Tabs->addTab(QString::fromLatin1(page.Caption));
        Pages->addWidget(tab);
        tab->ShowSettings();  // pictures and figures count in the size
        connect(tab, &ConfigTab::settingsChanged, this, &ConfigureWindow::settingsChanged);
    }
    connect(Tabs, &QTabBar::currentChanged, this, &ConfigureWindow::GoTo);

    auto* closing = new QPushButton(tr("Close"));
    closing->setObjectName(QStringLiteral("cmdClose"));
    connect(closing, &QPushButton::clicked, this, &QWidget::close);
    layout->addSpacing(8);
    layout->addWidget(closing, 0, Qt::AlignRight);

    connect(new QShortcut(QKeySequence::NextChild, this), &QShortcut::activated, this, [this] { StepTab(1); });
    connect(new QShortcut(QKeySequence::PreviousChild, this), &QShortcut::activated, this, [this] { StepTab(-1); });
}

ConfigTab* ConfigureWindow::TabAt(int index) const { return static_cast<ConfigTab*>(Pages->widget(index)); }

void ConfigureWindow::Open(int number) {
    const bool opening = !isVisible();
    const int wanted = number == LastInUse ? T.ConfigTab : number;
    int index = 0;
    for (int i = 0; i < Pages->count(); ++i) {
        if (ConfigPages()[static_cast<std::size_t>(i)].Number == wanted) index = i;
    }
    if (opening) ShowTab(TabAt(index)->MayOpen() ? index : 0);
    show();
    raise();
    activateWindow();
    if (!opening) GoTo(index);
}

void ConfigureWindow::ShowGame() {
    if (!isVisible()) return;
    const int index = Pages->currentIndex();
    ShowTab(TabAt(index)->MayOpen() ? index : 0);
}

void ConfigureWindow::ShowFigures() {
    if (auto* tab = qobject_cast<BankrollTab*>(Pages->currentWidget()); tab != nullptr && isVisible()) {
        tab->ShowFigures();
    }
}

void ConfigureWindow::GoTo(int index) {
    const int from = Pages->currentIndex();
    if (index == from || index < 0) return;
    {
        // The tab is only turned when both sides agree.
        const QSignalBlocker quiet(Tabs);
        Tabs->setCurrentIndex(from);
    }
    if (TabAt(from)->MayLeave() && TabAt(index)->MayOpen()) ShowTab(index);
}

void ConfigureWindow::StepTab(int step) { GoTo((Pages->currentIndex() + step + Pages->count()) % Pages->count()); }

void ConfigureWindow::ShowTab(int index) {
    ConfigTab* tab = TabAt(index);
    T.ConfigTab = ConfigPages()[static_cast<std::size_t>(index)].Number;
    tab->ShowSettings();
    const QSignalBlocker quiet(Tabs);
    Tabs->setCurrentIndex(index);
    Pages->setCurrentIndex(index);
    Bar->clear();
    for (QMenu* menu : tab->Menus()) Bar->addMenu(menu);
}

/// The tab on show first, then the table as a whole; goes to the tab that is wrong.
bool ConfigureWindow::AllAreRight() {
    const int shown = Pages->currentIndex();
    if (!TabAt(shown)->MayLeave()) return false;
    for (int i = 0; i < Pages->count(); ++i) {
        if (i == shown) continue;
        TabAt(i)->ShowSettings();
        if (TabAt(i)->MayLeave()) continue;
        ShowTab(i);
        return false;
    }
    return true;
}

void ConfigureWindow::closeEvent(QCloseEvent* event) {
    if (isVisible() && !AllAreRight()) return event->ignore();
    event->accept();
}

void ConfigureWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        close();
        return;
    }
    QWidget::keyPressEvent(event);
}

}  // namespace tarnwick
