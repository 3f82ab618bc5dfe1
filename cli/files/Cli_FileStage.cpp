#include "cli/files/Cli_FileStage.h"

#include <utility>

namespace Cli {

using NorvaneUI::FileStatus;
using NorvaneUI::Result;
using NorvaneUI::Status;

void FileStage::setSource(std::string bytes) {
    hasSource_ = true;
    source_ = std::move(bytes);
}

Status FileStage::noted(Status status) {
    if (!status.isDone()) failureText_ = status.failure().text;
    return status;
}

Result<std::vector<std::string>> FileStage::list(const std::string& folder) { return disk_.list(folder); }

Result<FileStatus> FileStage::status(const std::string& path) {
    if (hasSource_) {
        FileStatus given;
        given.kind = NorvaneUI::FileKind::regular;
        given.size = source_.size();
        given.readable = given.writable = true;
        return given;
    }
    Result<FileStatus> found = disk_.status(path);
    if (!found) failureText_ = found.failure().text;
    // What is only looked at need not be writable.
    if (found && rehearses()) found->writable = true;
    return found;
}

Result<std::string> FileStage::read(const std::string& path) {
    if (hasSource_) return source_;
    Result<std::string> bytes = disk_.read(path);
    if (!bytes) failureText_ = bytes.failure().text;
    if (bytes && rehearses()) source_ = *bytes;
    return bytes;
}

Status FileStage::create(const std::string& path, const std::string& bytes) {
    return rehearses() ? Status() : noted(disk_.create(path, bytes));
}

Status FileStage::replace(const std::string& path, const std::string& bytes, const FileStatus& seen) {
    if (!rehearses()) return noted(disk_.replace(path, bytes, seen));
    result_ = bytes;
    return {};
}

Status FileStage::copy(const std::string& from, const std::string& to) {
    return rehearses() ? Status() : noted(disk_.copy(from, to));
}

Status FileStage::remove(const std::string& path) {
    return rehearses() ? Status() : noted(disk_.remove(path));
}

Status FileStage::makeFolders(const std::string& folder) {
    return rehearses() ? Status() : noted(disk_.makeFolders(folder));
}

} // namespace Cli
