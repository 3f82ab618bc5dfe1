#include "cli/run/Cli_DeriveCommand.h"

#include "cli/console/Cli_Interrupt.h"
#include "cli/console/Cli_ProgressBar.h"
#include "cli/console/Cli_Usage.h"
#include "cli/run/Cli_CodeSample.h"
#include "cli/run/Cli_DeriveTable.h"
#include "derive/Derive_Deriver.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <thread>

namespace Cli {

namespace {

struct Question {
    std::vector<std::string> paths;
    std::string output;
    std::string shown;
    double agreement = 98;
    std::uint64_t sample = 1 << 20;
    unsigned jobs = 0;
    bool json = false;
    bool overwrites = false;
};

/// Nothing if there is nothing to do; then `status` says how it ended.
std::optional<Question> readArguments(const std::vector<std::string>& arguments, const Streams& streams,
                                      ExitStatus& status) {
    Question question;
    CLI::App app("Write the scheme under which the sources change least", "kerfline derive");
    app.add_option("PATH", question.paths, "Sources, or folders of them")->required();
    app.add_option("-o,--output", question.output, "Write the scheme to this file");
    app.add_flag("-y,--yes", question.overwrites, "Write it even if the file is there already");
    app.add_option("--agreement", question.agreement, "Of 100 places, how many have to agree before an option is set")
        ->check(CLI::Range(50.0, 100.0))
        ->capture_default_str();
    app.add_option("--sample", question.sample, "Measure on files of about this size in all, such as 4MB")
        ->transform(CLI::AsSizeValue(false));
    app.add_option("--show", question.shown, "List the places that disagree with an option");
    app.add_option("-j,--jobs", question.jobs, "Threads; 0 takes one for each processor");
    app.add_flag("--json", question.json, "Tell the figures as JSON");
    std::vector<std::string> words(arguments.rbegin(), arguments.rend());
    try {
        app.parse(words);
        return question;
    } catch (const CLI::CallForHelp&) {
        streams.out << app.help();
    } catch (const CLI::ParseError& error) {
        status = failUsage(error.what(), streams);
    }
    return std::nullopt;
}

unsigned threadsFor(unsigned jobs) { return jobs > 0 ? jobs : std::max(std::thread::hardware_concurrency(), 1U); }

class DeriveCommand {
public:
    DeriveCommand(const Question& question, const Streams& streams) : question_(question), streams_(streams) {}

    ExitStatus run() {
        const InterruptGuard guard;
        if (mayWrite() && isKnown(question_.shown)) deriveAndTell();
        streams_.out.flush();
        report_.flush(streams_.err);
        return report_.status();
    }

private:
    bool mayWrite() {
        std::error_code unknown;
        if (question_.output.empty() || question_.overwrites || !std::filesystem::exists(question_.output, unknown)) return true;
        report_.error({question_.output}, "is there already; -y writes over it", ExitStatus::badUsageOrScheme);
        return false;
    }
    bool isKnown(const std::string& option) {
        if (option.empty() || Norvane::findProperty(option) != nullptr) return true;
        report_.addGeneral("error", "there is no option \"" + option + '"');
        report_.raise(ExitStatus::badUsageOrScheme);
        return false;
    }
    void deriveAndTell() {
        CodeSample code(question_.paths, streams_, report_);
        if (report_.status() != ExitStatus::done) return;
        if (code.fileCount() == 0) return failWith("there are no sources to learn from");
        const Derive::Derivation result = derive(code);
        if (InterruptGuard::signal() != 0) return report_.addGeneral("error", "interrupted: nothing was written");
        if (result.names.empty()) return failWith("none of the sources could be read");
        if (result.measures.empty()) return failWith("no option acts anywhere in these sources");
        tell(result, verified(code, result));
    }
    void failWith(std::string_view text) {
        report_.addGeneral("error", text);
        report_.raise(ExitStatus::refused);
    }
    Derive::Derivation derive(CodeSample& code) {
        Derive::Settings settings;
        settings.agreement = question_.agreement / 100;
        settings.threads = threadsFor(question_.jobs);
        if (!question_.shown.empty()) settings.mostDissents = static_cast<std::size_t>(-1);
        std::atomic<bool> cancelled = false;
        const auto progress = [&](std::size_t done, std::size_t all) {
            if (InterruptGuard::signal() != 0) cancelled = true;
            if (streams_.terminals.err) streams_.err << "\rMeasuring options: " << done << " of " << all << std::flush;
        };
        Derive::Derivation result = Derive::derive(code.sample(question_.sample), settings, progress, &cancelled);
        if (streams_.terminals.err) streams_.err << "\r\x1b[K";
        return result;
    }
    /// What the scheme does to all of the code, not the sample alone.
    DeriveTotals verified(CodeSample& code, const Derive::Derivation& result) {
        DeriveTotals totals{code.fileCount(), code.bytes()};
        for (std::size_t next = 0; next < code.fileCount() && InterruptGuard::signal() == 0;) {
            const Derive::Effect effect = Derive::effectOf(result.scheme, code.nextBatch(next), threadsFor(question_.jobs));
            totals.lines += effect.lines;
            totals.changedLines += effect.changedLines;
            totals.refused += effect.refused;
        }
        return totals;
    }
    void tell(const Derive::Derivation& result, const DeriveTotals& totals) {
        if (InterruptGuard::signal() != 0) return report_.addGeneral("error", "interrupted: nothing was written");
        const std::string scheme = Derive::schemeText(result, schemeName());
        if (!question_.output.empty() && !write(scheme)) return;
        if (!question_.shown.empty()) {
            writeDissents(streams_.out, result, question_.shown);
        } else if (question_.json) {
            writeDeriveJson(streams_.out, result, totals);
        } else if (!question_.output.empty()) {
            writeDeriveTable(streams_.out, result, totals);
        } else {
            streams_.out << scheme;
            if (streams_.terminals.err) writeDeriveTable(streams_.err, result, totals);
        }
    }
    std::string schemeName() const {
        std::string name = std::filesystem::path(question_.output).stem().string();
        if (!name.empty() && name.front() == '.') name.erase(0, 1);
        return name.empty() || name == "kerfline" ? "project" : name;
    }
    bool write(const std::string& scheme) {
        NorvaneUI::DiskFileSystem disk;
        const auto seen = disk.status(question_.output);
        const bool isThere = seen && seen->kind != NorvaneUI::FileKind::missing;
        const NorvaneUI::Status status = isThere ? disk.replace(question_.output, scheme, *seen) : disk.create(question_.output, scheme);
        if (status.isDone()) return true;
        report_.error({question_.output}, status.failure().text, ExitStatus::fileFailed);
        return false;
    }

    const Question& question_;
    const Streams& streams_;
    Report report_;
};

} // namespace

ExitStatus runDeriveCommand(const std::vector<std::string>& arguments, const Streams& streams) {
    ExitStatus status = ExitStatus::done;
    const auto question = readArguments(arguments, streams, status);
    return question ? DeriveCommand(*question, streams).run() : status;
}

} // namespace Cli
