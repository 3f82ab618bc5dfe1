#ifndef KERFLINE_CLI_FILECOLLECTOR_H
#define KERFLINE_CLI_FILECOLLECTOR_H

#include "addin/Addin_Options.h"
#include "cli/console/Cli_Options.h"
#include "cli/console/Cli_Report.h"
#include "cli/console/Cli_WorkItem.h"
#include "cli/files/Cli_IgnoreRules.h"
#include "files/NorvaneUI_FileSystem.h"

#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Cli {

/// The name of standard input if it was given none.
inline constexpr std::string_view kStandardInput = "<stdin>";

/// Makes the list of sources from what stands on the command line: files, folders, lists, the
/// database of a project. The order is that of the command line, and that of the names in a folder.
class FileCollector {
public:
    /// All of these outlive the collector.
    FileCollector(const Options& options, const Addin::AddInOptions& settings, NorvaneUI::FileSystem& files,
                  IgnoreRules& ignored, std::istream& in, Report& report);

    std::vector<WorkItem> collect();

    /// The folders that were taken with all below them, as they were typed. Whoever writes to their
    /// files asks first.
    const std::vector<std::string>& folders() const { return folders_; }

private:
    void addWord(const std::string& word);
    void addNamed(const std::string& path);
    void addStandardInput();
    void addList(const std::string& path);
    void addListed(const std::string& path);
    void addTree(const std::string& folder);
    void addProject(const std::string& project);
    void addChanged(const std::string& revision);
    void addPatch(std::string_view patch);
    void addHeadersIn(const std::string& folder);
    void addFound(const std::string& path);
    void add(const std::string& path);
    bool isNew(const std::string& path);
    bool isBackup(const std::string& path) const;

    const Options& options_;
    const Addin::AddInOptions& settings_;
    NorvaneUI::FileSystem& files_;
    IgnoreRules& ignored_;
    std::istream& in_;
    Report& report_;
    std::vector<WorkItem> items_;
    std::vector<std::string> folders_;
    // What has been taken, by device and number: a file with two names is one file.
    std::set<std::pair<std::uint64_t, std::uint64_t>> seen_;
};

} // namespace Cli

#endif
