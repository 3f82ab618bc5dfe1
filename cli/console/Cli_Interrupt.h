#ifndef KERFLINE_CLI_INTERRUPT_H
#define KERFLINE_CLI_INTERRUPT_H

#include <csignal>

namespace Cli {

/// While one of these is alive, Control-C and its like do not end the process but are noted, so that
/// a batch can stop between two files. The second one ends it at once.
class InterruptGuard {
public:
    InterruptGuard();
    InterruptGuard(const InterruptGuard&) = delete;
    InterruptGuard& operator=(const InterruptGuard&) = delete;
    ~InterruptGuard();

    /// The signal that has come, or 0. Also after the last guard is gone; any thread may ask.
    static int signal();

private:
    static constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};

    struct sigaction before_[3];
};

/// While one of these is alive, a thread waits for somebody who may never come, at the other end of a
/// pipe: a signal then ends the process at once, whatever guards there are. Not for a thread beside
/// which files are written.
class InterruptibleWait {
public:
    InterruptibleWait();
    InterruptibleWait(const InterruptibleWait&) = delete;
    InterruptibleWait& operator=(const InterruptibleWait&) = delete;
    ~InterruptibleWait();
};

/// Ends the process by the signal that was noted, so that a shell sees what happened and stops its
/// own loop. Does nothing if there was none.
void endIfInterrupted();

} // namespace Cli

#endif
