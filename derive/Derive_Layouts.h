#ifndef KERFLINE_DERIVE_LAYOUTS_H
#define KERFLINE_DERIVE_LAYOUTS_H

#include "src/scheme/Norvane_PropertySet.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Derive {

/// A source to learn from, in line feeds.
struct Text {
    std::string name;
    std::string source;
};

/// A run of white space. Two layouts of one source have a gap at the same ink, wherever it stands.
struct Gap {
    /// Characters that are not white space in front of it.
    std::uint32_t ink = 0;
    std::uint32_t begin = 0; // in bytes
    std::uint32_t end = 0;
};

/// The gaps of one text that hold anything, in order.
std::vector<Gap> gapsOf(std::string_view text);

/// One source under one scheme.
struct Layout {
    std::string text;
    std::vector<Gap> gaps;

    std::string_view gapAt(std::size_t index) const {
        return std::string_view(text).substr(gaps[index].begin, gaps[index].end - gaps[index].begin);
    }
};

Layout layoutOf(std::string text);

/// Walks over two or three layouts of one source and calls `visit` with the white space of each, in
/// the order of the ink, wherever the first two differ. A gap that a layout lacks is empty there.
using PairVisitor = std::function<void(std::string_view a, std::string_view b, std::string_view source,
                                       std::uint32_t sourceOffset)>;
void visitDifferences(const Layout& a, const Layout& b, const Layout& source, const PairVisitor& visit);

/// Lays out texts on several threads, and drops what the engine refuses.
class Laboratory {
public:
    /// `threads` is at least 1. Runs end early, without a result, once `*cancelled` is true; it may be null.
    Laboratory(std::vector<Text> texts, unsigned threads, const std::atomic<bool>* cancelled);

    const std::vector<Text>& texts() const { return texts_; }
    const std::vector<Layout>& sources() const { return sources_; }
    std::size_t refused() const { return refused_; }
    bool isCancelled() const { return cancelled_ != nullptr && cancelled_->load(); }

    /// Each text under `scheme`, by the index of the text.
    std::vector<Layout> layOut(const Norvane::PropertySet& scheme) const;
    /// The same of other texts, one for each of texts(), such as sources that were spoilt.
    std::vector<Layout> layOut(const Norvane::PropertySet& scheme, const std::vector<std::string>& texts) const;

private:
    void forEach(std::size_t count, const std::function<void(std::size_t)>& action) const;

    std::vector<Text> texts_;
    std::vector<Layout> sources_;
    std::size_t refused_ = 0;
    unsigned threads_;
    const std::atomic<bool>* cancelled_;
};

} // namespace Derive

#endif
