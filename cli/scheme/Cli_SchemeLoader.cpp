#include "cli/scheme/Cli_SchemeLoader.h"

#include "addin/Addin_SourceForm.h"
#include "cli/files/Cli_FileIo.h"
#include "schemes/NorvaneUI_PropertySetStore.h"
#include "schemes/NorvaneUI_SchemeChecker.h"
#include "src/scheme/Norvane_PropertyCatalogue.h"

#include <filesystem>
#include <fstream>
#include <system_error>

namespace Cli {

namespace {

using NorvaneUI::SchemeProblem;
using NorvaneUI::unknownOptionText;

/// No scheme is near this size; a device that never ends should not be read for ever.
constexpr std::size_t kLargestScheme = 1 << 24;

void reportProblem(const Place& place, const SchemeProblem& problem, Report& report) {
    report.add(place, problem.isWarning ? "warning" : "error", problem.text);
    if (!problem.isWarning) report.raise(ExitStatus::badUsageOrScheme);
}

void eraseAll(Norvane::PropertySet& scheme, std::string_view name) {
    while (scheme.erase(name)) {
    }
}

char typeCodeOf(Norvane::PropertyKind kind) {
    switch (kind) {
    case Norvane::PropertyKind::Bool: return '1';
    case Norvane::PropertyKind::Int: return '2';
    default: return '3';
    }
}

/// A value as it would stand in a scheme file. White space that was typed as it is gets its escape,
/// since a record is one line.
std::string recordValue(std::string_view value) {
    const bool hasQuotes = value.size() > 1 && value.front() == '"' && value.back() == '"';
    std::string text = hasQuotes ? "" : "\"";
    for (const char c : value) {
        switch (c) {
        case '\n': text += "\\n"; break;
        case '\r': text += "\\r"; break;
        case '\t': text += "\\t"; break;
        case '\v': text += "\\v"; break;
        default: text += c;
        }
    }
    return hasQuotes ? text : text + '"';
}

/// The edits of the command line on a scheme, one after the other.
class SchemeEditor {
public:
    SchemeEditor(Norvane::PropertySet& scheme, Report& report) : scheme_(scheme), report_(report) {}

    void apply(const SchemeEdit& edit) {
        if (edit.kind == SchemeEdit::Kind::set) {
            set(edit.text);
        } else {
            unset(edit.text);
        }
    }

private:
    void set(const std::string& text) {
        const std::size_t equals = text.find('=');
        const std::string name = text.substr(0, equals);
        if (equals == std::string::npos || equals == 0) {
            fail("--set " + text, "the form is NAME=VALUE");
            return;
        }
        const Norvane::PropertyInfo* info = Norvane::findProperty(name);
        if (info == nullptr) {
            fail("--set " + name, unknownOptionText(name));
            return;
        }
        const std::string_view value = std::string_view(text).substr(equals + 1);
        const char code = typeCodeOf(info->kind);
        const std::string line = std::string(1, code) + ' ' + name + ' ' +
                                 (code == '3' ? recordValue(value) : std::string(value));
        // Under another kind, an older value would stay beside the new one.
        eraseAll(scheme_, name);
        if (const auto problem = NorvaneUI::readRecord(line, scheme_)) {
            reportProblem({"--set " + name}, *problem, report_);
        }
    }

    void unset(const std::string& name) {
        if (Norvane::findProperty(name) == nullptr) {
            fail("--unset " + name, unknownOptionText(name));
        } else {
            eraseAll(scheme_, name);
        }
    }

    void fail(const std::string& where, const std::string& text) {
        report_.error({where}, text, ExitStatus::badUsageOrScheme);
    }

    Norvane::PropertySet& scheme_;
    Report& report_;
};

/// Somebody who sees the file in its folder has to be told that it is a link.
std::string reasonFor(const std::string& path, const std::system_error& error) {
    std::error_code ignored;
    const bool isLink = std::filesystem::is_symlink(path, ignored);
    return isLink && error.code() == std::errc::no_such_file_or_directory ? "the link leads nowhere"
                                                                          : error.code().message();
}

} // namespace

std::string readSchemeFile(const std::string& path) {
    std::ifstream in = openFile(path);
    ReadResult read = readSource(in, kLargestScheme);
    if (!read.complete) throw std::system_error(EFBIG, std::generic_category());
    return Addin::SourceForm(read.bytes).textOf(read.bytes);
}

std::optional<Norvane::PropertySet> parseSchemeText(const std::string& path, std::string_view text,
                                                    Report& report) {
    bool isGood = true;
    for (const SchemeProblem& problem : NorvaneUI::checkSchemeText(text)) {
        reportProblem({path, problem.line, problem.column}, problem, report);
        isGood = isGood && problem.isWarning;
    }
    if (!isGood) return std::nullopt;
    Norvane::PropertySet scheme;
    NorvaneUI::parseScheme(std::string(text), scheme);
    return scheme;
}

std::optional<Norvane::PropertySet> loadSchemeFile(const std::string& path, Report& report) {
    try {
        return parseSchemeText(path, readSchemeFile(path), report);
    } catch (const std::system_error& error) {
        report.error({path}, reasonFor(path, error), ExitStatus::badUsageOrScheme);
        return std::nullopt;
    }
}

void applyEdits(const std::vector<SchemeEdit>& edits, Norvane::PropertySet& scheme, Report& report) {
    SchemeEditor editor(scheme, report);
    for (const SchemeEdit& edit : edits) editor.apply(edit);
}

} // namespace Cli
