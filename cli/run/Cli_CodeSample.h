#ifndef KERFLINE_CLI_CODESAMPLE_H
#define KERFLINE_CLI_CODESAMPLE_H

#include "cli/console/Cli_Report.h"
#include "cli/console/Cli_Streams.h"
#include "cli/console/Cli_WorkItem.h"
#include "derive/Derive_Layouts.h"
#include "files/NorvaneUI_DiskFileSystem.h"

#include <cstddef>
#include <string>
#include <vector>

namespace Cli {

/// The sources below some paths, read as far as they are asked for: a tree may be larger than memory.
class CodeSample {
public:
    /// Finds the sources, without what .kerflineignore names. What goes wrong stands in `report`.
    CodeSample(const std::vector<std::string>& paths, const Streams& streams, Report& report);

    std::size_t fileCount() const { return items_.size(); }
    std::size_t bytes() const { return bytes_; }

    /// Whole files of about `bytes` in all, spread evenly over the list; the same ones in every run.
    std::vector<Derive::Text> sample(std::size_t bytes);
    /// The files from `first` on, up to about a megabyte, at least one. Moves `first` behind them.
    std::vector<Derive::Text> nextBatch(std::size_t& first);

private:
    Derive::Text read(const WorkItem& item);

    NorvaneUI::DiskFileSystem disk_;
    Report& report_;
    std::vector<WorkItem> items_;
    std::vector<std::size_t> sizes_;
    std::size_t bytes_ = 0;
};

} // namespace Cli

#endif
