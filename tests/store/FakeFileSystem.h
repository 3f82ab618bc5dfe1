#ifndef KERFLINE_TESTS_FAKEFILESYSTEM_H
#define KERFLINE_TESTS_FAKEFILESYSTEM_H

#include "files/NorvaneUI_FileSystem.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// Files in memory, with a switch for each failure that a disk can have.
///
/// Folders are there by themselves: a path "/a/b.c" has the folders "/" and "/a".
class FakeFileSystem : public NorvaneUI::FileSystem {
public:
    using Failure = NorvaneUI::Failure;
    using FailureKind = NorvaneUI::FailureKind;
    using FileKind = NorvaneUI::FileKind;
    using FileStatus = NorvaneUI::FileStatus;
    using Status = NorvaneUI::Status;
    template <class Value> using Result = NorvaneUI::Result<Value>;

    /// One file; two paths can lead to the same.
    struct File {
        std::string bytes;
        FileStatus status;
    };

    std::shared_ptr<File> put(const std::string& path, const std::string& bytes) {
        auto& file = files_[path];
        if (!file) file = std::make_shared<File>();
        file->bytes = bytes;
        touch(*file);
        return file;
    }
    void putReadOnly(const std::string& path, const std::string& bytes) {
        put(path, bytes);
        setWritable(path, false);
    }
    void setWritable(const std::string& path, bool writable) { files_.at(path)->status.writable = writable; }
    void setReadable(const std::string& path, bool readable) { files_.at(path)->status.readable = readable; }
    void setKind(const std::string& path, FileKind kind) { files_.at(path)->status.kind = kind; }
    void alias(const std::string& path, const std::string& other) { files_[path] = files_.at(other); }
    void vanish(const std::string& path) { files_.erase(path); }

    bool has(const std::string& path) const { return files_.count(path) != 0; }
    std::string text(const std::string& path) const { return has(path) ? files_.at(path)->bytes : "<missing>"; }
    std::vector<std::string> paths() const {
        std::vector<std::string> result;
        for (const auto& entry : files_) result.push_back(entry.first);
        return result;
    }

    /// From now on `operation` ("read", "replace", ...) on `path` fails.
    void fail(const std::string& operation, const std::string& path, FailureKind kind = FailureKind::other) {
        failures_[operation + ' ' + path] = kind;
    }
    void mend() { failures_.clear(); }
    /// Called with "operation path" in front of each operation, to change the world in between.
    std::function<void(const std::string&)> before = [](const std::string&) {};
    /// Every operation that changes something, as "operation path".
    std::vector<std::string> changes;

    Result<std::vector<std::string>> list(const std::string& folder) override {
        if (auto failure = startOf("list", folder)) return *failure;
        std::vector<std::string> names;
        for (const auto& entry : files_) {
            if (entry.first.starts_with(folder)) names.push_back(entry.first.substr(folder.size()));
        }
        // A disk lists in no order.
        return std::vector<std::string>(names.rbegin(), names.rend());
    }
    Result<FileStatus> status(const std::string& path) override {
        if (auto failure = startOf("status", path)) return *failure;
        return has(path) ? files_.at(path)->status : FileStatus{};
    }
    Result<std::string> read(const std::string& path) override {
        if (auto failure = startOf("read", path)) return *failure;
        if (!has(path)) return Failure{FailureKind::missing};
        return files_.at(path)->bytes;
    }
    Status create(const std::string& path, const std::string& bytes) override {
        if (auto failure = startOf("create", path)) return *failure;
        if (has(path)) return Failure{FailureKind::exists};
        put(path, bytes);
        changes.push_back("create " + path);
        return {};
    }
    Status replace(const std::string& path, const std::string& bytes, const FileStatus& seen) override {
        if (auto failure = startOf("replace", path)) return *failure;
        if (!has(path)) return Failure{FailureKind::missing};
        File& file = *files_.at(path);
        if (!seen.isUnchanged(file.status)) return Failure{FailureKind::changed};
        if (!file.status.writable) return Failure{FailureKind::denied};
        put(path, bytes);
        // The disk has a new file under the old name.
        file.status.inode = static_cast<std::uint64_t>(++clock_);
        changes.push_back("replace " + path);
        return {};
    }
    Status copy(const std::string& from, const std::string& to) override {
        if (auto failure = startOf("copy", to)) return *failure;
        if (!has(from)) return Failure{FailureKind::missing};
        put(to, text(from));
        changes.push_back("copy " + to);
        return {};
    }
    Status remove(const std::string& path) override {
        if (auto failure = startOf("remove", path)) return *failure;
        files_.erase(path);
        changes.push_back("remove " + path);
        return {};
    }
    Status makeFolders(const std::string& folder) override {
        if (auto failure = startOf("makeFolders", folder)) return *failure;
        return {};
    }

private:
    std::optional<Failure> startOf(const std::string& operation, const std::string& path) {
        const std::string call = operation + ' ' + path;
        before(call);
        const auto found = failures_.find(call);
        if (found == failures_.end()) return std::nullopt;
        return Failure{found->second, "made to fail"};
    }
    void touch(File& file) {
        const bool isNew = file.status.kind == FileKind::missing;
        file.status.size = file.bytes.size();
        file.status.changed = ++clock_;
        if (!isNew) return;
        file.status.kind = FileKind::regular;
        file.status.mode = 0644;
        file.status.inode = static_cast<std::uint64_t>(clock_);
        file.status.readable = true;
        file.status.writable = true;
    }

    std::map<std::string, std::shared_ptr<File>> files_;
    std::map<std::string, FailureKind> failures_;
    std::int64_t clock_ = 0;
};

#endif
