#include "cli/Cli_Options.h"

#include "cli/Cli_ShippedSchemes.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <map>

namespace Cli {

namespace {

const std::map<std::string, Dump>& dumpNames() {
    static const std::map<std::string, Dump> names = {
        {"tokens", Dump::tokens},
        {"tree", Dump::tree},
        {"messages", Dump::messages},
        {"scheme", Dump::scheme},
        {"options", Dump::options},
    };
    return names;
}

std::string shippedNames() {
    std::string names;
    for (const ShippedScheme& scheme : shippedSchemes()) {
        if (!names.empty()) names += ", ";
        names += scheme.name;
    }
    return names;
}

/// The program's own view of its command line, filled by the parser of the library.
class CommandLine {
public:
    CommandLine();

    /// Throws CLI::ParseError.
    Options parse(int argc, const char* const* argv);
    std::string help() const { return app_.help(); }

private:
    void collectEdits(Options& options) const;
    Destination destination() const;
    void refuseContradictions(const Options& options) const;

    CLI::App app_{"Lays out C and C++ by a scheme. White space that the scheme does not speak of\n"
                  "stays as it is, and nothing else ever changes.",
                  "kerfline"};
    std::string scheme_ = "default";
    std::vector<std::string> sets_;
    std::vector<std::string> unsets_;
    std::vector<std::string> files_;
    Dump dump_ = Dump::none;
    bool inPlace_ = false;
    bool check_ = false;
    CLI::Option* setOption_ = nullptr;
    CLI::Option* unsetOption_ = nullptr;
};

CommandLine::CommandLine() {
    app_.set_version_flag("--version", std::string("kerfline ") + KERFLINE_VERSION_TEXT);
    app_.add_option("--scheme", scheme_,
                    "A scheme file (FILE.kls), \"none\", or one that comes with the program:\n" + shippedNames())
        ->type_name("FILE");
    // Each takes one argument only: the next word may be the file to lay out.
    setOption_ = app_.add_option("--set", sets_, "Set one option, the value in the escapes of a scheme file")
                     ->type_name("NAME=VALUE")
                     ->allow_extra_args(false);
    unsetOption_ = app_.add_option("--unset", unsets_, "Take one option out: its place keeps the source")
                       ->type_name("NAME")
                       ->allow_extra_args(false);
    app_.add_flag("-i,--in-place", inPlace_, "Write each result back to its file, if it changed");
    app_.add_flag("--check", check_, "Write nothing; name the files that would change, and exit with status 1");
    app_.add_option("--dump", dump_, "In the place of the result, show the tokens, tree or messages of each FILE,\n"
                    "the scheme in force, or all options that a scheme can hold")
        ->transform(CLI::CheckedTransformer(dumpNames()))
        ->type_name("WHAT");
    app_.add_option("FILE", files_, "Files to lay out; none or \"-\" is standard input")->type_name("");
    app_.footer("Exit status: 0 done, 1 a file would change (--check), 2 wrong usage or scheme,\n"
                "3 a file could not be read or written, 4 a file was refused because it does not parse.");
}

Options CommandLine::parse(int argc, const char* const* argv) {
    app_.parse(argc, argv);
    Options options;
    options.scheme = scheme_;
    collectEdits(options);
    options.destination = destination();
    options.dump = dump_;
    options.files = files_.empty() ? std::vector<std::string>{"-"} : files_;
    refuseContradictions(options);
    return options;
}

void CommandLine::collectEdits(Options& options) const {
    auto nextSet = sets_.begin();
    auto nextUnset = unsets_.begin();
    for (const CLI::Option* option : app_.parse_order()) {
        if (option == setOption_ && nextSet != sets_.end()) {
            options.edits.push_back({SchemeEdit::Kind::set, *nextSet++});
        } else if (option == unsetOption_ && nextUnset != unsets_.end()) {
            options.edits.push_back({SchemeEdit::Kind::unset, *nextUnset++});
        }
    }
}

Destination CommandLine::destination() const {
    if (inPlace_) return Destination::sameFile;
    return check_ ? Destination::checkOnly : Destination::standardOutput;
}

void CommandLine::refuseContradictions(const Options& options) const {
    if (inPlace_ && check_) throw CLI::ValidationError("-i and --check exclude each other");
    if (dump_ != Dump::none && options.destination != Destination::standardOutput) {
        throw CLI::ValidationError("--dump writes to standard output: it goes with neither -i nor --check");
    }
    const bool readsInput = std::find(options.files.begin(), options.files.end(), "-") != options.files.end();
    if (inPlace_ && readsInput) {
        throw CLI::ValidationError("-i needs files to write back to; standard input is none");
    }
}

} // namespace

std::optional<Options> parseCommandLine(int argc, const char* const* argv, std::ostream& out,
                                        std::ostream& err, ExitStatus& status) {
    CommandLine line;
    try {
        return line.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        out << line.help();
        status = ExitStatus::done;
    } catch (const CLI::CallForVersion& version) {
        out << version.what() << '\n';
        status = ExitStatus::done;
    } catch (const CLI::ParseError& error) {
        std::string text = error.what();
        std::replace(text.begin(), text.end(), '\n', ' ');
        err << "kerfline: error: " << text << " (kerfline --help shows the options)\n";
        status = ExitStatus::badUsageOrScheme;
    }
    return std::nullopt;
}

} // namespace Cli
