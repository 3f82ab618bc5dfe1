#ifndef KERFLINE_TESTS_SOURCES_H
#define KERFLINE_TESTS_SOURCES_H

#include <string>
#include <vector>

namespace Property {

struct Source {
    std::string name;
    std::string text;
};

/// The sources of all golden cases: one of every construct that has a rule.
const std::vector<Source>& goldenSources();

/// A few small files that hold many constructs each, for tests that try every place of a text.
const std::vector<Source>& smallFiles();

/// Texts that no person writes on purpose: empty ones, odd line ends and bytes, unclosed literals.
const std::vector<Source>& oddTexts();

/// 100,000 brackets of each kind inside one another, with and without their closing ones.
const std::vector<Source>& deepNests();

/// Random bytes and random tokens, the same at every run.
const std::vector<Source>& randomTexts();

/// `text` with `comment` put behind each of its tokens in turn, one copy for each place. Directives
/// and comments that end their line are left alone: what follows them is not a gap.
std::vector<Source> withCommentInEachGap(const Source& source, const std::string& comment);

} // namespace Property

#endif
