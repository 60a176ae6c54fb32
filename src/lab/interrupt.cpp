#include "lab/interrupt.h"

#include <atomic>
#include <csignal>

namespace tarnwick::lab {

namespace {

std::atomic<bool> Wanted{false};
static_assert(std::atomic<bool>::is_always_lock_free, "set by a signal handler");

void OnSignal(int number) {
    if (Wanted.exchange(true, std::memory_order_relaxed)) {
        std::signal(number, SIG_DFL);
        std::raise(number);
    }
}

}  // namespace

void CatchInterrupts() {
    struct sigaction action = {};
    action.sa_handler = OnSignal;  // no SA_RESTART: a prompt that waits for input must notice
    sigemptyset(&action.sa_mask);
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

const std::atomic<bool>& InterruptFlag() { return Wanted; }

bool Interrupted() { return Wanted.load(std::memory_order_relaxed); }

void ForgetInterrupt() { Wanted.store(false, std::memory_order_relaxed); }

}  // namespace tarnwick::lab
