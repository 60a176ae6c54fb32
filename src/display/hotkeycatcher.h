// Hot keys at the main window.
#pragma once

#include <QObject>

class QKeyEvent;
class QWidget;

namespace tarnwick {

class Game;

/// Takes Ctrl and a letter that has a hot key from `window` and all that lies in it, before any menu shortcut of the
/// same keys. A letter without one stays the menu's.
class HotKeyCatcher final : public QObject {
    Q_OBJECT

  public:
    HotKeyCatcher(Game& game, QWidget* window);

  signals:
    /// A key was pressed and its script, if it could, has run.
    void pressed();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    /// The letter of a hot key that the event is, or 0.
    char LetterOf(const QKeyEvent& event) const;

    Game& Played;
};

}  // namespace tarnwick
