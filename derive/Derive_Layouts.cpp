#include "derive/Derive_Layouts.h"

#include "edits/Edits_Edit.h"
#include "src/Norvane_FormatDriver.h"
#include "src/scheme/Norvane_FormatMarkerTable.h"

#include <algorithm>
#include <limits>
#include <sstream>
#include <thread>
#include <utility>

namespace Derive {

namespace {

/// Nothing if the engine does not lay out the text.
std::optional<std::string> laidOut(const Norvane::PropertySet& scheme, const std::string& source) {
    std::istringstream in(source);
    std::ostringstream out;
    Trn::MessageList messages;
    Norvane::UpdateFunctor silent;
    const Norvane::FormatOptions options(scheme, Norvane::defaultFormatMarkers());
    if (Norvane::FormatDriver().format(options, in, out, messages, silent) != 0) return std::nullopt;
    return std::move(out).str();
}

/// Reads the gaps of one layout in the order of their ink.
class GapReader {
public:
    explicit GapReader(const Layout& layout) : layout_(layout) {}

    std::uint32_t nextInk() const {
        return at_ < layout_.gaps.size() ? layout_.gaps[at_].ink : std::numeric_limits<std::uint32_t>::max();
    }
    /// The gap at `ink`, empty if there is none. Requires: called with rising inks.
    std::string_view take(std::uint32_t ink) {
        while (nextInk() < ink) step();
        if (nextInk() != ink) return {};
        const std::string_view gap = layout_.gapAt(at_);
        step();
        return gap;
    }
    /// The byte at which `ink` stands, or the white space in front of it. Ask before taking it.
    std::uint32_t offsetOf(std::uint32_t ink) {
        while (nextInk() < ink) step();
        if (nextInk() == ink) return layout_.gaps[at_].begin;
        return ink + spaceBefore_;
    }

private:
    void step() {
        spaceBefore_ += layout_.gaps[at_].end - layout_.gaps[at_].begin;
        ++at_;
    }

    const Layout& layout_;
    std::size_t at_ = 0;
    std::uint32_t spaceBefore_ = 0;
};

} // namespace

std::vector<Gap> gapsOf(std::string_view text) {
    std::vector<Gap> gaps;
    std::uint32_t ink = 0;
    for (std::size_t i = 0; i < text.size();) {
        if (!Edits::isWhite(text[i])) {
            ++ink;
            ++i;
            continue;
        }
        const std::size_t begin = i;
        while (i < text.size() && Edits::isWhite(text[i])) ++i;
        gaps.push_back({ink, static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(i)});
    }
    return gaps;
}

Layout layoutOf(std::string text) {
    Layout layout{std::move(text), {}};
    layout.gaps = gapsOf(layout.text);
    return layout;
}

void visitDifferences(const Layout& a, const Layout& b, const Layout& source, const PairVisitor& visit) {
    GapReader left(a);
    GapReader right(b);
    GapReader original(source);
    while (true) {
        const std::uint32_t ink = std::min(left.nextInk(), right.nextInk());
        if (ink == std::numeric_limits<std::uint32_t>::max()) return;
        const std::string_view leftGap = left.take(ink);
        const std::string_view rightGap = right.take(ink);
        if (leftGap == rightGap) continue;
        const std::uint32_t offset = original.offsetOf(ink);
        visit(leftGap, rightGap, original.take(ink), offset);
    }
}

Laboratory::Laboratory(std::vector<Text> texts, unsigned threads, const std::atomic<bool>* cancelled)
    : threads_(std::max(threads, 1U)), cancelled_(cancelled) {
    const Norvane::PropertySet empty;
    std::vector<char> isReadable(texts.size(), 0);
    forEach(texts.size(), [&](std::size_t i) { isReadable[i] = laidOut(empty, texts[i].source) == texts[i].source; });
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (isReadable[i] == 0) continue;
        sources_.push_back(layoutOf(texts[i].source));
        texts_.push_back(std::move(texts[i]));
    }
    refused_ = texts.size() - texts_.size();
}

std::vector<Layout> Laboratory::layOut(const Norvane::PropertySet& scheme) const {
    std::vector<Layout> layouts(texts_.size());
    // A text that only a scheme makes unreadable counts as one that it leaves alone.
    forEach(texts_.size(), [&](std::size_t i) {
        auto text = laidOut(scheme, texts_[i].source);
        layouts[i] = text && *text != texts_[i].source ? layoutOf(std::move(*text)) : sources_[i];
    });
    return layouts;
}

std::vector<Layout> Laboratory::layOut(const Norvane::PropertySet& scheme,
                                       const std::vector<std::string>& texts) const {
    std::vector<Layout> layouts(texts.size());
    forEach(texts.size(), [&](std::size_t i) { layouts[i] = layoutOf(laidOut(scheme, texts[i]).value_or(texts[i])); });
    return layouts;
}

void Laboratory::forEach(std::size_t count, const std::function<void(std::size_t)>& action) const {
    std::atomic<std::size_t> next = 0;
    const auto work = [&] {
        for (std::size_t i = next++; i < count && !isCancelled(); i = next++) action(i);
    };
    std::vector<std::jthread> others;
    for (unsigned i = 1; i < std::min<std::size_t>(threads_, count); ++i) others.emplace_back(work);
    work();
}

} // namespace Derive
