// One tab of the configuration window. A change of a setting takes effect at once; there is no Apply.
#pragma once

#include <QWidget>
#include <vector>

class QMenu;

namespace tarnwick {

struct Table;

class ConfigTab : public QWidget {
    Q_OBJECT

  public:
    explicit ConfigTab(Table& t, QWidget* parent = nullptr) : QWidget(parent), T(t) {}

    /// Fills all controls from the table, changing nothing there. Called when the tab is shown and when a game is
    /// opened.
    virtual void ShowSettings() = 0;
    /// False after a message, when the tab can't be shown now.
    virtual bool MayOpen() { return true; }
    /// Takes what is being typed and checks the tab as a whole. False after a message, with the focus on what is wrong.
    virtual bool MayLeave() { return true; }
    /// Menus of the configuration window while this tab is shown; the tab owns them.
    virtual std::vector<QMenu*> Menus() { return {}; }

  signals:
    /// A setting has changed: the game counts as changed, and the table is drawn anew.
    void settingsChanged();

  protected:
    Table& T;
};

}  // namespace tarnwick
