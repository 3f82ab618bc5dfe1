#include "cli/run/Cli_SettingsCommand.h"

#include "addin/Addin_Extensions.h"
#include "addin/Addin_Settings.h"
#include "addin/Addin_Texts.h"
#include "addin/Addin_UserFolders.h"
#include "cli/console/Cli_Printable.h"
#include "cli/console/Cli_Report.h"
#include "cli/scheme/Cli_NearestName.h"
#include "cli/scheme/Cli_SchemeFinder.h"
#include "files/NorvaneUI_DiskFileSystem.h"

#include <algorithm>
#include <string_view>

namespace Cli {

namespace {

enum class SettingKind { scheme, extensions, backupExtension, yesOrNo, threshold };

struct Setting {
    std::string_view name;
    SettingKind kind;
    std::string_view defaultValue;
    std::string_view text;
};

constexpr Setting kSettings[] = {
    {"OnFormat", SettingKind::scheme, "", "the scheme where neither command line nor project names one"},
    {"OnOpen", SettingKind::scheme, "", "the scheme for documents that an editor opens"},
    {"OnClose", SettingKind::scheme, "", "the scheme for documents that an editor closes"},
    {"FileExtensions", SettingKind::extensions, "c,cc,cpp,cxx,h,hh,hpp,hxx",
     "which files of a folder are sources"},
    {"BackupExtension", SettingKind::backupExtension, "", "stands behind the name of a backup; bak if empty"},
    {"CreateBackups", SettingKind::yesOrNo, "1",
     "an editor keeps the old text of what it formats (1 or 0); here only --backup does"},
    {"PromptUnsaved", SettingKind::yesOrNo, "1",
     "an editor asks before it formats an unsaved document (1 or 0)"},
    {"MessagesThreshold", SettingKind::threshold, "1",
     "an editor shows no messages (0), or those from this severity (1 to 3)"},
};

const Setting* findSetting(std::string_view name) {
    const auto found = std::find_if(std::begin(kSettings), std::end(kSettings),
                                    [&](const Setting& setting) { return setting.name == name; });
    return found == std::end(kSettings) ? nullptr : found;
}

/// One call of the command.
class SettingsCommand {
public:
    explicit SettingsCommand(const Streams& streams)
        : streams_(streams), path_(Addin::userSettingsFile()), settings_(disk_, path_) {}

    ExitStatus run(const std::vector<std::string>& words) {
        if (path_.empty()) {
            fail("there is no folder for settings of yours: set HOME or XDG_CONFIG_HOME",
                 ExitStatus::fileFailed);
        } else if (settings_.read() != Addin::Settings::Outcome::done) {
            fail(Addin::Texts::kSettingsNotOpened, ExitStatus::fileFailed);
        } else {
            dispatch(words);
        }
        streams_.out.flush();
        report_.flush(streams_.err);
        return report_.status();
    }

private:
    void dispatch(const std::vector<std::string>& words) {
        const bool getsAll = words.empty() || (words.size() == 1 && words[0] == "get");
        const bool gets = words.size() == 2 && words[0] == "get";
        const bool sets = words.size() == 3 && words[0] == "set";
        if (getsAll) return list();
        if (!gets && !sets) {
            return fail("the forms are: settings, settings get NAME, settings set NAME VALUE");
        }
        const Setting* setting = findSetting(words[1]);
        if (setting == nullptr) return failUnknown(words[1]);
        if (gets) {
            streams_.out << valueOf(*setting) << '\n';
        } else {
            set(*setting, words[2]);
        }
    }
    void list() {
        streams_.out << "# " << printable(path_) << '\n';
        for (const Setting& setting : kSettings) {
            streams_.out << setting.name << '=' << printable(valueOf(setting)) << "  # " << setting.text << '\n';
        }
    }
    std::string valueOf(const Setting& setting) const {
        std::string value(setting.defaultValue);
        settings_.getString(std::string(setting.name), value);
        return value;
    }
    void set(const Setting& setting, const std::string& value) {
        const std::string fault = faultOf(setting, value);
        if (!fault.empty()) return fail(std::string(setting.name) + ' ' + fault);
        settings_.setString(std::string(setting.name), value);
        switch (settings_.commit()) {
        case Addin::Settings::Outcome::done: return;
        case Addin::Settings::Outcome::notOpened:
            return fail(Addin::Texts::kSettingsNotOpened, ExitStatus::fileFailed);
        case Addin::Settings::Outcome::notCreated:
            return fail(Addin::Texts::kSettingsNotCreated, ExitStatus::fileFailed);
        }
    }
    /// Why the setting cannot have the value; empty if it can.
    std::string faultOf(const Setting& setting, const std::string& value) {
        switch (setting.kind) {
        case SettingKind::scheme: return value.empty() ? std::string() : faultOfScheme(value);
        case SettingKind::yesOrNo:
            return value == "0" || value == "1" ? "" : "takes 0 or 1, not \"" + value + '"';
        case SettingKind::threshold:
            return value.size() == 1 && value >= "0" && value <= "3" ? ""
                                                                     : "takes 0 to 3, not \"" + value + '"';
        case SettingKind::extensions:
        case SettingKind::backupExtension: break;
        }
        if (Addin::isValidExtension(value)) return {};
        return "takes file extensions, which cannot hold any of <>:\\/|?";
    }
    std::string faultOfScheme(const std::string& name) {
        SchemeFinder finder(disk_, Addin::userSchemeFolder(), {}, report_);
        std::vector<std::string_view> names = finder.knownNames();
        // What stands for no scheme on the command line is an empty value here.
        std::erase(names, "none");
        if (std::find(names.begin(), names.end(), name) != names.end()) return {};
        if (name == "none") return "takes the name of a scheme; for no scheme, set it to \"\"";
        const std::string hint = nearestNameHint(name, names);
        return "takes the name of a scheme; there is no \"" + name + '"' +
               (hint.empty() ? "; \"kerfline schemes\" lists those there are" : hint);
    }
    void failUnknown(const std::string& name) {
        std::vector<std::string_view> names;
        for (const Setting& setting : kSettings) names.push_back(setting.name);
        const std::string hint = nearestNameHint(name, names);
        fail("there is no setting \"" + name + '"' +
             (hint.empty() ? "; \"kerfline settings\" lists them" : hint));
    }
    void fail(std::string_view text, ExitStatus status = ExitStatus::badUsageOrScheme) {
        report_.addGeneral("error", text);
        report_.raise(status);
    }

    const Streams& streams_;
    Report report_;
    NorvaneUI::DiskFileSystem disk_;
    const std::string path_;
    Addin::Settings settings_;
};

} // namespace

ExitStatus runSettingsCommand(const std::vector<std::string>& arguments, const Streams& streams) {
    return SettingsCommand(streams).run(arguments);
}

} // namespace Cli
