#include "cli/console/Cli_ProgressBar.h"

#include "cli/console/Cli_Printable.h"
#include "cli/console/Cli_Streams.h"

namespace Cli {

ProgressBar::ProgressBar(std::ostream& out, std::size_t total, bool isShown)
    : out_(out), total_(total), isShown_(isShown) {}

void ProgressBar::show(std::size_t done, const std::string& path) {
    constexpr auto interval = std::chrono::milliseconds(100);
    constexpr std::size_t barLength = 20;
    if (!isShown_) return;
    const auto now = Clock::now();
    if (drawnAt_ != Clock::time_point() && now - drawnAt_ < interval) return;
    drawnAt_ = now;
    const std::size_t filled = total_ == 0 ? barLength : done * barLength / total_;
    std::string line = "Formatting file " + std::to_string(done) + " of " + std::to_string(total_) + " [";
    line += std::string(filled, '#') + std::string(barLength - filled, '.') + "] " + printable(path);
    // A line that wraps could not be taken away again.
    const std::size_t width = terminalWidth() - 1;
    if (line.size() > width) line.resize(width);
    out_ << "\r\x1b[K" << line << std::flush;
    isDrawn_ = true;
}

void ProgressBar::clear() {
    if (isDrawn_) out_ << "\r\x1b[K" << std::flush;
    isDrawn_ = false;
    drawnAt_ = {};
}

} // namespace Cli
