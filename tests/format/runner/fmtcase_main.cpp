// Shows how one case goes through the system: fmtcase FILE.case:LINE --dump=tokens,tree

#include "tests/format/runner/GoldenCheck.h"

#include "cli/run/Cli_Dump.h"

#include <filesystem>
#include <functional>
#include <iostream>
#include <sstream>
#include <string_view>

namespace {

struct Stage {
    std::string_view name;
    std::string_view meaning;
    std::function<void(const Golden::Case&, std::ostream&)> show;
};

template <Cli::Dump what>
void dumpOf(const Golden::Case& golden, std::ostream& out) {
    Cli::dumpText(what, "source", golden.source, {}, out);
}

const std::vector<Stage>& stages() {
    static const std::vector<Stage> all = {
        {"source", "the source of the case", [](const auto& golden, auto& out) { out << golden.source; }},
        {"scheme", "its options", [](const auto& golden, auto& out) { golden.scheme.write(out); }},
        {"tokens", "the tokens of the source", dumpOf<Cli::Dump::tokens>},
        {"tree", "the tree that the parser builds", dumpOf<Cli::Dump::tree>},
        {"messages", "what the parser has to say", dumpOf<Cli::Dump::messages>},
        {"expected", "the expected text", [](const auto& golden, auto& out) { out << golden.expected.text; }},
        {"result", "what the program makes of the source",
         [](const auto& golden, auto& out) { out << Golden::runCase(golden).once; }},
        {"second", "what it makes of its own result",
         [](const auto& golden, auto& out) { out << Golden::runCase(golden).twice; }},
    };
    return all;
}

int listStages() {
    for (const Stage& stage : stages()) std::cout << stage.name << ": " << stage.meaning << '\n';
    return 0;
}

/// The case that the line is in, so that any line of it names it. A line number of 0 names the first.
const Golden::Case* findCase(const std::vector<Golden::Case>& cases, int line) {
    const Golden::Case* found = cases.empty() ? nullptr : &cases.front();
    for (const Golden::Case& golden : cases) {
        if (golden.line <= line) found = &golden;
    }
    return found;
}

int show(const std::string& place, const std::string& names) {
    const std::size_t colon = place.rfind(':');
    std::string path = place.substr(0, colon);
    const int line = colon == std::string::npos ? 0 : std::stoi(place.substr(colon + 1));
    if (!std::filesystem::exists(path)) path = (std::filesystem::path(KERFLINE_CASES) / path).string();
    const std::vector<Golden::Case> cases = Golden::readCases(path);
    const Golden::Case* golden = findCase(cases, line);
    if (golden == nullptr) throw Golden::FormatError(path + ": holds no case");

    std::istringstream list(names);
    for (std::string name; std::getline(list, name, ',');) {
        bool known = false;
        for (const Stage& stage : stages()) {
            if (stage.name != name) continue;
            known = true;
            std::cout << "--- " << name << '\n';
            stage.show(*golden, std::cout);
        }
        if (!known) throw Golden::FormatError("no stage " + name + "; --dump=list names them");
    }
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    constexpr std::string_view dump = "--dump=";
    std::string place;
    std::string names = "source,result,second";
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        if (argument.starts_with(dump)) {
            names = argument.substr(dump.size());
        } else {
            place = argument;
        }
    }
    if (names == "list") return listStages();
    if (place.empty()) {
        std::cerr << "usage: fmtcase FILE.case:LINE [--dump=tokens,tree,...] | --dump=list\n";
        return 2;
    }
    try {
        return show(place, names);
    } catch (const std::exception& error) {
        std::cerr << "fmtcase: " << error.what() << '\n';
        return 2;
    }
}
