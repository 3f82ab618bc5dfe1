#ifndef KERFLINE_CLI_PROGRESSBAR_H
#define KERFLINE_CLI_PROGRESSBAR_H

#include <chrono>
#include <cstddef>
#include <ostream>
#include <string>

namespace Cli {

/// One line at the bottom of a terminal that tells how far a batch has come. Draws at most ten times
/// a second, and takes its line away when it is destroyed.
///
///     Formatting file 12 of 100 [##........] src/a.cpp
class ProgressBar {
public:
    /// Without `isShown` it draws nothing at all. `out` outlives the bar.
    ProgressBar(std::ostream& out, std::size_t total, bool isShown);
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;
    ~ProgressBar() { clear(); }

    /// `done` files are through, the last of them `path`.
    void show(std::size_t done, const std::string& path);
    /// Makes room for other lines; the next call of show draws again.
    void clear();

private:
    using Clock = std::chrono::steady_clock;

    std::ostream& out_;
    const std::size_t total_;
    const bool isShown_;
    bool isDrawn_ = false;
    Clock::time_point drawnAt_;
};

} // namespace Cli

#endif
