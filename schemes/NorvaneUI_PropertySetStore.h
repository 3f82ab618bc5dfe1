#ifndef KERFLINE_NORVANEUI_PROPERTYSETSTORE_H
#define KERFLINE_NORVANEUI_PROPERTYSETSTORE_H

#include "files/NorvaneUI_FileSystem.h"
#include "schemes/NorvaneUI_SchemeChecker.h"
#include "src/scheme/Norvane_PropertySet.h"
#include "trn/Trn_Exception.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace NorvaneUI {

struct SchemeEntry {
    /// The file cannot be written.
    bool readOnly = false;
    Norvane::PropertySet scheme;
};

/// What is odd about one file of a folder.
struct SchemeFileProblem {
    /// Without the folder.
    std::string file;
    SchemeProblem problem;
};

/// The schemes of one folder, in memory: read at once, edited, and written back at once.
///
/// A scheme is one file whose name ends in ".kls". The name of the scheme is the one inside the
/// file; that of the file only follows from it. Nothing is written on destruction.
///
/// Writing never takes from the disk what this store has not read: a scheme that somebody else
/// added, changed or put into the way meanwhile stays, and a file that still says what the store
/// says is not touched. In one that is written, only the lines of what was changed are others.
class PropertySetStore {
public:
    using SchemeMap = std::map<std::string, SchemeEntry>;
    /// From file names, without the folder, to the names of their schemes.
    using FileMap = std::map<std::string, std::string>;

    /// Base of the two below.
    class StoreError : public Trn::Exception {
    public:
        StoreError(const std::string& message, std::string path)
            : Trn::Exception(message.c_str()), path_(std::move(path)) {}
        /// The file, or the folder, that could not be dealt with.
        const std::string& path() const { return path_; }

    private:
        std::string path_;
    };
    class ReadError : public StoreError {
    public:
        explicit ReadError(const std::string& path);
    };
    class WriteError : public StoreError {
    public:
        explicit WriteError(const std::string& path);
    };

    /// `directory` gets a "/" at its end unless it is empty or has one. `fileSystem` must outlive
    /// the store.
    PropertySetStore(std::string directory, FileSystem& fileSystem);

    const std::string& directory() const { return directory_; }
    const SchemeMap& schemes() const { return schemes_; }
    const FileMap& files() const { return files_; }

    /// Replaces what the store holds with what the folder holds. Does nothing without a folder.
    /// Throws ReadError, with the store as it was, if the folder or any scheme in it cannot be
    /// read. Of several files with a scheme of the same name, the first in byte order counts.
    void read();
    /// The same, but leaves files out that cannot be read, and keeps their paths: they hide no others.
    /// Throws only if the folder itself cannot be read.
    void readWhatIsGood();
    /// What the last reading left out, in byte order.
    const std::vector<std::string>& unreadable() const { return unreadable_; }
    /// What the last reading found wrong in files that it could read, file by file.
    const std::vector<SchemeFileProblem>& problems() const { return problems_; }

    /// Brings the folder in line with the store: writes every scheme that differs from its file,
    /// then removes the files of schemes that were erased. Read-only files are left alone. Throws
    /// WriteError at the first file that cannot be written, or that was changed here and on the
    /// disk; nothing is removed then. Does nothing without a folder.
    void write();

    SchemeMap::iterator find(const std::string& name) { return schemes_.find(name); }
    SchemeMap::const_iterator find(const std::string& name) const { return schemes_.find(name); }
    std::size_t count(const std::string& name) const { return schemes_.count(name); }
    SchemeMap::iterator begin() { return schemes_.begin(); }
    SchemeMap::iterator end() { return schemes_.end(); }
    SchemeMap::const_iterator begin() const { return schemes_.begin(); }
    SchemeMap::const_iterator end() const { return schemes_.end(); }

    /// Adds a scheme under a file name of its own. A scheme of that name that is already there
    /// stays as it is: to change one, change it through find.
    void insert(const Norvane::PropertySet& scheme);
    /// The same; its file begins as a copy of the file of `like`, with all that is said there beside
    /// the values.
    void insertLike(const std::string& like, const Norvane::PropertySet& scheme);
    /// Takes a scheme out, and its file with the next write.
    void erase(const std::string& name);

    /// Copies the file of a scheme to a name beside it that nothing has yet, and returns the path of
    /// the copy. Throws WriteError if that fails. Requires: the scheme was read.
    std::string keepCopy(const std::string& name);

    /// The names of the scheme files in the folder, in byte order: regular files that end in ".kls"
    /// in letters of any case. Throws ReadError if the folder is there and cannot be listed.
    std::vector<std::string> findPSFiles() const;

    /// The file name for a scheme: characters that mean something in a path become "_". While a
    /// file of the store has that name, digits are written over its end, so a second "my.kls" is
    /// "my.kl1" and will not be found by the next read.
    std::string validFilename(const std::string& name) const;

private:
    /// What a file held when it was read or written last.
    struct Origin {
        FileStatus status;
        Norvane::PropertySet scheme;
        /// The scheme in the store comes from another file of the same scheme name.
        bool shadowed = false;
    };
    using OriginMap = std::map<std::string, Origin>;

    /// What one reading finds.
    struct Found {
        SchemeMap schemes;
        FileMap files;
        OriginMap origins;
        std::vector<SchemeFileProblem> problems;
        std::vector<std::string> unreadable;
    };

    std::string path(const std::string& file) const { return directory_ + file; }
    std::string fileOf(const std::string& name) const;
    void readFolder(bool leaveOutBroken);
    void take(Found& found, const std::string& file) const;
    bool readFile(const std::string& file, Origin& origin, std::vector<SchemeFileProblem>& problems) const;
    void writeFile(const std::string& file, const Norvane::PropertySet& scheme);
    std::string newText(const std::string& file, const Norvane::PropertySet& scheme) const;
    void replaceFile(const std::string& file, const Norvane::PropertySet& scheme, const FileStatus& now);
    void remember(const std::string& file, const Norvane::PropertySet& scheme);
    void removeErasedFiles();
    bool removeFile(const std::string& file, const Origin& origin);

    std::string directory_;
    FileSystem& fileSystem_;
    SchemeMap schemes_;
    FileMap files_;
    OriginMap origins_;
    std::vector<SchemeFileProblem> problems_;
    std::vector<std::string> unreadable_;
    /// Texts that new files begin with, by their names.
    std::map<std::string, std::string> drafts_;
};

/// True if the two have the same name and the same values.
bool isSameScheme(const Norvane::PropertySet& a, const Norvane::PropertySet& b);

/// Reads the text of a scheme file, with a byte order mark or without. Returns false, with `scheme` as it was, if it is not one.
bool parseScheme(const std::string& text, Norvane::PropertySet& scheme);
/// The text of the file of a scheme. Numbers never follow the language of the user.
std::string schemeText(const Norvane::PropertySet& scheme);

} // namespace NorvaneUI

#endif
