#ifndef KERFLINE_ADDIN_SETTINGS_H
#define KERFLINE_ADDIN_SETTINGS_H

#include "addin/Addin_Options.h"
#include "files/NorvaneUI_FileSystem.h"
#include "schemes/NorvaneUI_PropertySetStore.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace Addin {

class Host;

/// The settings of the user, by name, in a file.
///
/// Reading creates nothing: a file that is missing holds no settings. Writing takes the file as it
/// is at that moment and changes the lines of what was set, so that comments, unknown settings and
/// the edits of others stay.
class Settings {
public:
    enum class Outcome {
        done,
        /// The file is there and cannot be read, or cannot be written.
        notOpened,
        /// The file, or its folder, cannot be made.
        notCreated,
    };

    /// `fileSystem` must outlive the settings.
    Settings(NorvaneUI::FileSystem& fileSystem, std::string path);

    Outcome read();
    /// Each leaves `value` alone if there is no such setting, or none of the kind.
    void getString(const std::string& name, std::string& value) const;
    void getBool(const std::string& name, bool& value) const;
    void getInt(const std::string& name, int& value) const;

    void setString(const std::string& name, const std::string& value) { edits_[name] = value; }
    void setBool(const std::string& name, bool value) { edits_[name] = value ? "1" : "0"; }
    void setInt(const std::string& name, int value) { edits_[name] = std::to_string(value); }
    /// Writes what was set since the last commit. After a failure it is still to be written.
    Outcome commit();

private:
    std::optional<std::string> value(const std::string& name) const;
    Outcome load(NorvaneUI::FileStatus& status, std::string& text);
    Outcome create(const std::string& text);

    NorvaneUI::FileSystem& fileSystem_;
    std::string path_;
    std::string text_;
    std::map<std::string, std::string> edits_;
};

/// Fills `options` from `settings`, tells the user if they cannot be opened, and looks the schemes
/// up in `store`.
void ReadRegOptions(Host& host, Settings& settings, const NorvaneUI::PropertySetStore& store,
                    AddInOptions& options);

/// Writes what is different in `options` from `before`, and tells the user if that fails: a setting
/// that nobody touched keeps its default, whatever that will be one day.
void WriteRegOptions(Host& host, Settings& settings, const AddInOptions& before, const AddInOptions& options);

/// Takes copies of the schemes that are chosen, from `store` or else from `shipped`. One that neither
/// has counts as none.
void chooseSchemes(const NorvaneUI::PropertySetStore& store, const std::vector<Norvane::PropertySet>& shipped,
                   AddInOptions& options);

} // namespace Addin

#endif
