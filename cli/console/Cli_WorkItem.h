#ifndef KERFLINE_CLI_WORKITEM_H
#define KERFLINE_CLI_WORKITEM_H

#include "edits/Edits_Ranges.h"
#include "src/scheme/Norvane_PropertySet.h"

#include <optional>
#include <string>
#include <vector>

namespace Cli {

/// One source that the program was called for.
struct WorkItem {
    /// As it is opened, and shown in messages. For standard input, its name.
    std::string path;
    bool isStandardInput = false;
    /// Where the pattern stands that has the source left alone, if one does.
    std::optional<std::string> ignoredBy = {};
    /// Not owned. Null if the source is ignored.
    const Norvane::PropertySet* scheme = nullptr;
    /// If there are any, nothing but these lines is laid out.
    std::vector<Edits::LineRange> lines = {};
};

} // namespace Cli

#endif
