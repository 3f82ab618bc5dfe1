#include "tests/format/runner/GoldenCheck.h"

#include "guard/Guard_Difference.h"
#include "tests/format/runner/GoldenEngine.h"

#include <fstream>
#include <sstream>
#include <vector>

namespace Golden {

namespace {

std::string messagesAsText(const Trn::MessageList& messages) {
    std::ostringstream out;
    for (const Trn::Message& message : messages) {
        out << message.position.line << ':' << message.position.column << ": " << message.text << '\n';
    }
    return out.str();
}

std::string describeDifference(const std::string& source, const std::string& result) {
    const auto difference = Guard::firstDifference(source, result);
    if (!difference) return "";
    const Guard::Place& place = difference->inSource;
    return std::to_string(place.line) + ':' + std::to_string(place.column) + " of the source: " + std::string(difference->reason);
}

/// The lines of a file under change. Texts are replaced from the last to the first, so that the
/// line numbers of those in front stay right.
class FileLines {
public:
    explicit FileLines(const std::string& content) {
        std::istringstream in(content);
        for (std::string line; std::getline(in, line);) lines_.push_back(line);
    }

    void replaceText(const ExpectedText& old, const std::string& lines) {
        const auto marker = lines_.begin() + (old.line - 1);
        auto end = marker + 1;
        while (end != lines_.end() && !end->starts_with("###") && !end->starts_with(">>>") && !end->starts_with("<<<")) {
            ++end;
        }
        while (end != marker + 1 && (end - 1)->empty()) --end;
        std::vector<std::string> replacement{"<<<"};
        std::istringstream in(lines);
        for (std::string line; std::getline(in, line);) replacement.push_back(line);
        const auto at = lines_.erase(marker, end);
        lines_.insert(at, replacement.begin(), replacement.end());
    }

    std::string content() const {
        std::string text;
        for (const std::string& line : lines_) text += line + '\n';
        return text;
    }

private:
    std::vector<std::string> lines_;
};

/// Why a case must not be rewritten; empty if it may.
std::string refusal(const Case& golden, const Result& result) {
    if (!result.accepted) return "does not parse";
    if (!result.lostToken.empty()) return result.lostToken;
    if (!golden.isUnstable && result.twice != result.once) return "a second run changes the result";
    if (!spellText(result.once, golden.hasEscapes) || !spellText(result.twice, golden.hasEscapes)) {
        return "the result cannot be spelled without (escapes)";
    }
    return "";
}

bool rewrite(FileLines& file, const ExpectedText& old, const std::string& text, bool hasEscapes) {
    if (old.text == text) return false;
    file.replaceText(old, *spellText(text, hasEscapes));
    return true;
}

} // namespace

Result runCase(const Case& golden) {
    const Engine engine(golden.scheme);
    const Outcome first = engine.format(golden.source);
    Result result;
    result.accepted = first.text.has_value();
    result.messages = messagesAsText(first.messages);
    if (!first.text) return result;
    result.once = *first.text;
    result.lostToken = describeDifference(golden.source, result.once);
    const Outcome second = engine.format(result.once);
    result.twice = second.text ? *second.text : "refused:\n" + messagesAsText(second.messages);
    return result;
}

std::string updateFile(const std::string& path, int& refused) {
    const std::string content = readWholeFile(path);
    const std::vector<Case> cases = parseCases(path, content);
    FileLines file(content);
    std::string log;
    for (auto golden = cases.rbegin(); golden != cases.rend(); ++golden) {
        const std::string where = path + ':' + std::to_string(golden->line) + ": ";
        const Result result = runCase(*golden);
        bool changed = false;
        if (const std::string why = refusal(*golden, result); !why.empty()) {
            ++refused;
            log.insert(0, where + "refused: " + why + '\n');
            continue;
        }
        if (golden->second) changed = rewrite(file, *golden->second, result.twice, golden->hasEscapes);
        // A second text that says "same" is about this one, and stays true or was rewritten above.
        changed = rewrite(file, golden->expected, result.once, golden->hasEscapes) || changed;
        if (changed) log.insert(0, where + "rewritten\n");
    }
    if (file.content() != content) std::ofstream(path, std::ios::binary) << file.content();
    return log;
}

} // namespace Golden
