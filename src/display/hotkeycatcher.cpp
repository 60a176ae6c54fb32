#include "display/hotkeycatcher.h"

#include <QKeyEvent>
#include <QWidget>

#include "autobet/hotkeyrun.h"
#include "display/game.h"

namespace tarnwick {

HotKeyCatcher::HotKeyCatcher(Game& game, QWidget* window) : QObject(window), Played(game) {
    window->installEventFilter(this);
}

char HotKeyCatcher::LetterOf(const QKeyEvent& event) const {
    if (event.modifiers() != Qt::ControlModifier || event.key() < Qt::Key_A || event.key() > Qt::Key_Z) return 0;
    const char letter = static_cast<char>('A' + (event.key() - Qt::Key_A));
    return FindHotKey(Played.HotKeys(), letter) != nullptr ? letter : char{0};
}

bool HotKeyCatcher::eventFilter(QObject* watched, QEvent* event) {
    const bool override = event->type() == QEvent::ShortcutOverride;
    if (!override && event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
    auto* key = static_cast<QKeyEvent*>(event);
    const char letter = LetterOf(*key);
    if (letter == 0) return QObject::eventFilter(watched, event);
    key->accept();  // an override that is taken comes back as a press and not as a shortcut
    if (!override && !key->isAutoRepeat()) {
        RunHotKey(Played.T(), Played.Scripts(), Played.HotKeys(), letter);
        emit pressed();
    }
    return true;
}

}  // namespace tarnwick
