#include "cli/console/Cli_Interrupt.h"

#include <atomic>
#include <cstddef>
#include <iterator>

namespace Cli {

namespace {

std::atomic<int>& noted() {
    static_assert(std::atomic<int>::is_always_lock_free, "a signal handler may touch it");
    static std::atomic<int> signal = 0;
    return signal;
}

/// How many threads wait.
std::atomic<int>& waiting() {
    static std::atomic<int> count = 0;
    return count;
}

extern "C" void noteSignal(int signal) {
    noted() = signal;
    // The signal has its usual effect again, and comes when this function returns.
    if (waiting() > 0) std::raise(signal);
}

} // namespace

InterruptGuard::InterruptGuard() {
    // The first use of a local static takes a lock, which a signal handler must not wait for.
    noted() = 0;
    waiting();
    struct sigaction action {};
    action.sa_handler = noteSignal;
    // Reading and writing go on, and the second signal has its usual effect.
    action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
    for (std::size_t i = 0; i < std::size(kSignals); ++i) {
        ::sigaction(kSignals[i], nullptr, &before_[i]);
        // What the caller had switched off, as nohup does, stays so.
        if (before_[i].sa_handler != SIG_IGN) ::sigaction(kSignals[i], &action, nullptr);
    }
}

InterruptGuard::~InterruptGuard() {
    for (std::size_t i = 0; i < std::size(kSignals); ++i) ::sigaction(kSignals[i], &before_[i], nullptr);
}

int InterruptGuard::signal() { return noted(); }

InterruptibleWait::InterruptibleWait() {
    ++waiting();
    // A signal that came a moment ago was only noted.
    endIfInterrupted();
}

InterruptibleWait::~InterruptibleWait() { --waiting(); }

void endIfInterrupted() {
    const int signal = InterruptGuard::signal();
    if (signal == 0) return;
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

} // namespace Cli
