#ifndef KERFLINE_CLI_SCHEMESHELF_H
#define KERFLINE_CLI_SCHEMESHELF_H

#include "cli/scheme/Cli_SchemeFinder.h"
#include "src/scheme/Norvane_PropertySet.h"

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Cli {

/// The schemes of one run: each is read, checked and edited once, and handed out by folder.
class SchemeShelf {
public:
    /// `wanted` is the choice of the command line, if there is one. What is given by reference must
    /// outlive the shelf.
    SchemeShelf(SchemeFinder& finder, std::optional<std::string> wanted, std::vector<SchemeEdit> edits,
                Report& report);

    /// The scheme for the sources of a folder, which is absolute. Valid as long as the shelf. Null if
    /// there is something wrong with it, which is reported the first time.
    const Norvane::PropertySet* schemeIn(const std::string& folder);

private:
    using Key = std::pair<SchemeSource::Kind, std::string>;

    const Norvane::PropertySet* load(const std::string& folder);
    std::optional<Norvane::PropertySet> read(const SchemeSource& source);

    SchemeFinder& finder_;
    const std::optional<std::string> wanted_;
    const std::vector<SchemeEdit> edits_;
    Report& report_;
    std::map<Key, std::optional<Norvane::PropertySet>> schemes_;
    std::map<std::string, const Norvane::PropertySet*> byFolder_;
    bool editsReported_ = false;
    bool nameReported_ = false;
};

} // namespace Cli

#endif
