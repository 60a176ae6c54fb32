#include "display/game.h"

#include "table/session.h"

namespace tarnwick {

Game::Game() : State(std::make_unique<Table>()) {}

void Game::Start(Screen& front) {
    SubMain(*State, &front);
    State->Scripts = &ScriptsOf;
}

}  // namespace tarnwick
