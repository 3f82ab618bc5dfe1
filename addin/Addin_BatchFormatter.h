#ifndef KERFLINE_ADDIN_BATCHFORMATTER_H
#define KERFLINE_ADDIN_BATCHFORMATTER_H

#include "addin/Addin_FileFormatter.h"

#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Addin {

/// How many files of a batch came to what. Entries that are no files to be formatted don't count.
struct BatchCounts {
    int formatted = 0;
    int unchanged = 0;
    int skipped = 0;
    int refused = 0;
    int failed = 0;
    /// The user has ended the batch: files at its end may not have been looked at.
    bool cancelled = false;
};

/// Formats all files of a project or of the workspace, after asking the user once.
class BatchFormatter {
public:
    explicit BatchFormatter(const Workbench& bench)
        : bench_(bench), messages_(bench.host, bench.options), fileFormatter_(bench) {}

    BatchCounts formatActiveProject(const Norvane::PropertySet& scheme);
    BatchCounts formatActiveWorkspace(const Norvane::PropertySet& scheme);

private:
    /// The files of one project.
    struct FileList {
        std::string projectName;
        std::vector<std::string> paths;
    };
    /// Files by what they are and not by what they are called.
    class FileSet {
    public:
        /// False if the file is in the set already.
        bool insert(const NorvaneUI::FileStatus& file) { return files_.insert({file.device, file.inode}).second; }

    private:
        std::set<std::pair<std::uint64_t, std::uint64_t>> files_;
    };
    /// One batch on its way.
    struct Run {
        const Norvane::PropertySet& scheme;
        std::unique_ptr<FileProgressDlg> dialog;
        BatchCounts counts = {};
        int index = 0;
        /// Files that had their turn.
        FileSet seen = {};
    };

    bool confirm(std::string_view question, const std::string& name);
    void sendInformation(const std::string& text);
    FileList filesOf(Project project);
    Run startRun(const Norvane::PropertySet& scheme, std::size_t fileCount);
    bool formatFiles(Run& run, const FileList& files);
    void formatFile(Run& run, const std::string& path);
    bool isToFormat(Run& run, const std::string& path);
    bool isBackup(const std::string& path) const;
    bool isChangedInHost(const NorvaneUI::FileStatus& file);
    bool endIfCancelled(Run& run);

    const Workbench& bench_;
    Messages messages_;
    FileFormatter fileFormatter_;
};

} // namespace Addin

#endif
