// Ctrl-C: the first asks the program to stop between rolls, a second one ends it at once.
#pragma once

#include <atomic>

namespace tarnwick::lab {

/// Takes SIGINT and SIGTERM. Reads of the terminal are broken off by them.
void CatchInterrupts();
/// Whether one of them came since the start or since ForgetInterrupt. Cheap, from any thread.
bool Interrupted();
void ForgetInterrupt();
/// What Interrupted reads, for those that poll it themselves.
const std::atomic<bool>& InterruptFlag();

}  // namespace tarnwick::lab
