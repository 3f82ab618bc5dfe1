#ifndef KERFLINE_CLI_FILESTAGE_H
#define KERFLINE_CLI_FILESTAGE_H

#include "files/NorvaneUI_FileSystem.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Cli {

/// The files as the formatting of one of them sees them, and what became of it.
///
/// A rehearsal writes nothing and keeps what would have been written. It also takes sources that
/// cannot be written, and texts that come from elsewhere than a regular file.
class FileStage : public NorvaneUI::FileSystem {
public:
    enum class Mode { write, rehearse };

    /// `disk` outlives the stage.
    FileStage(NorvaneUI::FileSystem& disk, Mode mode) : disk_(disk), mode_(mode) {}

    /// From now on every path stands for these bytes.
    void setSource(std::string bytes);

    /// The bytes that were read; empty if that was not come to.
    const std::string& source() const { return source_; }
    /// The same, without the memory of a copy. The stage is done with then.
    std::string takeSource() { return std::move(source_); }
    /// The bytes that were to be written, in a rehearsal.
    const std::optional<std::string>& result() const { return result_; }
    /// The words of the system for the last failure.
    const std::string& failureText() const { return failureText_; }

    NorvaneUI::Result<std::vector<std::string>> list(const std::string& folder) override;
    NorvaneUI::Result<NorvaneUI::FileStatus> status(const std::string& path) override;
    NorvaneUI::Result<std::string> read(const std::string& path) override;
    NorvaneUI::Status create(const std::string& path, const std::string& bytes) override;
    NorvaneUI::Status replace(const std::string& path, const std::string& bytes,
                              const NorvaneUI::FileStatus& seen) override;
    NorvaneUI::Status copy(const std::string& from, const std::string& to) override;
    NorvaneUI::Status remove(const std::string& path) override;
    NorvaneUI::Status makeFolders(const std::string& folder) override;

private:
    bool rehearses() const { return mode_ == Mode::rehearse; }
    NorvaneUI::Status noted(NorvaneUI::Status status);

    NorvaneUI::FileSystem& disk_;
    const Mode mode_;
    bool hasSource_ = false;
    std::string source_;
    std::optional<std::string> result_;
    std::string failureText_;
};

} // namespace Cli

#endif
