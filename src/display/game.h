// The game that the desktop plays: the table, the scripts of its players and the file that keeps them.
#pragma once

#include <memory>
#include <string>

#include "autobet/autobets.h"
#include "table/crapcnst.h"

namespace tarnwick {

class Game {
  public:
    Game();
    Game(const Game&) = delete;
    Game& operator=(const Game&) = delete;

    /// Brings the table into the state of a program that has just started, speaking through `front`.
    void Start(Screen& front);

    Table& T() { return *State; }
    AutoBets& Scripts() { return ScriptsOf; }

  private:
    std::unique_ptr<Table> State;
    AutoBets ScriptsOf;
};

}  // namespace tarnwick
