#include "cli/run/Cli_SchemesCommand.h"

#include "addin/Addin_Texts.h"
#include "addin/Addin_UserFolders.h"
#include "cli/console/Cli_Printable.h"
#include "cli/files/Cli_Paths.h"
#include "cli/scheme/Cli_NearestName.h"
#include "cli/scheme/Cli_SchemeFinder.h"
#include "cli/scheme/Cli_SchemeLoader.h"
#include "cli/scheme/Cli_ShippedSchemes.h"
#include "files/NorvaneUI_DiskFileSystem.h"
#include "files/NorvaneUI_Text.h"
#include "schemes/NorvaneUI_PropertySetStore.h"
#include "schemes/NorvaneUI_SchemeChecker.h"
#include "schemes/NorvaneUI_SchemeConversion.h"
#include "schemes/NorvaneUI_SchemeName.h"

#include <algorithm>
#include <optional>
#include <system_error>

namespace Cli {

namespace {

using NorvaneUI::PropertySetStore;

/// One call of the command.
class SchemesCommand {
public:
    explicit SchemesCommand(const Streams& streams)
        : streams_(streams), userFolder_(Addin::userSchemeFolder()),
          finder_(disk_, userFolder_, {}, report_) {}

    ExitStatus run(const std::vector<std::string>& words) {
        dispatch(words);
        streams_.out.flush();
        report_.flush(streams_.err);
        return report_.status();
    }

private:
    void dispatch(const std::vector<std::string>& words);
    void list();
    void show(const std::string& name);
    void copy(const std::string& name, const std::string& newName);
    void convert();

    std::string textOf(const SchemeSource& source) const;
    std::optional<std::string> findText(const std::string& name);
    void store(PropertySetStore& schemes, const Norvane::PropertySet& scheme);
    void warnLineByLine(std::string_view text);
    void warnOfProblems(const std::string& path, const std::vector<NorvaneUI::SchemeProblem>& problems);
    bool hasFolder();
    void fail(std::string_view text, ExitStatus status = ExitStatus::badUsageOrScheme) {
        report_.addGeneral("error", text);
        report_.raise(status);
    }

    const Streams& streams_;
    Report report_;
    NorvaneUI::DiskFileSystem disk_;
    const std::string userFolder_;
    SchemeFinder finder_;
};

void SchemesCommand::dispatch(const std::vector<std::string>& words) {
    const std::string verb = words.empty() ? "list" : words.front();
    const std::size_t rest = words.empty() ? 0 : words.size() - 1;
    if (verb == "list" && rest == 0) return list();
    if (verb == "show" && rest == 1) return show(words[1]);
    if (verb == "copy" && rest == 2) return copy(words[1], words[2]);
    if (verb == "convert" && rest == 0) return convert();
    const std::vector<std::string_view> verbs = {"list", "show", "copy", "convert"};
    if (std::find(verbs.begin(), verbs.end(), verb) == verbs.end()) {
        fail("\"schemes\" cannot \"" + verb + '"' + nearestNameHint(verb, verbs));
    } else {
        fail("the forms are: schemes [list], schemes show NAME, schemes copy NAME NEW, schemes convert");
    }
}

void SchemesCommand::list() {
    for (const auto& [name, path] : finder_.userSchemes()) {
        streams_.out << printable(name) << "  (yours, " << printable(path);
        const auto status = disk_.status(path);
        if (status && !status->writable) streams_.out << ", read-only";
        const std::string text = textOf({SchemeSource::Kind::user, name, path});
        Norvane::PropertySet scheme;
        const bool isOld = NorvaneUI::parseScheme(text, scheme) && NorvaneUI::isOldScheme(scheme);
        streams_.out << (isOld ? ", not converted)\n" : ")\n");
        // One word tells all about the names in an old one.
        if (!isOld) warnOfProblems(path, NorvaneUI::checkSchemeText(text));
    }
    for (const ShippedScheme& scheme : shippedSchemes()) {
        const bool isHidden = finder_.userSchemes().count(std::string(scheme.name)) != 0;
        streams_.out << scheme.name << "  (comes with the program" << (isHidden ? ", hidden by yours" : "")
                     << ")  " << summaryOf(scheme.text) << '\n';
    }
}

std::string SchemesCommand::textOf(const SchemeSource& source) const {
    if (source.kind == SchemeSource::Kind::empty) {
        return NorvaneUI::schemeText(Norvane::PropertySet(source.name));
    }
    if (source.kind == SchemeSource::Kind::shipped) return std::string(findShippedScheme(source.name)->text);
    return readSchemeFile(source.path);
}

/// Nothing after reporting that there is no such scheme, or that its file cannot be read.
std::optional<std::string> SchemesCommand::findText(const std::string& name) {
    const auto source = finder_.find(name, absolutePath("."));
    if (!source) return std::nullopt;
    try {
        return textOf(*source);
    } catch (const std::system_error& error) {
        report_.error({source->path}, error.code().message(), ExitStatus::badUsageOrScheme);
        return std::nullopt;
    }
}

void SchemesCommand::show(const std::string& name) {
    if (const auto text = findText(name)) streams_.out << *text;
}

void SchemesCommand::copy(const std::string& name, const std::string& newName) {
    const auto text = findText(name);
    if (!text || !hasFolder()) return;
    const auto original = parseSchemeText(name, *text, report_);
    if (!original) return;
    Norvane::PropertySet scheme(newName);
    for (const auto& [option, value] : original->bools()) scheme.setBool(option, value);
    for (const auto& [option, value] : original->ints()) scheme.setInt(option, value);
    for (const auto& [option, value] : original->strings()) scheme.setString(option, value);
    // Without its version it would be taken for an old one, and half of it would be overwritten.
    scheme.setString(std::string(NorvaneUI::kVersionKey), std::string(NorvaneUI::kCurrentVersion));
    PropertySetStore schemes(userFolder_, disk_);
    store(schemes, scheme);
}

void SchemesCommand::warnOfProblems(const std::string& path, const std::vector<NorvaneUI::SchemeProblem>& problems) {
    for (const NorvaneUI::SchemeProblem& problem : problems) {
        report_.add({path, problem.line, problem.column}, "warning", problem.text);
    }
}

void SchemesCommand::store(PropertySetStore& schemes, const Norvane::PropertySet& scheme) {
    try {
        schemes.readWhatIsGood();
        const std::string fault = NorvaneUI::schemeNameFault(schemes, scheme.getName());
        if (!fault.empty()) return fail(fault);
        const std::string path = schemes.directory() + schemes.validFilename(scheme.getName());
        schemes.insert(scheme);
        schemes.write();
        streams_.out << printable(path) << '\n';
    } catch (const PropertySetStore::ReadError& error) {
        fail(NorvaneUI::filled(Addin::Texts::kSchemeUnreadable, {error.path()}), ExitStatus::fileFailed);
    } catch (const PropertySetStore::WriteError& error) {
        fail(NorvaneUI::filled(Addin::Texts::kSchemeUnwritable, {error.path(), userFolder_}),
             ExitStatus::fileFailed);
    }
}

void SchemesCommand::convert() {
    if (!hasFolder()) return;
    PropertySetStore schemes(userFolder_, disk_);
    try {
        schemes.readWhatIsGood();
        for (const std::string& path : schemes.unreadable()) {
            fail(NorvaneUI::filled(Addin::Texts::kSchemeUnreadable, {path}), ExitStatus::fileFailed);
        }
        std::vector<NorvaneUI::ConvertedScheme> converted;
        const std::string message = NorvaneUI::convertSchemes(schemes, converted);
        for (const auto& scheme : converted) {
            streams_.out << scheme.name << ": converted; the file as it was is " << scheme.copy << '\n';
        }
        if (!message.empty()) {
            warnLineByLine(message);
        } else if (converted.empty() && schemes.unreadable().empty()) {
            streams_.out << "There is nothing to convert.\n";
        }
    } catch (const PropertySetStore::ReadError& error) {
        fail(NorvaneUI::filled(Addin::Texts::kSchemeUnreadable, {error.path()}), ExitStatus::fileFailed);
    } catch (const PropertySetStore::WriteError& error) {
        fail(NorvaneUI::filled(Addin::Texts::kSchemeUnwritable, {error.path(), userFolder_}),
             ExitStatus::fileFailed);
    }
}

/// The message was made for a window, and is cut where it starts a line there.
void SchemesCommand::warnLineByLine(std::string_view text) {
    constexpr std::string_view lineEnd = "\r\n";
    for (std::size_t end = text.find(lineEnd); end != std::string_view::npos; end = text.find(lineEnd)) {
        report_.addGeneral("warning", text.substr(0, end));
        text.remove_prefix(end + lineEnd.size());
    }
    report_.addGeneral("warning", text);
}

bool SchemesCommand::hasFolder() {
    if (!userFolder_.empty()) return true;
    fail("there is no folder for schemes of yours: set HOME or XDG_CONFIG_HOME", ExitStatus::fileFailed);
    return false;
}

} // namespace

ExitStatus runSchemesCommand(const std::vector<std::string>& arguments, const Streams& streams) {
    return SchemesCommand(streams).run(arguments);
}

} // namespace Cli
