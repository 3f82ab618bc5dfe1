#include "cli/run/Cli_CommandLine.h"

#include "addin/Addin_Extensions.h"
#include "cli/console/Cli_Printable.h"
#include "cli/console/Cli_SwitchTable.h"
#include "cli/scheme/Cli_NearestName.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <charconv>
#include <initializer_list>
#include <map>
#include <thread>

namespace Cli {

namespace {

/// Marks a switch that was given without the argument it may have. No argument can be this one.
constexpr const char* kNoArgument = "\n";

constexpr unsigned kMostJobs = 1024;

std::vector<std::string_view> choicesOf(const Switch& row) {
    std::vector<std::string_view> choices;
    std::string_view rest = row.choices;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('|'), rest.size());
        choices.emplace_back(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return choices;
}

std::string dashed(std::string_view name) { return "--" + std::string(name); }

const Switch* findSwitch(std::string_view name) {
    for (const Switch& row : switchTable()) {
        if (row.name == name) return &row;
    }
    return nullptr;
}

/// What is wrong with `typed` as the argument of the switch; empty if nothing is.
std::string choiceFault(const Switch& row, const std::string& typed) {
    const std::vector<std::string_view> choices = choicesOf(row);
    if (std::find(choices.begin(), choices.end(), typed) != choices.end()) return {};
    std::string text = '"' + typed + "\" is none of";
    for (std::size_t i = 0; i < choices.size(); ++i) text.append(i == 0 ? " " : ", ").append(choices[i]);
    return text + nearestNameHint(typed, choices);
}

/// Refuses "--in-place=no", which would write all the same, and "--scheme=" in front of a file, which
/// would take the file for the scheme.
void refuseMisplacedValue(std::string_view word) {
    const std::size_t equals = word.find('=');
    if (!word.starts_with("--") || equals == std::string_view::npos) return;
    const Switch* row = findSwitch(word.substr(2, equals - 2));
    if (row == nullptr) return;
    const std::string name = dashed(row->name);
    const std::string value(word.substr(equals + 1));
    if (!row->takesArgument()) {
        throw CLI::ValidationError(name + " takes no value: leave \"=" + value + "\" out");
    }
    if (value.empty()) {
        const std::string remedy = row->argumentIsOptional() ? "put a value there or leave the \"=\" out"
                                                             : "put " + std::string(row->argument) + " there";
        throw CLI::ValidationError(name + "= has nothing behind it: " + remedy);
    }
}

/// The program's own view of its command line, filled by the parser of the library.
class CommandLine {
public:
    CommandLine();

    /// Throws CLI::ParseError.
    Options parse(int argc, const char* const* argv);

private:
    void add(const Switch& row);
    void exclude(const std::string& name, std::initializer_list<const char*> others);
    void refuseUnknown() const;
    bool has(const std::string& name) const { return given(name).count() > 0; }
    const CLI::Option& given(const std::string& name) const { return *app_.get_option(dashed(name)); }
    std::string last(const std::string& name, const std::string& otherwise) const;
    template <class Value>
    Value choice(const std::string& name, const std::map<std::string, Value>& values) const;
    unsigned jobs() const;
    BackupChoice backup() const;
    std::vector<Edits::LineRange> lines() const;
    std::string changedSince() const;
    Verbosity verbosity() const;
    Destination destination() const;
    void collectEdits(Options& options) const;
    void refuseContradictions(const Options& options) const;

    CLI::App app_;
    std::vector<std::string> files_;
};

CommandLine::CommandLine() {
    app_.set_help_flag();
    app_.allow_extras();
    for (const Switch& row : switchTable()) add(row);
    app_.add_option("FILE", files_);
    exclude("in-place", {"check", "diff", "dump"});
    exclude("dump", {"check", "diff"});
    exclude("quiet", {"verbose"});
    exclude("lines", {"from-diff", "changed", "dump"});
    exclude("from-diff", {"changed", "project", "dump"});
    exclude("changed", {"project", "dump"});
    app_.get_option("--backup")->needs(app_.get_option("--in-place"));
    app_.get_option("--jobs")->check(CLI::Range(0U, kMostJobs));
}

void CommandLine::exclude(const std::string& name, std::initializer_list<const char*> others) {
    for (const char* other : others) app_.get_option(dashed(name))->excludes(app_.get_option(dashed(other)));
}

void CommandLine::add(const Switch& row) {
    std::string names = dashed(row.name);
    if (row.shortName != 0) names = std::string("-") + row.shortName + ',' + names;
    if (row.name == "help") {
        app_.set_help_flag(names);
    } else if (row.name == "version") {
        app_.set_version_flag(names, std::string("kerfline ") + KERFLINE_VERSION_TEXT);
    } else if (!row.takesArgument()) {
        app_.add_flag(names);
    } else if (row.argumentIsOptional()) {
        // A plain optional argument would swallow the file behind the switch.
        app_.add_flag(names + '{' + kNoArgument + '}');
    } else {
        CLI::Option* option = app_.add_option(names)->expected(1)->allow_extra_args(false);
        option->multi_option_policy(row.repeats ? CLI::MultiOptionPolicy::TakeAll
                                                : CLI::MultiOptionPolicy::TakeLast);
        if (row.kind != ArgumentKind::choice) return;
        option->check([&row](const std::string& typed) { return choiceFault(row, typed); });
    }
}

Options CommandLine::parse(int argc, const char* const* argv) {
    for (int i = 1; i < argc && std::string_view(argv[i]) != "--"; ++i) refuseMisplacedValue(argv[i]);
    app_.parse(argc, argv);
    refuseUnknown();
    Options options;
    if (has("scheme")) options.scheme = last("scheme", "");
    collectEdits(options);
    options.destination = destination();
    options.dump = choice<Dump>("dump", {{"", Dump::none},
                                         {"tokens", Dump::tokens},
                                         {"tree", Dump::tree},
                                         {"messages", Dump::messages},
                                         {"scheme", Dump::scheme},
                                         {"options", Dump::options}});
    options.backup = backup();
    options.verifies = !has("no-verify");
    options.isStrict = has("strict");
    options.project = last("project", "");
    options.inputName = last("stdin-filename", "");
    options.files = files_;
    options.lines = lines();
    options.readsPatch = has("from-diff");
    if (has("changed")) options.changedSince = changedSince();
    const bool hasSources = !options.project.empty() || options.readsPatch || options.changedSince;
    if (files_.empty() && !hasSources) options.files = {"-"};
    options.assumesYes = has("yes");
    options.jobs = jobs();
    options.verbosity = verbosity();
    options.color = choice<ColorChoice>("color", {{"", ColorChoice::automatic},
                                                  {"auto", ColorChoice::automatic},
                                                  {"always", ColorChoice::always},
                                                  {"never", ColorChoice::never}});
    options.messageFormat = choice<MessageFormat>("message-format", {{"", MessageFormat::gnu},
                                                                     {"gnu", MessageFormat::gnu},
                                                                     {"msvc", MessageFormat::msvc},
                                                                     {"json", MessageFormat::json}});
    refuseContradictions(options);
    return options;
}

void CommandLine::refuseUnknown() const {
    for (const std::string& word : app_.remaining()) {
        // What marks the end of the switches comes through as well.
        if (word == "--") continue;
        const std::string name = word.substr(0, word.find('='));
        std::vector<std::string_view> names;
        for (const Switch& row : switchTable()) names.push_back(row.name);
        const std::string typed = name.substr(std::min(name.find_first_not_of('-'), name.size()));
        throw CLI::ValidationError("there is no switch \"" + name + '"' +
                                   nearestNameHint(typed, names, "--"));
    }
}

std::string CommandLine::last(const std::string& name, const std::string& otherwise) const {
    const auto& results = given(name).results();
    return results.empty() ? otherwise : results.back();
}

template <class Value>
Value CommandLine::choice(const std::string& name, const std::map<std::string, Value>& values) const {
    return values.at(last(name, ""));
}

unsigned CommandLine::jobs() const {
    const unsigned count = has("jobs") ? given("jobs").as<unsigned>() : 1;
    return count != 0 ? count : std::max(1u, std::thread::hardware_concurrency());
}

std::vector<Edits::LineRange> CommandLine::lines() const {
    std::vector<Edits::LineRange> ranges;
    for (const std::string& typed : given("lines").results()) {
        Edits::LineRange range;
        const char* const end = typed.data() + typed.size();
        const auto first = std::from_chars(typed.data(), end, range.first);
        const bool hasColon = first.ec == std::errc() && first.ptr != end && *first.ptr == ':';
        const auto last = hasColon ? std::from_chars(first.ptr + 1, end, range.last) : first;
        if (!hasColon || last.ec != std::errc() || last.ptr != end || range.first < 1 || range.last < range.first) {
            throw CLI::ValidationError("--lines takes two lines such as 10:20, not \"" + typed + '"');
        }
        ranges.push_back(range);
    }
    return ranges;
}

std::string CommandLine::changedSince() const {
    const std::string typed = last("changed", "");
    const std::string revision = typed == kNoArgument ? "HEAD" : typed;
    if (revision.starts_with('-')) throw CLI::ValidationError("--changed takes a revision, not \"" + revision + '"');
    return revision;
}

BackupChoice CommandLine::backup() const {
    const std::string extension = last("backup", "");
    if (!Addin::isValidExtension(extension)) {
        throw CLI::ValidationError("--backup takes an extension, which cannot hold any of <>:\\/|?, not \"" +
                                   extension + '"');
    }
    return {has("backup"), extension == kNoArgument ? std::string() : extension};
}

Verbosity CommandLine::verbosity() const {
    if (has("quiet")) return Verbosity::quiet;
    return has("verbose") ? Verbosity::verbose : Verbosity::normal;
}

void CommandLine::collectEdits(Options& options) const {
    const CLI::Option* setOption = &given("set");
    const CLI::Option* unsetOption = &given("unset");
    auto nextSet = setOption->results().begin();
    auto nextUnset = unsetOption->results().begin();
    for (const CLI::Option* option : app_.parse_order()) {
        if (option == setOption && nextSet != setOption->results().end()) {
            options.edits.push_back({SchemeEdit::Kind::set, *nextSet++});
        } else if (option == unsetOption && nextUnset != unsetOption->results().end()) {
            options.edits.push_back({SchemeEdit::Kind::unset, *nextUnset++});
        }
    }
}

Destination CommandLine::destination() const {
    if (has("in-place")) return Destination::sameFile;
    if (has("diff")) return Destination::patch;
    return has("check") ? Destination::checkOnly : Destination::standardOutput;
}

void CommandLine::refuseContradictions(const Options& options) const {
    const bool readsInput = std::find(options.files.begin(), options.files.end(), "-") != options.files.end();
    if (has("in-place") && readsInput) {
        throw CLI::ValidationError("-i needs files to write back to; standard input is none");
    }
    if (has("stdin-filename") && !readsInput) {
        throw CLI::ValidationError(
            "--stdin-filename names standard input, which is not among the files; add \"-\"");
    }
}

ExitStatus tellWrongUsage(std::string text, std::ostream& err) {
    std::replace(text.begin(), text.end(), '\n', ' ');
    err << "kerfline: error: " << printable(text) << " (kerfline --help shows the switches)\n";
    return ExitStatus::badUsageOrScheme;
}

} // namespace

std::optional<Options> parseCommandLine(int argc, const char* const* argv, std::ostream& out,
                                        std::ostream& err, ExitStatus& status) {
    CommandLine line;
    try {
        return line.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        out << commandLineHelp();
        status = ExitStatus::done;
    } catch (const CLI::CallForVersion& version) {
        out << version.what() << '\n';
        status = ExitStatus::done;
    } catch (const CLI::ArgumentMismatch& error) {
        const std::string text = error.what();
        status = tellWrongUsage(text.substr(0, text.find(':')) + " needs a value behind it", err);
    } catch (const CLI::ParseError& error) {
        status = tellWrongUsage(error.what(), err);
    }
    return std::nullopt;
}

} // namespace Cli
