#include "cli/Cli_Program.h"

#include "cli/Cli_OptionList.h"
#include "cli/Cli_SchemeLoader.h"
#include "cli/Cli_TokenCheck.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <new>
#include <system_error>

namespace Cli {

namespace {

constexpr const char* kStandardInput = "<stdin>";

const char* severityWord(const Trn::Message& message) {
    switch (message.severity) {
    case Trn::kSeverityError: return "error";
    case Trn::kSeverityWarning: return "warning";
    default: return "note";
    }
}

Place placeOf(const std::string& path, const Trn::Position& position) {
    // A line feed counts as column 0 of the line behind it, and no place at all has no line.
    return {path, std::max<std::uint32_t>(position.line, 1), std::max<std::uint32_t>(position.column, 1)};
}

void copyRest(std::istream& in, std::ostream& out) {
    if (in.peek() != std::istream::traits_type::eof()) out << in.rdbuf();
}

} // namespace

Program::Program(const Options& options, const Norvane::PropertySet& scheme, const Streams& streams,
                 Report& report)
    : options_(options), engine_(scheme), streams_(streams), report_(report) {}

void Program::run() {
    for (const std::string& file : options_.files) processFile(file);
    finishOutput();
}

void Program::processFile(const std::string& file) {
    const std::string shownName = file == "-" ? kStandardInput : file;
    try {
        if (file == "-") {
            processStream(shownName, streams_.in);
        } else {
            look(file);
            std::ifstream in = openFile(file);
            processStream(shownName, in);
        }
    } catch (const std::system_error& error) {
        report_.error({shownName}, error.code().message(), ExitStatus::fileFailed);
    } catch (const std::bad_alloc&) {
        report_.error({shownName}, "not enough memory for this file", ExitStatus::fileFailed);
    }
}

void Program::look(const std::string& file) {
    if (options_.destination != Destination::sameFile) return;
    // A failure comes up again when the file is opened.
    if (const auto status = files_.status(file)) seen_ = *status;
}

void Program::writeBack(const std::string& path, const std::string& result) {
    const NorvaneUI::Status failure = files_.replace(path, result, seen_);
    if (failure) report_.error({path}, failure->text, ExitStatus::fileFailed);
}

void Program::processStream(const std::string& shownName, std::istream& in) {
    ReadResult read = readSource(in);
    if (read.complete) {
        processSource(shownName, SourceFile(std::move(read.bytes)));
        return;
    }
    report_.error({shownName}, "longer than 4 GB, which is more than can be laid out", ExitStatus::refused);
    passThrough(read.bytes);
    if (passesThrough()) copyRest(in, streams_.out);
}

void Program::processSource(const std::string& path, const SourceFile& source) {
    try {
        if (options_.dump != Dump::none) {
            dump(path, source);
        } else {
            format(path, source);
        }
    } catch (const std::system_error&) {
        throw;
    } catch (const std::bad_alloc&) {
        report_.error({path}, "not enough memory to lay out this file", ExitStatus::fileFailed);
        passThrough(source.bytes());
    } catch (const std::exception&) {
        report_.error({path}, "internal error: this file could not be laid out", ExitStatus::refused);
        passThrough(source.bytes());
    }
}

void Program::format(const std::string& path, const SourceFile& source) {
    if (source.isWideText()) {
        report_.error({path}, "UTF-16 text; only UTF-8 and one-byte encodings can be laid out",
                      ExitStatus::refused);
        passThrough(source.bytes());
        return;
    }
    Outcome outcome = engine_.format(source.text());
    if (!outcome.text) {
        refuse(path, source, outcome);
        return;
    }
    // The last line of defence: a fault of the engine must not cost anybody code.
    if (const auto place = firstTokenDifference(source.text(), *outcome.text)) {
        report_.error(placeOf(path, *place), "internal error: the layout would have changed this token",
                      ExitStatus::refused);
        passThrough(source.bytes());
        return;
    }
    deliver(path, source, source.withForm(std::move(*outcome.text)));
}

void Program::deliver(const std::string& path, const SourceFile& source, const std::string& result) {
    const bool changed = result != source.bytes();
    switch (options_.destination) {
    case Destination::standardOutput:
        streams_.out << result;
        break;
    case Destination::sameFile:
        if (changed) writeBack(path, result);
        break;
    case Destination::checkOnly:
    case Destination::patch:
        if (!changed) break;
        streams_.out << path << '\n';
        report_.raise(ExitStatus::wouldChange);
        break;
    }
}

void Program::refuse(const std::string& path, const SourceFile& source, const Outcome& outcome) {
    for (const Trn::Message& message : outcome.messages) {
        const char* where = outcome.pointIntoResult ? " (line and column of the text before wrapping)" : "";
        report_.add(placeOf(path, message.position), severityWord(message), message.text + where);
    }
    report_.raise(ExitStatus::refused);
    passThrough(source.bytes());
}

bool Program::passesThrough() const {
    return options_.destination == Destination::standardOutput && options_.dump == Dump::none;
}

void Program::passThrough(const std::string& bytes) {
    if (passesThrough()) streams_.out << bytes;
}

void Program::dump(const std::string& path, const SourceFile& source) {
    Trn::MessageList messages;
    switch (options_.dump) {
    case Dump::tokens:
        dumpTokensOf(source.text(), streams_.out);
        break;
    case Dump::tree:
        messages = dumpTreeOf(source.text(), streams_.out);
        break;
    case Dump::messages:
        messages = diagnosticsOf(source.text());
        for (const Trn::Message& message : messages) {
            const std::string text = message.text + " [" + std::to_string(message.code) + ']';
            streams_.out << messageLine(placeOf(path, message.position), severityWord(message), text) << '\n';
        }
        break;
    case Dump::none:
    case Dump::scheme:
    case Dump::options:
        break;
    }
    if (refusesFile(messages)) report_.raise(ExitStatus::refused);
}

void Program::finishOutput() {
    errno = 0;
    streams_.out.flush();
    if (streams_.out) return;
    const std::string reason = errno != 0 ? std::generic_category().message(errno) : "cannot be written";
    report_.error({"<stdout>"}, reason, ExitStatus::fileFailed);
}

ExitStatus runProgram(const Options& options, const Streams& streams) {
    Report report;
    try {
        if (options.dump == Dump::options) {
            listSchemeOptions(streams.out);
        } else if (const auto scheme = loadScheme(options, report)) {
            if (options.dump == Dump::scheme) {
                scheme->write(streams.out);
            } else {
                Program(options, *scheme, streams, report).run();
            }
        }
    } catch (const std::bad_alloc&) {
        report.error({"kerfline"}, "not enough memory", ExitStatus::fileFailed);
    } catch (const std::exception&) {
        report.error({"kerfline"}, "internal error", ExitStatus::fileFailed);
    }
    report.flush(streams.err);
    return report.status();
}

} // namespace Cli
